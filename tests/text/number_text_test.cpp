// Number <-> text: the 15-digit writing, the leading-number reading and the strict reading.
#include "text/number_text.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::text {
namespace {

using tv::test::error_of;

TEST(ToText, PlainNumbersAreShort) {
    EXPECT_EQ(to_text(0.0), "0");
    EXPECT_EQ(to_text(1.0), "1");
    EXPECT_EQ(to_text(-3.0), "-3");
    EXPECT_EQ(to_text(0.5), "0.5");
    EXPECT_EQ(to_text(-0.5), "-0.5");
    EXPECT_EQ(to_text(12.25), "12.25");
    EXPECT_EQ(to_text(100.0), "100");
}

TEST(ToText, NegativeZeroIsZero) { EXPECT_EQ(to_text(-0.0), "0"); }

TEST(ToText, FifteenSignificantDigits) {
    EXPECT_EQ(to_text(0.1 + 0.2), "0.3");  // 0.30000000000000004
    EXPECT_EQ(to_text(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(to_text(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(to_text(-2.0 / 3.0), "-0.666666666666667");
    EXPECT_EQ(to_text(123456789012345.0), "123456789012345");
    EXPECT_EQ(to_text(1234567890123456.0), "1.23456789012346E+15");
    EXPECT_EQ(to_text(0.1), "0.1");
    EXPECT_EQ(to_text(9.81), "9.81");
    EXPECT_EQ(to_text(3.14159265358979), "3.14159265358979");
    EXPECT_EQ(to_text(3.141592653589793), "3.14159265358979");
}

TEST(ToText, ExponentFormFromE15On) {
    EXPECT_EQ(to_text(1e15), "1E+15");
    EXPECT_EQ(to_text(1.5e15), "1.5E+15");
    EXPECT_EQ(to_text(-1.5e15), "-1.5E+15");
    EXPECT_EQ(to_text(999999999999999.0), "999999999999999");
    // 999999999999999.5 is a double; its 15 digits round up to 1E+15, which then takes the
    // exponent form.
    EXPECT_EQ(to_text(999999999999999.5), "1E+15");
    EXPECT_EQ(to_text(1e100), "1E+100");
    EXPECT_EQ(to_text(1.7976931348623157e308), "1.79769313486232E+308");
}

TEST(ToText, ExponentFormBelowE4) {
    EXPECT_EQ(to_text(1e-4), "0.0001");
    EXPECT_EQ(to_text(1.2345e-4), "0.00012345");
    EXPECT_EQ(to_text(1e-5), "1E-05");
    EXPECT_EQ(to_text(-1e-5), "-1E-05");
    EXPECT_EQ(to_text(1.5e-7), "1.5E-07");
    EXPECT_EQ(to_text(1e-100), "1E-100");
    // Below 1E-4, but 0.0001 at 15 digits, so it is written plainly.
    EXPECT_EQ(to_text(9.999999999999999e-05), "0.0001");
    EXPECT_EQ(to_text(5e-324), "4.94065645841247E-324");
}

TEST(ToText, ExactTiesAtTheFifteenthDigitGoToEven) {
    // These doubles lie exactly halfway between two 15-digit numbers.
    EXPECT_EQ(to_text(100000000000000.5), "100000000000000");
    EXPECT_EQ(to_text(100000000000001.5), "100000000000002");
    EXPECT_EQ(to_text(999999999999998.5), "999999999999998");
    EXPECT_EQ(to_text(1234567890123445.0), "1.23456789012344E+15");
    EXPECT_EQ(to_text(1234567890123455.0), "1.23456789012346E+15");
    // Not a tie: 0.1234567890123445 as a double lies just below the halfway point.
    EXPECT_EQ(to_text(0.1234567890123445), "0.123456789012344");
}

TEST(ToText, Integers) {
    EXPECT_EQ(to_text(0), "0");
    EXPECT_EQ(to_text(-12), "-12");
    EXPECT_EQ(to_text(std::int64_t{9007199254740993}), "9007199254740993");
}

TEST(Val, LeadingNumber) {
    EXPECT_EQ(val("3 apples"), 3.0);
    EXPECT_EQ(val(" - 1 2 . 5"), -12.5);
    EXPECT_EQ(val("abc"), 0.0);
    EXPECT_EQ(val(""), 0.0);
    EXPECT_EQ(val(".5"), 0.5);
    EXPECT_EQ(val("-.5"), -0.5);
    EXPECT_EQ(val("+7"), 7.0);
    EXPECT_EQ(val("5."), 5.0);
    EXPECT_EQ(val("1.2.3"), 1.2);
    EXPECT_EQ(val("12,5"), 12.0);
    EXPECT_EQ(val("$5"), 0.0);
    EXPECT_EQ(val("--5"), 0.0);
    EXPECT_EQ(val("-"), 0.0);
    EXPECT_EQ(val("."), 0.0);
    EXPECT_EQ(val("\t\t42\tkN"), 42.0);
    EXPECT_EQ(val("\n 7"), 7.0);
    EXPECT_EQ(val("1\n2"), 12.0);
    EXPECT_EQ(val("0.005\r\n"), 0.005);
    EXPECT_EQ(val("1 000 000"), 1000000.0);
}

TEST(Val, Exponent) {
    EXPECT_EQ(val("1e3"), 1000.0);
    EXPECT_EQ(val("1E3"), 1000.0);
    EXPECT_EQ(val("1e"), 1.0);
    EXPECT_EQ(val("1e+"), 1.0);
    EXPECT_EQ(val("1e-"), 1.0);
    EXPECT_EQ(val("2.5e-3"), 0.0025);
    EXPECT_EQ(val("2.5E+02m"), 250.0);
    EXPECT_EQ(val("1 e 3"), 1000.0);
    EXPECT_EQ(val("1e - 2"), 0.01);
    EXPECT_EQ(val("1d2"), 100.0);
    EXPECT_EQ(val("5.e3"), 5000.0);
    EXPECT_EQ(val("1E-05"), 1e-5);
    EXPECT_EQ(val("1.5E+15"), 1.5e15);
    EXPECT_EQ(val(".e5"), 0.0);
    EXPECT_EQ(val("1ex"), 1.0);
}

TEST(Val, NoNegativeZero) {
    EXPECT_FALSE(std::signbit(val("-0")));
    EXPECT_FALSE(std::signbit(val("-0.000")));
    EXPECT_FALSE(std::signbit(val("-1e-400")));
}

TEST(Val, OutOfRange) {
    EXPECT_EQ(error_of([] { val("1e400"); }), kOverflow);
    EXPECT_EQ(error_of([] { val("-1e400"); }), kOverflow);
    EXPECT_EQ(error_of([] { val("1.79769313486232E+308"); }), kOverflow);
    EXPECT_EQ(val("1.79769313486231E+308"), 1.79769313486231e308);
    EXPECT_EQ(val("1e-400"), 0.0);
    // Many digits with a negative exponent can still be too large, and the reverse.
    EXPECT_EQ(error_of([] { val("1" + std::string(400, '0') + "e-5"); }), kOverflow);
    EXPECT_EQ(val("0." + std::string(300, '0') + "1e-100"), 0.0);
    EXPECT_EQ(val("0e999999999999"), 0.0);
}

TEST(Val, ReadsCorrectlyRounded) {
    EXPECT_EQ(val("0.1"), 0.1);
    EXPECT_EQ(val("0.30000000000000004"), 0.1 + 0.2);
    EXPECT_EQ(val("9007199254740993"), 9007199254740992.0);  // tie to even
    EXPECT_EQ(val("9007199254740993.0000000001"), 9007199254740994.0);
    EXPECT_EQ(val("4.94065645841247E-324"), 5e-324);
}

TEST(ToDouble, WholeTextMustBeANumber) {
    EXPECT_EQ(to_double("12.5"), 12.5);
    EXPECT_EQ(to_double("  -0.25\t"), -0.25);
    EXPECT_EQ(to_double("+3"), 3.0);
    EXPECT_EQ(to_double(".5"), 0.5);
    EXPECT_EQ(to_double("5."), 5.0);
    EXPECT_EQ(to_double("1e3"), 1000.0);
    EXPECT_EQ(to_double("1E-05"), 1e-5);
    EXPECT_EQ(to_double("2.5e+2"), 250.0);
    EXPECT_FALSE(std::signbit(to_double("-0")));
}

TEST(ToDouble, BadTextIsTypeMismatch) {
    for (const char* bad : {"", "   ", "abc", "3 apples", "1 2", "- 1", "1.2.3", "1e", "1e+", ".", "-", "+",
                            "e5", "12,5", "0x10", "1e3x"}) {
        EXPECT_EQ(error_of([&] { to_double(bad); }), kTypeMismatch) << '"' << bad << '"';
    }
}

TEST(ToDouble, OutOfRange) {
    EXPECT_EQ(error_of([] { to_double("1e400"); }), kOverflow);
    EXPECT_EQ(to_double("1e-400"), 0.0);
}

TEST(Round15, IsTheTextRoundTrip) {
    EXPECT_EQ(round15(0.1 + 0.2), 0.3);
    EXPECT_EQ(round15(1.0 / 3.0), 0.333333333333333);
    EXPECT_EQ(round15(1234567890123456.0), 1234567890123460.0);
    EXPECT_EQ(round15(999999999999999.5), 1e15);
    EXPECT_EQ(round15(100000000000000.5), 100000000000000.0);
    EXPECT_EQ(round15(5e-324), 5e-324);
    EXPECT_EQ(round15(0.0), 0.0);
    EXPECT_FALSE(std::signbit(round15(-0.0)));
    EXPECT_EQ(round15(-2.0 / 3.0), -0.666666666666667);
}

TEST(Round15, DigitsBeyondTheLargestDoubleOverflowAsValDoes) {
    const double max = DBL_MAX;
    EXPECT_EQ(error_of([&] { val(to_text(max)); }), kOverflow);
    EXPECT_EQ(error_of([&] { round15(max); }), kOverflow);
    EXPECT_EQ(error_of([&] { round15(-max); }), kOverflow);
    const double below = 1.79769313486231e308;
    EXPECT_EQ(round15(below), val(to_text(below)));
}

}  // namespace
}  // namespace tv::text

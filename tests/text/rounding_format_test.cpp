// Rounding to decimals and to integers, and the format patterns: nearest, exact ties to even.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "text/format.h"
#include "text/rounding.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::text {
namespace {

using tv::test::error_of;

TEST(RoundTo, ExactTiesGoToEven) {
    EXPECT_EQ(round_to(0.125, 2), 0.12);
    EXPECT_EQ(round_to(0.375, 2), 0.38);
    EXPECT_EQ(round_to(2.5, 0), 2.0);
    EXPECT_EQ(round_to(3.5, 0), 4.0);
    EXPECT_EQ(round_to(-2.5, 0), -2.0);
    EXPECT_EQ(round_to(1.125, 2), 1.12);
}

TEST(RoundTo, ValuesJustOffATieFollowTheirBinaryValue) {
    // 1.005 and 2.675 are stored below the tie, 1.135 above it.
    EXPECT_EQ(round_to(1.005, 2), 1.0);
    EXPECT_EQ(round_to(2.675, 2), 2.67);
    EXPECT_EQ(round_to(1.135, 2), 1.14);
    EXPECT_EQ(round_to(0.1 + 0.2, 15), 0.3);
    EXPECT_EQ(round_to(1.0 / 3.0, 8), 0.33333333);
}

TEST(RoundTo, ResultIsTheDoubleNearestTheDecimal) {
    EXPECT_EQ(round_to(0.123456789, 3), 0.123);
    EXPECT_EQ(round_to(123456.7891, 2), 123456.79);
    EXPECT_EQ(round_to(1e300, 2), 1e300);
    EXPECT_EQ(round_to(-0.004, 2), 0.0);
    EXPECT_FALSE(std::signbit(round_to(-0.004, 2)));
}

TEST(RoundTo, BadArguments) {
    EXPECT_EQ(error_of([] { round_to(1.0, -1); }), kInvalidCall);
    EXPECT_EQ(error_of([] { round_to(1.0, 16); }), kInvalidCall);
    EXPECT_EQ(error_of([] { round_to(std::numeric_limits<double>::infinity(), 2); }), kOverflow);
}

TEST(ToInt16, NearestWithTiesToEven) {
    EXPECT_EQ(to_int16(2.5), 2);
    EXPECT_EQ(to_int16(3.5), 4);
    EXPECT_EQ(to_int16(-2.5), -2);
    EXPECT_EQ(to_int16(-3.5), -4);
    EXPECT_EQ(to_int16(2.4999999999999996), 2);
    EXPECT_EQ(to_int16(0.5), 0);
    EXPECT_EQ(to_int16(1.5), 2);
    EXPECT_EQ(to_int16(32767.4), 32767);
    EXPECT_EQ(to_int16(-32768.5), -32768);
}

TEST(ToInt16, Overflow) {
    EXPECT_EQ(error_of([] { to_int16(32767.5); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int16(32768.0); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int16(-32768.51); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int16(-32769.0); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int16(std::numeric_limits<double>::quiet_NaN()); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int16(1e300); }), kOverflow);
}

TEST(ToInt32, NearestAndOverflow) {
    EXPECT_EQ(to_int32(2147483647.4), 2147483647);
    EXPECT_EQ(to_int32(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(to_int32(1e9 + 0.5), 1000000000);
    EXPECT_EQ(error_of([] { to_int32(2147483647.5); }), kOverflow);
    EXPECT_EQ(error_of([] { to_int32(-2147483649.0); }), kOverflow);
}

TEST(IntegerOperators, IntDivAndMod) {
    EXPECT_EQ(int_div(7, 2), 3);
    EXPECT_EQ(int_div(-7, 2), -3);
    EXPECT_EQ(int_div(7.5, 2), 4);   // 8 \ 2
    EXPECT_EQ(int_div(6.5, 2.5), 3);  // 6 \ 2
    EXPECT_EQ(mod(7, 3), 1);
    EXPECT_EQ(mod(-7, 3), -1);
    EXPECT_EQ(mod(17.5, 5), 3);  // 18 Mod 5
    EXPECT_EQ(mod(5, 1.5), 1);    // 5 Mod 2
    EXPECT_EQ(error_of([] { int_div(1, 0.4); }), kDivisionByZero);
    EXPECT_EQ(error_of([] { mod(1, -0.5); }), kDivisionByZero);
    EXPECT_EQ(error_of([] { int_div(-2147483648.0, -1); }), kOverflow);
    EXPECT_EQ(mod(-2147483648.0, -1), 0);
}

TEST(FloorInt, RoundsDown) {
    EXPECT_EQ(floor_int(2.7), 2.0);
    EXPECT_EQ(floor_int(-2.1), -3.0);
    EXPECT_EQ(floor_int(-2.0), -2.0);
}

TEST(Format, Patterns) {
    EXPECT_EQ(format(3.14159, "0"), "3");
    EXPECT_EQ(format(3.14159, "0.0"), "3.1");
    EXPECT_EQ(format(3.14159, "0.00"), "3.14");
    EXPECT_EQ(format(3.14159, "0.000"), "3.142");
    EXPECT_EQ(format(3.14159, "0.0000"), "3.1416");
    EXPECT_EQ(format(3.14159, "0.00000000"), "3.14159000");
    EXPECT_EQ(format(0.5, "0.00"), "0.50");
    EXPECT_EQ(format(-0.25, "0.0000"), "-0.2500");
    EXPECT_EQ(format(12345678.9, "0.00"), "12345678.90");
    EXPECT_EQ(format(1e-9, "0.00000000"), "0.00000000");
    EXPECT_EQ(format(1.5e-8, "0.00000000"), "0.00000001");  // stored just below the tie
    EXPECT_EQ(format(1e20, "0"), "100000000000000000000");
}

TEST(Format, ExactTiesToEven) {
    EXPECT_EQ(format(0.125, "0.00"), "0.12");
    EXPECT_EQ(format(0.375, "0.00"), "0.38");
    EXPECT_EQ(format(2.5, "0"), "2");
    EXPECT_EQ(format(3.5, "0"), "4");
    EXPECT_EQ(format(-2.5, "0"), "-2");
    EXPECT_EQ(format(0.0625, "0.000"), "0.062");
    EXPECT_EQ(format(0.25, "0.0"), "0.2");
    EXPECT_EQ(format(0.75, "0.0"), "0.8");
}

TEST(Format, BelowTheTieRoundsDown) {
    EXPECT_EQ(format(1.005, "0.00"), "1.00");
    EXPECT_EQ(format(2.675, "0.00"), "2.67");
    EXPECT_EQ(format(1.135, "0.00"), "1.14");
}

TEST(Format, NegativeValuesRoundingToZeroLoseTheSign) {
    EXPECT_EQ(format(-0.001, "0.00"), "0.00");
    EXPECT_EQ(format(-0.4, "0"), "0");
    EXPECT_EQ(format(-0.5, "0"), "0");
    EXPECT_EQ(format(-0.0, "0.000"), "0.000");
    EXPECT_EQ(format(-0.000000004, "0.00000000"), "0.00000000");
    EXPECT_EQ(format(-0.000000006, "0.00000000"), "-0.00000001");
    EXPECT_EQ(format(-0.6, "0"), "-1");
}

TEST(Format, BadPatternsAndValues) {
    for (const char* bad : {"", "0.", "#.##", "0.0#", "00", "0,00"})
        EXPECT_EQ(error_of([&] { format(1.0, bad); }), kInvalidCall) << bad;
    EXPECT_EQ(error_of([] { format(std::numeric_limits<double>::infinity(), "0.00"); }), kOverflow);
    EXPECT_EQ(error_of([] { format_fixed(1.0, 31); }), kInvalidCall);
    EXPECT_EQ(format_fixed(-1.7976931348623157e308, 30).size(), 1u + 309u + 1u + 30u);
}

TEST(TextHelpers, UpperTrimAndTxtExtension) {
    EXPECT_EQ(upper("a.txt b1"), "A.TXT B1");
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\t"), "\ta\t");  // Trim removes blanks only
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(with_txt_extension("C:\\out\\record"), "C:\\out\\record.txt");
    EXPECT_EQ(with_txt_extension("record.TxT"), "record.TxT");
    EXPECT_EQ(with_txt_extension("a.txt.bak"), "a.txt.bak");
    EXPECT_EQ(with_txt_extension("a.text"), "a.text.txt");
}

}  // namespace
}  // namespace tv::text

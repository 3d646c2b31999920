// Checked arithmetic and the old arrays: the failures of the old run time instead of inf, NaN or
// a stray index.
#include "text/checked.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/errors.h"

namespace tv::text {
namespace {

using tv::test::error_of;

TEST(RuntimeErrors, CarryNumberAndDescription) {
    try {
        raise(kDivisionByZero);
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 11);
        EXPECT_EQ(e.description(), "Division by zero");
        EXPECT_STREQ(e.what(), "Division by zero");
    }
    EXPECT_EQ(error_description(5), "Invalid procedure call or argument");
    EXPECT_EQ(error_description(6), "Overflow");
    EXPECT_EQ(error_description(9), "Subscript out of range");
    EXPECT_EQ(error_description(13), "Type mismatch");
    EXPECT_EQ(error_description(380), "Invalid property value");
}

TEST(Checked, Division) {
    EXPECT_EQ(div(1, 4), 0.25);
    EXPECT_EQ(div(-3, 2), -1.5);
    EXPECT_EQ(error_of([] { div(1, 0); }), kDivisionByZero);
    EXPECT_EQ(error_of([] { div(-1, -0.0); }), kDivisionByZero);
    EXPECT_EQ(error_of([] { div(0, 0); }), kOverflow);  // 0 / 0 is the old "Overflow"
    EXPECT_EQ(error_of([] { div(1e308, 1e-10); }), kOverflow);
    EXPECT_GT(div(1e-308, 1e10), 0.0);  // a subnormal quotient is no failure
    EXPECT_EQ(div(1e-320, 1e10), 0.0);  // nor is underflow to zero
}

TEST(Checked, NonFiniteResultsAreOverflow) {
    EXPECT_EQ(chk(2.0), 2.0);
    EXPECT_EQ(error_of([] { chk(1e308 * 10); }), kOverflow);
    EXPECT_EQ(error_of([] { chk(std::numeric_limits<double>::quiet_NaN()); }), kOverflow);
    EXPECT_EQ(exp_(0), 1.0);
    EXPECT_EQ(exp_(-1000), 0.0);
    EXPECT_EQ(error_of([] { exp_(710); }), kOverflow);
}

TEST(Checked, InvalidArguments) {
    EXPECT_EQ(sqrt_(6.25), 2.5);
    EXPECT_EQ(sqrt_(0), 0.0);
    EXPECT_EQ(error_of([] { sqrt_(-1e-300); }), kInvalidCall);
    EXPECT_EQ(log_(1), 0.0);
    EXPECT_EQ(error_of([] { log_(0); }), kInvalidCall);
    EXPECT_EQ(error_of([] { log_(-2); }), kInvalidCall);
    EXPECT_EQ(error_of([] { log_(std::numeric_limits<double>::quiet_NaN()); }), kInvalidCall);
}

TEST(Checked, Power) {
    EXPECT_EQ(pow_(2, 10), 1024.0);
    EXPECT_EQ(pow_(-2, 3), -8.0);
    EXPECT_EQ(pow_(-2, -2), 0.25);
    EXPECT_EQ(pow_(6.25, 0.5), 2.5);
    EXPECT_EQ(pow_(0, 0), 1.0);
    EXPECT_EQ(pow_(0, 2), 0.0);
    EXPECT_EQ(error_of([] { pow_(-8, 1.0 / 3.0); }), kInvalidCall);
    EXPECT_EQ(error_of([] { pow_(-0.1, 0.05); }), kInvalidCall);
    EXPECT_EQ(error_of([] { pow_(0, -1); }), kDivisionByZero);
    EXPECT_EQ(error_of([] { pow_(10, 400); }), kOverflow);
    EXPECT_EQ(error_of([] { pow_(-10, 401); }), kOverflow);
}

TEST(Array, BoundsAreZeroToUpper) {
    DoubleArray a(3);
    EXPECT_EQ(a.ubound(), 3);
    a(0) = 1;
    a(3) = 4;
    EXPECT_EQ(a(3), 4.0);
    EXPECT_EQ(error_of([&] { a(4); }), kSubscript);
    EXPECT_EQ(error_of([&] { a(-1); }), kSubscript);
}

TEST(Array, NeverAllocatedOrErasedRaises) {
    DoubleArray a;
    EXPECT_FALSE(a.allocated());
    EXPECT_EQ(error_of([&] { a.ubound(); }), kSubscript);
    EXPECT_EQ(error_of([&] { a(0); }), kSubscript);
    a.redim(2);
    a.erase();
    EXPECT_EQ(error_of([&] { a.ubound(); }), kSubscript);
}

TEST(Array, RedimLosesAndRedimPreserveKeeps) {
    DoubleArray a(2);
    a(1) = 5;
    a(2) = 6;
    a.redim_preserve(4);
    EXPECT_EQ(a(1), 5.0);
    EXPECT_EQ(a(2), 6.0);
    EXPECT_EQ(a(4), 0.0);
    a.redim_preserve(1);
    EXPECT_EQ(a.ubound(), 1);
    EXPECT_EQ(a(1), 5.0);
    a.redim(1);
    EXPECT_EQ(a(1), 0.0);
    a.redim(-1);
    EXPECT_EQ(a.ubound(), -1);
    EXPECT_EQ(error_of([&] { a(0); }), kSubscript);
    EXPECT_EQ(error_of([&] { a.redim(-2); }), kSubscript);
}

TEST(Array, DoubleIndexRoundsHalfToEven) {
    DoubleArray a(3);
    a(2) = 20;
    a(3) = 30;
    EXPECT_EQ(a.at(2.5), 20.0);
    EXPECT_EQ(a.at(2.6), 30.0);
    EXPECT_EQ(a.at(1.5), 20.0);
    EXPECT_EQ(error_of([&] { a.at(3.5); }), kSubscript);
    EXPECT_EQ(error_of([&] { a.at(-0.6); }), kSubscript);
    EXPECT_EQ(a.at(-0.5), a(0));
    EXPECT_EQ(error_of([&] { a.at(1e12); }), kOverflow);
    EXPECT_EQ(error_of([&] { a.at(std::numeric_limits<double>::quiet_NaN()); }), kOverflow);
}

}  // namespace
}  // namespace tv::text

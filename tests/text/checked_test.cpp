// The run-time error and the old arrays: a stray index fails as the old run time failed. The
// checked arithmetic's cases and the arrays' indices are in tests/golden/tables/text.txt.
#include "text/checked.h"

#include <gtest/gtest.h>

#include "support/arrays.h"
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
    EXPECT_EQ(test::listed(a), "0 5 6 0 0");
    a.redim_preserve(1);
    EXPECT_EQ(test::listed(a), "0 5");
    a.redim(1);
    EXPECT_EQ(test::listed(a), "0 0");
    a.redim(-1);
    EXPECT_EQ(a.ubound(), -1);
    EXPECT_EQ(error_of([&] { a(0); }), kSubscript);
    EXPECT_EQ(error_of([&] { a.redim(-2); }), kSubscript);
}

}  // namespace
}  // namespace tv::text

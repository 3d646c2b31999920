#include "compute/coefficient/response_modification.h"

#include <gtest/gtest.h>

#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using tv::test::error_of;

ResponseModificationInputs sample() { return {1000, 0.5, 8, 2, 2800, 20000, 1400}; }

std::string shown(double x) { return text::to_text(text::round_to(x, 1)); }

// By hand, Vs 1000, T 0.5, du 8, Xy 2, Yy 2800, A 20000, Ke 1400:
//   miu = 4; w = ln 0.5 / ln 2.718282 = -0.6931471;
//   e = exp(-2 (w - 0.2)^2) = exp(-2 x 0.7977117) = 0.2028226;
//   phi = 1 + 1 / (6 - 2) - 2 / 2.5 x e = 1.25 - 0.1622581 = 1.0877419;
//   Rm2 = 3 / phi + 1 = 3.758007; Rs = 2800 / 1000 = 2.8;
//   d = (40000 / 1400)^0.5 = 5.345225; Ve = 7483.315; Rm1 = 2.672612;
//   Rm = Rm1; Ru = 2.672612 x 2.8 = 7.483315.
TEST(ResponseModification, HandWorked) {
    auto r = response_modification(sample());
    ASSERT_TRUE(r);
    EXPECT_EQ(r->miu, 4.0);
    EXPECT_NEAR(r->Rm2, 3.758007, 1e-6);
    EXPECT_EQ(r->Rs, 2.8);
    EXPECT_NEAR(r->Rm1, 2.672612, 1e-6);
    EXPECT_NEAR(r->Ru, 7.483315, 1e-6);
    EXPECT_EQ(shown(r->Rs), "2.8");
    EXPECT_EQ(shown(r->Rm1), "2.7");
    EXPECT_EQ(shown(r->Rm2), "3.8");
    EXPECT_EQ(shown(r->Ru), "7.5");
    EXPECT_EQ(shown(r->miu), "4");
}

TEST(ResponseModification, SmallerFactorWins) {
    // Area large enough for Rm1 to pass Rm2: d = (2 x 60000 / 1400)^0.5 = 9.258201, Rm1 = 4.629100.
    auto in = sample();
    in.A = 60000;
    auto r = response_modification(in);
    ASSERT_TRUE(r);
    EXPECT_GT(r->Rm1, r->Rm2);
    EXPECT_EQ(r->Ru, r->Rm2 * r->Rs);
}

TEST(ResponseModification, ZeroInputsAreRefusedButAreaMayBeZero) {
    for (double ResponseModificationInputs::*field :
         {&ResponseModificationInputs::Vs, &ResponseModificationInputs::T, &ResponseModificationInputs::du,
          &ResponseModificationInputs::Xy, &ResponseModificationInputs::Yy, &ResponseModificationInputs::Ke}) {
        auto in = sample();
        in.*field = 0;
        EXPECT_FALSE(response_modification(in));
    }
    auto in = sample();
    in.A = 0;
    auto r = response_modification(in);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->Rm1, 0.0);
    EXPECT_EQ(r->Ru, 0.0);
}

TEST(ResponseModification, DuctilityOfOneGivesRm2One) {
    auto in = sample();
    in.du = 2;
    auto r = response_modification(in);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->Rm2, 1.0);
}

TEST(ResponseModification, Failures) {
    auto in = sample();
    in.du = 24;  // miu 12: 12 T - miu T = 0
    EXPECT_EQ(error_of([&] { response_modification(in); }), text::kDivisionByZero);
    in = sample();
    in.T = -0.5;
    EXPECT_EQ(error_of([&] { response_modification(in); }), text::kInvalidCall);
    in = sample();
    in.A = -100;  // a negative root
    EXPECT_EQ(error_of([&] { response_modification(in); }), text::kInvalidCall);
}

}  // namespace
}  // namespace tv::compute

// The inverse sum: a worked history, picked and all terms, threads against the plain loop, and
// failures. A history rebuilt from all terms, with the factor 1/pi, is the golden case
// fourier_exports; the terms' weights and the export lines are in tests/golden/tables/fourier.txt.
#include "compute/fourier/inverse_sum.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <thread>

#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using tv::test::error_of;

// The weights of picked terms are in tests/golden/tables/fourier.txt.
TEST(InverseSum, PickedTermsNeedEveryColumnAndAllTermsMultiply) {
    EXPECT_EQ(error_of([&] { picked_inverse_terms({2}, {3}, {}, 0.05, 0); }), text::kSubscript);
    // All terms: omega is i times deltaOmega, a product.
    const InverseTerms all = all_inverse_terms({1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 7}, 0.1);
    EXPECT_EQ(all.omega[2], 3 * 0.1);
    EXPECT_EQ(all.omega[6], 0.7000000000000001);  // seven additions of 0.1 give 0.7
    EXPECT_EQ(all.weight, 0.1);
}

TEST(InverseSum, AWorkedTwoRowHistory) {
    const InverseTerms terms = picked_inverse_terms({2}, {3}, {4}, 0.1, 0.5);
    History h;
    std::vector<std::int32_t> reported;
    const auto caller = std::this_thread::get_id();
    inverse_transform(terms, 0.25, 2, h, [&](std::int32_t k) {
        reported.push_back(k);
        EXPECT_EQ(std::this_thread::get_id(), caller);
    });
    EXPECT_EQ(reported, (std::vector<std::int32_t>{1, 2}));
    const double a1 = text::round15(0 + 3 * std::cos(2 * 0.25) * 0.5 + 4 * std::sin(2 * 0.25) * 0.5);
    EXPECT_EQ(h.accel[1], a1);
    EXPECT_EQ(h.accel[0], 0.0);
    EXPECT_EQ(h.time[2], 0.5);
    const HistoryRowTexts row = history_row_texts(h, 1);
    EXPECT_EQ(row.time, "0.25");
    EXPECT_EQ(row.accel, text::to_text(text::round_to(a1 * (1 / 3.14159265358979), 5)));
}

TEST(InverseSum, NoPicksGiveAQuietHistory) {
    History h;
    inverse_transform(picked_inverse_terms({}, {}, {}, 0.05, 0), 0.05, 350, h);
    ASSERT_EQ(h.accel.size(), 351u);
    for (std::int32_t k = 1; k <= 350; ++k) EXPECT_EQ(history_row_texts(h, k).accel, "0");
    EXPECT_EQ(history_row_texts(h, 350).time, "17.5");
    // Times are a running sum of dtOut, rounded for the table.
    EXPECT_EQ(h.time[3], 0.15);
}

TEST(InverseSum, ThreadedRowsEqualThePlainLoop) {
    InverseTerms terms;
    for (int i = 1; i <= 3000; ++i) {
        terms.omega.push_back(i * 0.05);
        terms.real.push_back(std::sin(i * 0.01) * 3);
        terms.imag.push_back(std::cos(i * 0.013));
    }
    terms.weight = 0.05;
    History h;
    inverse_transform(terms, 0.02, 300, h);
    double t = 0;
    for (std::int32_t k = 1; k <= 300; ++k) {
        t = t + 0.02;
        double a = 0;
        for (std::size_t i = 0; i < terms.omega.size(); ++i)
            a = text::val(text::to_text(a + terms.real[i] * std::cos(terms.omega[i] * t) * 0.05 +
                                        terms.imag[i] * std::sin(terms.omega[i] * t) * 0.05));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(h.accel[static_cast<std::size_t>(k)]), std::bit_cast<std::uint64_t>(a)) << k;
        ASSERT_EQ(h.time[static_cast<std::size_t>(k)], text::round_to(t, 2));
    }
}

TEST(InverseSum, AnOverflowIsRaisedAtItsRow) {
    // 1E308 * cos(t) * 2 overflows at the first row, t = 0.1.
    InverseTerms terms{{1.0}, {1e308}, {0.0}, 2.0};
    History h;
    std::vector<std::int32_t> reported;
    EXPECT_EQ(error_of([&] { inverse_transform(terms, 0.1, 5, h, [&](std::int32_t k) { reported.push_back(k); }); }),
              text::kOverflow);
    EXPECT_TRUE(reported.empty());
    // Sums above 1E300 are settled by the checked loop, not refused.
    terms.real = {8e307};
    inverse_transform(terms, 0.1, 3, h);
    EXPECT_EQ(h.accel[1], text::round15(8e307 * std::cos(0.1) * 2));
}

}  // namespace
}  // namespace tv::compute

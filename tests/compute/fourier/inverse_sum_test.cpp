// The inverse sum: row count, a history rebuilt from all terms, the weights of picked terms,
// the factor 1/pi, and the export lines.
#include "compute/fourier/inverse_sum.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <thread>

#include "compute/fourier/fourier_sum.h"
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

// x(t) = (1/pi) * integral over omega of (Re cos(omega t) + Im sin(omega t)): the rows of the
// table with the factor give the record back; the running sums alone are pi times it.
TEST(InverseSum, AllTermsRebuildTheRecordAndTheFactorIsOneOverPi) {
    const double dt = 0.01, dOmega = 0.05;
    const FourierSamples s = fourier_samples(1, 1000, [&](double j) {
        const double t = j * dt;
        return text::round15(100 * std::sin(3 * t) * std::exp(-t) * t);
    });
    FourierSpectrum spectrum;
    FourierPeak peak;
    const std::int32_t n = omega_steps(60, dOmega);
    fourier_transform(s, dt, dOmega, n, spectrum, peak);
    // The coefficients as the table holds them: 5 decimals.
    std::vector<double> re, im;
    for (std::int32_t i = 1; i <= n; ++i) {
        const FourierRowTexts row = fourier_row_texts(spectrum, i);
        re.push_back(text::val(row.real));
        im.push_back(text::val(row.imag));
    }
    History h;
    const std::int32_t m = 200;  // 10 s by 0.05
    inverse_transform(all_inverse_terms(re, im, dOmega), 0.05, m, h);
    double worst = 0, worstRaw = 0, unscaled = 0;
    for (std::int32_t k = 1; k < m; ++k) {
        const double x = s.x[static_cast<std::size_t>(5 * k - 1)];  // line 5k is t = 0.05k
        worst = std::fmax(worst, std::fabs(text::val(history_row_texts(h, k).accel) - x));
        worstRaw = std::fmax(worstRaw, std::fabs(h.accel[static_cast<std::size_t>(k)] - M_PI * x));
        unscaled = std::fmax(unscaled, std::fabs(h.accel[static_cast<std::size_t>(k)] - x));
    }
    // Peak of the record about 30. The grid starts at deltaOmega, without the half term at
    // omega 0: that leaves an offset of about 0.05 here.
    EXPECT_LT(worst, 0.1);
    EXPECT_LT(worstRaw, 0.1 * M_PI);
    EXPECT_GT(unscaled, 30.0);  // the sums alone are pi times the record
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

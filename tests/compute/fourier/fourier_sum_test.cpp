// The direct Fourier sum and its inverse on signals whose transform is known.
#include <gtest/gtest.h>

#include <cmath>

#include "compute/fourier/fast_round15.h"
#include "compute/fourier/fourier_sum.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {
namespace {

FourierSamples sine(double omega0, double dt, int lines) {
    FourierSamples s;
    for (int j = 1; j <= lines; ++j) {
        s.j.push_back(j);
        s.x.push_back(std::sin(omega0 * j * dt));
    }
    return s;
}

TEST(FourierSum, StepLimitCountsOmegasHalfToEven) {
    EXPECT_EQ(omega_steps(100, 0.05), 2000);
    EXPECT_EQ(omega_steps(600.05, 0.05), 12001);
    EXPECT_LT(omega_steps(600.05, 0.05), kOmegaStepLimit);
    EXPECT_EQ(omega_steps(600.1, 0.05), 12002);
    EXPECT_EQ(omega_steps(0.25, 0.1), 2);  // 2.5 to even
    EXPECT_THROW(omega_steps(1, 0), text::RuntimeError);
}

TEST(FourierSum, APureSinePeaksAtItsOwnOmega) {
    const double omega0 = 2 * M_PI * 2.0;  // 2 Hz
    FourierSamples s = sine(omega0, 0.01, 2000);
    std::vector<double> re, im, om;
    const std::int32_t n = omega_steps(40, 0.05);
    std::int32_t reported = 0;
    fourier_sums(s, 0.01, 0.05, n, re, im, om, [&](std::int32_t i) { EXPECT_EQ(i, ++reported); });
    EXPECT_EQ(reported, n);
    std::int32_t best = 1;
    for (std::int32_t i = 1; i <= n; ++i)
        if (fourier_amplitude(re[i], im[i]) > fourier_amplitude(re[best], im[best])) best = i;
    EXPECT_NEAR(om[best], omega0, 0.05);
    // |X(omega0)| of a sine over T seconds is T / 2.
    EXPECT_NEAR(fourier_amplitude(re[best], im[best]), 20.0 / 2, 0.6);
}

TEST(FourierSum, ThreadedSumsEqualThePlainLoopBitForBit) {
    FourierSamples s = sine(7.3, 0.02, 700);
    for (auto& x : s.x) x *= 0.37;
    std::vector<double> re, im, om;
    const std::int32_t n = 333;
    fourier_sums(s, 0.02, 0.07, n, re, im, om);
    double omega = 0;
    for (std::int32_t i = 1; i <= n; ++i) {
        omega = omega + 0.07;
        double r = 0, m = 0;
        for (std::size_t k = 0; k < s.j.size(); ++k) {
            r = text::val(text::to_text(r + 0.02 * s.x[k] * std::cos(s.j[k] * omega * 0.02)));
            m = text::val(text::to_text(m + 0.02 * s.x[k] * std::sin(s.j[k] * omega * 0.02)));
        }
        ASSERT_EQ(re[i], r) << i;
        ASSERT_EQ(im[i], m) << i;
        ASSERT_EQ(om[i], omega);
    }
    EXPECT_EQ(re[0], 0.0);
}

TEST(FourierSum, AllTermsRebuildTheRecordTimesPi) {
    // x(t) = sum over omega of (Re cos + Im sin) dOmega / pi, for a record band-limited below
    // the omega limit and sampled finely enough.
    const double dt = 0.01, dOmega = 0.05;
    FourierSamples s;
    for (int j = 1; j <= 1000; ++j) {
        s.j.push_back(j);
        s.x.push_back(std::sin(3.0 * j * dt) * std::exp(-0.3 * j * dt) * j * dt);
    }
    std::vector<double> re, im, om;
    const std::int32_t n = omega_steps(60, dOmega);
    fourier_sums(s, dt, dOmega, n, re, im, om);
    for (int k : {200, 350, 500}) {
        const double t = k * dt;
        double a = 0;
        for (std::int32_t i = 1; i <= n; ++i) a = inverse_term(a, re[i], im[i], i * dOmega, t, dOmega);
        EXPECT_NEAR(a * kInversePi, s.x[static_cast<std::size_t>(k - 1)], 0.02) << t;
        EXPECT_NEAR(a, M_PI * s.x[static_cast<std::size_t>(k - 1)], 0.07) << "without the factor";
    }
}

TEST(FourierSum, OverflowIsRaisedAtItsOmega) {
    FourierSamples s{{1, 2}, {1e308, 1e308}};
    std::vector<double> re, im, om;
    EXPECT_THROW(fourier_sums(s, 10, 0.1, 3, re, im, om), text::RuntimeError);
}

}  // namespace
}  // namespace tv::compute

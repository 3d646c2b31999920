// The direct Fourier sum: step count, known transforms, the peak, the table texts, threads
// against the plain loop, callbacks and failures.
#include "compute/fourier/fourier_sum.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <stdexcept>
#include <string>
#include <thread>

#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using tv::test::error_of;

FourierSamples sine(double omega0, double dt, int lines, double amplitude = 1) {
    return fourier_samples(1, lines, [&](double j) { return text::round15(amplitude * std::sin(omega0 * j * dt)); });
}

TEST(FourierSum, SamplesFollowTheLineLoop) {
    const FourierSamples s = fourier_samples(5, 8, [](double j) { return j * 10; });
    EXPECT_EQ(s.j, (std::vector<double>{5, 6, 7, 8}));
    EXPECT_EQ(s.x, (std::vector<double>{50, 60, 70, 80}));
    EXPECT_EQ(fourier_samples(5.5, 7, [](double) { return 1.0; }).j, (std::vector<double>{5.5, 6.5}));
    EXPECT_TRUE(fourier_samples(9, 8, [](double) { return 1.0; }).j.empty());
}

TEST(FourierSum, APureSinePeaksAtItsOwnOmegaAndThePeakIsKeptAcrossRuns) {
    // 10 rad/s over 20 s: |sum of dt sin(w0 t) e^(-i w0 t)| is about T / 2 = 10 at w0.
    const FourierSamples s = sine(10.0, 0.01, 2000);
    FourierSpectrum out;
    FourierPeak peak;
    const std::int32_t n = omega_steps(40, 0.05);
    std::int32_t reported = 0;
    const auto caller = std::this_thread::get_id();
    fourier_transform(s, 0.01, 0.05, n, out, peak, [&](std::int32_t i) {
        EXPECT_EQ(i, ++reported);
        EXPECT_EQ(std::this_thread::get_id(), caller);
        EXPECT_NE(out.amp[static_cast<std::size_t>(i)], 0.0);  // the row is complete when reported
    });
    EXPECT_EQ(reported, n);
    EXPECT_EQ(text::to_text(text::round_to(peak.omega, 2)), "10");
    EXPECT_NEAR(peak.amp, 10.0, 0.05);
    EXPECT_EQ(out.real.size(), 801u);
    EXPECT_EQ(out.real[0], 0.0);
    EXPECT_EQ(out.amp[0], 0.0);
    // Far from the peak the amplitude is small.
    EXPECT_LT(out.amp[400], 0.1);

    // The peak is kept across runs: a weaker record does not displace it.
    const FourierPeak first = peak;
    fourier_transform(sine(20.0, 0.01, 2000, 0.5), 0.01, 0.05, 800, out, peak);
    EXPECT_EQ(peak.omega, first.omega);
    // A stronger one does.
    fourier_transform(sine(20.0, 0.01, 2000, 3), 0.01, 0.05, 800, out, peak);
    EXPECT_EQ(text::to_text(text::round_to(peak.omega, 2)), "20");
}

TEST(FourierSum, TheFirstOfEqualPeaksStands) {
    // One sample at line 0 has the same amplitude dt |x| at every omega: the first row stands.
    FourierSpectrum out;
    FourierPeak tie;
    fourier_transform(FourierSamples{{0}, {2}}, 0.5, 0.25, 4, out, tie);
    EXPECT_EQ(out.amp[1], out.amp[4]);
    EXPECT_EQ(tie.omega, 0.25);
    EXPECT_EQ(tie.amp, 1.0);
}

TEST(FourierSum, ThreadedRowsEqualThePlainLoopBitForBit) {
    FourierSamples s = sine(7.3, 0.02, 700, 0.37);
    const std::int32_t n = 333;
    FourierSpectrum out;
    FourierPeak peak;
    fourier_transform(s, 0.02, 0.07, n, out, peak);
    double omega = 0;
    FourierPeak want;
    for (std::int32_t i = 1; i <= n; ++i) {
        const auto u = static_cast<std::size_t>(i);
        omega = omega + 0.07;
        double r = 0, m = 0;
        for (std::size_t k = 0; k < s.j.size(); ++k) {
            r = text::val(text::to_text(r + 0.02 * s.x[k] * std::cos(s.j[k] * omega * 0.02)));
            m = text::val(text::to_text(m + 0.02 * s.x[k] * std::sin(s.j[k] * omega * 0.02)));
        }
        const double amp = std::pow(m * m + r * r, 0.5);
        if (want.amp < amp) want = {omega, amp};
        ASSERT_EQ(std::bit_cast<std::uint64_t>(out.real[u]), std::bit_cast<std::uint64_t>(r)) << i;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(out.imag[u]), std::bit_cast<std::uint64_t>(m)) << i;
        ASSERT_EQ(out.omega[u], omega) << i;
        ASSERT_EQ(out.amp[u], amp) << i;
    }
    EXPECT_EQ(peak.omega, want.omega);
    EXPECT_EQ(peak.amp, want.amp);
}

TEST(FourierSum, NoOmegasNoRows) {
    FourierSpectrum out;
    FourierPeak peak{1, 2};
    int calls = 0;
    fourier_transform(sine(1, 0.01, 10), 0.01, 0.05, 0, out, peak, [&](std::int32_t) { ++calls; });
    fourier_transform(sine(1, 0.01, 10), 0.01, 0.05, -1, out, peak, [&](std::int32_t) { ++calls; });
    EXPECT_EQ(out.real.size(), 1u);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(peak.amp, 2.0);
    // No samples: every sum is 0 and no row beats a zero peak.
    FourierPeak zero;
    fourier_transform(FourierSamples{}, 0.01, 0.05, 5, out, zero);
    EXPECT_EQ(out.amp[5], 0.0);
    EXPECT_EQ(zero.omega, 0.0);
}

TEST(FourierSum, AnOverflowIsRaisedAtItsOmegaWithItsSumsAsFarAsTheyGot) {
    FourierSpectrum out;
    FourierPeak peak;
    std::vector<std::int32_t> reported, summed;
    auto report = [&](std::int32_t i) { reported.push_back(i); };
    auto sums = [&](std::int32_t i) { summed.push_back(i); };
    // Two terms of 1.5E308 overflow the cosine sum of the first omega at the second term.
    const FourierSamples s{{1, 2}, {1.5e308, 1.5e308}};
    EXPECT_EQ(error_of([&] { fourier_transform(s, 1, 0.1, 5, out, peak, report, sums); }), text::kOverflow);
    EXPECT_TRUE(summed.empty());
    EXPECT_EQ(out.real[1], text::round15(1.5e308 * std::cos(0.1)));  // the first term stands
    EXPECT_EQ(out.imag[1], text::round15(1.5e308 * std::sin(0.1)));
    // dt * x beyond the range fails at the first omega, before any row.
    EXPECT_EQ(error_of([&] { fourier_transform(FourierSamples{{1}, {1e308}}, 10, 0.1, 3, out, peak, report, sums); }),
              text::kOverflow);
    EXPECT_TRUE(summed.empty());
    EXPECT_EQ(out.real[1], 0.0);
    // Huge but finite sums are settled by the checked loop, not refused; their amplitude then
    // fails after the row's sums were handed over.
    const FourierSamples huge{{1, 2, 3}, {1e300, 1e300, 1e300}};
    EXPECT_EQ(error_of([&] { fourier_transform(huge, 1, 0.1, 2, out, peak, report, sums); }), text::kOverflow);
    EXPECT_EQ(summed, std::vector<std::int32_t>{1});
    EXPECT_TRUE(reported.empty());
    double r = 0;
    for (double j : {1.0, 2.0, 3.0}) r = text::round15(r + 1 * 1e300 * std::cos(j * 0.1 * 1));
    EXPECT_EQ(out.real[1], r);
}

TEST(FourierSum, AnErrorInTheCallbackStopsTheRun) {
    const FourierSamples s = sine(10.0, 0.01, 2000);
    FourierSpectrum out;
    FourierPeak peak;
    std::int32_t last = 0;
    EXPECT_THROW(fourier_transform(s, 0.01, 0.05, 2000, out, peak,
                                   [&](std::int32_t i) {
                                       last = i;
                                       if (i == 40) throw std::runtime_error("stop");
                                   }),
                 std::runtime_error);
    EXPECT_EQ(last, 40);
}

}  // namespace
}  // namespace tv::compute

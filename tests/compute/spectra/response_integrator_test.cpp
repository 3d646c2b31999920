#include "compute/spectra/response_integrator.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "support/fake_platform.h"
#include "support/files.h"
#include "text/number_text.h"
#include "support/errors.h"

namespace tv::compute {
namespace {

using text::DoubleArray;

using tv::test::error_of;

// A record file of four header lines, then one sample a line: element i holds line i.
DoubleArray load_record(const std::string& path) {
    const std::vector<std::string> lines = test::lines_of(path);
    DoubleArray a(static_cast<long>(lines.size()));
    for (long i = 5; i <= a.ubound(); ++i) a(i) = text::val(lines[static_cast<std::size_t>(i - 1)]);
    return a;
}

// The plain loop of the old program, one period and one component at a time, with its full
// histories: the reference the interleaved integrator must match bit for bit.
void reference_spectra(const DoubleArray& ax, const DoubleArray& ay, std::int32_t first, std::int32_t last, double dt,
                       double zeta, const PeriodGrid& grid, SpectrumMeasure measure, DoubleArray& sx, DoubleArray& sy) {
    sx.redim(grid.specCount);
    sy.redim(grid.specCount);
    long j = 1;
    for (double T = grid.tStart; T <= grid.tEnd; T = T + grid.periodStep) {
        const OscillatorCoefficients k = oscillator_coefficients(T, zeta, dt);
        for (int comp = 0; comp < 2; ++comp) {
            const DoubleArray& a = comp == 0 ? ax : ay;
            std::vector<double> x(static_cast<std::size_t>(last) + 2), v(x.size());
            double d = 0, p = 0;
            for (long i = first; i < last - 1; ++i) {
                v[i + 1] = k.A21 * x[i] + k.A22 * v[i] + k.B21 * a(i) + k.B22 * a(i + 1);
                x[i + 1] = k.A12 * v[i] + k.A11 * x[i] + k.B11 * a(i) + k.B12 * a(i + 1);
                if (std::fabs(x[i + 1]) > d) d = std::fabs(x[i + 1]);
                if (std::fabs(v[i + 1]) > p) p = std::fabs(v[i + 1]);
            }
            double value;
            if (measure == SpectrumMeasure::RelativeVelocity) {
                value = p;
            } else {
                double f = k.wd;
                if (measure == SpectrumMeasure::Displacement) f = 1;
                if (measure == SpectrumMeasure::PseudoVelocity) f = std::sqrt(k.wd);
                value = f * f * d;
            }
            (comp == 0 ? sx : sy)(j) = value;
        }
        ++j;
    }
}

struct Spectra {
    DoubleArray x, y;
};

const PeriodGrid kStandardGrid{0.01, 4, 0.01, 400};

// A run (pseudo-acceleration unless told) that calls `between(k, spectra)` after period k: the
// spectra as far as they got, the periods done, and the run-time error raised (0 for none).
struct Outcome {
    Spectra s;
    long periods = 0;
    int error = 0;
};

Outcome integrate(const DoubleArray& ax, const DoubleArray& ay, std::int32_t first, std::int32_t last,
                  double zeta, const PeriodGrid& grid, const std::function<void(long, const Spectra&)>& between = {},
                  double dt = 0.01, SpectrumMeasure measure = SpectrumMeasure::PseudoAcceleration) {
    Outcome o;
    o.error = error_of([&] {
        integrate_record(RecordSpectra{dt, first, last, ax, ay, o.s.x, o.s.y}, zeta, grid, measure, [&] {
            ++o.periods;
            if (between) between(o.periods, o.s);
        });
    });
    return o;
}

TEST(OscillatorCoefficients, Identities) {
    for (double zeta : {0.0, 0.02, 0.05, 0.2}) {
        for (double T : {0.05, 1.0, 3.7}) {
            const double dt = 0.01;
            const auto k = oscillator_coefficients(T, zeta, dt);
            const double w = 6.28318530717958 / T;
            const double E = std::exp(-zeta * w * dt);
            EXPECT_NEAR(k.A11 * k.A22 - k.A12 * k.A21, E * E, 1e-12) << T << " " << zeta;
            EXPECT_NEAR(k.B21 + k.B22, k.A21 / (w * w), 1e-12 * T * T) << T << " " << zeta;
            EXPECT_DOUBLE_EQ(k.wd, std::sqrt(1 - zeta * zeta) * w);
        }
    }
    // Undamped, B12 is the textbook one and B11 + B12 = (A11 - 1) / w^2 holds.
    const auto k0 = oscillator_coefficients(1, 0, 0.02);
    const double w = 6.28318530717958;
    EXPECT_NEAR(k0.B11 + k0.B12, (k0.A11 - 1) / (w * w), 1e-15);
    // With damping it does not: B12's cosine term carries no factor E.
    const auto k = oscillator_coefficients(1, 0.05, 0.02);
    EXPECT_GT(std::fabs(k.B11 + k.B12 - (k.A11 - 1) / (w * w)), 1e-7);
    EXPECT_NEAR(k.A11 * k.A22 - k.A12 * k.A21, 0.98751226, 5e-9);
}

TEST(ResponseIntegrator, MatchesThePlainLoopBitForBit) {
    const auto x = load_record(tv::test::data_path("records/northridge1994_rinaldi_228.txt"));
    const auto y = load_record(tv::test::data_path("records/northridge1994_rinaldi_318.txt"));
    if (x.ubound() == 0 || y.ubound() == 0) GTEST_SKIP() << "record files missing";
    ASSERT_EQ(x.ubound(), 1995);
    ASSERT_EQ(y.ubound(), 1995);
    using detail::KernelPath;
    for (double zeta : {0.0, 0.02, 0.05, 0.2}) {
        for (auto m : {SpectrumMeasure::PseudoAcceleration, SpectrumMeasure::Displacement,
                       SpectrumMeasure::PseudoVelocity, SpectrumMeasure::RelativeVelocity}) {
            DoubleArray rx, ry;
            reference_spectra(x, y, 5, 1995, 0.01, zeta, kStandardGrid, m, rx, ry);
            for (auto path : {KernelPath::Automatic, KernelPath::Generic, KernelPath::Avx2, KernelPath::Avx512}) {
                detail::force_kernel_path(path);
                const Spectra s = integrate(x, y, 5, 1995, zeta, kStandardGrid, {}, 0.01, m).s;
                ASSERT_EQ(s.x.ubound(), 400);
                for (long j = 0; j <= 400; ++j) {
                    ASSERT_EQ(std::bit_cast<std::uint64_t>(s.x(j)), std::bit_cast<std::uint64_t>(rx(j)))
                        << "zeta " << zeta << " measure " << static_cast<int>(m) << " path "
                        << static_cast<int>(path) << " j " << j;
                    ASSERT_EQ(std::bit_cast<std::uint64_t>(s.y(j)), std::bit_cast<std::uint64_t>(ry(j)));
                }
            }
            detail::force_kernel_path(KernelPath::Automatic);
        }
    }
}

// a(i) = f(k i) for i = 1..n.
DoubleArray wave(long n, double (*f)(double), double k) {
    DoubleArray a(n);
    for (long i = 1; i <= n; ++i) a(i) = f(k * i);
    return a;
}

TEST(ResponseIntegrator, ProgressComesInPeriodOrderAfterBothOrdinates) {
    DoubleArray a = wave(300, std::sin, 0.1);
    const Outcome o = integrate(a, a, 1, 300, 0.05, PeriodGrid{0.01, 0.305, 0.01, 30}, [](long k, const Spectra& s) {
        EXPECT_GT(s.x(k), 0);
        EXPECT_GT(s.y(k), 0);
        if (k < 30) {
            EXPECT_EQ(s.x(k + 1), 0);
        }
    });
    EXPECT_EQ(o.error, 0);
    EXPECT_EQ(o.periods, 30);
}

TEST(ResponseIntegrator, AFailingPeriodKeepsTheEarlierOnes) {
    DoubleArray a = wave(50, std::cos, 0.3);
    // More periods than the spectrum holds.
    Outcome o = integrate(a, a, 1, 50, 0.05, PeriodGrid{0.01, 0.2, 0.01, 12});
    EXPECT_EQ(o.error, text::kSubscript);
    EXPECT_EQ(o.periods, 12);
    EXPECT_GT(o.s.x(12), 0);
    EXPECT_GT(o.s.y(12), 0);
    // Inside a block: -0.02, -0.01, then exactly 0, which divides by zero.
    o = integrate(a, a, 1, 50, 0.05, PeriodGrid{-0.02, 0.2, 0.01, 30});
    EXPECT_EQ(o.error, text::kDivisionByZero);
    EXPECT_EQ(o.periods, 2);
    EXPECT_GT(o.s.x(2), 0);
    EXPECT_EQ(o.s.x(3), 0);
    // A pseudo velocity of a negative period takes the square root of a negative frequency.
    o = integrate(a, a, 1, 50, 0.05, PeriodGrid{-0.02, 0.2, 0.01, 30}, {}, 0.01, SpectrumMeasure::PseudoVelocity);
    EXPECT_EQ(o.error, text::kInvalidCall);
    // A negative damping makes every step grow; the old run time stopped at the overflow.
    DoubleArray growing = wave(4000, std::sin, 0.7);
    o = integrate(growing, growing, 1, 4000, -0.9, PeriodGrid{0.1, 0.2, 0.1, 2}, {}, 0.02);
    EXPECT_EQ(o.error, text::kOverflow);
    EXPECT_EQ(o.periods, 0);
    EXPECT_EQ(o.s.x(1), 0);
}

TEST(ResponseIntegrator, SampleIndexOutsideTheRecord) {
    DoubleArray x = wave(100, std::sin, 0.2), shortY = wave(50, std::sin, 0.2);
    // The X pass of the first period runs and is stored; the Y pass then reads beyond its array.
    Outcome o = integrate(x, shortY, 1, 100, 0.05, kStandardGrid);
    EXPECT_EQ(o.error, text::kSubscript);
    EXPECT_GT(o.s.x(1), 0);
    EXPECT_EQ(o.s.x(2), 0);
    EXPECT_EQ(o.s.y(1), 0);
    // X itself too short, or a negative first line: nothing is stored.
    o = integrate(shortY, x, 1, 100, 0.05, kStandardGrid);
    EXPECT_EQ(o.error, text::kSubscript);
    EXPECT_EQ(o.s.x(1), 0);
    EXPECT_EQ(integrate(x, x, -1, 100, 0.05, kStandardGrid).error, text::kSubscript);
    // The last sample, index lastLine, is never read.
    EXPECT_EQ(integrate(shortY, shortY, 1, 51, 0.05, kStandardGrid).error, 0);
}

TEST(ResponseIntegrator, ArraysResizedBetweenPeriodsAreReadWhereTheyNowLie) {
    // An export run from the events between periods resizes the records; the run goes on with
    // the arrays where they now stand, and the results are those of an undisturbed run.
    DoubleArray ax = wave(700, std::sin, 0.31), ay = wave(700, std::cos, 0.23);
    const PeriodGrid grid{0.01, 0.4, 0.01, 40};
    const Outcome plain = integrate(ax, ay, 1, 650, 0.05, grid);
    const Outcome moved = integrate(ax, ay, 1, 650, 0.05, grid, [&](long k, const Spectra&) {
        // Each growth moves the samples elsewhere; the old block is freed.
        ax.redim_preserve(ax.ubound() + 5000);
        ay.redim_preserve(ay.ubound() + 5000);
        if (k == 3) ax.redim_preserve(650);
    });
    for (long j = 0; j <= 40; ++j) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(moved.s.x(j)), std::bit_cast<std::uint64_t>(plain.s.x(j))) << j;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(moved.s.y(j)), std::bit_cast<std::uint64_t>(plain.s.y(j))) << j;
    }
    // A record cut between periods fails at the next: periods 1 to 5 stand; period 6's X pass
    // still runs, its Y pass reads beyond the array.
    const Outcome whole = integrate(ax, ay, 1, 400, 0.05, grid);
    const Outcome cut = integrate(ax, ay, 1, 400, 0.05, grid, [&](long k, const Spectra&) {
        if (k == 5) ay.redim_preserve(100);
    });
    EXPECT_EQ(cut.error, text::kSubscript);
    for (long j = 1; j <= 6; ++j) EXPECT_EQ(cut.s.x(j), whole.s.x(j)) << j;
    for (long j = 1; j <= 5; ++j) EXPECT_EQ(cut.s.y(j), whole.s.y(j)) << j;
    EXPECT_EQ(cut.s.y(6), 0);
    EXPECT_EQ(cut.s.x(7), 0);
}

// The lanes give each period the peak of its own oscillator, for any count of periods, for a
// record of two samples (one step) and of one.
TEST(PeakDisplacements, EachPeriodAsItsOwnOscillator) {
    for (const std::vector<double>& a : {std::vector<double>{0.1, -0.3, 0.25, 0.05, -0.2, 0.15}, {0.0, 0.4}}) {
        std::vector<double> periods(16), peaks(16, -1.0);
        for (int j = 1; j <= 16; ++j) periods[j - 1] = 0.05 * j;
        // Eleven periods: the second pass of the lanes is partly empty, and the rest stays.
        peak_displacements(a, 0.01, 0.05, std::span(periods).first(11), peaks);
        EXPECT_EQ(peaks[11], -1.0);
        periods.resize(11);
        for (std::size_t j = 0; j < periods.size(); ++j) {
            std::vector<double> x(a.size());
            oscillator_displacements(exact_oscillator_coefficients(periods[j], 0.05, 0.01), a, x);
            double peak = 0;
            for (double v : x) peak = std::max(peak, std::fabs(v));
            EXPECT_EQ(peaks[j], peak) << "T = " << periods[j];
            EXPECT_GT(peak, 0);
        }
    }
    // One sample is no step: every peak is 0.
    std::vector<double> peaks(3, -1.0);
    peak_displacements(std::vector<double>{0.3}, 0.01, 0.05, std::vector<double>{0.1, 0.2, 0.3}, peaks);
    EXPECT_EQ(peaks, std::vector<double>(3, 0.0));
}

}  // namespace
}  // namespace tv::compute

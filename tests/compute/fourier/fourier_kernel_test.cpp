// The lane kernel of the Fourier sum: its own sine and cosine against a quad-precision
// reference, the library bound it relies on, and its sums against the plain loop bit for bit.
#include "compute/fourier/fourier_kernel.h"

#include <gtest/gtest.h>
#include <math.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "support/fake_platform.h"
#include "support/files.h"
#include "text/number_text.h"

namespace tv::compute {
namespace {

using detail::FourierPath;

struct PathGuard {
    ~PathGuard() { detail::force_fourier_path(FourierPath::Automatic); }
};

const FourierPath kAllPaths[] = {FourierPath::Generic, FourierPath::Avx2, FourierPath::Avx512};

// Quad precision, enough to judge errors of 2^-60.
typedef __float128 Quad;

// sin and cos of a double to about 2^-105: the multiples of pi/2 in three parts (each product is
// exact in quad precision), then Taylor series on the remainder.
void reference_sincos(double a, Quad& s, Quad& c) {
    const double k = std::nearbyint(a * 0.63661977236758134);
    const Quad r = (((Quad)a - (Quad)k * (Quad)0x1.921fb54442d18p+0) - (Quad)k * (Quad)0x1.1a62633145c07p-54) -
                   (Quad)k * (Quad)-0x1.f1976b7ed8fbcp-110;
    const Quad z = r * r;
    Quad ts = 0, tc = 0, term = r;
    for (int n = 0; n < 30; ++n) {
        ts += term;
        term = -term * z / (Quad)((2 * n + 2) * (2 * n + 3));
    }
    term = 1;
    for (int n = 0; n < 30; ++n) {
        tc += term;
        term = -term * z / (Quad)((2 * n + 1) * (2 * n + 2));
    }
    const int q = static_cast<int>(static_cast<std::int64_t>(k) & 3);
    s = q & 1 ? tc : ts;
    c = q & 1 ? ts : tc;
    if (q & 2) s = -s;
    if ((q + 1) & 2) c = -c;
}

std::vector<double> arguments(int count) {
    std::mt19937_64 rng(12001);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const double scales[] = {1e-3, 1, 30, 2.4e5, 0x1p25};
    std::vector<double> a;
    for (int k = 0; k < count; ++k) a.push_back(unit(rng) * scales[k % 5]);
    // Arguments as the sum makes them: j * omega * dt on the usual grids.
    double omega = 0;
    for (int i = 1; i <= 200; ++i) {
        omega = omega + 3.0;
        for (double j : {1.0, 7.0, 333.0, 4999.0, 18004.0}) a.push_back(j * omega * 0.005);
    }
    return a;
}

TEST(FourierKernel, OwnSineAndCosineAreWithinTheirBound) {
    PathGuard guard;
    const std::vector<double> a = arguments(200'000);
    std::vector<Quad> rs(a.size()), rc(a.size());
    for (std::size_t k = 0; k < a.size(); ++k) reference_sincos(a[k], rs[k], rc[k]);
    for (FourierPath path : {FourierPath::Avx2, FourierPath::Avx512}) {
        detail::force_fourier_path(path);
        if (detail::fourier_path() != path) continue;
        std::vector<double> sh(a.size()), sl(a.size()), ch(a.size()), cl(a.size());
        detail::accurate_sincos(a.data(), a.size(), sh.data(), sl.data(), ch.data(), cl.data());
        double worst = 0;
        for (std::size_t k = 0; k < a.size(); ++k) {
            ASSERT_FALSE(std::isnan(sh[k])) << a[k];
            const double bound = std::ldexp(std::fabs(sh[k]), -57) + 0x1p-120;
            const double es = static_cast<double>((Quad)sh[k] + (Quad)sl[k] - rs[k]);
            const double ec = static_cast<double>((Quad)ch[k] + (Quad)cl[k] - rc[k]);
            ASSERT_LE(std::fabs(es), bound) << std::hexfloat << a[k];
            ASSERT_LE(std::fabs(ec), std::ldexp(std::fabs(ch[k]), -57) + 0x1p-120) << std::hexfloat << a[k];
            worst = std::fmax(worst, std::fmax(std::fabs(es) / std::fabs(sh[k]), std::fabs(ec) / std::fabs(ch[k])));
        }
        // The analysis gives about 2^-59; the bound the kernel assumes is 2^-57.
        EXPECT_LT(worst, 0x1p-58);
    }
    // Beyond the limit the lanes refuse.
    detail::force_fourier_path(FourierPath::Automatic);
    if (detail::fourier_path() != FourierPath::Generic) {
        const double big[] = {0x1p25 * 1.0000001, std::nan("")};
        double sh[2], sl[2], ch[2], cl[2];
        detail::accurate_sincos(big, 2, sh, sl, ch, cl);
        EXPECT_TRUE(std::isnan(sh[0]) && std::isnan(ch[1]));
    }
}

// The loop exactly as the window runs it: text written and read back at every term.
void plain_sums(const std::vector<double>& j, const std::vector<double>& x, double dt, double omega, double& re,
                double& im) {
    re = 0;
    im = 0;
    for (std::size_t k = 0; k < j.size(); ++k) {
        re = text::val(text::to_text(re + dt * x[k] * std::cos(j[k] * omega * dt)));
        im = text::val(text::to_text(im + dt * x[k] * std::sin(j[k] * omega * dt)));
    }
}

struct Case {
    std::vector<double> j, x, dx;
    double dt = 0;
};

Case record_case(const std::string& path, double dt, double scale) {
    Case c;
    c.dt = dt;
    const std::vector<std::string> lines = test::lines_of(path);
    for (std::size_t n = 5; n <= lines.size(); ++n) {
        c.j.push_back(static_cast<double>(n));
        c.x.push_back(text::round15(text::val(lines[n - 1]) * scale));
        c.dx.push_back(dt * c.x.back());
    }
    return c;
}

// Sums every path for the given omegas and compares with the plain loop; returns the share of
// lane terms that took the library's functions on the widest path (-1 when only the plain loop
// runs here).
double expect_all_paths_equal(const Case& c, const std::vector<double>& omegas) {
    std::vector<double> wantRe(omegas.size()), wantIm(omegas.size());
    for (std::size_t i = 0; i < omegas.size(); ++i) plain_sums(c.j, c.x, c.dt, omegas[i], wantRe[i], wantIm[i]);
    const detail::FourierKernelInput in{c.j.data(), c.dx.data(), c.j.size(), c.dt};
    double share = -1;
    PathGuard guard;
    for (FourierPath path : kAllPaths) {
        detail::force_fourier_path(path);
        std::vector<double> re(omegas.size()), im(omegas.size());
        const std::size_t exact = detail::fourier_lanes(in, omegas.data(), omegas.size(), re.data(), im.data());
        if (detail::fourier_path() != FourierPath::Generic)
            share = static_cast<double>(exact) / (2.0 * static_cast<double>(c.j.size() * omegas.size()));
        for (std::size_t i = 0; i < omegas.size(); ++i) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(re[i]), std::bit_cast<std::uint64_t>(wantRe[i]))
                << "path " << static_cast<int>(path) << " omega " << omegas[i];
            EXPECT_EQ(std::bit_cast<std::uint64_t>(im[i]), std::bit_cast<std::uint64_t>(wantIm[i]))
                << "path " << static_cast<int>(path) << " omega " << omegas[i];
        }
    }
    return share;
}

// The omegas of rows i = first, first + step, ... of a grid made by repeated addition.
std::vector<double> grid_omegas(double deltaOmega, int n, int first, int step) {
    std::vector<double> all(static_cast<std::size_t>(n) + 1, 0.0);
    for (int i = 1; i <= n; ++i) all[static_cast<std::size_t>(i)] = all[static_cast<std::size_t>(i - 1)] + deltaOmega;
    std::vector<double> picked;
    for (int i = first; i <= n; i += step) picked.push_back(all[static_cast<std::size_t>(i)]);
    return picked;
}

TEST(FourierKernel, RealRecordsGiveThePlainLoopsBitsOnEveryPath) {
    const std::string elCentro = test::data_path("records/imperialvalley1940_elcentro_NS.txt");
    const std::string chiChi = test::data_path("records/chichi1999_tcu078_E.txt");
    if (elCentro.empty() || chiChi.empty()) GTEST_SKIP() << "records not found";
    // El Centro in cm/s2 on the whole grid 0.05 .. 600.05 (every 13th row), Chi-Chi in g.
    const double share = expect_all_paths_equal(record_case(elCentro, 0.02, 981), grid_omegas(0.05, 12001, 1, 13));
    expect_all_paths_equal(record_case(chiChi, 0.005, 1), grid_omegas(0.05, 12001, 7, 240));
    // The library is needed for a small share of the terms only.
    if (share >= 0) {
        EXPECT_LT(share, 0.05);
    }
}

TEST(FourierKernel, HardLanesTakeTheLibraryAndStillMatch) {
    Case c;
    c.dt = 1;
    std::mt19937_64 rng(5);
    std::normal_distribution<double> g(0, 1);
    for (int j = 0; j <= 600; ++j) {
        c.j.push_back(j);  // line 0 gives the argument 0
        // Leading zeros, tiny values (below the fast round trip), ordinary ones.
        const double v = j < 20 ? 0.0 : j < 60 ? g(rng) * 1e-12 : g(rng);
        c.x.push_back(text::round15(v));
    }
    for (double v : c.x) c.dx.push_back(c.dt * v);
    // Arguments past the kernel's own sine and cosine (beyond 2^25), odd omegas, a negative one,
    // and uneven lane counts.
    expect_all_paths_equal(c, {1e5 + 0.37, 60000.25, 3.3, -0.7, 1e-9});
    expect_all_paths_equal(c, {0.5, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 11.5, 12.5, 13.5, 14.5, 15.5, 16.5});
}

TEST(FourierKernel, HugeSumsAreGivenBackForTheCheckedLoop) {
    PathGuard guard;
    const std::vector<double> j = {1, 2, 3}, dx = {1e300, 1e300, 1e300};
    const detail::FourierKernelInput in{j.data(), dx.data(), j.size(), 1.0};
    for (FourierPath path : kAllPaths) {
        detail::force_fourier_path(path);
        const double omega[] = {0.1};
        double re[1], im[1];
        detail::fourier_lanes(in, omega, 1, re, im);
        EXPECT_TRUE(std::isnan(re[0]));
    }
}

}  // namespace
}  // namespace tv::compute

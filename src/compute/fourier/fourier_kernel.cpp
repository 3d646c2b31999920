#include "compute/fourier/fourier_kernel.h"

#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "compute/fourier/fast_round15.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define TV_FOURIER_X86 1
#endif

namespace tv::compute::detail {

namespace {

// Reduction by pi/2: 2/pi, pi/2 in three parts (each the rounded rest of the one before), and
// the shifter that rounds to an integer.
constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
constexpr double kPio2_1 = 0x1.921fb54442d18p+0;
constexpr double kPio2_2 = 0x1.1a62633145c07p-54;
constexpr double kPio2_3 = -0x1.f1976b7ed8fbcp-110;
constexpr double kShifter = 0x1.8p52;
// Taylor coefficients: -1/6 and 1/24 in two parts, the others rounded.
constexpr double kSin3Hi = -0x1.5555555555555p-3, kSin3Lo = -0x1.5555555555555p-57;
constexpr double kSin5 = 0x1.1111111111111p-7, kSin7 = -0x1.a01a01a01a01ap-13, kSin9 = 0x1.71de3a556c734p-19,
                 kSin11 = -0x1.ae64567f544e4p-26, kSin13 = 0x1.6124613a86d09p-33,
                 kSin15 = -0x1.ae7f3e733b81fp-41, kSin17 = 0x1.952c77030ad4ap-49;
constexpr double kCos4Hi = 0x1.5555555555555p-5, kCos4Lo = 0x1.5555555555555p-59;
constexpr double kCos6 = -0x1.6c16c16c16c17p-10, kCos8 = 0x1.a01a01a01a01ap-16, kCos10 = -0x1.27e4fb7789f5cp-22,
                 kCos12 = 0x1.1eed8eff8d898p-29, kCos14 = -0x1.93974a8c07c9dp-37,
                 kCos16 = 0x1.ae7f3e733b81fp-45, kCos18 = -0x1.6827863b97d97p-53;

// 10^0 .. 10^22, padded to 32 so that any 5-bit index reads inside.
alignas(64) constexpr double kPow10Table[32] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1,    1,   1,   1,    1,    1,    1,    1,    1};

// The 15-digit round trip of one lane; NaN (the omega is redone by the checked loop) where the
// value is not finite or so large that the conversion could raise.
inline double round15_lane(double u) {
    if (!(std::fabs(u) < 1e300)) return std::numeric_limits<double>::quiet_NaN();
    return round15_fast(u);
}

// The plain loop, one omega at a time.
std::size_t generic_lanes(const FourierKernelInput& in, const double* omega, std::size_t lanes, double* re,
                          double* im) {
    for (std::size_t l = 0; l < lanes; ++l) {
        const double w = omega[l];
        double r = 0, m = 0;
        for (std::size_t k = 0; k < in.count; ++k) {
            const double a = in.j[k] * w * in.dt;
            r = round15_lane(r + in.dx[k] * std::cos(a));
            m = round15_lane(m + in.dx[k] * std::sin(a));
        }
        re[l] = r;
        im[l] = m;
    }
    return lanes * in.count * 2;
}

}  // namespace

#ifdef TV_FOURIER_X86

#pragma GCC push_options
#pragma GCC target("avx2,fma")
namespace avx2 {
typedef double V __attribute__((vector_size(32)));
typedef decltype(V{} < V{}) I;
constexpr int kW = 4;
constexpr int kR = 4;
[[gnu::always_inline]] inline V splat(double x) { return _mm256_set1_pd(x); }
[[gnu::always_inline]] inline V fma_(V a, V b, V c) { return _mm256_fmadd_pd(a, b, c); }
[[gnu::always_inline]] inline V floor_(V a) { return _mm256_floor_pd(a); }
[[gnu::always_inline]] inline unsigned lane_bits(I m) { return static_cast<unsigned>(_mm256_movemask_pd((__m256d)m)); }
[[gnu::always_inline]] inline V pow10_of(I idx) { return _mm256_i64gather_pd(kPow10Table, (__m256i)idx, 8); }
#include "compute/fourier/fourier_lanes.inc"
}  // namespace avx2
#pragma GCC pop_options

#pragma GCC push_options
#pragma GCC target("avx512f,avx512dq,avx2,fma")
namespace avx512 {
typedef double V __attribute__((vector_size(64)));
typedef decltype(V{} < V{}) I;
constexpr int kW = 8;
constexpr int kR = 2;
[[gnu::always_inline]] inline V splat(double x) { return _mm512_set1_pd(x); }
[[gnu::always_inline]] inline V fma_(V a, V b, V c) { return _mm512_fmadd_pd(a, b, c); }
[[gnu::always_inline]] inline V floor_(V a) {
    // The masked form: the plain one starts from an undefined register, which GCC 12 warns of.
    return _mm512_mask_roundscale_pd(a, 0xFF, a, _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
}
[[gnu::always_inline]] inline unsigned lane_bits(I m) {
    return static_cast<unsigned>(_mm512_test_epi64_mask((__m512i)m, (__m512i)m));
}
// Two two-table permutes cover the 32 entries; bit 4 of the index picks the half.
[[gnu::always_inline]] inline V pow10_of(I idx) {
    const __m512d t0 = _mm512_load_pd(kPow10Table), t1 = _mm512_load_pd(kPow10Table + 8);
    const __m512d t2 = _mm512_load_pd(kPow10Table + 16), t3 = _mm512_load_pd(kPow10Table + 24);
    const V low = _mm512_permutex2var_pd(t0, (__m512i)idx, t1);
    const V high = _mm512_permutex2var_pd(t2, (__m512i)idx, t3);
    return (idx & 16) != 0 ? high : low;
}
#include "compute/fourier/fourier_lanes.inc"
}  // namespace avx512
#pragma GCC pop_options

namespace {
bool has_avx2() { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); }
bool has_avx512() { return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") && has_avx2(); }
}  // namespace

#else
namespace {
bool has_avx2() { return false; }
bool has_avx512() { return false; }
}  // namespace
#endif

namespace {
std::atomic<FourierPath> g_forced{FourierPath::Automatic};
}  // namespace

void force_fourier_path(FourierPath path) { g_forced = path; }

FourierPath fourier_path() {
    switch (g_forced.load()) {
        case FourierPath::Generic: return FourierPath::Generic;
        case FourierPath::Avx2: return has_avx2() ? FourierPath::Avx2 : FourierPath::Generic;
        case FourierPath::Avx512: return has_avx512() ? FourierPath::Avx512 : FourierPath::Generic;
        case FourierPath::Automatic: break;
    }
    if (has_avx512()) return FourierPath::Avx512;
    if (has_avx2()) return FourierPath::Avx2;
    return FourierPath::Generic;
}

std::size_t fourier_lanes(const FourierKernelInput& in, const double* omega, std::size_t lanes, double* re,
                          double* im) {
    if (lanes == 0) return 0;
    switch (fourier_path()) {
#ifdef TV_FOURIER_X86
        case FourierPath::Avx512: return avx512::sum_lanes(in, omega, lanes, re, im);
        case FourierPath::Avx2: return avx2::sum_lanes(in, omega, lanes, re, im);
#endif
        default: return generic_lanes(in, omega, lanes, re, im);
    }
}

void accurate_sincos(const double* a, std::size_t n, double* sh, double* sl, double* ch, double* cl) {
    switch (fourier_path()) {
#ifdef TV_FOURIER_X86
        case FourierPath::Avx512: avx512::sincos_lanes(a, n, sh, sl, ch, cl); return;
        case FourierPath::Avx2: avx2::sincos_lanes(a, n, sh, sl, ch, cl); return;
#endif
        default:
            for (std::size_t i = 0; i < n; ++i) {
                sh[i] = std::sin(a[i]);
                ch[i] = std::cos(a[i]);
                sl[i] = cl[i] = 0;
            }
    }
}

void round15_lanes(const double* u, std::size_t n, double* out) {
    switch (fourier_path()) {
#ifdef TV_FOURIER_X86
        case FourierPath::Avx512: avx512::round15_lanes(u, n, out); return;
        case FourierPath::Avx2: avx2::round15_lanes(u, n, out); return;
#endif
        default:
            for (std::size_t i = 0; i < n; ++i) out[i] = round15_lane(u[i]);
    }
}

}  // namespace tv::compute::detail

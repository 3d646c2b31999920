#pragma once
// The inner loop of the direct Fourier sum over many omegas at once (used by fourier_sum.cpp,
// tests and benchmarks).
//
// Why the wide paths give the plain loop's bits: each lane (one omega) runs the same IEEE
// operations in the same order as the loop, with exact 15-digit round trips (round15_fast's
// method). Only std::cos and std::sin are not redone: the lanes compute both to about 2^-57
// and take the library's value to be within one unit in the last place of the true one (the
// bound glibc documents for x86_64, watched by the tests), which leaves one or two candidate
// doubles. The term, the sum and the round trip are monotonic in the cosine (or sine), so when
// the candidates at both ends give the same 15 digits, so does the library; otherwise (a few
// percent of terms) the lane calls std::cos or std::sin itself.
#include <cstddef>

namespace tv::compute::detail {

/// The samples as the inner loop uses them: line numbers j and the products dt * x(j).
struct FourierKernelInput {
    const double* j = nullptr;
    const double* dx = nullptr;
    std::size_t count = 0;
    double dt = 0;
};

/// For each of `lanes` omegas: re = round15(re + dx(k) * cos(j(k) * omega * dt)) and im likewise
/// with sin, over k in order from 0. A lane whose sums leave the range the loop can settle
/// (overflow, a value near the largest double) gets NaN: the caller redoes it with the checked
/// loop. Otherwise the results are those of the plain loop with std::cos, std::sin and
/// text::round15, bit for bit. Returns how many lane terms needed std::cos or std::sin.
std::size_t fourier_lanes(const FourierKernelInput& in, const double* omega, std::size_t lanes, double* re,
                          double* im);

/// The instruction sets the kernel can run on; every one gives the same bits.
enum class FourierPath { Automatic, Generic, Avx2, Avx512 };
/// Forces one path (tests and benchmarks); a path the processor lacks falls back to Generic.
void force_fourier_path(FourierPath path);
/// The path in use.
FourierPath fourier_path();

/// The kernel's own sine and cosine (tests), each as hi + lo within 2^-57 |hi| + 2^-120 of the
/// true value; NaN where |a| > kFastTrigLimit. Generic path: std::sin and std::cos, lo 0.
void accurate_sincos(const double* a, std::size_t n, double* sh, double* sl, double* ch, double* cl);
/// The kernel's 15-digit round trip of lanes (tests): equal to round15_fast, NaN where that
/// would raise.
void round15_lanes(const double* u, std::size_t n, double* out);

/// Largest |argument| of the kernel's own sine and cosine.
inline constexpr double kFastTrigLimit = 0x1p25;

}  // namespace tv::compute::detail

#include "compute/spectra/response_integrator.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <optional>

namespace tv::compute {

namespace {

// The two constants of the old program, kept apart: pi is not derived from two pi.
constexpr double kTwoPi = 6.28318530717958;
constexpr double kPi = 3.14159265358979;

}  // namespace

namespace {

// One body for both forms: `cosineE` is E for the exact stepping and 1 for the old program's,
// and a product by 1 changes no bit.
OscillatorCoefficients coefficients(double T, double zeta, double dt, bool exact) {
    using text::chk;
    using text::div;
    const double w = div(kTwoPi, T);
    const double q = text::sqrt_(1 - zeta * zeta);
    const double wd = chk(q * w);
    const double E = text::exp_(chk(-zeta * w * dt));
    const double wdDt = chk(wd * dt);
    const double s = std::sin(wdDt);
    const double c = std::cos(wdDt);
    const double F = div(-(T * T), 4 * kPi * kPi);
    const double wDt = chk(w * dt);
    const double qDt = chk(q * dt);

    OscillatorCoefficients k;
    k.wd = wd;
    k.A11 = chk(E * (div(zeta, q) * s + c));
    k.A12 = chk(E * div(1, wd) * s);
    k.A21 = div(-E * w * s, q);
    k.A22 = chk(E * (c - div(zeta * s, q)));
    k.B11 = chk(F * (E * ((div(1 - 2 * zeta * zeta, wdDt) - div(zeta, q)) * s - (div(2 * zeta, wDt) + 1) * c) +
                     div(2 * zeta, wDt)));
    // The old program's cosine term has no factor E, and its results depend on it.
    const double cosineE = exact ? E : 1.0;
    k.B12 = chk(F * (div(E * (2 * zeta * zeta - 1), wdDt) * s + cosineE * div(2 * zeta, wDt) * c + 1 -
                     div(2 * zeta, wDt)));
    k.B21 = chk(F * (E * ((div(zeta, qDt) + div(w, q)) * s + div(c, dt)) - div(1, dt)));
    k.B22 = chk(div(F, dt) * (1 - E * (div(zeta * s, q) + c)));
    return k;
}

}  // namespace

OscillatorCoefficients oscillator_coefficients(double T, double zeta, double dt) {
    return coefficients(T, zeta, dt, false);
}

OscillatorCoefficients exact_oscillator_coefficients(double T, double zeta, double dt) {
    return coefficients(T, zeta, dt, true);
}

void oscillator_displacements(const OscillatorCoefficients& k, std::span<const double> a, std::span<double> x) {
    if (a.empty() || x.size() != a.size()) return;
    double xi = 0, vi = 0;
    x[0] = 0;
    for (std::size_t i = 0; i + 1 < a.size(); ++i) {
        // The spectrum kernel's step, lane by lane the same operations.
        const double vn = ((k.A21 * xi + k.A22 * vi) + k.B21 * a[i]) + k.B22 * a[i + 1];
        const double xn = ((k.A12 * vi + k.A11 * xi) + k.B11 * a[i]) + k.B12 * a[i + 1];
        xi = xn, vi = vn;
        x[i + 1] = xn;
    }
}

SpectrumMeasure measure_from_ticks(bool displacement, bool pseudoVelocity, bool velocity) {
    if (velocity) return SpectrumMeasure::RelativeVelocity;
    if (displacement) return SpectrumMeasure::Displacement;
    if (pseudoVelocity) return SpectrumMeasure::PseudoVelocity;
    return SpectrumMeasure::PseudoAcceleration;
}

namespace {

// Periods run side by side in the lanes of one vector; each lane does exactly the scalar
// operations of its own period, so the interleaving changes no bit.
constexpr int kLanes = 8;

struct alignas(64) LaneCoefficients {
    double A11[kLanes], A12[kLanes], A21[kLanes], A22[kLanes];
    double B11[kLanes], B12[kLanes], B21[kLanes], B22[kLanes];

    void set(int lane, const OscillatorCoefficients& k) {
        A11[lane] = k.A11, A12[lane] = k.A12, A21[lane] = k.A21, A22[lane] = k.A22;
        B11[lane] = k.B11, B12[lane] = k.B12, B21[lane] = k.B21, B22[lane] = k.B22;
    }
};

// Final state and peaks of one component's lanes.
struct alignas(64) LaneState {
    double x[kLanes], v[kLanes], peakD[kLanes], peakV[kLanes];
};

struct KernelArgs {
    const LaneCoefficients* k;
    const double* aX;  // first sample of the X pass
    const double* aY;
    long long steps;
    LaneState* outX;
    LaneState* outY;
};

typedef double Vec2 __attribute__((vector_size(16)));
typedef double Vec4 __attribute__((vector_size(32)));
typedef double Vec8 __attribute__((vector_size(64)));

// V is one register of the instruction set in use; R of them hold the kLanes periods.
template <class V, bool TrackVelocity>
[[gnu::always_inline]] inline void run_lanes(const KernelArgs& in) {
    constexpr int W = sizeof(V) / sizeof(double);
    constexpr int R = kLanes / W;
    typedef long long Bits __attribute__((vector_size(sizeof(V))));
    const long long absMask = 0x7fffffffffffffffLL;

    V A11[R], A12[R], A21[R], A22[R], B11[R], B12[R], B21[R], B22[R];
    V x1[R], v1[R], d1[R], p1[R];  // X
    V x2[R], v2[R], d2[R], p2[R];  // Y
    for (int r = 0; r < R; ++r) {
        std::memcpy(&A11[r], in.k->A11 + r * W, sizeof(V));
        std::memcpy(&A12[r], in.k->A12 + r * W, sizeof(V));
        std::memcpy(&A21[r], in.k->A21 + r * W, sizeof(V));
        std::memcpy(&A22[r], in.k->A22 + r * W, sizeof(V));
        std::memcpy(&B11[r], in.k->B11 + r * W, sizeof(V));
        std::memcpy(&B12[r], in.k->B12 + r * W, sizeof(V));
        std::memcpy(&B21[r], in.k->B21 + r * W, sizeof(V));
        std::memcpy(&B22[r], in.k->B22 + r * W, sizeof(V));
        x1[r] = v1[r] = d1[r] = p1[r] = V{};
        x2[r] = v2[r] = d2[r] = p2[r] = V{};
    }
    const double* aX = in.aX;
    const double* aY = in.aY;
    for (long long i = 0; i < in.steps; ++i) {
        const double a0 = aX[i], a1 = aX[i + 1];
        const double b0 = aY[i], b1 = aY[i + 1];
#pragma GCC unroll 8
        for (int r = 0; r < R; ++r) {
            // Both lines use the old x and v; the sums keep the order of the formula.
            const V vn1 = ((A21[r] * x1[r] + A22[r] * v1[r]) + B21[r] * a0) + B22[r] * a1;
            const V xn1 = ((A12[r] * v1[r] + A11[r] * x1[r]) + B11[r] * a0) + B12[r] * a1;
            const V vn2 = ((A21[r] * x2[r] + A22[r] * v2[r]) + B21[r] * b0) + B22[r] * b1;
            const V xn2 = ((A12[r] * v2[r] + A11[r] * x2[r]) + B11[r] * b0) + B12[r] * b1;
            x1[r] = xn1, v1[r] = vn1, x2[r] = xn2, v2[r] = vn2;
            const V ax1 = (V)((Bits)xn1 & absMask);
            const V ax2 = (V)((Bits)xn2 & absMask);
            d1[r] = ax1 > d1[r] ? ax1 : d1[r];  // strictly above
            d2[r] = ax2 > d2[r] ? ax2 : d2[r];
            if constexpr (TrackVelocity) {
                const V av1 = (V)((Bits)vn1 & absMask);
                const V av2 = (V)((Bits)vn2 & absMask);
                p1[r] = av1 > p1[r] ? av1 : p1[r];
                p2[r] = av2 > p2[r] ? av2 : p2[r];
            }
        }
    }
    for (int r = 0; r < R; ++r) {
        std::memcpy(in.outX->x + r * W, &x1[r], sizeof(V));
        std::memcpy(in.outX->v + r * W, &v1[r], sizeof(V));
        std::memcpy(in.outX->peakD + r * W, &d1[r], sizeof(V));
        std::memcpy(in.outX->peakV + r * W, &p1[r], sizeof(V));
        std::memcpy(in.outY->x + r * W, &x2[r], sizeof(V));
        std::memcpy(in.outY->v + r * W, &v2[r], sizeof(V));
        std::memcpy(in.outY->peakD + r * W, &d2[r], sizeof(V));
        std::memcpy(in.outY->peakV + r * W, &p2[r], sizeof(V));
    }
}

void kernel_generic(const KernelArgs& in, bool trackVelocity) {
    trackVelocity ? run_lanes<Vec2, true>(in) : run_lanes<Vec2, false>(in);
}

#if defined(__x86_64__) && defined(__GNUC__)
// Same source, wider registers. No "fma" target: products and sums stay separate.
[[gnu::target("avx2")]] void kernel_avx2(const KernelArgs& in, bool trackVelocity) {
    trackVelocity ? run_lanes<Vec4, true>(in) : run_lanes<Vec4, false>(in);
}
[[gnu::target("avx512f")]] void kernel_avx512(const KernelArgs& in, bool trackVelocity) {
    trackVelocity ? run_lanes<Vec8, true>(in) : run_lanes<Vec8, false>(in);
}
bool has_avx2() { return __builtin_cpu_supports("avx2"); }
bool has_avx512() { return __builtin_cpu_supports("avx512f"); }
#else
void kernel_avx2(const KernelArgs& in, bool t) { kernel_generic(in, t); }
void kernel_avx512(const KernelArgs& in, bool t) { kernel_generic(in, t); }
bool has_avx2() { return false; }
bool has_avx512() { return false; }
#endif

std::atomic<detail::KernelPath> g_forced{detail::KernelPath::Automatic};

void run_kernel(const KernelArgs& in, bool trackVelocity) {
    switch (detail::kernel_path()) {
        case detail::KernelPath::Avx512: kernel_avx512(in, trackVelocity); break;
        case detail::KernelPath::Avx2: kernel_avx2(in, trackVelocity); break;
        default: kernel_generic(in, trackVelocity); break;
    }
}

double ordinate(SpectrumMeasure measure, double wd, double d, double p) {
    double f = wd;
    switch (measure) {
        case SpectrumMeasure::RelativeVelocity: return p;
        case SpectrumMeasure::Displacement: f = 1; break;
        case SpectrumMeasure::PseudoVelocity: f = text::sqrt_(wd); break;
        case SpectrumMeasure::PseudoAcceleration: break;
    }
    return text::chk(f * f * d);
}

// Whether a pass over `steps` steps from `first` may read its samples: it reads a(first) to
// a(first + steps) and the histories from index first.
bool pass_in_range(const text::DoubleArray& a, long long first, long long steps) {
    if (steps == 0) return true;
    if (first < 0 || !a.allocated()) return false;
    return first + steps <= static_cast<long long>(a.raw().size()) - 1;
}

}  // namespace

namespace detail {

void force_kernel_path(KernelPath path) { g_forced = path; }

KernelPath kernel_path() {
    const KernelPath forced = g_forced;
    switch (forced) {
        case KernelPath::Generic: return KernelPath::Generic;
        case KernelPath::Avx2: return has_avx2() ? KernelPath::Avx2 : KernelPath::Generic;
        case KernelPath::Avx512: return has_avx512() ? KernelPath::Avx512 : KernelPath::Generic;
        case KernelPath::Automatic: break;
    }
    if (has_avx512()) return KernelPath::Avx512;
    if (has_avx2()) return KernelPath::Avx2;
    return KernelPath::Generic;
}

}  // namespace detail

void integrate_record(const RecordSpectra& record, double zeta, const PeriodGrid& grid, SpectrumMeasure measure,
                      const std::function<void()>& period_done) {
    integrate_record(record, zeta, grid, [measure] { return measure; }, period_done);
}

void integrate_record(const RecordSpectra& record, double zeta, const PeriodGrid& grid,
                      const std::function<SpectrumMeasure()>& measure, const std::function<void()>& period_done) {
    record.specX.redim(grid.specCount);
    record.specY.redim(grid.specCount);

    const long long first = record.firstLine;
    const long long last = record.lastLine;
    const long long steps = first < last - 1 ? last - 1 - first : 0;
    // The histories are made 0..last + 1 for every period: a size below empty fails there,
    // before the X pass.
    const bool historyBad = last + 1 < -1;

    // Where the samples of the two passes are now. A handler run between periods may resize
    // the arrays (an export does), so they are looked up again after every period.
    struct Samples {
        const double* aX = nullptr;
        const double* aY = nullptr;
        std::size_t sizeX = 0, sizeY = 0;
        bool xBad = false, yBad = false;
        bool operator==(const Samples&) const = default;
    };
    auto fetch = [&] {
        Samples f;
        f.xBad = historyBad || !pass_in_range(record.accelX, first, steps);
        f.yBad = !pass_in_range(record.accelY, first, steps);
        f.sizeX = record.accelX.raw().size();
        f.sizeY = record.accelY.raw().size();
        // A Y pass that cannot run borrows the X samples; its lanes are never read, since the
        // failure comes first. When the X pass cannot run, the period fails before any pass.
        if (steps > 0 && !f.xBad) {
            f.aX = record.accelX.raw().data() + first;
            f.aY = f.yBad ? f.aX : record.accelY.raw().data() + first;
        }
        return f;
    };

    LaneCoefficients lanes;  // the block's periods, lane m for its m-th period
    LaneCoefficients rerun;  // the periods still to store, moved to the front
    double wd[kLanes];
    LaneState outX, outY;
    long j = 1;
    double T = grid.tStart;
    Samples samples = fetch();
    SpectrumMeasure now = measure();
    for (;;) {
        int n = 0;
        std::optional<text::RuntimeError> pending;  // a later period's failure, raised in its turn
        while (n < kLanes && grid.holds(T)) {
            OscillatorCoefficients k;
            try {
                k = oscillator_coefficients(T, zeta, record.dt);
            } catch (const text::RuntimeError& e) {
                pending = e;
                break;
            }
            lanes.set(n, k);
            wd[n] = k.wd;
            ++n;
            T = grid.next(T);
        }
        if (n == 0 && !pending) break;

        // Runs periods from..n-1 of the block on the samples as they are now; their results
        // land at lane m - from.
        bool tracked = false;
        int from = 0;
        auto run = [&](int start) {
            from = start;
            tracked = now == SpectrumMeasure::RelativeVelocity;
            if (n > start && samples.aX != nullptr) {
                const LaneCoefficients* k = &lanes;
                if (start > 0) {
                    for (int r = 0; r < kLanes; ++r) {
                        const int m = r + start;
                        if (m >= kLanes) {
                            rerun.set(r, OscillatorCoefficients{});
                            continue;
                        }
                        rerun.A11[r] = lanes.A11[m], rerun.A12[r] = lanes.A12[m];
                        rerun.A21[r] = lanes.A21[m], rerun.A22[r] = lanes.A22[m];
                        rerun.B11[r] = lanes.B11[m], rerun.B12[r] = lanes.B12[m];
                        rerun.B21[r] = lanes.B21[m], rerun.B22[r] = lanes.B22[m];
                    }
                    k = &rerun;
                }
                run_kernel(KernelArgs{k, samples.aX, samples.aY, steps, &outX, &outY}, tracked);
            } else {
                std::memset(&outX, 0, sizeof outX);
                std::memset(&outY, 0, sizeof outY);
            }
        };
        for (int m = n; m < kLanes; ++m) lanes.set(m, OscillatorCoefficients{});
        run(0);

        for (int m = 0; m < n; ++m) {
            if (m > 0) {
                // Events ran after the last period: the arrays may have moved or shrunk, and the
                // tick boxes may ask for the peak velocity, which this run did not keep.
                const Samples again = fetch();
                now = measure();
                if (!(again == samples) || (now == SpectrumMeasure::RelativeVelocity && !tracked)) {
                    samples = again;
                    run(m);
                }
            }
            const int r = m - from;
            if (samples.xBad) text::raise(text::kSubscript);
            if (!std::isfinite(outX.x[r]) || !std::isfinite(outX.v[r])) text::raise(text::kOverflow);
            record.specX(j) = ordinate(now, wd[m], outX.peakD[r], outX.peakV[r]);
            if (samples.yBad) text::raise(text::kSubscript);
            if (!std::isfinite(outY.x[r]) || !std::isfinite(outY.v[r])) text::raise(text::kOverflow);
            record.specY(j) = ordinate(now, wd[m], outY.peakD[r], outY.peakV[r]);
            ++j;
            if (period_done) period_done();
        }
        if (pending) throw *pending;
        samples = fetch();
        now = measure();
    }
}

void integrate_records(const std::vector<RecordSpectra>& records, double zeta, const PeriodGrid& grid,
                       SpectrumMeasure measure, const std::function<void(int)>& record_start,
                       const std::function<void(int)>& period_done) {
    integrate_records(records, zeta, grid, [measure] { return measure; }, record_start, period_done);
}

void integrate_records(const std::vector<RecordSpectra>& records, double zeta, const PeriodGrid& grid,
                       const std::function<SpectrumMeasure()>& measure, const std::function<void(int)>& record_start,
                       const std::function<void(int)>& period_done) {
    for (std::size_t r = 0; r < records.size(); ++r) {
        const int k = static_cast<int>(r) + 1;
        if (record_start) record_start(k);
        std::function<void()> done;
        if (period_done) done = [&] { period_done(k); };
        integrate_record(records[r], zeta, grid, measure, done);
    }
}

void peak_displacements(std::span<const double> a, double dt, double zeta, std::span<const double> periods,
                        std::span<double> peaks) {
    const std::size_t n = std::min(periods.size(), peaks.size());
    const long long steps = a.size() > 1 ? static_cast<long long>(a.size()) - 1 : 0;
    LaneCoefficients lanes;
    LaneState out, unused;
    for (std::size_t first = 0; first < n; first += kLanes) {
        const std::size_t count = std::min<std::size_t>(kLanes, n - first);
        for (std::size_t m = 0; m < kLanes; ++m)
            lanes.set(static_cast<int>(m), m < count ? exact_oscillator_coefficients(periods[first + m], zeta, dt)
                                                     : OscillatorCoefficients{});
        if (steps > 0) {
            // The kernel runs two components; both read the one record, the second is dropped.
            run_kernel(KernelArgs{&lanes, a.data(), a.data(), steps, &out, &unused}, false);
        } else {
            std::memset(&out, 0, sizeof out);
        }
        for (std::size_t m = 0; m < count; ++m) peaks[first + m] = out.peakD[m];
    }
}

}  // namespace tv::compute

// The whole comparison of nonlinear static procedures on a 100-point pushover curve: the
// window's coefficient method, ASCE 41-17, the ATC-40 sweep, FEMA 440 procedure B with its
// iterations and the N2 method with its optional iteration, demand from the EC8 spectrum.
#include <benchmark/benchmark.h>

#include <cmath>

#include "compute/nsp/nsp_comparison.h"

namespace {

using namespace tv::compute::nsp;

// A smooth curve in cm and kgf: stiffness 20,000 kgf/cm softening towards 55,000 kgf, 0 to 12 cm.
NspInputs hundred_point_inputs() {
    NspInputs in;
    for (int i = 0; i < 100; ++i) {
        const double d = 12.0 * i / 99;
        in.curve.push_back({d, 55000 * std::tanh(d * 20000 / 55000)});
    }
    in.yield = CurvePoint{2.2, 41000};
    in.fit_end = in.curve.back();
    in.Ki = 20000;
    in.Ti = 0.5;
    in.Te = 0.52;
    in.W = 200000;
    in.gamma_phi = 1.3;
    in.alpha1 = 0.8;
    in.demand = *ec8_demand({1, 'B', 0.25, 5});
    in.n2_iterate = true;
    tv::compute::CoefficientMethodInputs w;
    w.du = in.fit_end.d;
    w.Vu = in.fit_end.V;
    w.Xy = 2.2;
    w.Ki = 20000;
    w.Vy = 41000;
    w.dy = 2.2;
    w.C0 = 1.2;
    w.Cm = 0.9;
    w.W = in.W;
    w.Sa = 0.6;
    w.Te = in.Te;
    w.a = 60;
    w.displacement_limit = 12;
    in.window_method = w;
    return in;
}

void BM_NspComparison(benchmark::State& state) {
    const NspInputs in = hundred_point_inputs();
    std::size_t results = 0;
    for (auto _ : state) {
        NspComparison c = compare_procedures(in);
        for (const MethodColumn& m : c.columns) results += m.target ? 1 : 0;
        benchmark::DoNotOptimize(c);
    }
    // Every method reaches a target on this curve; a slower path that gave up would show here.
    state.counters["targets per run"] = static_cast<double>(results) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_NspComparison)->Unit(benchmark::kMillisecond);

}  // namespace

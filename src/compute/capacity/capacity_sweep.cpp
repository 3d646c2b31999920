#include "compute/capacity/capacity_sweep.h"

#include <cmath>
#include <limits>

#include "text/checked.h"

namespace tv::compute {

namespace {

constexpr double kTwoPi = 6.283185308;

// Squared period over two pi, as (T / 6.283185308) ^ 2.
double period_factor(double T) {
    const double x = T / kTwoPi;
    return x * x;
}

}  // namespace

StructureLimits structure_limits(int kind) {
    switch (kind) {
        case 1: return {16.25, 0.33, 0.5};
        case 2: return {25.0, 0.44, 0.56};
        case 3: return {std::numeric_limits<double>::infinity(), 0.56, 0.67};
        default: return {std::numeric_limits<double>::infinity(), 0.0, 0.0};
    }
}

double damping_modification(int kind, double B0, double Lambda, double K) {
    if (kind == 1) {
        if (B0 <= 16.25) K = 1.0;
        if (B0 > 16.25) K = 1.13 - 0.51 * Lambda;
    } else if (kind == 2) {
        if (B0 <= 25.0) K = 0.67;
        if (B0 > 25.0) K = 0.845 - 0.446 * Lambda;
    } else if (kind == 3) {
        K = 0.33;
    }
    return K;
}

ReductionFactors reduction_factors(int kind, double Beff, ReductionFactors previous) {
    if (!(Beff > 0.0)) return previous;
    const StructureLimits lim = structure_limits(kind);
    ReductionFactors r;
    r.SRA = (3.21 - 0.68 * std::log(Beff)) / 2.12;
    r.SRV = (2.31 - 0.41 * std::log(Beff)) / 1.65;
    if (r.SRA < lim.SRAmin) r.SRA = lim.SRAmin;
    if (r.SRV < lim.SRVmin) r.SRV = lim.SRVmin;
    return r;
}

void CapacitySweep::row(const SweepStep& step, const std::function<double()>& demand, SweepRow& out) {
    using text::chk;
    out = SweepRow{};
    ++i_;
    const double T = step.T, d = step.d, a = step.a;
    const double dPrev = dPrev_, aPrev = aPrev_;
    dPrev_ = d;
    aPrev_ = a;
    const double m = settings_.m;

    if (static_cast<double>(i_ - 1) == m) slopeK0_ = text::div(a, d);
    const double increment = i_ == 1 ? 0.0 : chk(((a + aPrev) / 2.0) * (d - dPrev));
    A_ = chk(A_ + increment);
    out.A = A_;
    out.slopeK0 = slopeK0_;

    double Es0 = chk((d * a) / 2.0);
    if (Es0 < 0.0) Es0 = 0.0;
    out.Es0 = Es0;
    if (slopeK0_ != 0.0) A1_ = chk((d - chk((slopeK0_ * d - a) / slopeK0_)) * a / 2.0);
    out.A1 = A1_;
    if (A1_ != 0.0) ED_ = chk(4.0 * (A_ - A1_));
    if (ED_ < 0.0) ED_ = 0.0;
    out.ED = ED_;

    if (Es0 != 0.0) {
        if (static_cast<double>(i_ - 1) >= m) B0_ = chk((1.0 / 12.5664 * 100.0) * (ED_ / Es0));
        out.B0 = B0_;
        // The values of the last row with damping, for a crossing to start from.
        BeffPrev_ = Beff_;
        dyPrev_ = dy_;
        ayPrev_ = ay_;
        const double c = chk(slopeK0_ * d / 2.0 - a / 2.0);
        if (c != 0.0) dy_ = chk((A_ - a * d / 2.0) / c);
        ay_ = chk(slopeK0_ * dy_);
        if (d * a != 0.0) {
            Lambda_ = chk((ay_ * d - dy_ * a) / (d * a));
            if (Lambda_ < 0.0) Lambda_ = 0.0;
        }
        // The bilinear estimate above is kept for nothing; damping works from B0.
        Lambda_ = B0_ / 63.7;
        out.Lambda = Lambda_;
        K_ = damping_modification(settings_.kind, B0_, Lambda_, K_);
        SRVPrev_ = SRV_;
        SRAPrev_ = SRA_;
        Beff_ = chk((63.7 * K_) * Lambda_ + 5.0);
        const ReductionFactors f = reduction_factors(settings_.kind, Beff_, {SRA_, SRV_});
        SRA_ = f.SRA;
        SRV_ = f.SRV;
    }

    const double Sa = demand();
    const double SaRedPrev = SaRed_;
    SaRed_ = chk(T >= settings_.T0 ? SRV_ * Sa : SRA_ * Sa);
    if (SaRed_ == SaRedPrev) SaCap_ = SaRed_;
    if (SaCap_ != 0.0 && SaRed_ > SaCap_) SaRed_ = SaCap_;

    const double SdRed = chk((settings_.g * SaRed_) * period_factor(T));
    const double finalPrev = final_;
    final_ = chk(SdRed - d);
    const double targetPrev = target_;
    target_ = chk(step.PFPhi * d);

    out.tested = true;
    if (finalPrev > 0.0 && final_ < 0.0) {
        out.crossing = true;
        const double span = final_ - finalPrev;
        auto at = [&](double now, double before) { return chk(((now - before) / span) * (-finalPrev) + before); };
        SweepCrossing& x = out.at;
        x.dyPrev = dyPrev_;
        x.ayPrev = ayPrev_;
        x.targetPrev = targetPrev;
        x.target = target_;
        SRVs_ = at(SRV_, SRVPrev_);
        SRAs_ = at(SRA_, SRAPrev_);
        const double Beffs = at(Beff_, BeffPrev_);
        const double ds = at(d, dPrev);
        const double as = at(a, aPrev);
        x.targetStar = at(target_, targetPrev);
        x.SRV = SRVs_;
        x.SRA = SRAs_;
        x.Beff = Beffs;
        x.d = ds;
        x.a = as;
    }

    out.final = final_;
    out.dy = dy_;
    out.ay = ay_;
    out.Sa = Sa;
    out.SaRed = SaRed_;
    out.SdRed = SdRed;
    out.K = K_;
    out.Beff = Beff_;
    out.SRA = SRA_;
    out.SRV = SRV_;
}

void CapacitySweep::demand(double T, double Sa, DemandRow& out) const {
    using text::chk;
    out = DemandRow{};
    const double g = settings_.g;
    out.Sd = chk((g * Sa) * period_factor(T));
    const double reduced = chk(T >= settings_.T0 ? SRVs_ * Sa : SRAs_ * Sa);
    const double SdReduced = chk((g * reduced) * period_factor(T));
    out.SaRed = reduced;
    out.SdRed = SdReduced;
}

}  // namespace tv::compute

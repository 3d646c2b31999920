#include "windows/capacity/sweep_table.h"

#include <cmath>

#include "compute/capacity/capacity_sweep.h"
#include "text/checked.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/step_table.h"

namespace tv::windows {

const std::array<const char*, fg3::kCount> kSweepHeadings = {
    "Sort",       "Target",     "step",           "S(dpi)",     "S(api)",         "T",      "Sa",
    "Sa(Reduce)", "final",      "Sd(Reduce)",     "A",          "m",              "x",      "A1",
    "dy",         "ay",         "Es0",            "ED",         "B0",             "Lambda", "K",
    "Beff",       "SRA",        "SRV",            "T(Sec)",     "Sa(demand)",     "Sd(demand)",
    "Sa(Re)(demand)", "Sa(tarsim)", "Sd(Re)(demand)", "PFPhi", "bilinear",       "bilinear"};

namespace {

constexpr double kTwoPi = 6.283185308;

std::string f4(double x) { return text::format(x, "0.0000"); }

// A cell text through a number pattern: a text that is a number is formatted, any other text
// passes unchanged, as the old Format did with a string.
std::string pattern_text(const std::string& s) {
    try {
        return f4(text::to_double(s));
    } catch (const text::RuntimeError& e) {
        if (e.number() != text::kTypeMismatch) throw;
        return s;
    }
}

// The same without a pattern: the general number format.
std::string general_text(const std::string& s) {
    try {
        return text::to_text(text::to_double(s));
    } catch (const text::RuntimeError& e) {
        if (e.number() != text::kTypeMismatch) throw;
        return s;
    }
}

// "0" for a zero, else the pattern.
std::string f4_or_zero(double x) { return x == 0.0 ? std::string("0") : f4(x); }

double cell(const TextTable& t, long row, long col) { return text::val(t.text(row, col)); }

// Squared period over two pi, as (T / 6.283185308) ^ 2.
double period_factor(double T) {
    const double x = T / kTwoPi;
    return x * x;
}

}  // namespace

void header(TextTable& Fg3) {
    if (Fg3.cols() != fg3::kCount) Fg3.set_cols(fg3::kCount);
    for (long c = 0; c < fg3::kCount; ++c) Fg3.set_text(0, c, kSweepHeadings[static_cast<std::size_t>(c)]);
    Fg3.set_col_hidden(fg3::kSort, true);
    Fg3.set_col_hidden(fg3::kX, true);
    Fg3.set_col_hidden(fg3::kSaTarsim, true);
}

void calculate(const TextTable& Fg, const TextTable& FG2, const SweepSettings& settings, TextTable& Fg3,
               SweepResults& results) {
    using text::chk;
    using namespace fg3;

    // Preparation.
    Fg3.set_rows(static_cast<long>(FG2.rows()) - 1);
    const double skip = text::val(settings.T3);
    const double T0 = text::val(settings.T2);
    const double g = text::val(settings.T1);
    const double m = text::val(settings.T4);
    const int kind = settings.kind;

    double& slopeK0 = results.slopeK0;
    slopeK0 = 0.0;
    double A = 0.0, ED = 0.0, dy = 0.0, ay = 0.0, Lambda = 0.0, SRV = 0.0, SRA = 0.0, A1 = 0.0, B0 = 0.0,
           K = 0.0, Beff = 0.0, finalPrev = 0.0;
    results.Re1.clear();
    results.Re2.clear();
    results.Re3.clear();
    results.Re4.clear();
    results.lastCrossing = 0;

    double final_ = 0.0, target = 0.0, targetPrev = 0.0, SaRed = 0.0, SaRedPrev = 0.0, SaCap = 0.0;
    double BeffPrev = 0.0, dyPrev = 0.0, ayPrev = 0.0, SRVPrev = 0.0, SRAPrev = 0.0;
    // Interpolated at the crossing; empty boxes until then, which count as 0.
    double SRVs = 0.0, SRAs = 0.0, Beffs = 0.0, ds = 0.0, as = 0.0, targets = 0.0;

    const double n = capacity_end_row(Fg, skip);
    const double N = n - skip - 1.0;

    Fg3.clear();
    header(Fg3);

    for (long i = 1; i <= N; ++i) {
        // Take the capacity step over; what follows reads the rounded texts back.
        const double r = skip + static_cast<double>(i);
        Fg3.set_text(i, kB0, "0");
        Fg3.set_text(i, kLambda, "0");
        Fg3.set_text(i, kStep, general_text(Fg.text_at(r, 0)));
        Fg3.set_text(i, kT, pattern_text(Fg.text_at(r, 1)));
        Fg3.set_text(i, kSdpi, pattern_text(Fg.text_at(r, 3)));
        Fg3.set_text(i, kSapi, pattern_text(Fg.text_at(r, 4)));
        Fg3.set_text(i, kPFPhi, pattern_text(Fg.text_at(r, 8)));

        const double PFPhi = cell(Fg3, i, kPFPhi);
        const double T = cell(Fg3, i, kT);
        const double d = cell(Fg3, i, kSdpi);
        const double a = cell(Fg3, i, kSapi);
        const double dPrev = cell(Fg3, i - 1, kSdpi);
        const double aPrev = cell(Fg3, i - 1, kSapi);

        if (static_cast<double>(i - 1) == m) slopeK0 = text::div(a, d);

        const double increment = i == 1 ? 0.0 : chk(((a + aPrev) / 2.0) * (d - dPrev));
        A = chk(A + increment);
        Fg3.set_text(i, kA, f4(A));
        Fg3.set_text(i, kM, f4(slopeK0));

        double Es0 = chk((d * a) / 2.0);
        if (Es0 < 0.0) Es0 = 0.0;
        Fg3.set_text(i, kEs0, f4(Es0));

        if (slopeK0 != 0.0) A1 = chk((d - chk((slopeK0 * d - a) / slopeK0)) * a / 2.0);
        Fg3.set_text(i, kA1, f4(A1));
        if (A1 != 0.0) ED = chk(4.0 * (A - A1));
        if (ED < 0.0) ED = 0.0;
        Fg3.set_text(i, kED, text::to_text(ED));

        if (Es0 != 0.0) {
            if (static_cast<double>(i - 1) >= m) B0 = chk((1.0 / 12.5664 * 100.0) * (ED / Es0));
            Fg3.set_text(i, kB0, f4(B0));

            BeffPrev = Beff;
            dyPrev = dy;
            ayPrev = ay;

            const double c = chk(slopeK0 * d / 2.0 - a / 2.0);
            if (c != 0.0) dy = chk((A - a * d / 2.0) / c);
            ay = chk(slopeK0 * dy);

            if (d * a != 0.0) {
                Lambda = chk((ay * d - dy * a) / (d * a));
                if (Lambda < 0.0) Lambda = 0.0;
            }
            // The bilinear estimate above is kept for the table only; damping works from B0.
            Lambda = B0 / 63.7;
            Fg3.set_text(i, kLambda, f4(Lambda));

            K = compute::damping_modification(kind, B0, Lambda, K);
            SRVPrev = SRV;
            SRAPrev = SRA;
            Beff = chk((63.7 * K) * Lambda + 5.0);
            const compute::ReductionFactors f = compute::reduction_factors(kind, Beff, {SRA, SRV});
            SRA = f.SRA;
            SRV = f.SRV;
        }

        // The demand of row i, not of the capacity row skip + i.
        const double Sa = cell(FG2, i, 1);
        SaRedPrev = SaRed;
        SaRed = chk(T >= T0 ? SRV * Sa : SRA * Sa);
        if (SaRed == SaRedPrev) SaCap = SaRed;
        if (SaCap != 0.0 && SaRed > SaCap) SaRed = SaCap;

        const double SdRed = chk((g * SaRed) * period_factor(T));
        finalPrev = final_;
        final_ = chk(SdRed - d);
        targetPrev = target;
        target = chk(PFPhi * d);

        if (finalPrev > 0.0 && final_ < 0.0) {
            Fg3.set_cell_color(i - 1, kStep, kRed);
            Fg3.set_cell_color(i, kStep, kRed);
            const double span = final_ - finalPrev;
            SRVs = chk(((SRV - SRVPrev) / span) * (-finalPrev) + SRVPrev);
            SRAs = chk(((SRA - SRAPrev) / span) * (-finalPrev) + SRAPrev);
            Beffs = chk(((Beff - BeffPrev) / span) * (-finalPrev) + BeffPrev);
            ds = chk(((d - dPrev) / span) * (-finalPrev) + dPrev);
            as = chk(((a - aPrev) / span) * (-finalPrev) + aPrev);
            targets = chk(((target - targetPrev) / span) * (-finalPrev) + targetPrev);

            Fg3.set_text(1, kBilinearD, "0");
            Fg3.set_text(1, kBilinearA, "0");
            Fg3.set_text(2, kBilinearD, f4(dyPrev));
            Fg3.set_text(2, kBilinearA, f4(ayPrev));
            Fg3.set_text(3, kBilinearD, f4(ds));
            Fg3.set_text(3, kBilinearA, f4(as));

            Fg3.set_text(i - 1, kTarget, f4(targetPrev));
            Fg3.set_text(i, kTarget, f4(target));

            results.Re1 = f4(targets);
            results.Re2 = f4(SRAs);
            results.Re3 = f4(SRVs);
            results.Re4 = f4(Beffs);
            results.lastCrossing = i;
        } else {
            Fg3.set_cell_color(i, kStep, kBlue);
        }

        Fg3.set_text(i, kFinal, f4(final_));
        Fg3.set_text(i, kDy, f4(dy));
        Fg3.set_text(i, kAy, f4(ay));
        Fg3.set_text(i, kSa, f4(Sa));
        Fg3.set_text(i, kSaReduce, f4(SaRed));
        Fg3.set_text(i, kSdReduce, f4(SdRed));
        Fg3.set_text(i, kK, f4(K));
        Fg3.set_text(i, kBeff, f4(Beff));
        Fg3.set_text(i, kSRA, f4(SRA));
        Fg3.set_text(i, kSRV, f4(SRV));
    }

    // The demand spectrum and its reduced form, for the diagram. No cap here.
    for (long j = 1;; ++j) {
        const double T = cell(FG2, j, 2);
        const double Sa = cell(FG2, j, 3);
        const double Sd = chk((g * Sa) * period_factor(T));
        Fg3.set_text(j, kTSec, f4(T));
        Fg3.set_text(j, kSaDemand, f4(Sa));
        Fg3.set_text(j, kSdDemand, f4_or_zero(Sd));
        const double reduced = chk(T >= T0 ? SRVs * Sa : SRAs * Sa);
        const double SdReduced = chk((g * reduced) * period_factor(T));
        Fg3.set_text(j, kSaReDemand, f4_or_zero(reduced));
        Fg3.set_text(j, kSdReDemand, f4_or_zero(SdReduced));
        if (FG2.text(j, 2).empty() || j >= static_cast<long>(FG2.rows()) - 2) break;
    }
}

}  // namespace tv::windows

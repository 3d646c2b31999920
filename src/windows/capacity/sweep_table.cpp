#include "windows/capacity/sweep_table.h"

#include <cmath>

#include "compute/capacity/capacity_sweep.h"
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

using namespace fg3;

// Row i of Fg3 from a row of the sweep, as far as the row got.
void write_row(TextTable& Fg3, long i, const compute::SweepRow& row, SweepResults& results) {
    using std::isnan;
    if (isnan(row.A)) return;
    Fg3.set_text(i, kA, f4(row.A));
    Fg3.set_text(i, kM, f4(row.slopeK0));
    if (isnan(row.Es0)) return;
    Fg3.set_text(i, kEs0, f4(row.Es0));
    if (isnan(row.A1)) return;
    Fg3.set_text(i, kA1, f4(row.A1));
    if (isnan(row.ED)) return;
    Fg3.set_text(i, kED, text::to_text(row.ED));
    // Without damping worked out the two cells keep their "0".
    if (row.Es0 != 0.0) {
        if (isnan(row.B0)) return;
        Fg3.set_text(i, kB0, f4(row.B0));
        if (isnan(row.Lambda)) return;
        Fg3.set_text(i, kLambda, f4(row.Lambda));
    }
    if (!row.tested) return;
    if (row.crossing) {
        Fg3.set_cell_color(i - 1, kStep, kRed);
        Fg3.set_cell_color(i, kStep, kRed);
        const compute::SweepCrossing& x = row.at;
        if (isnan(x.targetStar)) return;
        Fg3.set_text(1, kBilinearD, "0");
        Fg3.set_text(1, kBilinearA, "0");
        Fg3.set_text(2, kBilinearD, f4(x.dyPrev));
        Fg3.set_text(2, kBilinearA, f4(x.ayPrev));
        Fg3.set_text(3, kBilinearD, f4(x.d));
        Fg3.set_text(3, kBilinearA, f4(x.a));
        Fg3.set_text(i - 1, kTarget, f4(x.targetPrev));
        Fg3.set_text(i, kTarget, f4(x.target));
        results.Re1 = f4(x.targetStar);
        results.Re2 = f4(x.SRA);
        results.Re3 = f4(x.SRV);
        results.Re4 = f4(x.Beff);
        results.lastCrossing = i;
    } else {
        Fg3.set_cell_color(i, kStep, kBlue);
    }
    if (isnan(row.final)) return;
    Fg3.set_text(i, kFinal, f4(row.final));
    Fg3.set_text(i, kDy, f4(row.dy));
    Fg3.set_text(i, kAy, f4(row.ay));
    Fg3.set_text(i, kSa, f4(row.Sa));
    Fg3.set_text(i, kSaReduce, f4(row.SaRed));
    Fg3.set_text(i, kSdReduce, f4(row.SdRed));
    Fg3.set_text(i, kK, f4(row.K));
    Fg3.set_text(i, kBeff, f4(row.Beff));
    Fg3.set_text(i, kSRA, f4(row.SRA));
    Fg3.set_text(i, kSRV, f4(row.SRV));
}

// Row j of the demand columns, as far as the row got.
void write_demand(TextTable& Fg3, long j, double T, double Sa, const compute::DemandRow& row) {
    if (std::isnan(row.Sd)) return;
    Fg3.set_text(j, kTSec, f4(T));
    Fg3.set_text(j, kSaDemand, f4(Sa));
    Fg3.set_text(j, kSdDemand, f4_or_zero(row.Sd));
    if (std::isnan(row.SdRed)) return;
    Fg3.set_text(j, kSaReDemand, f4_or_zero(row.SaRed));
    Fg3.set_text(j, kSdReDemand, f4_or_zero(row.SdRed));
}

}  // namespace

void header(TextTable& Fg3) {
    if (Fg3.cols() != fg3::kCount) Fg3.set_cols(fg3::kCount);
    for (long c = 0; c < fg3::kCount; ++c) Fg3.set_text(0, c, kSweepHeadings[static_cast<std::size_t>(c)]);
    Fg3.set_col_hidden(fg3::kSort, true);
    Fg3.set_col_hidden(fg3::kX, true);
    Fg3.set_col_hidden(fg3::kSaTarsim, true);
}

void calculate(const TextTable& Fg, const TextTable& FG2, const SweepBoxes& boxes, TextTable& Fg3,
               SweepResults& results) {
    Fg3.set_rows(static_cast<long>(FG2.rows()) - 1);
    const double skip = text::val(boxes.T3);
    compute::SweepSettings settings;
    settings.T0 = text::val(boxes.T2);
    settings.g = text::val(boxes.T1);
    settings.m = text::val(boxes.T4);
    settings.kind = boxes.kind;
    results = SweepResults{};

    const double n = capacity_end_row(Fg, skip);
    const double N = n - skip - 1.0;
    Fg3.clear();
    header(Fg3);

    compute::CapacitySweep sweep(settings);
    for (long i = 1; i <= N; ++i) {
        // Take the capacity step over; the sweep works from the rounded texts read back.
        const double r = skip + static_cast<double>(i);
        Fg3.set_text(i, kB0, "0");
        Fg3.set_text(i, kLambda, "0");
        Fg3.set_text(i, kStep, general_text(Fg.text_at(r, 0)));
        Fg3.set_text(i, kT, pattern_text(Fg.text_at(r, 1)));
        Fg3.set_text(i, kSdpi, pattern_text(Fg.text_at(r, 3)));
        Fg3.set_text(i, kSapi, pattern_text(Fg.text_at(r, 4)));
        Fg3.set_text(i, kPFPhi, pattern_text(Fg.text_at(r, 8)));
        compute::SweepStep step;
        step.PFPhi = cell(Fg3, i, kPFPhi);
        step.T = cell(Fg3, i, kT);
        step.d = cell(Fg3, i, kSdpi);
        step.a = cell(Fg3, i, kSapi);
        // The demand of row i, not of the capacity row skip + i.
        auto Sa = [&] { return cell(FG2, i, 1); };
        compute::SweepRow row;
        try {
            sweep.row(step, Sa, row);
        } catch (...) {
            results.slopeK0 = sweep.slopeK0();
            write_row(Fg3, i, row, results);
            throw;
        }
        results.slopeK0 = sweep.slopeK0();
        write_row(Fg3, i, row, results);
    }

    // The demand spectrum and its reduced form, for the diagram.
    for (long j = 1;; ++j) {
        const double T = cell(FG2, j, 2);
        const double Sa = cell(FG2, j, 3);
        compute::DemandRow row;
        try {
            sweep.demand(T, Sa, row);
        } catch (...) {
            write_demand(Fg3, j, T, Sa, row);
            throw;
        }
        write_demand(Fg3, j, T, Sa, row);
        if (FG2.text(j, 2).empty() || j >= static_cast<long>(FG2.rows()) - 2) break;
    }
}

}  // namespace tv::windows

#include "windows/capacity/capacity_results.h"

#include "windows/capacity/sweep_table.h"
#include "text/number_text.h"

namespace tv::windows {

namespace {

// Grows the array to row i and stores the cell's number, when the cell holds a text.
bool take(text::DoubleArray& arr, const TextTable& t, long i, long col, double& value) {
    const std::string& s = t.text(i, col);
    if (s.empty()) return false;
    arr.redim_preserve(i);
    value = text::val(s);
    arr(i) = value;
    return true;
}

}  // namespace

CapacityDiagram fillarray(const TextTable& Fg3) {
    using namespace fg3;
    CapacityDiagram out;
    auto& s = out.series;
    long curveRows = 0;
    double v = 0.0;
    auto ordinate = [&](DiagramSeries& series, long i, long col) {
        if (take(series.y, Fg3, i, col, v) && v > out.maxOrdinate) out.maxOrdinate = v;
    };
    for (long i = 1; i <= Fg3.rows() - 1; ++i) {
        take(s[CapacityDiagram::kDemand].x, Fg3, i, kSdDemand, v);
        ordinate(s[CapacityDiagram::kDemand], i, kSaDemand);
        take(s[CapacityDiagram::kReducedDemand].x, Fg3, i, kSdReDemand, v);
        ordinate(s[CapacityDiagram::kReducedDemand], i, kSaReDemand);
        if (take(s[CapacityDiagram::kCapacity].x, Fg3, i, kSdpi, v)) {
            ++curveRows;
            if (v > out.maxAbscissa) out.maxAbscissa = v;
        }
        ordinate(s[CapacityDiagram::kCapacity], i, kSapi);
        if (i <= curveRows) {
            take(s[CapacityDiagram::kBilinear].x, Fg3, i, kBilinearD, v);
            ordinate(s[CapacityDiagram::kBilinear], i, kBilinearA);
            take(s[CapacityDiagram::kSweep].x, Fg3, i, kSdReduce, v);
            ordinate(s[CapacityDiagram::kSweep], i, kSaReduce);
        }
    }
    return out;
}

std::string clipboard_text(const TextTable& Fg3, const std::set<int>& selectedRows) {
    std::string out;
    auto add_row = [&](long r) {
        for (long c = 0; c < Fg3.cols(); ++c) {
            if (Fg3.col_hidden(c)) continue;
            if (c != 0) out += '\t';
            out += Fg3.text(r, c);
        }
        out += "\r\n";
    };
    if (selectedRows.empty()) {
        for (long r = 0; r < Fg3.rows(); ++r) add_row(r);
    } else {
        add_row(0);
        for (int r : selectedRows) add_row(r);
    }
    return out;
}

}  // namespace tv::windows

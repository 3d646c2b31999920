#pragma once
// What leaves the calculation table: the five series of the diagram window and the clipboard
// text.
#include <array>
#include <set>
#include <string>

#include "windows/capacity/text_table.h"
#include "text/checked.h"

namespace tv::windows {

/// One series of the diagram: abscissae and ordinates, each grown to the last row that held a
/// text (rows without text leave 0 behind them); never made when no row held one.
struct DiagramSeries {
    text::DoubleArray x;
    text::DoubleArray y;
};

/// The five series in drawing order, and the largest values met.
struct CapacityDiagram {
    enum Index { kDemand = 0, kReducedDemand = 1, kCapacity = 2, kBilinear = 3, kSweep = 4 };
    std::array<DiagramSeries, 5> series;
    double maxOrdinate = 0.0;  // over every ordinate read
    double maxAbscissa = 0.0;  // over "S(dpi)" only
};

/// Colours of the series in drawing order (0xBBGGRR): blue, green, red, black, cyan.
inline constexpr std::array<int, 5> kDiagramColors = {0xFF0000, 0x00FF00, 0x0000FF, 0x000000, 0xFFFF00};
/// Their names in the legend and the saved data.
inline constexpr std::array<const char*, 5> kDiagramNames = {"Demand", "Reduced demand", "Capacity", "Bilinear",
                                                              "Reduced points"};

/// fillarray of the diagram window: for each row i from 1 of Fg3, each non-empty cell of
/// the series columns (demand 26/25, reduced demand 29/27, capacity 3/4, then bilinear 31/32
/// and sweep 9/7 only while i does not exceed the count of rows that hold the capacity curve)
/// grows its array to i and stores its number. Failure: 6 for a number beyond the double range.
CapacityDiagram fillarray(const TextTable& Fg3);

/// "Copy to Clipboard": row 0 and the selected rows (ascending), or every row when none is
/// selected; per row the texts of the visible columns, each but column 0's after a tab, then
/// CR LF. With column 0 hidden every line begins with a tab.
std::string clipboard_text(const TextTable& Fg3, const std::set<int>& selectedRows);

}  // namespace tv::windows

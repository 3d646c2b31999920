#pragma once
// The numbers a chart draws, as the columns of a CSV file, and the saving of a chart's data or
// picture to a file the user names.
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tv::forms {
class Platform;
}

namespace tv::windows {

/// One column: its heading with the unit ("T (s)") and its numbers.
struct DataColumn {
    std::string heading;
    std::vector<double> values;
};

/// The heading row, then one row per index; a column shorter than the others leaves its cells
/// empty. Numbers to 15 significant digits, as every export writes them; headings holding a
/// comma or a quote are quoted.
std::string chart_csv(const std::vector<DataColumn>& columns);

/// Asks where to save (`filter` as the old dialogs take it, "CSV File | *.csv"); the chosen name
/// with `extension` added when it ends in none of the filter's. Nothing when cancelled.
std::optional<std::string> ask_save_path(forms::Platform& platform, const std::string& filter,
                                         const std::string& extension, const std::string& title);

/// Writes `bytes` whole to `path`; a failure is told through the platform. False on failure.
bool write_out(forms::Platform& platform, const std::string& path, const std::string& bytes);

/// "Save Data...": asks for a .csv file and writes the columns to it.
void save_chart_data(forms::Platform& platform, const std::vector<DataColumn>& columns);

}  // namespace tv::windows

#include "windows/chart/chart_data.h"

#include <algorithm>

#include "compute/files/file_writer.h"
#include "forms/platform.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::windows {

namespace {

std::string csv_cell(const std::string& s) {
    if (s.find_first_of(",\"\n") == std::string::npos) return s;
    std::string out = "\"";
    for (char c : s) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string lower(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

bool ends_with(const std::string& s, const std::string& tail) {
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

}  // namespace

std::string chart_csv(const std::vector<DataColumn>& columns) {
    std::string out;
    std::size_t rows = 0;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        out += (c == 0 ? "" : ",") + csv_cell(columns[c].heading);
        rows = std::max(rows, columns[c].values.size());
    }
    out += "\r\n";
    for (std::size_t r = 0; r < rows; ++r) {
        for (std::size_t c = 0; c < columns.size(); ++c) {
            if (c > 0) out += ',';
            if (r < columns[c].values.size()) out += text::to_text(columns[c].values[r]);
        }
        out += "\r\n";
    }
    return out;
}

std::optional<std::string> ask_save_path(forms::Platform& platform, const std::string& filter,
                                         const std::string& extension, const std::string& title) {
    forms::FileDialogRequest request;
    request.save = true;
    request.filter = filter;
    request.file_name = "*" + extension;
    request.title = title;
    std::optional<std::string> chosen = platform.file_dialog(request);
    // A cancelled dialog gives back its preset.
    if (!chosen || chosen->empty() || *chosen == request.file_name) return std::nullopt;
    // Any extension the filter offers is kept; else the first one is added.
    const std::string name = lower(*chosen);
    for (std::size_t at = filter.find("*."); at != std::string::npos; at = filter.find("*.", at + 2)) {
        const std::size_t end = filter.find_first_of(" |;", at);
        if (ends_with(name, lower(filter.substr(at + 1, end == std::string::npos ? end : end - at - 1))))
            return chosen;
    }
    return *chosen + extension;
}

bool write_out(forms::Platform& platform, const std::string& path, const std::string& bytes) {
    const compute::FileStatus written = compute::write_file(path, bytes);
    if (!written.ok()) platform.report_file_error(written.error, text::error_description(written.error), path, written.reason);
    return written.ok();
}

void save_chart_data(forms::Platform& platform, const std::vector<DataColumn>& columns) {
    if (const auto path = ask_save_path(platform, "CSV File | *.csv", ".csv", "Save Data"))
        write_out(platform, *path, chart_csv(columns));
}

}  // namespace tv::windows

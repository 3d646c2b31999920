#include "compute/coefficient/pushover_listing_reader.h"

#include "compute/files/text_file.h"

#include "text/format.h"
#include "text/runtime_error.h"

namespace tv::compute {

std::optional<std::array<std::string, 3>> split_listing_line(std::string_view line) {
    // Position 1 is never copied; a blank is dropped when the character before it in the line
    // is a blank too.
    std::string s;
    for (std::size_t i = 1; i < line.size(); ++i)
        if (!(line[i] == ' ' && line[i - 1] == ' ')) s += line[i];
    std::size_t p1 = s.find(' ');
    if (p1 == std::string::npos) return std::nullopt;
    std::size_t p2 = s.find(' ', p1 + 1);
    if (p2 == std::string::npos) return std::nullopt;
    std::size_t p3 = s.find(' ', p2 + 1);
    if (p3 == std::string::npos) return std::nullopt;
    return std::array<std::string, 3>{s.substr(0, p1), s.substr(p1, p2 - p1), s.substr(p2, p3 - p2)};
}

PushoverTable parse_pushover_listing(const std::vector<std::string>& lines) {
    PushoverTable table;
    std::size_t i = 0;
    while (i < lines.size() && lines[i].find("Displacement") == std::string::npos) ++i;
    if (i == lines.size()) return table;
    try {
        for (++i; i < lines.size(); ++i) {
            if (text::trim(lines[i]).empty()) continue;
            auto fields = split_listing_line(lines[i]);
            if (!fields) continue;
            const auto& f = *fields;
            detail::add_row(table, f[0], [&f](int column) { return f[static_cast<std::size_t>(column - 1)]; });
        }
    } catch (const text::RuntimeError& e) {
        step_table_stopped(table, i + 1, e.number(), e.description());
    }
    return table;
}

PushoverTable read_pushover_listing(const std::string& path) {
    TextFile file = read_text_file(path);
    if (!file.ok()) {
        PushoverTable table;
        static_cast<FileStatus&>(table) = file;
        return table;
    }
    return parse_pushover_listing(file.lines);
}

}  // namespace tv::compute

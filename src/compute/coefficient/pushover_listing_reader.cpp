#include "compute/coefficient/pushover_listing_reader.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "text/format.h"
#include "text/runtime_error.h"

namespace tv::compute {

namespace {

// LF, CR LF and a lone CR all end a line; the last line needs no end.
std::vector<std::string> split_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0, n = text.size();
    for (std::size_t i = 0; i < n; ++i) {
        char c = text[i];
        if (c == '\n' || c == '\r') {
            lines.emplace_back(text, start, i - start);
            if (c == '\r' && i + 1 < n && text[i + 1] == '\n') ++i;
            start = i + 1;
        }
    }
    if (start < n) lines.emplace_back(text, start, n - start);
    return lines;
}

PushoverTable failed(int number, const std::string& path) {
    PushoverTable table;
    table.error = number;
    table.description = text::error_description(number) + ": " + path;
    return table;
}

}  // namespace

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
        table.error = e.number();
        table.description = e.description();
    }
    return table;
}

PushoverTable read_pushover_listing(const std::string& path) {
    std::error_code ec;
    auto status = std::filesystem::status(path, ec);
    if (path.empty() || ec || !std::filesystem::exists(status)) return failed(text::kFileNotFound, path);
    if (std::filesystem::is_directory(status)) return failed(75, path);
    std::ifstream in(path, std::ios::binary);
    if (!in) return failed(75, path);
    std::ostringstream buf;
    buf << in.rdbuf();
    if (in.bad()) return failed(75, path);
    return parse_pushover_listing(split_lines(buf.str()));
}

}  // namespace tv::compute

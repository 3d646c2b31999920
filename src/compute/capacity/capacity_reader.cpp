#include "compute/capacity/capacity_reader.h"

#include "compute/files/text_file.h"

#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "text/runtime_error.h"

namespace tv::compute {

namespace detail {

std::vector<std::string> read_lines(const std::string& path) {
    TextFile file = read_text_file(path);
    if (!file.ok()) throw_file_error(file);
    return std::move(file.lines);
}

}  // namespace detail

std::string clean_capacity_line(std::string_view line) {
    // The format counts on a disposable first column: it is never copied.
    std::string once;
    for (std::size_t k = 1; k < line.size(); ++k)
        if (!(line[k - 1] == ' ' && line[k] == ' ')) once += line[k];
    std::string twice;
    for (std::size_t k = 1; k < once.size(); ++k) {
        char p = once[k - 1], c = once[k];
        if (p == '\t' && c == ' ') continue;
        twice += p == '\t' ? ' ' : p;
    }
    if (!once.empty()) twice += once.back();  // kept as it is, even a tab
    return twice;
}

std::optional<CapacityFields> cut_capacity_fields(std::string_view s) {
    std::size_t prev = s.find(' ');
    if (prev == std::string_view::npos) return std::nullopt;
    CapacityFields f;
    f[0] = std::string(s.substr(0, prev));
    for (std::size_t k = 1; k <= 7; ++k) {
        std::size_t next = s.find(' ', prev + 1);
        if (next == std::string_view::npos) return std::nullopt;
        f[k] = std::string(s.substr(prev, next - prev));
        prev = next;
    }
    if (s.find(' ', prev + 1) != std::string_view::npos) return std::nullopt;
    f[8] = std::string(s.substr(prev));
    return f;
}

std::optional<CapacityFields> split_capacity_line(std::string_view line) {
    return cut_capacity_fields(clean_capacity_line(line));
}

CapacityPoint capacity_point(const CapacityFields& f) {
    CapacityPoint p;
    p.Step = text::to_int16(text::val(f[0]));
    p.Teff = text::val(f[1]);
    p.Betaeff = text::val(f[2]);
    p.Sd_C = text::val(f[3]);
    p.Sa_C = text::val(f[4]);
    p.Sd_d = text::val(f[5]);
    p.Sa_d = text::val(f[6]);
    p.ALPHA = text::val(f[7]);
    p.Pf_fi = text::val(f[8]);
    return p;
}

CapacityTable parse_capacity_lines(const std::vector<std::string>& lines) {
    CapacityTable table;
    bool found = false;
    std::size_t number = 0;
    try {
        for (const auto& line : lines) {
            ++number;
            if (!found) {
                found = line.find("Teff") != std::string::npos;
                continue;
            }
            if (text::trim(line).empty()) continue;
            auto fields = split_capacity_line(line);
            if (!fields) continue;
            CapacityPoint point = capacity_point(*fields);
            table.rows.push_back({std::move(*fields), point});
        }
    } catch (const text::RuntimeError& e) {
        step_table_stopped(table, number, e.number(), e.description());
    }
    return table;
}

CapacityTable read_capacity_file(const std::string& path) {
    TextFile file = read_text_file(path);
    if (!file.ok()) {
        CapacityTable table;
        static_cast<FileStatus&>(table) = file;
        return table;
    }
    return parse_capacity_lines(file.lines);
}

}  // namespace tv::compute

#include "compute/import/curve_import.h"

#include <algorithm>
#include <charconv>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <system_error>

#include "compute/coefficient/pushover_listing_reader.h"
#include "compute/coefficient/pushover_workbook_reader.h"
#include "compute/files/text_file.h"
#include "text/checked.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

bool starts_with(std::string_view s, std::string_view head) { return s.substr(0, head.size()) == head; }

// A cell's text without blanks around it and without the quotes of a CSV field.
std::string clean_cell(std::string_view cell) {
    std::string t = text::trim(cell);
    if (t.size() >= 2 && t.front() == '"' && t.back() == '"') t = text::trim(t.substr(1, t.size() - 2));
    return t;
}

// The whole text as one number (a decimal comma taken as a point), or nothing.
std::optional<double> number_of(std::string_view cell) {
    std::string t = clean_cell(cell);
    if (t.empty()) return std::nullopt;
    std::replace(t.begin(), t.end(), ',', '.');
    const char* b = t.data();
    if (*b == '+') ++b;
    double v = 0.0;
    auto res = std::from_chars(b, t.data() + t.size(), v);
    if (res.ec != std::errc() || res.ptr != t.data() + t.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

std::size_t numeric_cells(const std::vector<std::string>& row) {
    return static_cast<std::size_t>(std::count_if(row.begin(), row.end(), [](const std::string& c) { return number_of(c).has_value(); }));
}

std::size_t filled_cells(const std::vector<std::string>& row) {
    return static_cast<std::size_t>(std::count_if(row.begin(), row.end(), [](const std::string& c) { return !clean_cell(c).empty(); }));
}

bool empty_row(const std::vector<std::string>& row) {
    return std::all_of(row.begin(), row.end(), [](const std::string& c) { return clean_cell(c).empty(); });
}

// ---- units ----

// Length units in mm; force units in kgf (exact where the definitions are).
std::optional<double> length_in_mm(const std::string& unit) {
    const std::string u = lower(unit);
    if (u == "mm" || u == "millimeter" || u == "millimeters" || u == "millimetre") return 1.0;
    if (u == "cm" || u == "centimeter" || u == "centimeters" || u == "centimetre") return 10.0;
    if (u == "m" || u == "meter" || u == "meters" || u == "metre") return 1000.0;
    if (u == "in" || u == "inch" || u == "inches") return 25.4;
    if (u == "ft" || u == "feet" || u == "foot") return 304.8;
    return std::nullopt;
}

std::optional<double> force_in_kgf(const std::string& unit) {
    const std::string u = lower(unit);
    if (u == "kgf" || u == "kg" || u == "kg-f" || u == "kgf.") return 1.0;
    if (u == "tonf" || u == "ton" || u == "tf" || u == "t" || u == "tonf.") return 1000.0;
    if (u == "n") return 1.0 / 9.80665;
    if (u == "kn") return 1000.0 / 9.80665;
    if (u == "lb" || u == "lbf" || u == "lbs") return 0.45359237;
    if (u == "kip" || u == "kips") return 453.59237;
    return std::nullopt;
}

bool is_acceleration_g(const std::string& unit) { return lower(unit) == "g"; }

// Any unit a units row may hold, in any column.
bool is_unit_word(const std::string& cell) {
    const std::string u = lower(cell);
    return length_in_mm(cell) || force_in_kgf(cell) || is_acceleration_g(cell) || u == "s" || u == "sec" ||
           u == "unitless" || u == "text" || u == "%";
}

const char* kLengthUnits = "mm, cm, m, in or ft";
const char* kForceUnits = "N, kN, kgf, tonf, lb or kip";

// The unit written inside a heading: "Displacement (cm)", "Sd1 [m]".
std::string unit_in_heading(const std::string& heading) {
    for (auto [open, close] : {std::pair{'(', ')'}, std::pair{'[', ']'}}) {
        auto b = heading.rfind(open);
        auto e = heading.rfind(close);
        if (b != std::string::npos && e != std::string::npos && e > b) return text::trim(heading.substr(b + 1, e - b - 1));
    }
    return {};
}

// ---- headings ----

enum class Role { none, step, load_case, displacement, force, sd, sa, period };

Role role_of(const std::string& heading) {
    std::string h = lower(heading);
    if (auto b = h.find_first_of("(["); b != std::string::npos) h = text::trim(h.substr(0, b));
    if (h.empty()) return Role::none;
    if (h == "step" || h == "step number" || h == "stepnum" || h == "steps") return Role::step;
    if (h == "output case" || h == "outputcase" || h == "loadcase" || h == "load case" || h == "case") return Role::load_case;
    if (h == "sd" || starts_with(h, "sd ") || (starts_with(h, "sd") && h.size() <= 3) || starts_with(h, "spectral disp"))
        return Role::sd;
    if (h == "sa" || starts_with(h, "sa ") || (starts_with(h, "sa") && h.size() <= 3) || starts_with(h, "spectral acc"))
        return Role::sa;
    if (h == "period" || h == "t" || h == "teff" || h == "t (s)") return Role::period;
    if (h.find("displ") != std::string::npos || h.find("disp") != std::string::npos || starts_with(h, "delta") ||
        starts_with(h, "droof") || h == "d" || h == "u" || h == "dx" || h == "dy" || h == "drift")
        return Role::displacement;
    if (h.find("force") != std::string::npos || h.find("shear") != std::string::npos || h == "v" || h == "vb" ||
        starts_with(h, "vb") || h == "f")
        return Role::force;
    return Role::none;
}

bool has_role(const std::vector<std::string>& row) {
    return std::any_of(row.begin(), row.end(), [](const std::string& c) { return role_of(clean_cell(c)) != Role::none; });
}

CurveImport failed(const std::string& path, std::int64_t row, std::string reason) {
    CurveImport out;
    out.error = CurveImportError{path, row, std::move(reason)};
    return out;
}

std::string in_quotes(const std::string& s) { return "\"" + s + "\""; }

// Converts, shifts and checks the points read; fills the unit and conversion texts.
void finish(CurveImport& out, const CurveImportOptions& options, const std::string& path, std::string length,
            std::string force) {
    if (!options.length_unit.empty()) length = options.length_unit;
    if (!options.force_unit.empty()) force = options.force_unit;
    out.length_unit = length;
    out.force_unit = force;
    const std::string target_length = unit_system_length(options.system);
    const std::string target_force = unit_system_force(options.system);
    std::vector<std::string> said;
    // The factor from `unit` to `target`, and its words; nothing (after the error) for an unknown unit.
    auto factor = [&](const std::string& unit, const std::string& target, auto&& in_base, const char* known,
                      const char* what) -> std::optional<double> {
        if (unit.empty()) {
            said.push_back(std::string(what) + " unit not stated: taken as " + target + " as it stands");
            return 1.0;
        }
        auto from = in_base(unit);
        if (!from) {
            out.error = CurveImportError{path, 0, "unknown " + std::string(what) + " unit " + in_quotes(unit) + ": expected " + known};
            return std::nullopt;
        }
        const double f = *from / *in_base(target);
        said.push_back(f == 1.0 ? unit + " (as it stands)" : unit + " → " + target + " (× " + text::to_text(f) + ")");
        return f;
    };
    const auto length_factor = factor(length, target_length, length_in_mm, kLengthUnits, "length");
    if (!length_factor) return;
    double force_factor = 1.0;
    if (out.kind == CurveKind::spectral) {
        if (!force.empty() && !is_acceleration_g(force)) {
            out.error = CurveImportError{path, 0, "unknown unit of Sa " + in_quotes(force) + ": expected g"};
            return;
        }
        said.push_back("Sa in g");
    } else {
        const auto f = factor(force, target_force, force_in_kgf, kForceUnits, "force");
        if (!f) return;
        force_factor = *f;
    }
    out.conversion = said[0] + ", " + said[1];
    for (CurvePoint& p : out.points) {
        if (*length_factor != 1.0) p.displacement = p.displacement * *length_factor;
        if (force_factor != 1.0) p.force = p.force * force_factor;
    }
    for (std::size_t i = 0; i < out.points.size(); ++i)
        if (!std::isfinite(out.points[i].displacement) || !std::isfinite(out.points[i].force)) {
            out.error = CurveImportError{path, 0, "point " + std::to_string(i + 1) + " is beyond the range of numbers once converted"};
            return;
        }
    if (out.points.size() > 32768) {
        out.error = CurveImportError{path, 0, "more than 32768 points: the step table numbers its steps in 16 bits"};
        return;
    }
    if (out.points.size() < 2) {
        out.error = CurveImportError{path, 0, "expected at least two points of the curve, found " +
                                                  std::to_string(out.points.size())};
        return;
    }
    out.first_point = out.points.front();
    out.first_point_off_origin = out.first_point.displacement != 0.0 || out.first_point.force != 0.0;
    if (out.first_point_off_origin && options.shift_to_origin) {
        const CurvePoint o = out.first_point;
        for (CurvePoint& p : out.points) p = {p.displacement - o.displacement, p.force - o.force};
        out.shifted = true;
    }
    for (std::size_t i = 1; i < out.points.size(); ++i)
        if (out.points[i].displacement == out.points[i - 1].displacement) ++out.vertical_steps;
}

// A list written row-wise: a label cell, then the values ("Sd1 [m],0,0.0235,...").
std::optional<CurveImport> row_wise(const Rows& rows, const std::string& path, CurveKind kind,
                                    const CurveImportOptions& options) {
    const std::vector<std::string> x_labels = kind == CurveKind::spectral ? std::vector<std::string>{"sd"}
                                                                           : std::vector<std::string>{"droof"};
    const std::vector<std::string> y_labels = kind == CurveKind::spectral ? std::vector<std::string>{"sa"}
                                                                           : std::vector<std::string>{"vb"};
    auto find = [&](const std::vector<std::string>& labels) -> long {
        for (std::size_t r = 0; r < rows.size(); ++r) {
            if (rows[r].size() < 3 || numeric_cells(rows[r]) < 2 || number_of(rows[r][0])) continue;
            std::string label = lower(clean_cell(rows[r][0]));
            if (auto b = label.find_first_of(" (["); b != std::string::npos) label = label.substr(0, b);
            for (const auto& l : labels) {
                if (!starts_with(label, l)) continue;
                const std::string rest = label.substr(l.size());
                // "Sa1", "droof" and "droof2" but not "dfloor" or "Sa_d".
                if (std::all_of(rest.begin(), rest.end(), [](char c) { return c >= '0' && c <= '9'; }))
                    return static_cast<long>(r);
            }
        }
        return -1;
    };
    const long xr = find(x_labels), yr = find(y_labels);
    if (xr < 0 || yr < 0) return std::nullopt;
    CurveImport out;
    out.kind = kind;
    out.layout = "row-wise list";
    out.headings = {clean_cell(rows[static_cast<std::size_t>(xr)][0]), clean_cell(rows[static_cast<std::size_t>(yr)][0])};
    out.displacement_column = static_cast<int>(xr) + 1;  // rows, in this layout
    out.force_column = static_cast<int>(yr) + 1;
    const auto& xs = rows[static_cast<std::size_t>(xr)];
    const auto& ys = rows[static_cast<std::size_t>(yr)];
    for (std::size_t c = 1; c < std::max(xs.size(), ys.size()); ++c) {
        const std::string xt = c < xs.size() ? clean_cell(xs[c]) : "";
        const std::string yt = c < ys.size() ? clean_cell(ys[c]) : "";
        if (xt.empty() && yt.empty()) continue;  // padding
        auto x = number_of(xt), y = number_of(yt);
        if (!x || !y) {
            const long r = !x ? xr : yr;
            return failed(path, r + 1, "expected a number in value " + std::to_string(c) + " of " + in_quotes(out.headings[!x ? 0 : 1]) +
                                           ", found " + in_quotes(!x ? xt : yt));
        }
        out.points.push_back({*x, *y});
    }
    for (const auto& row : rows) {
        if (row.size() >= 2 && lower(clean_cell(row[0])).find("participation factor") != std::string::npos)
            if (auto v = number_of(row[1])) out.participation_factor = *v;
    }
    finish(out, options, path, unit_in_heading(out.headings[0]), unit_in_heading(out.headings[1]));
    return out;
}

// Cuts text into rows of cells: at semicolons, else tabs, else commas, else runs of blanks.
// Nothing when the text holds more cells than any curve needs (memory stays bounded).
std::optional<Rows> text_rows(const std::string& content) {
    std::vector<std::string> lines = split_lines(content);
    if (!lines.empty() && starts_with(lines[0], "\xEF\xBB\xBF")) lines[0].erase(0, 3);
    // The separator is the data's: titles and headings may hold commas of their own. Lines that
    // begin with a number are looked at first; a table whose lines begin with a name (a case, a
    // row label) is judged by all its lines.
    auto pick = [&lines](bool numbers_only, std::size_t& looked) {
        char separator = ' ';
        for (const auto& line : lines) {
            const std::string t = text::trim(line);
            if (t.empty()) continue;
            if (numbers_only && !(std::isdigit(static_cast<unsigned char>(t[0])) || t[0] == '-' || t[0] == '+' || t[0] == '.'))
                continue;
            if (line.find(';') != std::string::npos) {
                ++looked;
                return ';';
            }
            if (line.find('\t') != std::string::npos) separator = '\t';
            else if (separator == ' ' && line.find(',') != std::string::npos) separator = ',';
            if (++looked == 200) break;
        }
        return separator;
    };
    std::size_t looked = 0;
    char separator = pick(true, looked);
    if (looked == 0) separator = pick(false, looked);
    Rows rows;
    rows.reserve(lines.size());
    std::size_t cells_in_all = 0;
    for (const auto& line : lines) {
        std::vector<std::string> cells;
        if (separator == ' ') {
            std::string cell;
            for (char c : line) {
                if (c == ' ' || c == '\t') {
                    if (!cell.empty()) cells.push_back(std::move(cell));
                    cell.clear();
                } else {
                    cell += c;
                }
            }
            if (!cell.empty()) cells.push_back(std::move(cell));
        } else {
            std::size_t b = 0;
            for (std::size_t e; (e = line.find(separator, b)) != std::string::npos; b = e + 1) cells.push_back(line.substr(b, e - b));
            cells.push_back(line.substr(b));
        }
        if ((cells_in_all += cells.size()) > kMaxCurveCells) return std::nullopt;
        rows.push_back(std::move(cells));
    }
    return rows;
}

std::string cell_at(const std::vector<std::string>& row, int column) {
    return column >= 1 && static_cast<std::size_t>(column) <= row.size() ? clean_cell(row[static_cast<std::size_t>(column - 1)]) : std::string();
}

std::string join(const std::vector<std::string>& items) {
    std::string out;
    for (const auto& i : items) out += (out.empty() ? "" : ", ") + i;
    return out;
}

}  // namespace

std::string CurveImportError::message() const {
    return row > 0 ? path + ", row " + std::to_string(row) + ": " + reason : path + ": " + reason;
}

std::string unit_system_name(UnitSystem system) {
    switch (system) {
        case UnitSystem::kgf_mm: return "kgf·mm";
        case UnitSystem::tonf_m: return "tonf·m";
        default: return "kgf·cm";
    }
}

std::string unit_system_length(UnitSystem system) {
    switch (system) {
        case UnitSystem::kgf_mm: return "mm";
        case UnitSystem::tonf_m: return "m";
        default: return "cm";
    }
}

std::string unit_system_force(UnitSystem system) { return system == UnitSystem::tonf_m ? "tonf" : "kgf"; }

std::optional<UnitSystem> parse_unit_system(const std::string& name) {
    std::string n = lower(name);
    std::replace(n.begin(), n.end(), '.', '-');
    if (n == "kgf-cm" || n == "kg-cm") return UnitSystem::kgf_cm;
    if (n == "kgf-mm" || n == "kg-mm") return UnitSystem::kgf_mm;
    if (n == "tonf-m" || n == "ton-m") return UnitSystem::tonf_m;
    return std::nullopt;
}

double gravity_in(const std::string& length_unit) {
    if (length_unit == "mm") return 9810;
    if (length_unit == "m") return 9.81;
    return 981;
}

CurveImport import_curve_cells(const Rows& rows, const std::string& path, CurveKind kind, const CurveImportOptions& options) {
    if (rows.size() > kMaxCurveRows) return failed(path, 0, "more than " + std::to_string(kMaxCurveRows) + " rows: no curve is that long");
    if (options.displacement_column == 0 && options.force_column == 0)
        if (auto out = row_wise(rows, path, kind, options)) return *out;

    CurveImport out;
    out.kind = kind;
    std::size_t data = 0;
    while (data < rows.size() && numeric_cells(rows[data]) < 2) ++data;
    if (data == rows.size())
        return failed(path, 0, "no numeric rows: expected rows holding at least two numbers (displacement and force)");

    // Above the data: a title ("TABLE: ..."), a heading row and a units row, each optional.
    std::vector<std::size_t> above;
    for (std::size_t r = 0; r < data; ++r) {
        if (empty_row(rows[r])) continue;
        std::string first;
        for (const auto& c : rows[r])
            if (!(first = clean_cell(c)).empty()) break;
        if (starts_with(lower(first), "table:")) continue;
        above.push_back(r);
    }
    std::optional<std::size_t> heading_row, units_row;
    if (!above.empty()) {
        const std::size_t last = above.back();
        const auto& cells = rows[last];
        const bool all_units = std::all_of(cells.begin(), cells.end(), [](const std::string& c) {
            const std::string t = clean_cell(c);
            return t.empty() || is_unit_word(t);
        });
        if (all_units) {
            units_row = last;
            if (above.size() >= 2) heading_row = above[above.size() - 2];
        } else if (has_role(cells)) {
            heading_row = last;
        } else if (above.size() >= 2 && has_role(rows[above[above.size() - 2]])) {
            heading_row = above[above.size() - 2];
            units_row = last;
        } else if (filled_cells(cells) == filled_cells(rows[data])) {
            heading_row = last;  // unknown names over the data: the columns must be chosen
        }  // else a free title line
    }
    const std::vector<std::string> no_cells;
    const auto& heads = heading_row ? rows[*heading_row] : no_cells;
    std::size_t width = 0;
    for (std::size_t r = data; r < std::min(rows.size(), data + 50); ++r) width = std::max(width, rows[r].size());
    width = std::min<std::size_t>(std::max(width, heads.size()), kMaxCurveColumns);
    for (std::size_t c = 0; c < width; ++c) out.headings.push_back(cell_at(heads, static_cast<int>(c) + 1));

    int case_column = 0;
    for (std::size_t c = 0; c < out.headings.size(); ++c) {
        const Role role = role_of(out.headings[c]);
        const int col = static_cast<int>(c) + 1;
        const bool x = kind == CurveKind::spectral ? role == Role::sd : role == Role::displacement;
        const bool y = kind == CurveKind::spectral ? role == Role::sa : role == Role::force;
        if (x && out.displacement_column == 0) out.displacement_column = col;
        if (y && out.force_column == 0) out.force_column = col;
        if (role == Role::load_case && case_column == 0) case_column = col;
    }
    if (!heading_row && filled_cells(rows[data]) == 2) {
        out.displacement_column = 1;
        out.force_column = 2;
    }
    if (options.displacement_column > 0) out.displacement_column = options.displacement_column;
    if (options.force_column > 0) out.force_column = options.force_column;
    if (out.displacement_column == 0 || out.force_column == 0) {
        out.needs_columns = true;
        return out;
    }
    out.layout = heading_row ? "table with headings" : "two-column list";

    if (case_column > 0) {
        for (std::size_t r = data; r < rows.size(); ++r) {
            const std::string name = cell_at(rows[r], case_column);
            if (!name.empty() && std::find(out.cases.begin(), out.cases.end(), name) == out.cases.end()) out.cases.push_back(name);
        }
        if (!options.case_name.empty()) {
            if (std::find(out.cases.begin(), out.cases.end(), options.case_name) == out.cases.end())
                return failed(path, 0, "no load case " + in_quotes(options.case_name) + ": the cases are " + join(out.cases));
            out.case_name = options.case_name;
        } else if (out.cases.size() > 1) {
            out.needs_case = true;
            return out;
        } else if (!out.cases.empty()) {
            out.case_name = out.cases.front();
        }
    }

    for (std::size_t r = data; r < rows.size(); ++r) {
        if (empty_row(rows[r])) continue;
        if (case_column > 0 && cell_at(rows[r], case_column) != out.case_name) continue;
        auto number = [&](int column) -> std::optional<double> { return number_of(cell_at(rows[r], column)); };
        for (int column : {out.displacement_column, out.force_column}) {
            if (number(column)) continue;
            const std::string what = cell_at(out.headings, column);
            return failed(path, static_cast<std::int64_t>(r) + 1,
                          "expected a number in column " + std::to_string(column) + (what.empty() ? "" : " (" + in_quotes(what) + ")") +
                              ", found " + (cell_at(rows[r], column).empty() ? "nothing" : in_quotes(cell_at(rows[r], column))));
        }
        out.points.push_back({*number(out.displacement_column), *number(out.force_column)});
    }

    auto declared = [&](int column) {
        std::string unit = units_row ? cell_at(rows[*units_row], column) : std::string();
        if (unit.empty()) unit = unit_in_heading(cell_at(out.headings, column));
        return unit;
    };
    const std::string length = declared(out.displacement_column), force = declared(out.force_column);
    // A units row says what the file means; a word there that is no unit is an error of that row.
    if (units_row && options.length_unit.empty() && !length.empty() && !length_in_mm(length))
        return failed(path, static_cast<std::int64_t>(*units_row) + 1,
                      "unknown length unit " + in_quotes(length) + ": expected " + kLengthUnits);
    if (units_row && options.force_unit.empty() && !force.empty() &&
        !(kind == CurveKind::spectral ? is_acceleration_g(force) : force_in_kgf(force).has_value()))
        return failed(path, static_cast<std::int64_t>(*units_row) + 1,
                      "unknown force unit " + in_quotes(force) + ": expected " + (kind == CurveKind::spectral ? "g" : kForceUnits));
    finish(out, options, path, length, force);
    return out;
}

CurveImport import_curve_text(const std::string& content, const std::string& path, CurveKind kind,
                              const CurveImportOptions& options) {
    if (content.size() > kMaxCurveFileBytes) return failed(path, 0, "larger than 16 MiB: no curve is that long");
    const std::optional<Rows> rows = text_rows(content);
    if (!rows) return failed(path, 0, "more than " + std::to_string(kMaxCurveCells) + " cells: no curve is that large");
    CurveImport out = import_curve_cells(*rows, path, kind, options);
    if (!out.layout.empty()) out.layout += " (text)";
    return out;
}

CurveImport import_curve(const std::string& path, CurveKind kind, const CurveImportOptions& options) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return failed(path, 0, "no such file");
    const auto size = std::filesystem::file_size(path, ec);
    if (ec) return failed(path, 0, ec.message());
    if (size > kMaxCurveFileBytes) return failed(path, 0, "larger than 16 MiB: no curve is that long");
    std::ifstream in(path, std::ios::binary);
    std::string content(static_cast<std::size_t>(size), '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!in) return failed(path, 0, "cannot be read");
    const bool zip = starts_with(content, "PK\x03\x04");
    const bool cfb = starts_with(content, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    if (!zip && !cfb) return import_curve_text(content, path, kind, options);
    WorkbookCells cells = read_workbook_cells(path, kMaxCurveColumns, static_cast<long>(kMaxCurveRows) + 1);
    if (!cells.ok()) return failed(path, 0, cells.description);
    CurveImport out = import_curve_cells(cells.rows, path, kind, options);
    if (!out.layout.empty()) out.layout += zip ? " (.xlsx)" : " (.xls)";
    return out;
}

PushoverTable pushover_table_from_curve(const std::vector<CurvePoint>& points) {
    PushoverTable table;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::string texts[] = {text::to_text(static_cast<std::int64_t>(i)), text::to_text(points[i].displacement),
                                     text::to_text(points[i].force)};
        try {
            detail::add_row(table, texts[0], [&texts](int column) { return texts[column - 1]; });
        } catch (const text::RuntimeError& e) {
            // A curve longer than a step number holds.
            table.error = e.number();
            table.description = e.description();
            break;
        }
    }
    return table;
}

bool pushover_file_has_own_layout(const std::string& path, bool as_workbook) {
    const PushoverTable table = as_workbook ? read_pushover_workbook(path) : read_pushover_listing(path);
    if (!table.ok()) return true;
    if (table.rows.size() < 2) return false;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const PushoverRow& row = table.rows[i];
        if (text::val(row.step_text) != static_cast<double>(i)) return false;
        if (!number_of(row.displacement_text) || !number_of(row.force_text)) return false;
    }
    return true;
}

bool capacity_file_has_own_layout(const std::string& path) {
    const CapacityTable table = read_capacity_file(path);
    return !table.ok() || !table.rows.empty();
}

namespace {

CapacityRow capacity_row(std::size_t step, const std::array<double, 8>& values) {
    CapacityRow row;
    row.fields[0] = text::to_text(static_cast<std::int64_t>(step));
    for (std::size_t k = 0; k < values.size(); ++k) row.fields[k + 1] = " " + text::to_text(values[k]);
    row.point = capacity_point(row.fields);
    return row;
}

double effective_period(double sd, double sa, double g) {
    if (!(sd > 0.0) || !(sa > 0.0)) return 0.0;
    return 2.0 * std::numbers::pi * std::sqrt(sd / (sa * g));
}

}  // namespace

CapacityTable capacity_table_from_spectral(const std::vector<CurvePoint>& points, double alpha1, double pf_phi, double g) {
    CapacityTable table;
    try {
        for (std::size_t i = 0; i < points.size(); ++i) {
            const double sd = points[i].displacement, sa = points[i].force;
            table.rows.push_back(capacity_row(i, {effective_period(sd, sa, g), 0.0, sd, sa, 0.0, 0.0, alpha1, pf_phi}));
        }
    } catch (const text::RuntimeError& e) {
        table.error = e.number();
        table.description = e.description();
    }
    return table;
}

CapacityTable capacity_table_from_pushover(const std::vector<CurvePoint>& points, const ModalNumbers& modal, double g) {
    if (!(modal.weight > 0.0) || !(modal.alpha1 > 0.0) || !(modal.pf_phi > 0.0)) {
        CapacityTable table;
        table.error = 5;
        table.description = "W, alpha1 and PF1*phi must be above 0";
        return table;
    }
    std::vector<CurvePoint> spectral;
    spectral.reserve(points.size());
    for (const CurvePoint& p : points) spectral.push_back({p.displacement / modal.pf_phi, p.force / (modal.alpha1 * modal.weight)});
    return capacity_table_from_spectral(spectral, modal.alpha1, modal.pf_phi, g);
}

std::vector<std::string> capacity_file_lines(const CapacityTable& table, const std::string& title) {
    std::vector<std::string> lines{title, " Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi"};
    for (const CapacityRow& row : table.rows) {
        std::string line = " " + row.fields[0];
        for (std::size_t k = 1; k < row.fields.size(); ++k) line += row.fields[k];
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace tv::compute

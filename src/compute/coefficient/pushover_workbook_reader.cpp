#include "compute/coefficient/pushover_workbook_reader.h"

#include <freexl.h>
#include <unzip.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "text/runtime_error.h"

namespace tv::compute {

namespace {

[[noreturn]] void unreadable(const std::string& what) {
    throw text::RuntimeError(kWorkbookUnreadable, "Unreadable workbook: " + what);
}

PushoverTable failed_table(int number, const std::string& description) {
    PushoverTable table;
    table.error = number;
    table.description = description;
    return table;
}

bool file_exists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && std::filesystem::is_regular_file(path, ec);
}

// Rows 2, 3, ... of columns A to C until column A is empty, the texts fetched as the old loop
// fetched them: column A for the test, then C, B inside the row.
template <class CellText>
void read_rows(PushoverTable& table, CellText&& cell_text) {
    for (long row = 2;; ++row) {
        std::string step_text = cell_text(row, 1);
        if (step_text.empty()) break;
        detail::add_row(table, step_text, [&](int column) { return cell_text(row, column); });
    }
}

// Runs `body`; a failure inside it becomes the error number and description of `out`.
template <class Result, class Body>
void trapped(Result& out, Body&& body) {
    try {
        body();
    } catch (const text::RuntimeError& e) {
        out.error = e.number();
        out.description = e.description();
    } catch (const std::bad_alloc&) {
        out.error = 7;
        out.description = text::error_description(7);
    }
}

template <class Sheet>
PushoverTable read_sheet(const std::string& path) {
    PushoverTable table;
    if (!file_exists(path)) return failed_table(text::kFileNotFound, text::error_description(text::kFileNotFound) + ": " + path);
    trapped(table, [&] {
        Sheet sheet(path);
        read_rows(table, [&sheet](long row, int column) { return sheet.text(row, column); });
    });
    return table;
}

// ---- .xlsx ----

std::string_view local_name(const pugi::xml_node& node) {
    std::string_view name = node.name();
    auto colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node child(const pugi::xml_node& node, std::string_view name) {
    for (pugi::xml_node c : node.children())
        if (c.type() == pugi::node_element && local_name(c) == name) return c;
    return {};
}

// The attribute whose name without prefix is `name` ("r:id" for "id").
pugi::xml_attribute attribute(const pugi::xml_node& node, std::string_view name) {
    for (pugi::xml_attribute a : node.attributes()) {
        std::string_view n = a.name();
        auto colon = n.find(':');
        if ((colon == std::string_view::npos ? n : n.substr(colon + 1)) == name) return a;
    }
    return {};
}

void append_utf8(std::string& out, unsigned cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Strings in the package escape characters XML cannot carry as _xHHHH_ (a literal "_x" is
// written _x005F_x); the spreadsheet shows the decoded text.
std::string decode_escapes(std::string_view s) {
    auto hex4 = [&s](std::size_t i, unsigned& cp) {
        if (i + 7 > s.size() || s[i] != '_' || s[i + 1] != 'x' || s[i + 6] != '_') return false;
        auto res = std::from_chars(s.data() + i + 2, s.data() + i + 6, cp, 16);
        return res.ec == std::errc() && res.ptr == s.data() + i + 6;
    };
    std::string out;
    for (std::size_t i = 0; i < s.size();) {
        unsigned cp = 0;
        if (hex4(i, cp)) {
            unsigned low = 0;
            if (cp >= 0xD800 && cp < 0xDC00 && hex4(i + 7, low) && low >= 0xDC00 && low < 0xE000) {
                append_utf8(out, 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00));
                i += 14;
            } else {
                append_utf8(out, cp);
                i += 7;
            }
        } else {
            out += s[i++];
        }
    }
    return out;
}

// The text of a shared-string item or an inline string: its own <t> and the <t> of its runs;
// phonetic hints are not part of the cell's value.
std::string string_item_text(const pugi::xml_node& item) {
    std::string out;
    for (pugi::xml_node c : item.children()) {
        if (c.type() != pugi::node_element) continue;
        if (local_name(c) == "t") {
            out += c.child_value();
        } else if (local_name(c) == "r") {
            pugi::xml_node t = child(c, "t");
            if (t) out += t.child_value();
        }
    }
    return decode_escapes(out);
}

// Part names inside the package: `target` relative to the folder of `source`, or from the
// root when it starts with "/".
std::string resolve_part(const std::string& source, const std::string& target) {
    std::string joined;
    if (!target.empty() && target[0] == '/') {
        joined = target.substr(1);
    } else {
        auto slash = source.rfind('/');
        joined = (slash == std::string::npos ? std::string() : source.substr(0, slash + 1)) + target;
    }
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= joined.size()) {
        auto end = joined.find('/', start);
        if (end == std::string::npos) end = joined.size();
        std::string seg = joined.substr(start, end - start);
        if (seg == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!seg.empty() && seg != ".") {
            parts.push_back(seg);
        }
        start = end + 1;
    }
    std::string out;
    for (const auto& p : parts) out += (out.empty() ? "" : "/") + p;
    return out;
}

std::string rels_name(const std::string& part) {
    auto slash = part.rfind('/');
    if (slash == std::string::npos) return "_rels/" + part + ".rels";
    return part.substr(0, slash + 1) + "_rels/" + part.substr(slash + 1) + ".rels";
}

bool ends_with(std::string_view s, std::string_view tail) {
    return s.size() >= tail.size() && s.substr(s.size() - tail.size()) == tail;
}

class Package {
public:
    explicit Package(const std::string& path) : zip_(unzOpen64(path.c_str())) {
        if (!zip_) unreadable(path + " is no zip package");
    }
    ~Package() { unzClose(zip_); }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    // The bytes of a part, or nothing when the package has no such part. Part names are not
    // case-sensitive.
    std::optional<std::string> read(const std::string& name) {
        if (unzLocateFile(zip_, name.c_str(), 2) != UNZ_OK) return std::nullopt;
        if (unzOpenCurrentFile(zip_) != UNZ_OK) unreadable(name);
        std::string data;
        char buf[65536];
        int got;
        while ((got = unzReadCurrentFile(zip_, buf, sizeof buf)) > 0) data.append(buf, static_cast<std::size_t>(got));
        int closed = unzCloseCurrentFile(zip_);
        if (got < 0 || closed != UNZ_OK) unreadable(name);
        return data;
    }

    pugi::xml_document xml(const std::string& name) {
        auto data = read(name);
        if (!data) unreadable("no part " + name);
        return parse(*data, name);
    }

    static pugi::xml_document parse(const std::string& data, const std::string& name) {
        pugi::xml_document doc;
        // A string of blanks alone in its <t> is a value and must survive parsing.
        auto res = doc.load_buffer(data.data(), data.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
        if (!res) unreadable(name + ": " + res.description());
        return doc;
    }

    struct Relationship {
        std::string type, target;
    };
    // The relationships of `part` by id, targets resolved to part names.
    std::map<std::string, Relationship> relationships(const std::string& part) {
        std::map<std::string, Relationship> out;
        auto data = read(rels_name(part));
        if (!data) return out;
        auto doc = parse(*data, rels_name(part));
        for (pugi::xml_node r : child(doc, "Relationships").children()) {
            if (r.type() != pugi::node_element || local_name(r) != "Relationship") continue;
            if (std::string_view(r.attribute("TargetMode").value()) == "External") continue;
            std::string source = part;
            out[r.attribute("Id").value()] = {r.attribute("Type").value(),
                                              resolve_part(source, r.attribute("Target").value())};
        }
        return out;
    }

private:
    unzFile zip_;
};

// A cell of columns A to C: its text, or an error value that cannot become text.
struct StoredCell {
    std::string text;
    bool error_value = false;
};

// "C12" -> column 3, row 12; false when the reference is not of that form.
bool parse_reference(std::string_view ref, long& row, long& column) {
    std::size_t i = 0;
    long c = 0, r = 0;
    while (i < ref.size() && ref[i] >= 'A' && ref[i] <= 'Z') {
        c = c * 26 + (ref[i] - 'A' + 1);
        if (c > 16384) return false;
        ++i;
    }
    if (i == 0 || i == ref.size()) return false;
    auto res = std::from_chars(ref.data() + i, ref.data() + ref.size(), r);
    if (res.ec != std::errc() || res.ptr != ref.data() + ref.size() || r < 1) return false;
    row = r;
    column = c;
    return true;
}

std::string number_text(std::string_view stored, const std::string& where) {
    std::size_t b = stored.find_first_not_of(" \t\r\n"), e = stored.find_last_not_of(" \t\r\n");
    if (b == std::string_view::npos) return {};
    stored = stored.substr(b, e - b + 1);
    double value = 0.0;
    auto res = std::from_chars(stored.data(), stored.data() + stored.size(), value);
    if (res.ec != std::errc() || res.ptr != stored.data() + stored.size())
        throw text::RuntimeError(text::kTypeMismatch, text::error_description(text::kTypeMismatch) + " in cell " + where);
    return text::to_text(value);
}

class XlsxSheet {
public:
    explicit XlsxSheet(const std::string& path, int columns = 3) : columns_(columns) {
        Package pkg(path);
        std::string workbook = "xl/workbook.xml";
        for (const auto& [id, rel] : pkg.relationships("")) {
            if (ends_with(rel.type, "/officeDocument")) {
                workbook = rel.target;
                break;
            }
        }
        auto book_rels = pkg.relationships(workbook);
        auto book = pkg.xml(workbook);

        std::string sheet_part;
        for (pugi::xml_node s : child(child(book, "workbook"), "sheets").children()) {
            if (s.type() != pugi::node_element || local_name(s) != "sheet") continue;
            auto rel = book_rels.find(attribute(s, "id").value());
            if (rel != book_rels.end() && ends_with(rel->second.type, "/worksheet")) {
                sheet_part = rel->second.target;
                break;
            }
        }
        if (sheet_part.empty()) unreadable(path + " has no worksheet");

        std::vector<std::string> shared;
        for (const auto& [id, rel] : book_rels) {
            if (!ends_with(rel.type, "/sharedStrings")) continue;
            auto sst = pkg.xml(rel.target);
            for (pugi::xml_node si : child(sst, "sst").children())
                if (si.type() == pugi::node_element && local_name(si) == "si") shared.push_back(string_item_text(si));
        }

        auto sheet = pkg.xml(sheet_part);
        load_cells(child(child(sheet, "worksheet"), "sheetData"), shared);
    }

    std::string text(long row, int column) const {
        auto it = rows_.find(row);
        if (it == rows_.end() || static_cast<std::size_t>(column) > it->second.size()) return {};
        const StoredCell& cell = it->second[static_cast<std::size_t>(column - 1)];
        if (cell.error_value)
            throw text::RuntimeError(text::kTypeMismatch,
                                     text::error_description(text::kTypeMismatch) + ": error value " + cell.text);
        return cell.text;
    }

    /// A cell's text, an error value as its code ("#N/A").
    std::string raw_text(long row, int column) const {
        auto it = rows_.find(row);
        if (it == rows_.end() || static_cast<std::size_t>(column) > it->second.size()) return {};
        return it->second[static_cast<std::size_t>(column - 1)].text;
    }
    long last_row() const { return rows_.empty() ? 0 : rows_.rbegin()->first; }

private:
    void load_cells(const pugi::xml_node& sheet_data, const std::vector<std::string>& shared) {
        long row = 0;
        for (pugi::xml_node r : sheet_data.children()) {
            if (r.type() != pugi::node_element || local_name(r) != "row") continue;
            // Row and cell references may be left out: they then follow the one before.
            pugi::xml_attribute rr = r.attribute("r");
            row = rr ? rr.as_llong() : row + 1;
            long column = 0;
            for (pugi::xml_node c : r.children()) {
                if (c.type() != pugi::node_element || local_name(c) != "c") continue;
                pugi::xml_attribute ref = c.attribute("r");
                long ref_row = row;
                if (!ref || !parse_reference(ref.value(), ref_row, column)) ++column;
                if (column < 1 || column > columns_) continue;
                auto& cells = rows_[ref_row];
                // Only as many cells as the row uses: memory follows the cells the sheet holds.
                if (cells.size() < static_cast<std::size_t>(column)) cells.resize(static_cast<std::size_t>(column));
                cells[static_cast<std::size_t>(column - 1)] = cell_value(c, shared, ref_row, column);
            }
        }
    }

    static StoredCell cell_value(const pugi::xml_node& c, const std::vector<std::string>& shared, long row, long column) {
        std::string where = column_name(column) + std::to_string(row);
        std::string_view type = c.attribute("t").value();
        pugi::xml_node v = child(c, "v");
        if (type == "inlineStr") {
            pugi::xml_node is = child(c, "is");
            return {is ? string_item_text(is) : std::string()};
        }
        if (!v) return {};
        std::string_view stored = v.child_value();
        if (type == "s") {
            long index = -1;
            auto res = std::from_chars(stored.data(), stored.data() + stored.size(), index);
            if (res.ec != std::errc() || index < 0 || static_cast<std::size_t>(index) >= shared.size())
                unreadable("shared string " + std::string(stored) + " in cell " + where);
            return {shared[static_cast<std::size_t>(index)]};
        }
        if (type == "str" || type == "d") return {decode_escapes(stored)};
        if (type == "b") return {stored == "1" ? "True" : "False"};
        if (type == "e") return {std::string(stored), true};
        return {number_text(stored, where)};
    }

    static std::string column_name(long column) {
        std::string name;
        for (; column > 0; column = (column - 1) / 26) name.insert(name.begin(), static_cast<char>('A' + (column - 1) % 26));
        return name;
    }

    int columns_;
    std::map<long, std::vector<StoredCell>> rows_;
};

// ---- .xls ----

class XlsSheet {
public:
    explicit XlsSheet(const std::string& path, int = 3) {
        int rc = freexl_open(path.c_str(), &handle_);
        if (rc != FREEXL_OK) unreadable(path + " (FreeXL error " + std::to_string(rc) + ")");
        if (freexl_select_active_worksheet(handle_, 0) != FREEXL_OK) unreadable(path + " has no worksheet");
        if (freexl_worksheet_dimensions(handle_, &rows_, &columns_) != FREEXL_OK) unreadable(path);
    }
    ~XlsSheet() {
        if (handle_) freexl_close(handle_);
    }
    XlsSheet(const XlsSheet&) = delete;
    XlsSheet& operator=(const XlsSheet&) = delete;

    long last_row() const { return static_cast<long>(rows_); }
    std::string raw_text(long row, int column) const { return text(row, column); }

    std::string text(long row, int column) const {
        // FreeXL counts from 0; the dimensions are the numbers of rows and columns in use.
        if (row < 1 || static_cast<unsigned long>(row - 1) >= rows_ || column > columns_) return {};
        FreeXL_CellValue value;
        if (freexl_get_cell_value(handle_, static_cast<unsigned>(row - 1), static_cast<unsigned short>(column - 1), &value) !=
            FREEXL_OK)
            unreadable("cell " + std::to_string(row) + ", " + std::to_string(column));
        switch (value.type) {
            case FREEXL_CELL_INT: return text::to_text(static_cast<std::int64_t>(value.value.int_value));
            case FREEXL_CELL_DOUBLE: return text::to_text(value.value.double_value);
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME: return value.value.text_value ? value.value.text_value : "";
            default: return {};
        }
    }

private:
    const void* handle_ = nullptr;
    unsigned rows_ = 0;
    unsigned short columns_ = 0;
};

enum class WorkbookKind { Xlsx, Xls, Unknown };

WorkbookKind sniff(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::array<unsigned char, 8> head{};
    in.read(reinterpret_cast<char*>(head.data()), head.size());
    if (in.gcount() >= 4 && head[0] == 'P' && head[1] == 'K' && head[2] == 3 && head[3] == 4) return WorkbookKind::Xlsx;
    static constexpr std::array<unsigned char, 8> cfb{0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    if (in.gcount() == 8 && head == cfb) return WorkbookKind::Xls;
    return WorkbookKind::Unknown;
}

}  // namespace

PushoverTable read_pushover_xlsx(const std::string& path) { return read_sheet<XlsxSheet>(path); }

PushoverTable read_pushover_xls(const std::string& path) { return read_sheet<XlsSheet>(path); }

template <class Sheet>
WorkbookCells sheet_cells(const std::string& path, int max_columns, long max_rows) {
    WorkbookCells out;
    trapped(out, [&] {
        Sheet sheet(path, max_columns);
        const long last = std::min(sheet.last_row(), max_rows);
        out.rows.resize(static_cast<std::size_t>(std::max(last, 0L)));
        for (long row = 1; row <= last; ++row) {
            int used = max_columns;
            while (used > 0 && sheet.raw_text(row, used).empty()) --used;
            auto& cells = out.rows[static_cast<std::size_t>(row - 1)];
            for (int column = 1; column <= used; ++column) cells.push_back(sheet.raw_text(row, column));
        }
    });
    return out;
}

WorkbookCells read_workbook_cells(const std::string& path, int max_columns, long max_rows) {
    WorkbookCells out;
    if (!file_exists(path)) {
        out.error = text::kFileNotFound;
        out.description = text::error_description(text::kFileNotFound) + ": " + path;
        return out;
    }
    switch (sniff(path)) {
        case WorkbookKind::Xlsx: return sheet_cells<XlsxSheet>(path, max_columns, max_rows);
        case WorkbookKind::Xls: return sheet_cells<XlsSheet>(path, max_columns, max_rows);
        default:
            out.error = kWorkbookUnreadable;
            out.description = "Unreadable workbook: " + path + " is no spreadsheet";
            return out;
    }
}

PushoverTable read_pushover_workbook(const std::string& path) {
    if (!file_exists(path))
        return failed_table(text::kFileNotFound, text::error_description(text::kFileNotFound) + ": " + path);
    switch (sniff(path)) {
        case WorkbookKind::Xlsx: return read_pushover_xlsx(path);
        case WorkbookKind::Xls: return read_pushover_xls(path);
        default: return failed_table(kWorkbookUnreadable, "Unreadable workbook: " + path + " is no spreadsheet");
    }
}

}  // namespace tv::compute

#include "compute/coefficient/pushover_workbook_reader.h"

#include <unzip.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "compute/coefficient/xls_cells.h"
#include "compute/files/file_reader.h"
#include "compute/files/helper_process.h"
#include "text/runtime_error.h"

namespace tv::compute {

namespace {

[[noreturn]] void unreadable(const std::string& what) {
    throw text::RuntimeError(kWorkbookUnreadable, "Unreadable workbook: " + what);
}

// The spreadsheet reader in its helper process, and how long it may take.
constexpr const char* kXlsHelper = "tremorvault-xls-reader";
constexpr int kXlsSeconds = 20;

PushoverTable failed_table(int number, const std::string& description) {
    PushoverTable table;
    table.error = number;
    table.description = description;
    return table;
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

template <class MakeSheet>
PushoverTable read_sheet(MakeSheet&& make_sheet) {
    PushoverTable table;
    trapped(table, [&] {
        auto sheet = make_sheet();
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

// The package's bytes as minizip's file: reads and seeks inside the buffer.
struct MemoryFile {
    std::string_view bytes;
    ZPOS64_T at = 0;
};

voidpf ZCALLBACK memory_open(voidpf opaque, const void*, int mode) {
    if ((mode & ZLIB_FILEFUNC_MODE_WRITE) != 0) return nullptr;
    return new MemoryFile{*static_cast<const std::string_view*>(opaque)};
}

uLong ZCALLBACK memory_read(voidpf, voidpf stream, void* buf, uLong size) {
    auto* f = static_cast<MemoryFile*>(stream);
    const ZPOS64_T left = f->bytes.size() - f->at;
    const std::size_t n = static_cast<std::size_t>(std::min<ZPOS64_T>(size, left));
    std::memcpy(buf, f->bytes.data() + f->at, n);
    f->at += n;
    return static_cast<uLong>(n);
}

uLong ZCALLBACK memory_write(voidpf, voidpf, const void*, uLong) { return 0; }

ZPOS64_T ZCALLBACK memory_tell(voidpf, voidpf stream) { return static_cast<MemoryFile*>(stream)->at; }

long ZCALLBACK memory_seek(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    auto* f = static_cast<MemoryFile*>(stream);
    const ZPOS64_T base = origin == ZLIB_FILEFUNC_SEEK_CUR ? f->at : origin == ZLIB_FILEFUNC_SEEK_END ? f->bytes.size() : 0;
    if (offset > f->bytes.size() - base) return -1;
    f->at = base + offset;
    return 0;
}

int ZCALLBACK memory_close(voidpf, voidpf stream) {
    delete static_cast<MemoryFile*>(stream);
    return 0;
}

int ZCALLBACK memory_error(voidpf, voidpf) { return 0; }

class Package {
public:
    Package(std::string_view bytes, const std::string& name) : bytes_(bytes) {
        zlib_filefunc64_def io{};
        io.zopen64_file = memory_open;
        io.zread_file = memory_read;
        io.zwrite_file = memory_write;
        io.ztell64_file = memory_tell;
        io.zseek64_file = memory_seek;
        io.zclose_file = memory_close;
        io.zerror_file = memory_error;
        io.opaque = &bytes_;
        zip_ = unzOpen2_64(name.c_str(), &io);
        if (!zip_) unreadable(name + " is no zip package");
    }
    ~Package() { unzClose(zip_); }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    // The bytes of a part, or nothing when the package has no such part. Part names are not
    // case-sensitive.
    std::optional<std::string> read(const std::string& name) {
        if (unzLocateFile(zip_, name.c_str(), 2) != UNZ_OK) return std::nullopt;
        // The size is checked before anything is inflated, and again as it inflates, since a
        // damaged or crafted package may state less than it holds.
        unz_file_info64 info{};
        if (unzGetCurrentFileInfo64(zip_, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) unreadable(name);
        if (info.uncompressed_size > kWorkbookPartLimit) unreadable(name + too_large());
        if (unzOpenCurrentFile(zip_) != UNZ_OK) unreadable(name);
        std::string data;
        data.reserve(static_cast<std::size_t>(info.uncompressed_size));
        char buf[65536];
        int got;
        while ((got = unzReadCurrentFile(zip_, buf, sizeof buf)) > 0) {
            if (data.size() + static_cast<std::size_t>(got) > kWorkbookPartLimit) {
                unzCloseCurrentFile(zip_);
                unreadable(name + too_large());
            }
            data.append(buf, static_cast<std::size_t>(got));
        }
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
    static std::string too_large() {
        return " is larger than " + std::to_string(kWorkbookPartLimit / kMiB) + " MiB unpacked";
    }

    std::string_view bytes_;
    unzFile zip_ = nullptr;
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
    XlsxSheet(std::string_view bytes, const std::string& path, int columns = 3) : columns_(columns) {
        Package pkg(bytes, path);
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

// The reading happens in the helper: a damaged file may at worst stop that process.
class XlsSheet {
public:
    // The pushover table's cells by default; with `columns`, every cell of the first `rows`
    // rows up to that column.
    explicit XlsSheet(const std::string& path, int columns = 0, long rows = 0) {
        const std::string helper = helper_program(kXlsHelper);
        if (helper.empty()) unreadable(path + " (the spreadsheet reader " + std::string(kXlsHelper) + " is missing)");
        std::vector<std::string> args{path};
        if (columns > 0) args.insert(args.end(), {std::to_string(columns), std::to_string(rows)});
        HelperRun run = run_helper(helper, args, kXlsSeconds, kInputFileLimit);
        std::optional<XlsCells> cells;
        if (run.ok()) cells = XlsCells::parse(run.output);
        if (!cells) {
            std::string why = !run.trouble.empty() ? run.trouble
                              : run.exit_status != 0 ? "exit status " + std::to_string(run.exit_status)
                                                     : "an answer cut short";
            unreadable(path + " (the spreadsheet reader stopped: " + why + ")");
        }
        cells->check_opened();
        cells_ = std::move(*cells);
    }

    std::string text(long row, int column) const { return cells_.text(row, column); }
    std::string raw_text(long row, int column) const { return cells_.text(row, column); }
    long last_row() const { return cells_.last_row(); }

private:
    XlsCells cells_;
};

enum class WorkbookKind { Xlsx, Xls, Unknown };

WorkbookKind sniff(std::string_view head) {
    if (head.size() >= 4 && head.substr(0, 4) == std::string_view("PK\x03\x04", 4)) return WorkbookKind::Xlsx;
    static constexpr std::string_view cfb("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    if (head.size() >= 8 && head.substr(0, 8) == cfb) return WorkbookKind::Xls;
    return WorkbookKind::Unknown;
}

PushoverTable file_failed(const FileStatus& status) {
    PushoverTable table;
    static_cast<FileStatus&>(table) = status;
    return table;
}

}  // namespace

PushoverTable read_pushover_xlsx_bytes(std::string_view bytes, const std::string& name) {
    return read_sheet([&] { return XlsxSheet(bytes, name); });
}

PushoverTable read_pushover_xlsx(const std::string& path) {
    FileBytes file = read_input_file(path);
    if (!file.ok()) return file_failed(file);
    return read_pushover_xlsx_bytes(file.bytes, path);
}

PushoverTable read_pushover_xls(const std::string& path) {
    FileStatus file = check_input_file(path);
    if (!file.ok()) return file_failed(file);
    return read_sheet([&] { return XlsSheet(path); });
}

template <class MakeSheet>
WorkbookCells sheet_cells(MakeSheet&& make_sheet, int max_columns, long max_rows) {
    WorkbookCells out;
    trapped(out, [&] {
        auto sheet = make_sheet();
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
    FileBytes file = read_input_file(path);
    if (!file.ok()) {
        out.error = file.error;
        out.description = file.description;
        return out;
    }
    switch (sniff(file.bytes)) {
        case WorkbookKind::Xlsx:
            return sheet_cells([&] { return XlsxSheet(file.bytes, path, max_columns); }, max_columns, max_rows);
        case WorkbookKind::Xls:
            return sheet_cells([&] { return XlsSheet(path, max_columns, max_rows); }, max_columns, max_rows);
        default:
            out.error = kWorkbookUnreadable;
            out.description = "Unreadable workbook: " + path + " is no spreadsheet";
            return out;
    }
}

PushoverTable read_pushover_workbook(const std::string& path) {
    FileBytes file = read_input_file(path);
    if (!file.ok()) return file_failed(file);
    switch (sniff(file.bytes)) {
        case WorkbookKind::Xlsx: return read_pushover_xlsx_bytes(file.bytes, path);
        case WorkbookKind::Xls: return read_pushover_xls(path);
        default: return failed_table(kWorkbookUnreadable, "Unreadable workbook: " + path + " is no spreadsheet");
    }
}

}  // namespace tv::compute

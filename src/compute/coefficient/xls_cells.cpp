#include "compute/coefficient/xls_cells.h"

#include <freexl.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <stdexcept>

#include "compute/coefficient/pushover_workbook_reader.h"
#include "text/number_text.h"
#include "text/runtime_error.h"

namespace tv::compute {

namespace {

// Answer records: "c ROW COL LEN\n" + text + "\n" for a cell, "o LEN\n" + what + "\n" when the
// workbook does not open, "f LEN\n" + what + "\n" when a cell cannot be read, "e\n" at the end.
constexpr const char* kHead = "tremorvault-xls 1\n";
// BIFF8 worksheets end at column IV.
constexpr long kMaxColumns = 256;

struct Unreadable {
    std::string what;
};

class XlsSheet {
public:
    explicit XlsSheet(const std::string& path) {
        int rc = freexl_open(path.c_str(), &handle_);
        if (rc != FREEXL_OK) {
            close();
            throw Unreadable{path + " (FreeXL error " + std::to_string(rc) + ")"};
        }
        if (freexl_select_active_worksheet(handle_, 0) != FREEXL_OK) {
            close();
            throw Unreadable{path + " has no worksheet"};
        }
        if (freexl_worksheet_dimensions(handle_, &rows_, &columns_) != FREEXL_OK) {
            close();
            throw Unreadable{path};
        }
    }
    ~XlsSheet() { close(); }
    XlsSheet(const XlsSheet&) = delete;
    XlsSheet& operator=(const XlsSheet&) = delete;

    long rows() const { return static_cast<long>(rows_); }
    int columns() const { return columns_; }

    std::string text(long row, int column) const {
        // FreeXL counts from 0; the dimensions are the numbers of rows and columns in use.
        if (row < 1 || static_cast<unsigned long>(row - 1) >= rows_ || column > columns_) return {};
        FreeXL_CellValue value;
        if (freexl_get_cell_value(handle_, static_cast<unsigned>(row - 1), static_cast<unsigned short>(column - 1),
                                  &value) != FREEXL_OK)
            throw Unreadable{"cell " + std::to_string(row) + ", " + std::to_string(column)};
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
    // A failed open may still hand back a handle: it is closed all the same.
    void close() {
        if (handle_) freexl_close(handle_);
        handle_ = nullptr;
    }

    const void* handle_ = nullptr;
    unsigned rows_ = 0;
    unsigned short columns_ = 0;
};

void put_text(std::string& out, char kind, const std::string& prefix, const std::string& text) {
    out += kind;
    out += prefix;
    out += ' ';
    out += std::to_string(text.size());
    out += '\n';
    out += text;
    out += '\n';
}

// Reads "N" up to `end` at `at`; false when it is not a whole number.
bool number_at(const std::string& s, std::size_t& at, char end, long& value) {
    const std::size_t stop = s.find(end, at);
    if (stop == std::string::npos) return false;
    auto res = std::from_chars(s.data() + at, s.data() + stop, value);
    if (res.ec != std::errc() || res.ptr != s.data() + stop || value < 0) return false;
    at = stop + 1;
    return true;
}

bool text_at(const std::string& s, std::size_t& at, long length, std::string& text) {
    if (static_cast<std::size_t>(length) > s.size() - at || at + static_cast<std::size_t>(length) >= s.size() ||
        s[at + static_cast<std::size_t>(length)] != '\n')
        return false;
    text.assign(s, at, static_cast<std::size_t>(length));
    at += static_cast<std::size_t>(length) + 1;
    return true;
}

}  // namespace

std::string xls_cells_answer(const std::string& path, int columns, long rows) {
    std::string out = kHead;
    try {
        XlsSheet sheet(path);
        try {
            auto put = [&](long row, int column) {
                std::string t = sheet.text(row, column);
                put_text(out, 'c', " " + std::to_string(row) + " " + std::to_string(column), t);
                return t;
            };
            if (columns > 0) {
                const long last = std::min(rows, sheet.rows());
                for (long row = 1; row <= last; ++row)
                    for (int column = 1; column <= columns && column <= sheet.columns(); ++column)
                        if (!sheet.text(row, column).empty()) put(row, column);
            } else {
                for (long row = 2;; ++row) {
                    if (put(row, 1).empty()) break;
                    put(row, 3);
                    put(row, 2);
                }
            }
        } catch (const Unreadable& u) {
            put_text(out, 'f', "", u.what);
        }
    } catch (const Unreadable& u) {
        put_text(out, 'o', "", u.what);
    }
    out += "e\n";
    return out;
}

std::optional<XlsCells> XlsCells::parse(const std::string& answer) {
    const std::string head = kHead;
    if (answer.compare(0, head.size(), head) != 0) return std::nullopt;
    XlsCells cells;
    std::size_t at = head.size();
    while (at < answer.size()) {
        const char kind = answer[at];
        if (kind == 'e') return at + 2 == answer.size() && answer[at + 1] == '\n' ? std::optional(std::move(cells)) : std::nullopt;
        if (at + 2 > answer.size() || answer[at + 1] != ' ') return std::nullopt;
        at += 2;
        long row = 0, column = 0, length = 0;
        std::string text;
        if (kind == 'c') {
            if (!number_at(answer, at, ' ', row) || !number_at(answer, at, ' ', column) ||
                !number_at(answer, at, '\n', length) || !text_at(answer, at, length, text) || column > kMaxColumns)
                return std::nullopt;
            cells.cells_[{row, static_cast<int>(column)}] = std::move(text);
        } else if (kind == 'o' || kind == 'f') {
            if (!number_at(answer, at, '\n', length) || !text_at(answer, at, length, text)) return std::nullopt;
            (kind == 'o' ? cells.open_failure_ : cells.cell_failure_) = std::move(text);
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;  // no end mark
}

void XlsCells::check_opened() const {
    if (open_failure_) throw text::RuntimeError(kWorkbookUnreadable, "Unreadable workbook: " + *open_failure_);
}

std::string XlsCells::text(long row, int column) const {
    auto it = cells_.find({row, column});
    if (it != cells_.end()) return it->second;
    if (cell_failure_) throw text::RuntimeError(kWorkbookUnreadable, "Unreadable workbook: " + *cell_failure_);
    return {};
}

}  // namespace tv::compute

#include "support/workbooks.h"

#include <zip.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <fstream>
#include <map>
#include <stdexcept>

namespace tv::test {

void write_zip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& parts) {
    zipFile zf = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!zf) throw std::runtime_error("cannot create " + path);
    for (const auto& [name, content] : parts) {
        zip_fileinfo info{};
        if (zipOpenNewFileInZip64(zf, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                  Z_DEFAULT_COMPRESSION, 0) != ZIP_OK ||
            zipWriteInFileInZip(zf, content.data(), static_cast<unsigned>(content.size())) != ZIP_OK ||
            zipCloseFileInZip(zf) != ZIP_OK) {
            zipClose(zf, nullptr);
            throw std::runtime_error("cannot write " + name + " into " + path);
        }
    }
    if (zipClose(zf, nullptr) != ZIP_OK) throw std::runtime_error("cannot close " + path);
}

std::vector<std::pair<std::string, std::string>> xlsx_parts(const std::string& sheet_data,
                                                            const std::vector<std::string>& shared) {
    const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
    const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    std::string sst = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sst xmlns=\"" + main + "\">";
    for (const auto& s : shared) sst += "<si><t xml:space=\"preserve\">" + s + "</t></si>";
    sst += "</sst>";
    return {
        {"[Content_Types].xml",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Types "
         "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
         "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
         "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
         "<Override PartName=\"/xl/workbook.xml\" "
         "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
         "<Override PartName=\"/xl/worksheets/sheet1.xml\" "
         "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
         "<Override PartName=\"/xl/sharedStrings.xml\" "
         "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml\"/>"
         "</Types>"},
        {"_rels/.rels", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships "
                        "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                        "<Relationship Id=\"rId1\" Type=\"" + rel + "/officeDocument\" Target=\"xl/workbook.xml\"/>"
                        "</Relationships>"},
        {"xl/workbook.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><workbook xmlns=\"" + main +
                                "\" xmlns:r=\"" + rel +
                                "\"><sheets><sheet name=\"Sheet1\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships "
         "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
         "<Relationship Id=\"rId1\" Type=\"" + rel + "/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
         "<Relationship Id=\"rId2\" Type=\"" + rel + "/sharedStrings\" Target=\"sharedStrings.xml\"/>"
         "</Relationships>"},
        {"xl/worksheets/sheet1.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet xmlns=\"" + main +
                                         "\"><sheetData>" + sheet_data + "</sheetData></worksheet>"},
        {"xl/sharedStrings.xml", sst},
    };
}

namespace {

// Little-endian fields of 16 and of 32 bits, in order.
void put16(std::string& s, std::initializer_list<std::uint32_t> values) {
    for (std::uint32_t v : values) s += {static_cast<char>(v & 0xFF), static_cast<char>(v >> 8 & 0xFF)};
}
void put32(std::string& s, std::initializer_list<std::uint32_t> values) {
    for (std::uint32_t v : values) put16(s, {v & 0xFFFF, v >> 16});
}
void record(std::string& s, std::uint16_t type, const std::string& body) {
    put16(s, {type, static_cast<std::uint32_t>(body.size())});
    s += body;
}
std::string bof(std::uint16_t kind) {
    std::string b;
    put16(b, {0x0600, kind, 0x0DBB, 0x07CC});
    put32(b, {0, 0x06});
    return b;
}

// The Workbook stream: globals (BOF, code page, one font, the default cell formats, the sheet,
// the shared strings, EOF), then the worksheet (BOF, dimensions, cells, EOF).
std::string workbook_stream(const std::vector<XlsEntry>& cells) {
    std::vector<std::string> strings;
    std::map<std::string, std::uint32_t> index;
    for (const auto& c : cells)
        if (auto s = std::get_if<std::string>(&c.value); s && !index.count(*s)) {
            index[*s] = static_cast<std::uint32_t>(strings.size());
            strings.push_back(*s);
        }

    std::string globals;
    record(globals, 0x0809, bof(0x0005));
    std::string cp;
    put16(cp, {1252});
    record(globals, 0x0042, cp);
    std::string font;
    put16(font, {200, 0, 0x7FFF, 400, 0});  // height in twips / 20, attributes, colour, weight, escapement
    font += std::string(4, '\0');           // underline, family, charset, reserved
    font += std::string("\x05\x00" "Arial", 7);  // name length, 8-bit characters, name
    for (int i = 0; i < 4; ++i) record(globals, 0x0031, font);  // font 4 does not exist
    for (int i = 0; i < 16; ++i) {
        std::string xf;
        put16(xf, {0, 0, i < 15 ? 0xFFF5u : 0x0001u, 0x0020});  // font, format General, style / cell
        put32(xf, {0, 0});
        put16(xf, {0x20C0, 0, 0});
        record(globals, 0x00E0, xf);
    }
    const std::size_t boundsheet_at = globals.size();
    std::string bs;
    put32(bs, {0});  // the sheet's offset, patched below
    put16(bs, {0});
    bs += std::string("\x06\x00Sheet1", 8);  // name length, 8-bit characters, name
    record(globals, 0x0085, bs);
    std::string sst;
    put32(sst, {static_cast<std::uint32_t>(strings.size()), static_cast<std::uint32_t>(strings.size())});
    for (const auto& s : strings) {
        put16(sst, {static_cast<std::uint32_t>(s.size())});
        sst += '\0' + s;
    }
    record(globals, 0x00FC, sst);
    record(globals, 0x000A, "");

    std::string sheet;
    record(sheet, 0x0809, bof(0x0010));
    std::uint32_t rows = 0, columns = 0;
    for (const auto& c : cells) {
        rows = std::max(rows, static_cast<std::uint32_t>(c.row + 1));
        columns = std::max(columns, static_cast<std::uint32_t>(c.column + 1));
    }
    std::string dim;
    put32(dim, {0, rows});
    put16(dim, {0, columns, 0});
    record(sheet, 0x0200, dim);
    for (const auto& c : cells) {
        std::string body;
        // Row, column, the first cell format.
        put16(body, {static_cast<std::uint32_t>(c.row), static_cast<std::uint32_t>(c.column), 15});
        if (auto d = std::get_if<double>(&c.value)) {
            const auto bits = std::bit_cast<std::uint64_t>(*d);
            put32(body, {static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(bits >> 32)});
            record(sheet, 0x0203, body);
        } else if (auto s = std::get_if<std::string>(&c.value)) {
            put32(body, {index[*s]});
            record(sheet, 0x00FD, body);
        } else {
            put16(body, {std::get<bool>(c.value) ? 1u : 0u});
            record(sheet, 0x0205, body);
        }
    }
    record(sheet, 0x000A, "");

    std::string offset;
    put32(offset, {static_cast<std::uint32_t>(globals.size())});
    globals.replace(boundsheet_at + 4, 4, offset);
    return globals + sheet;
}

void dir_entry(std::string& s, const std::string& name, std::uint8_t type, std::uint32_t child, std::uint32_t start,
               std::uint32_t size) {
    std::string e;
    for (char c : name) put16(e, {static_cast<std::uint8_t>(c)});
    put16(e, {0});
    e.resize(64, '\0');
    put16(e, {static_cast<std::uint32_t>(name.empty() ? 0 : (name.size() + 1) * 2)});
    e += {static_cast<char>(type), 1};          // black
    put32(e, {0xFFFFFFFF, 0xFFFFFFFF, child});  // left and right siblings, child
    e += std::string(16 + 4 + 16, '\0');  // class id, state bits, times
    put32(e, {start, size, 0});
    s += e;
}

}  // namespace

std::string xls_bytes(const std::vector<XlsEntry>& cells) {
    std::string stream = workbook_stream(cells);
    // Streams under 4096 bytes would live in the mini stream; zero padding after the last EOF
    // keeps this one in ordinary sectors.
    const std::size_t padded = std::max<std::size_t>(4096, (stream.size() + 511) / 512 * 512);
    stream.resize(padded, '\0');
    const auto sectors = static_cast<std::uint32_t>(padded / 512);
    if (sectors + 2 > 128) throw std::runtime_error("fixture too large for one FAT sector");

    std::string header("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    header += std::string(16, '\0');
    put16(header, {0x003E, 0x0003, 0xFFFE, 9, 6});
    header += std::string(6, '\0');
    // Directory sectors (version 3: 0), FAT sectors, the first directory sector, transaction, the
    // mini stream cutoff, no mini FAT, no DIFAT sectors; the FAT is sector 0.
    put32(header, {0, 1, 1, 0, 4096, 0xFFFFFFFE, 0, 0xFFFFFFFE, 0, 0});
    for (int i = 1; i < 109; ++i) put32(header, {0xFFFFFFFF});

    std::string fat;
    put32(fat, {0xFFFFFFFD, 0xFFFFFFFE});
    for (std::uint32_t i = 0; i < sectors; ++i) put32(fat, {i + 1 < sectors ? 3 + i : 0xFFFFFFFE});
    while (fat.size() < 512) put32(fat, {0xFFFFFFFF});

    std::string dir;
    dir_entry(dir, "Root Entry", 5, 1, 0xFFFFFFFE, 0);
    dir_entry(dir, "Workbook", 2, 0xFFFFFFFF, 2, static_cast<std::uint32_t>(padded));
    dir_entry(dir, "", 0, 0xFFFFFFFF, 0, 0);
    dir_entry(dir, "", 0, 0xFFFFFFFF, 0, 0);
    return header + fat + dir + stream;
}

}  // namespace tv::test

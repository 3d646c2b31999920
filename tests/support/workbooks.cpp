#include "support/workbooks.h"

#include <zip.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
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

void put16(std::string& s, std::uint16_t v) {
    s += static_cast<char>(v & 0xFF);
    s += static_cast<char>(v >> 8);
}
void put32(std::string& s, std::uint32_t v) {
    put16(s, static_cast<std::uint16_t>(v & 0xFFFF));
    put16(s, static_cast<std::uint16_t>(v >> 16));
}
void put_double(std::string& s, double d) {
    std::uint64_t bits;
    std::memcpy(&bits, &d, sizeof bits);
    put32(s, static_cast<std::uint32_t>(bits & 0xFFFFFFFF));
    put32(s, static_cast<std::uint32_t>(bits >> 32));
}
void record(std::string& s, std::uint16_t type, const std::string& body) {
    put16(s, type);
    put16(s, static_cast<std::uint16_t>(body.size()));
    s += body;
}
std::string bof(std::uint16_t kind) {
    std::string b;
    put16(b, 0x0600);
    put16(b, kind);
    put16(b, 0x0DBB);
    put16(b, 0x07CC);
    put32(b, 0);
    put32(b, 0x06);
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
    put16(cp, 1252);
    record(globals, 0x0042, cp);
    std::string font;
    put16(font, 200);     // height in twips / 20
    put16(font, 0);       // attributes
    put16(font, 0x7FFF);  // colour
    put16(font, 400);     // weight
    put16(font, 0);       // escapement
    font += std::string(4, '\0');  // underline, family, charset, reserved
    font += static_cast<char>(5);  // name length
    font += static_cast<char>(0);  // 8-bit characters
    font += "Arial";
    for (int i = 0; i < 4; ++i) record(globals, 0x0031, font);  // font 4 does not exist
    for (int i = 0; i < 16; ++i) {
        std::string xf;
        put16(xf, 0);                                   // font
        put16(xf, 0);                                   // format: General
        put16(xf, static_cast<std::uint16_t>(i < 15 ? 0xFFF5 : 0x0001));  // style / cell
        put16(xf, 0x0020);
        put32(xf, 0);
        put32(xf, 0);
        put16(xf, 0x20C0);
        put16(xf, 0);
        put16(xf, 0);
        record(globals, 0x00E0, xf);
    }
    std::size_t boundsheet_at = globals.size();
    std::string sheet_name = "Sheet1";
    std::string bs;
    put32(bs, 0);  // patched below
    put16(bs, 0);
    bs += static_cast<char>(sheet_name.size());
    bs += static_cast<char>(0);
    bs += sheet_name;
    record(globals, 0x0085, bs);
    std::string sst;
    put32(sst, static_cast<std::uint32_t>(strings.size()));
    put32(sst, static_cast<std::uint32_t>(strings.size()));
    for (const auto& s : strings) {
        put16(sst, static_cast<std::uint16_t>(s.size()));
        sst += static_cast<char>(0);
        sst += s;
    }
    record(globals, 0x00FC, sst);
    record(globals, 0x000A, "");

    std::string sheet;
    record(sheet, 0x0809, bof(0x0010));
    int rows = 0, columns = 0;
    for (const auto& c : cells) {
        rows = std::max(rows, c.row + 1);
        columns = std::max(columns, c.column + 1);
    }
    std::string dim;
    put32(dim, 0);
    put32(dim, static_cast<std::uint32_t>(rows));
    put16(dim, 0);
    put16(dim, static_cast<std::uint16_t>(columns));
    put16(dim, 0);
    record(sheet, 0x0200, dim);
    for (const auto& c : cells) {
        std::string body;
        put16(body, static_cast<std::uint16_t>(c.row));
        put16(body, static_cast<std::uint16_t>(c.column));
        put16(body, 15);  // the first cell format
        if (auto d = std::get_if<double>(&c.value)) {
            put_double(body, *d);
            record(sheet, 0x0203, body);
        } else if (auto s = std::get_if<std::string>(&c.value)) {
            put32(body, index[*s]);
            record(sheet, 0x00FD, body);
        } else {
            body += static_cast<char>(std::get<bool>(c.value) ? 1 : 0);
            body += static_cast<char>(0);
            record(sheet, 0x0205, body);
        }
    }
    record(sheet, 0x000A, "");

    std::uint32_t sheet_offset = static_cast<std::uint32_t>(globals.size());
    for (int i = 0; i < 4; ++i) globals[boundsheet_at + 4 + static_cast<std::size_t>(i)] =
        static_cast<char>((sheet_offset >> (8 * i)) & 0xFF);
    return globals + sheet;
}

void dir_entry(std::string& s, const std::string& name, std::uint8_t type, std::uint32_t child, std::uint32_t start,
               std::uint32_t size) {
    std::string e;
    for (char c : name) put16(e, static_cast<std::uint8_t>(c));
    put16(e, 0);
    e.resize(64, '\0');
    put16(e, static_cast<std::uint16_t>(name.empty() ? 0 : (name.size() + 1) * 2));
    e += static_cast<char>(type);
    e += static_cast<char>(1);  // black
    put32(e, 0xFFFFFFFF);       // left sibling
    put32(e, 0xFFFFFFFF);       // right sibling
    put32(e, child);
    e += std::string(16 + 4 + 16, '\0');  // class id, state bits, times
    put32(e, start);
    put32(e, size);
    put32(e, 0);
    s += e;
}

}  // namespace

std::string xls_bytes(const std::vector<XlsEntry>& cells) {
    std::string stream = workbook_stream(cells);
    // Streams under 4096 bytes would live in the mini stream; zero padding after the last EOF
    // keeps this one in ordinary sectors.
    std::size_t padded = std::max<std::size_t>(4096, (stream.size() + 511) / 512 * 512);
    stream.resize(padded, '\0');
    std::uint32_t size = static_cast<std::uint32_t>(padded);
    std::uint32_t sectors = static_cast<std::uint32_t>(padded / 512);
    if (sectors + 2 > 128) throw std::runtime_error("fixture too large for one FAT sector");

    std::string header;
    const unsigned char magic[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    header.append(reinterpret_cast<const char*>(magic), 8);
    header += std::string(16, '\0');
    put16(header, 0x003E);
    put16(header, 0x0003);
    put16(header, 0xFFFE);
    put16(header, 9);
    put16(header, 6);
    header += std::string(6, '\0');
    put32(header, 0);           // directory sectors (version 3: 0)
    put32(header, 1);           // FAT sectors
    put32(header, 1);           // first directory sector
    put32(header, 0);           // transaction
    put32(header, 4096);        // mini stream cutoff
    put32(header, 0xFFFFFFFE);  // no mini FAT
    put32(header, 0);
    put32(header, 0xFFFFFFFE);  // no DIFAT sectors
    put32(header, 0);
    put32(header, 0);  // the FAT is sector 0
    for (int i = 1; i < 109; ++i) put32(header, 0xFFFFFFFF);

    std::string fat;
    put32(fat, 0xFFFFFFFD);
    put32(fat, 0xFFFFFFFE);
    for (std::uint32_t i = 0; i < sectors; ++i) put32(fat, i + 1 < sectors ? 3 + i : 0xFFFFFFFE);
    while (fat.size() < 512) put32(fat, 0xFFFFFFFF);

    std::string dir;
    dir_entry(dir, "Root Entry", 5, 1, 0xFFFFFFFE, 0);
    dir_entry(dir, "Workbook", 2, 0xFFFFFFFF, 2, size);
    dir_entry(dir, "", 0, 0xFFFFFFFF, 0, 0);
    dir_entry(dir, "", 0, 0xFFFFFFFF, 0, 0);
    return header + fat + dir + stream;
}

}  // namespace tv::test

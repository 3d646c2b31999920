#include "compute/import/record_import.h"

#include "compute/files/file_reader.h"
#include "compute/import/record_layouts.h"

namespace tv::compute {

namespace {

using namespace import_detail;

struct Reader {
    RecordLayout layout;
    bool (*looks_like)(const SourceText&);
    Outcome (*read)(const SourceText&);
};

// Layouts with a signature of their own come first; PEER and two-column files are told by the
// shape of their data, and a file with one number per line stays plain.
constexpr Reader kReaders[] = {
    {RecordLayout::cosmos_v2, looks_like_cosmos_v2, read_cosmos_v2},
    {RecordLayout::cdmg_v2, looks_like_cdmg_v2, read_cdmg_v2},
    {RecordLayout::bhrc_v1, looks_like_bhrc_v1, read_bhrc_v1},
    {RecordLayout::knet, looks_like_knet, read_knet},
    {RecordLayout::esm, looks_like_esm, read_esm},
    {RecordLayout::usgs_smc, looks_like_usgs_smc, read_usgs_smc},
    {RecordLayout::peer_at2, looks_like_peer_at2, read_peer_at2},
    {RecordLayout::two_column, looks_like_two_column, read_two_column},
};

// Every signature lies in a file's first lines: detection reads no further than this, cut at a
// line end.
constexpr std::size_t kDetectBytes = 256 * 1024;

std::string_view detection_prefix(std::string_view content) {
    if (content.size() <= kDetectBytes) return content;
    const std::size_t end = content.substr(0, kDetectBytes).find_last_of("\r\n");
    return content.substr(0, end == std::string_view::npos ? kDetectBytes : end + 1);
}

const Reader* reader_for(const SourceText& source) {
    for (const Reader& r : kReaders)
        if (r.looks_like(source)) return &r;
    return nullptr;
}

RecordImport failed(RecordLayout layout, const std::string& path, std::int64_t line, std::string reason) {
    RecordImport out;
    out.layout = layout;
    out.error = RecordImportError{path, line, std::move(reason)};
    return out;
}

}  // namespace

std::string_view record_layout_name(RecordLayout layout) {
    switch (layout) {
        case RecordLayout::plain: return "one sample per line";
        case RecordLayout::peer_at2: return "PEER .AT2";
        case RecordLayout::bhrc_v1: return "BHRC VOL1DS";
        case RecordLayout::knet: return "K-NET / KiK-net ASCII";
        case RecordLayout::esm: return "ESM / ITACA ASCII";
        case RecordLayout::cdmg_v2: return "CDMG .V2";
        case RecordLayout::cosmos_v2: return "COSMOS V2";
        case RecordLayout::usgs_smc: return "USGS SMC";
        case RecordLayout::two_column: return "time and value columns";
    }
    return "unknown";
}

std::string RecordImportError::message() const {
    std::string out = path;
    if (line > 0) out += ", line " + std::to_string(line);
    return out + ": " + reason;
}

RecordLayout detect_record_layout(std::string_view content) {
    const SourceText source(detection_prefix(content));
    const Reader* r = reader_for(source);
    return r ? r->layout : RecordLayout::plain;
}

RecordImport parse_record(std::string_view content, const std::string& path) {
    // The layout is told from the same first lines as detect_record_layout looks at.
    const std::string_view head = detection_prefix(content);
    const SourceText head_source(head);
    const Reader* r = reader_for(head_source);
    if (!r) return RecordImport{};
    if (content.size() > kMaxRecordFileBytes)
        return failed(r->layout, path, 0,
                      "the file is larger than " + std::to_string(kMaxRecordFileBytes >> 20) + " MB, too large for a "
                      "record in " + std::string(record_layout_name(r->layout)) + " layout");
    Outcome outcome = head.size() == content.size() ? r->read(head_source) : r->read(SourceText(content));
    if (outcome.failure) return failed(r->layout, path, outcome.failure->line, std::move(outcome.failure->reason));
    if (outcome.components.empty()) return failed(r->layout, path, 0, "the file holds no component");
    RecordImport out;
    out.layout = r->layout;
    out.components = std::move(outcome.components);
    return out;
}

RecordImport import_record_file(const std::string& path) {
    FileBytes file = read_input_file(path);
    if (!file.ok()) return failed(RecordLayout::plain, path, 0, file.reason);
    return parse_record(file.bytes, path);
}

}  // namespace tv::compute

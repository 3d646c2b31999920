#pragma once
// Acceleration records in the layouts networks and databases publish them in. One entry finds
// the layout from the file's content (never from its name) and reads the file into what the
// record window works with: per component, the lines a one-sample-per-line record would have
// (the header lines, then one sample text per line), the samples in g, the time step and what
// the header declared. A file with one number per line is left to the window's own road.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::compute {

enum class RecordLayout {
    plain,       // one number per line, with or without header lines (or no layout recognised)
    peer_at2,    // PEER .AT2: NGA-West2, 2000 database, Pacific Engineering, numbers-first headers
    bhrc_v1,     // Iranian network (BHRC) VOL1DS: three components, G/10
    knet,        // K-NET and KiK-net ASCII: counts times the scale factor
    esm,         // ESM / ITACA ASCII: KEY: value header, one value per line
    cdmg_v2,     // CDMG corrected .V2: acceleration block of each channel
    cosmos_v2,   // COSMOS V2: the data block's Fortran format
    usgs_smc,    // USGS SMC
    two_column,  // time and value per line
};

/// The layout's name for messages and lists ("PEER .AT2", "BHRC VOL1DS", ...).
std::string_view record_layout_name(RecordLayout layout);

/// One component of a record file.
struct RecordComponent {
    /// As the file names it ("L1 (177°)", "CHAN 1: 90 DEG", "N-S", "HNE", "L"); empty when the
    /// file names none. UTF-8.
    std::string name;
    /// What the record window shows: the component's header lines as the file has them (line
    /// ends dropped), then one sample text per line. Read by the window's plain road with first
    /// data line header_lines + 1 and last line lines.size(), they give `samples` exactly.
    std::vector<std::string> lines;
    std::int32_t header_lines = 0;
    /// The samples in g: samples[k] is the leading-number reading of lines[header_lines + k].
    /// Texts are the file's own where no conversion is needed (and for G/10, shifted by one
    /// decimal place); converted values are written with 15 significant digits.
    std::vector<double> samples;
    /// Time step, s, as the window's box would hold it (15 significant digits).
    double time_step = 0.0;
    /// Where the step came from, for the window to say ("DT=   .0200 SEC, line 4").
    std::string time_step_source;
    /// Points the header declares (-1: none declared). A read that differs is an error.
    std::int64_t declared_points = -1;
    /// The units as the file states them ("G", "G/10", "cm/s^2", "counts").
    std::string units;
    /// Which conversion to g was applied ("none (the file is in g)", "divided by 10 (G/10)", ...).
    std::string conversion;
    /// Line of the file where this component's header begins (1-based).
    std::int64_t source_line = 1;
};

/// A file that could not be read: the file, the line to blame (0 when no single line is) and
/// what was expected.
struct RecordImportError {
    std::string path;
    std::int64_t line = 0;
    std::string reason;
    /// "path, line 12: reason" (or "path: reason").
    std::string message() const;
};

struct RecordImport {
    RecordLayout layout = RecordLayout::plain;
    /// In file order; empty for a plain file (the window's own road reads it).
    std::vector<RecordComponent> components;
    std::optional<RecordImportError> error;
    bool ok() const { return !error; }
};

/// Larger files of a recognised layout are refused (reading one holds a few times its size in
/// memory); a larger plain file is left to the window's road. No real record comes near it.
inline constexpr std::size_t kMaxRecordFileBytes = std::size_t{16} << 20;

/// The layout of a record file from its content. Plain for one number per line (with or
/// without header lines) and for anything no reader recognises.
RecordLayout detect_record_layout(std::string_view content);

/// Detects and reads. `path` only names the file in the error. Never throws for any content
/// (only std::bad_alloc); a plain file gives layout plain, no components and no error.
/// Failures: truncated data, a count that differs from the header's, a field that is not a
/// number, a broken header of a recognised layout, a velocity or displacement file, content
/// above kMaxRecordFileBytes.
RecordImport parse_record(std::string_view content, const std::string& path);

/// Reads the file at `path` (at most kMaxRecordFileBytes) and parses it. A file that cannot be
/// read gives an error with the system's reason and line 0.
RecordImport import_record_file(const std::string& path);

}  // namespace tv::compute

#pragma once
// Pushover and capacity curves as structural programs and people export them: table exports
// (a "TABLE:" title, a heading row, a units row, data; .xlsx, .xls, .csv, .txt), two-column
// lists, Sd-Sa lists and row-wise lists. One entry reads a file into a curve in the unit system
// the coefficient window works in and says what it converted; what it cannot decide alone (the
// load case, the columns, a first point off the origin) it reports for the caller to ask.
// The program's own pushover and capacity layouts keep their own readers: the detectors below
// say which files those readers take.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "compute/capacity/capacity_reader.h"
#include "compute/coefficient/pushover_table.h"

namespace tv::compute {

/// The force and length units the coefficient window works in.
enum class UnitSystem { kgf_cm, kgf_mm, tonf_m };

/// "kgf·cm", "kgf·mm", "tonf·m".
std::string unit_system_name(UnitSystem system);
/// Its length unit: "cm", "mm", "m".
std::string unit_system_length(UnitSystem system);
/// Its force unit: "kgf" or "tonf".
std::string unit_system_force(UnitSystem system);
/// "kgf-cm" / "kgf-mm" / "tonf-m" (also "kgf.cm", "kg-cm", "ton-m", any case); nothing otherwise.
std::optional<UnitSystem> parse_unit_system(const std::string& name);

/// What a curve holds.
enum class CurveKind {
    pushover,  // roof displacement and base force
    spectral,  // Sd and Sa (in g)
};

/// What the caller decides; everything is optional.
struct CurveImportOptions {
    /// The load case to take from a table holding several ("Output Case" / "LoadCase" column).
    std::string case_name;
    /// Columns by number (1-based) when the headings are not enough: the displacement (Sd)
    /// column and the force (Sa) column. 0: found from the headings.
    int displacement_column = 0;
    int force_column = 0;
    /// The file's units when it states none (or to overrule what it states): a length ("mm",
    /// "cm", "m", "in", "ft") and a force ("N", "kN", "kgf", "tonf", "lb", "kip"); for a
    /// spectral curve the force is "g". Empty: as the file states.
    std::string length_unit;
    std::string force_unit;
    UnitSystem system = UnitSystem::kgf_cm;
    /// Move the curve so that its first point is (0, 0) when it is not.
    bool shift_to_origin = false;
};

struct CurvePoint {
    double displacement = 0.0;
    double force = 0.0;
};

/// A file that could not be read: the file, the row or line to blame (0 when none) and what was
/// expected.
struct CurveImportError {
    std::string path;
    std::int64_t row = 0;
    std::string reason;
    /// "path, row 12: reason" (or "path: reason").
    std::string message() const;
};

struct CurveImport {
    CurveKind kind = CurveKind::pushover;
    /// How the file was laid out ("table export (.xlsx)", "two-column list", ...).
    std::string layout;
    /// The heading of every column as the file has it (empty texts where it has none); for a
    /// column picker.
    std::vector<std::string> headings;
    /// The columns used (1-based).
    int displacement_column = 0;
    int force_column = 0;
    /// The load cases of the table in file order (empty when it has no case column), and the one
    /// read.
    std::vector<std::string> cases;
    std::string case_name;
    /// The units the numbers were read in, as the file or the caller said ("cm", "kgf"); empty
    /// when nobody said.
    std::string length_unit;
    std::string force_unit;
    /// Which conversion was applied, in words, e.g. "mm → cm (× 0.1), kN → kgf (× 101.971621297793)".
    std::string conversion;
    /// The first point as read (converted) when it is not (0, 0); `shifted` when the curve was
    /// then moved to start there.
    bool first_point_off_origin = false;
    CurvePoint first_point;
    bool shifted = false;
    /// Rows whose displacement equals the one before (kept).
    std::size_t vertical_steps = 0;
    /// For a spectral curve: the participation factor the file states (0: none).
    double participation_factor = 0.0;
    /// The curve, converted (and shifted when asked).
    std::vector<CurvePoint> points;

    /// What the caller must decide before the curve can be read.
    bool needs_case = false;     // several cases and none chosen: see `cases`
    bool needs_columns = false;  // the headings say nothing: see `headings`
    std::optional<CurveImportError> error;
    bool ok() const { return !error && !needs_case && !needs_columns; }
};

/// Files above this size are refused; no exported curve comes near it.
inline constexpr std::size_t kMaxCurveFileBytes = std::size_t{16} << 20;
/// Rows and columns read at most.
inline constexpr std::size_t kMaxCurveRows = 200000;
inline constexpr int kMaxCurveColumns = 64;
/// Cells of a text file read at most (a row-wise list has a few thousand per row).
inline constexpr std::size_t kMaxCurveCells = std::size_t{2} << 20;

/// Reads a curve from the file at `path`: a workbook (.xlsx or .xls, told by content) or text.
/// `kind` says which columns to look for. Never throws for any content (only std::bad_alloc).
/// Failures: the file cannot be read, no numeric rows, a units row with an unknown unit, a case
/// that is not there, text in a number column, fewer than two points.
CurveImport import_curve(const std::string& path, CurveKind kind, const CurveImportOptions& options = {});

/// The same for text already read; `path` only names the file in messages.
CurveImport import_curve_text(const std::string& content, const std::string& path, CurveKind kind,
                              const CurveImportOptions& options = {});

/// Rows of cells (a sheet's, or a text's cut at its separators) read as a curve; row r + 1 of
/// the file is rows[r].
CurveImport import_curve_cells(const std::vector<std::vector<std::string>>& rows, const std::string& path,
                               CurveKind kind, const CurveImportOptions& options = {});

/// The step table the coefficient window's readers would have built from a listing of this
/// curve: steps numbered 0, 1, 2, ... in row order, numbers written with 15 significant digits.
PushoverTable pushover_table_from_curve(const std::vector<CurvePoint>& points);

/// True when the program's own pushover reader takes the file as it is: it reads it without a
/// failure into at least two rows whose steps run 0, 1, 2, ... and whose displacement and force
/// are numbers. `as_workbook` chooses the spreadsheet reader, else the text listing.
/// A file that reader cannot open at all also stays with it (its message is the old one).
bool pushover_file_has_own_layout(const std::string& path, bool as_workbook);

/// True when the program's own capacity reader finds at least one row in the file, or cannot
/// open it.
bool capacity_file_has_own_layout(const std::string& path);

/// The first mode's numbers that turn a pushover curve into a capacity spectrum.
struct ModalNumbers {
    double weight = 0.0;  // W, in the force unit of the curve
    double alpha1 = 0.0;  // modal mass coefficient of the first mode
    double pf_phi = 0.0;  // participation factor times the roof amplitude of the first mode
};

/// The nine-column capacity table of a pushover curve: Sa = V / (α1·W) in g, Sd = Δroof /
/// (PF1·φroof,1), Teff = 2π·√(Sd / (Sa·g)) (0 where Sa or Sd is not above 0), Betaeff, Sd_d
/// and Sa_d 0, ALPHA = α1, Pf_fi = PF1·φroof,1. `g` is the gravity in the curve's length unit.
/// The texts are those the lines of capacity_file_lines hold, and the numbers are what
/// the capacity reader makes of them. Failure: W, α1 or PF1·φ not above 0 (error 5).
CapacityTable capacity_table_from_pushover(const std::vector<CurvePoint>& points, const ModalNumbers& modal, double g);

/// The same for a curve already in Sd (length unit of `g`) and Sa (g): ALPHA = `alpha1`,
/// Pf_fi = `pf_phi` as given.
CapacityTable capacity_table_from_spectral(const std::vector<CurvePoint>& points, double alpha1, double pf_phi,
                                           double g);

/// The lines of a capacity file holding `table`: a title line, the heading line, one line per
/// row; reading them with the capacity reader gives the table back. `title` must not hold
/// "Teff".
std::vector<std::string> capacity_file_lines(const CapacityTable& table, const std::string& title);

/// Gravity in a length unit as the capacity window writes it: 9810 (mm), 981 (cm), 9.81 (m).
double gravity_in(const std::string& length_unit);

}  // namespace tv::compute

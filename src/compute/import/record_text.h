#pragma once
// What every record layout reader shares: the file cut into lines, the fields of a data line,
// strict number reading, and the building of one component.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "compute/import/record_import.h"

namespace tv::compute::import_detail {

/// Standard gravity in cm/s², for gal and cm/s² to g.
inline constexpr double kGravityGal = 980.665;

/// The file's text cut into lines at LF, CR LF or a lone CR, line ends dropped. A leading UTF-8
/// byte order mark is dropped, and so are trailing lines that hold only blanks, NUL or the
/// end-of-file mark Ctrl-Z (old DOS files are padded with them).
class SourceText {
public:
    explicit SourceText(std::string_view content);
    /// Number of lines.
    std::size_t size() const { return lines_.size(); }
    /// Line `number` (1-based); empty beyond the end.
    std::string_view line(std::size_t number) const {
        return number >= 1 && number <= lines_.size() ? lines_[number - 1] : std::string_view();
    }
    std::size_t bytes() const { return bytes_; }

private:
    std::vector<std::string_view> lines_;
    std::size_t bytes_ = 0;
};

/// A reader's failure: the line to blame (0: none) and what was expected there.
struct Failure {
    std::int64_t line = 0;
    std::string reason;
};

/// What a layout reader gives back: the components, or the failure.
struct Outcome {
    std::vector<RecordComponent> components;
    std::optional<Failure> failure;
};

inline Outcome fail(Failure failure) {
    Outcome out;
    out.failure = std::move(failure);
    return out;
}

inline Outcome fail(std::int64_t line, std::string reason) { return fail(Failure{line, std::move(reason)}); }

/// The failure for a file that holds velocities or displacements, when `line` says so.
std::optional<Failure> not_acceleration(std::int64_t number, std::string_view line);

/// The number texts of a data line: split at blanks and tabs, and before a sign that follows a
/// digit or a point, where fixed-width Fortran fields touch ("1.1E-02-5.7E-03"). `out` is
/// cleared first.
void split_fields(std::string_view line, std::vector<std::string_view>& out);

/// Length of the longest prefix of `text` that is a number by the strict grammar below; 0 when
/// none.
std::size_t number_prefix(std::string_view text);

/// The strict reading: the whole text must be [sign] digits [. digits] [(E|e|D|d) [sign] digits]
/// (".5", "5." allowed). Gives the same double as the leading-number rule of the text boxes
/// (no negative zero, too small gives 0); nothing for any other text or a number beyond the
/// double range.
std::optional<double> read_number(std::string_view text);

/// True when the text is [sign] digits.
bool is_integer_text(std::string_view text);

/// The number text divided by ten exactly, by moving its decimal point or lowering its
/// exponent (".457339E-03" -> ".457339E-04", "12.5" -> "1.25"). The text must be a number.
std::string divided_by_ten(std::string_view number);

/// Text with blanks and tabs trimmed at both ends.
std::string_view trim(std::string_view text);

/// Runs of blanks shrunk to one, ends trimmed ("CHAN  1:  90 DEG" -> "CHAN 1: 90 DEG").
std::string squeeze(std::string_view text);

/// ASCII upper case.
std::string upper(std::string_view text);

/// Text of a number for messages, as the windows write numbers.
std::string number_text(double value);

/// The number text after `key` (matched in any case) in `line`, past blanks and one "=" or
/// ":"; nothing when the key or the number is missing.
std::optional<std::string_view> number_after(std::string_view line, std::string_view key);

/// True when `line` holds `key`, in any case.
bool contains(std::string_view line, std::string_view key);

/// True when the line's first non-blank characters are `key` (in any case).
bool starts_with_key(std::string_view line, std::string_view key);

/// True when a non-blank line holds at least `at_least` fields and every field is a number.
bool is_numeric_line(std::string_view line, std::size_t at_least, std::vector<std::string_view>& scratch);

/// How a component's samples become g.
struct Scale {
    enum class Kind { none, divide_by_ten, divide } kind = Kind::none;
    double divisor = 1.0;  // for Kind::divide
};

/// What a reader found out about a component besides its samples.
struct ComponentFacts {
    std::string name;
    double time_step = 0.0;
    std::string time_step_source;
    std::int64_t declared_points = -1;
    std::string units;
    std::string conversion;
};

/// Collects one component: its header lines, then one sample per line.
class ComponentBuilder {
public:
    ComponentBuilder(const SourceText& source, std::size_t header_first, std::size_t header_last,
                     std::size_t expected_samples);
    /// Adds a sample given by its number text as the file writes it; false when the text is
    /// not a number (nothing added).
    bool add(std::string_view number, const Scale& scale);
    /// Adds a sample computed in g (written with 15 significant digits).
    void add_value(double g);
    /// Adds every field of lines `first` on, up to the first line that `ends` accepts (or the
    /// end of the file), and gives the number of that line (size() + 1 at the end). A field
    /// that is not a number, or that equals `*null` (a file's null marker), sets `failure`.
    std::size_t add_lines(const SourceText& source, std::size_t first, bool (*ends)(std::string_view),
                          const Scale& scale, std::optional<Failure>& failure, const double* null = nullptr);
    std::size_t count() const { return component_.samples.size(); }
    RecordComponent finish(ComponentFacts facts);

private:
    RecordComponent component_;
};

/// The first line at or after `from` that is not blank (size() + 1 when none).
std::size_t next_content_line(const SourceText& source, std::size_t from);

/// An outcome of one component.
Outcome one_component(RecordComponent component);

/// The failure for a count that differs from the header's.
Failure count_mismatch(std::int64_t header_line, std::string_view what, std::int64_t declared,
                       std::int64_t read, std::string_view component);

/// The failure for a field that is not a number.
Failure not_a_number(std::int64_t line, std::string_view field, std::string_view expected);

/// Samples a file of `bytes` can hold at most: caps what a header's count may reserve.
inline std::size_t reserve_cap(std::int64_t declared, std::size_t bytes) {
    const std::size_t cap = bytes / 2 + 1;
    if (declared <= 0) return 0;
    return static_cast<std::size_t>(declared) < cap ? static_cast<std::size_t>(declared) : cap;
}

}  // namespace tv::compute::import_detail

#pragma once
// A record file as the record window takes it: read once when it is chosen, its layout found
// from its content. A one-number-per-line file keeps the window's own road; a file in a layout a
// network publishes gives components, and the user picks which of them fill X and Y.
#include <optional>
#include <string>
#include <vector>

#include "compute/files/file_status.h"
#include "compute/import/record_import.h"
#include "forms/platform.h"

namespace tv::windows {

struct OpenedRecord {
    std::string name;  // as chosen
    /// Why the file could not be read: the window raises it as it always did.
    compute::FileStatus status;
    /// The file's lines, for the window's own road (layout plain).
    std::vector<std::string> lines;
    compute::RecordLayout layout = compute::RecordLayout::plain;
    /// The components picked, in the order the tables take them (X then Y, or the one asked).
    std::vector<compute::RecordComponent> components;
};

/// Reads the file at `path` (named `name` in messages) for the tables still empty: letter "X"
/// wants X and Y (a file holding several components gives both), "Y" wants Y, anything else
/// none (the file is read, then left). Nothing when the file is refused (a message names the
/// file, the line and what was expected) or the user cancels the pick.
std::optional<OpenedRecord> open_record(forms::Platform& platform, const std::string& path, const std::string& name,
                                        const std::string& letter);

/// The component a pick list offers first for X (want_x) or for Y after `x`: the first one, then
/// the next one not named as vertical.
int preset_component(const std::vector<compute::RecordComponent>& components, bool want_x, int x = -1);

/// The table lines of a component whose samples are to begin on `first_line`: its header lines,
/// cut or followed by empty lines to fill the rows above (unchanged when first_line < 1).
std::vector<std::string> fit_to_first_line(const compute::RecordComponent& c, int first_line);

/// What the window says of a component taken: layout, name, samples, time step, conversion.
std::string component_summary(const OpenedRecord& file, const compute::RecordComponent& c, const std::string& letter);

}  // namespace tv::windows

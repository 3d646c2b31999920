#pragma once
// The file dialogs of the record and export roads, the writing of exports and the work folder,
// shared by the windows of every area.
#include <string>
#include <vector>

#include "forms/platform.h"
#include "windows/program.h"

namespace tv::windows {

// Each dialog's caption says what it asks for; a batch run has no dialog and ignores it.

/// Open dialog with the preset "*.txt": the chosen name, or "*.txt" when cancelled.
std::string open_txt_dialog(forms::Platform& platform, const std::string& caption);

/// The record road's open dialog: as open_txt_dialog, offering the files of every layout a
/// record comes in.
std::string open_record_dialog(forms::Platform& platform, const std::string& caption);

/// Save dialog with the preset "*.txt": the chosen name with ".txt" added when the upper-cased
/// name holds no ".TXT", or "*.txt" when cancelled.
std::string save_txt_dialog(forms::Platform& platform, const std::string& caption);

/// Writes an export whole or not at all, `notes` (processing_notes) before its lines; a failure
/// is the run-time error with the file's name.
void write_export(const ProjectState& state, const std::string& name, const std::vector<std::string>& lines,
                  const std::vector<std::string>& notes = {});

/// An export's first lines when it holds processed records: "Record K processed: " and what
/// was applied, for each of records first..last that is; none when none is.
std::vector<std::string> processing_notes(const ProjectState& state, long first, long last);

/// Path of a file name as the program opens it: relative names are taken in workDir.
std::string resolve_in_workdir(const ProjectState& state, const std::string& name);

}  // namespace tv::windows

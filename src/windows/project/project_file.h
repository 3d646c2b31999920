#pragma once
// Projects: the work of a session kept in a .tvproj file (docs/project-format.md) and done again
// on fresh windows when the file is opened, then checked against the results it stored.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/files/file_status.h"
#include "forms/journal.h"
#include "forms/journal_platform.h"
#include "windows/program.h"
#include "windows/project/project_format.h"

namespace tv::windows {

/// The project text of the work: the journal, its input files with their checksums (paths made
/// relative to `project_path`'s folder where they can be) and every window's boxes and tables.
std::string project_text(const Program& program, const forms::Journal& journal, const std::string& project_path);
/// Writes project_text whole or not at all.
compute::FileStatus save_project(const Program& program, const forms::Journal& journal, const std::string& path);

/// What opening found.
struct ProjectOpened {
    std::vector<std::string> moved;        // inputs not at their place, and where they were taken from
    std::vector<std::string> changed;      // inputs whose bytes are not those saved
    std::vector<std::string> differences;  // results that are not those saved
    bool clean() const { return moved.empty() && changed.empty() && differences.empty(); }
    /// The message for the user; empty when clean.
    std::string message() const;
};

/// Asked for an input that is not where it was saved: its name; the new path, or nullopt.
using LocateInput = std::function<std::optional<std::string>(const std::string& missing)>;

/// Closes every window but the main frame, starts the project state afresh, does the project's
/// work again through `platform` (the App's platform) and compares the windows with the results
/// saved. An input is taken, by its name, from the first of `input_folders` that holds it, else
/// from its saved place, else from where `locate` points.
ProjectOpened open_project(Program& program, forms::JournalPlatform& platform, const ProjectContent& project,
                           const std::string& project_path, const LocateInput& locate,
                           const std::vector<std::string>& input_folders = {});

}  // namespace tv::windows

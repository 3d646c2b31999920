#pragma once
// The .tvproj text read and checked whole (docs/project-format.md): every field is checked
// before anything uses it, so a broken file changes nothing of the work open.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "forms/journal.h"

namespace tv::windows {

inline constexpr const char* kProjectFormat = "tremorvault-project";
inline constexpr int kProjectVersion = 1;
inline constexpr const char* kProjectExtension = ".tvproj";

/// A record or other input file the work opened.
struct ProjectInput {
    std::string path;      // as stored: relative to the project file where it can be
    std::string absolute;  // where it was when saved
    std::string crc32;     // 8 hex digits, zlib's CRC-32 of the bytes
};

/// A project file read and checked whole.
struct ProjectContent {
    std::vector<forms::Step> steps;
    std::vector<ProjectInput> inputs;
    std::string results;  // the windows as saved, as JSON text
};

struct ProjectRead {
    std::optional<ProjectContent> content;
    /// Why it could not be taken: the file, then what is wrong and where.
    std::string error;
};

/// Reads `path` through the one reader and checks every field before anything uses it.
ProjectRead read_project(const std::string& path);
/// The same on the file's text; `name` is the file's name for the messages.
ProjectRead parse_project(const std::string& text, const std::string& name);

/// The names the file gives the journal's kinds, in the order of their enums.
inline constexpr std::array<const char*, 13> kProjectActionNames = {
    "text", "tick", "option", "press", "pick", "rows", "cell", "slide", "scroll", "drag", "label", "menu", "close"};
inline constexpr std::array<const char*, 7> kProjectResultNames = {"Ok", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
inline constexpr std::array<const char*, 4> kProjectAnswerNames = {"message", "input", "file", "item"};
/// Deeper JSON than this is refused while it is read: the file's own nesting is four levels.
inline constexpr int kProjectMaxDepth = 32;

}  // namespace tv::windows

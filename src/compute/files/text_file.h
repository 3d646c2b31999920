#pragma once
// Text files line by line, as the old Line Input read them and Print # wrote them, over the
// one reader entry and the one file writer.
#include <string>
#include <vector>

#include "compute/files/file_status.h"

namespace tv::compute {

struct TextFile : FileStatus {
    std::vector<std::string> lines;
};

/// Reads every line of `path` (see read_input_file for what is refused). A line ends at LF,
/// CR LF or a lone CR; the last line needs no end. Bytes are kept as they are. Failure: error 53
/// "File not found" (missing), 75 "Path/File access error" (a folder, not a regular file, too
/// large, or not readable).
TextFile read_text_file(const std::string& path);

/// Writes `lines`, each ended by a line feed, through write_file: whole or not at all.
/// Failure: as write_file (75, or 76 when the folder is missing).
TextFile write_text_file(const std::string& path, const std::vector<std::string>& lines);

/// Splits text into lines by the same rule.
std::vector<std::string> split_lines(const std::string& text);

}  // namespace tv::compute

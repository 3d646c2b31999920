#pragma once
// Reading a text file whole, line by line, as the old Line Input did.
#include <string>
#include <vector>

namespace tv::compute {

struct TextFile {
    std::vector<std::string> lines;
    int error = 0;            // 0 when read; else the old run-time error number
    std::string description;  // the error's description with the file's name
    std::string reason;       // the system's reason for the failure
    bool ok() const { return error == 0; }
};

/// Reads every line of `path`. A line ends at LF, CR LF or a lone CR; the last line needs no
/// end. Bytes are kept as they are. Failure: error 53 "File not found" (missing), 75
/// "Path/File access error" (a folder, or not readable).
TextFile read_text_file(const std::string& path);

/// Writes `lines`, each ended by a line feed, whole or not at all: the text goes to a temporary
/// file beside `path`, which then replaces it. Failure: error 75 "Path/File access error" (76
/// when the folder is missing), with the file's name in the description; nothing is left behind.
TextFile write_text_file(const std::string& path, const std::vector<std::string>& lines);

/// Splits text into lines by the same rule.
std::vector<std::string> split_lines(const std::string& text);

}  // namespace tv::compute

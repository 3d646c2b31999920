#include "compute/files/text_file.h"

#include "compute/files/file_reader.h"
#include "compute/files/file_writer.h"

namespace tv::compute {

std::vector<std::string> split_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0, n = text.size();
    for (std::size_t i = 0; i < n; ++i) {
        char c = text[i];
        if (c == '\n' || c == '\r') {
            lines.emplace_back(text, start, i - start);
            if (c == '\r' && i + 1 < n && text[i + 1] == '\n') ++i;
            start = i + 1;
        }
    }
    if (start < n) lines.emplace_back(text, start, n - start);
    return lines;
}

TextFile read_text_file(const std::string& path) {
    FileBytes file = read_input_file(path);
    TextFile out;
    static_cast<FileStatus&>(out) = static_cast<const FileStatus&>(file);
    if (out.ok()) out.lines = split_lines(file.bytes);
    return out;
}

TextFile write_text_file(const std::string& path, const std::vector<std::string>& lines) {
    std::size_t size = 0;
    for (const auto& line : lines) size += line.size() + 1;
    std::string content;
    content.reserve(size);
    for (const auto& line : lines) {
        content += line;
        content += '\n';
    }
    TextFile out;
    static_cast<FileStatus&>(out) = write_file(path, content);
    return out;
}

}  // namespace tv::compute

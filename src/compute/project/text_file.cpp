#include "compute/project/text_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "text/runtime_error.h"

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
    TextFile out;
    std::error_code ec;
    auto status = std::filesystem::status(path, ec);
    if (ec || !std::filesystem::exists(status)) {
        out.error = text::kFileNotFound;
        out.description = text::error_description(out.error) + ": " + path;
        return out;
    }
    std::ifstream in(path, std::ios::binary);
    if (std::filesystem::is_directory(status) || !in) {
        out.error = 75;
        out.description = text::error_description(out.error) + ": " + path;
        return out;
    }
    std::ostringstream buf;
    buf << in.rdbuf();
    if (in.bad()) {
        out.error = 75;
        out.description = text::error_description(out.error) + ": " + path;
        return out;
    }
    out.lines = split_lines(buf.str());
    return out;
}

TextFile write_text_file(const std::string& path, const std::vector<std::string>& lines) {
    TextFile out;
    namespace fs = std::filesystem;
    fs::path target(path);
    fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code ec;
    if (!fs::is_directory(folder, ec)) {
        out.error = text::kPathNotFound;
        out.description = text::error_description(out.error) + ": " + path;
        return out;
    }
    fs::path temp = folder / ("." + target.filename().string() + ".tmp");
    {
        std::ofstream file(temp, std::ios::binary | std::ios::trunc);
        for (const auto& line : lines) {
            file << line << '\n';
        }
        file.flush();
        if (!file) {
            file.close();
            fs::remove(temp, ec);
            out.error = 75;
            out.description = text::error_description(out.error) + ": " + path;
            return out;
        }
    }
    fs::rename(temp, target, ec);
    if (ec) {
        fs::remove(temp, ec);
        out.error = 75;
        out.description = text::error_description(out.error) + ": " + path;
    }
    return out;
}

}  // namespace tv::compute

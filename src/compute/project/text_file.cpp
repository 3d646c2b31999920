#include "compute/project/text_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "text/runtime_error.h"

namespace tv::compute {

namespace {

// The system's own words for an errno value; an unknown cause reads as an input/output error.
std::string system_reason(int number) { return std::strerror(number != 0 ? number : EIO); }

}  // namespace

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
    auto fail = [&](int number, const std::string& reason) {
        out.error = number;
        out.description = text::error_description(number) + ": " + path;
        out.reason = reason;
        return out;
    };
    std::error_code ec;
    auto status = std::filesystem::status(path, ec);
    if (ec || !std::filesystem::exists(status))
        return fail(text::kFileNotFound, system_reason(ec ? ec.value() : ENOENT));
    if (std::filesystem::is_directory(status)) return fail(75, system_reason(EISDIR));
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return fail(75, system_reason(errno));
    std::ostringstream buf;
    buf << in.rdbuf();
    if (in.bad()) return fail(75, system_reason(errno));
    out.lines = split_lines(buf.str());
    return out;
}

TextFile write_text_file(const std::string& path, const std::vector<std::string>& lines) {
    TextFile out;
    auto fail = [&](int number, const std::string& reason) {
        out.error = number;
        out.description = text::error_description(number) + ": " + path;
        out.reason = reason;
        return out;
    };
    namespace fs = std::filesystem;
    fs::path target(path);
    fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code ec;
    auto folder_status = fs::status(folder, ec);
    if (!fs::is_directory(folder_status)) return fail(text::kPathNotFound, system_reason(ec ? ec.value() : ENOTDIR));
    fs::path temp = folder / ("." + target.filename().string() + ".tmp");
    {
        errno = 0;
        std::ofstream file(temp, std::ios::binary | std::ios::trunc);
        for (const auto& line : lines) {
            file << line << '\n';
        }
        file.flush();
        if (!file) {
            const int why = errno;
            file.close();
            fs::remove(temp, ec);
            return fail(75, system_reason(why));
        }
    }
    fs::rename(temp, target, ec);
    if (ec) {
        const int why = ec.value();
        fs::remove(temp, ec);
        return fail(75, system_reason(why));
    }
    return out;
}

}  // namespace tv::compute

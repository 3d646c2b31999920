#include "support/files.h"

#include <unistd.h>

#include <fstream>
#include <random>
#include <sstream>

namespace tv::test {

std::string slurp(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void spill(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> lines_of(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    return lines;
}

TempDir::TempDir() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() / ("tv-test-" + std::to_string(::getpid()) + "-" + std::to_string(rd()));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::write(const std::string& name, const std::string& bytes) const {
    spill(path_ / name, bytes);
    return file(name);
}

}  // namespace tv::test

#include "capacity_test_files.h"

#include <atomic>
#include <fstream>
#include <random>

namespace tv::compute::test {

TempDir::TempDir() {
    static std::atomic<int> counter{0};
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() /
            ("tv_capacity_" + std::to_string(rd()) + "_" + std::to_string(counter++));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::write(const std::string& name, const std::string& bytes) const {
    auto p = path_ / name;
    std::ofstream out(p, std::ios::binary);
    out << bytes;
    return p.string();
}

}  // namespace tv::compute::test

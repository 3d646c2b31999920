#pragma once
// Temporary files for the capacity tests.
#include <filesystem>
#include <string>

namespace tv::compute::test {

/// A fresh folder under the system's temporary folder, removed at the end of the test.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    /// Writes `bytes` as they are into a file of this folder and returns its path.
    std::string write(const std::string& name, const std::string& bytes) const;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace tv::compute::test

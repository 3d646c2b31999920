#pragma once
// Files for tests: a scratch folder of their own, whole-file reads and writes.
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tv::test {

/// The bytes of a file, empty when it cannot be read.
std::string slurp(const std::filesystem::path& path);
/// Writes the bytes as the whole file.
void spill(const std::filesystem::path& path, const std::string& bytes);
/// The lines of a text file, without their ends.
std::vector<std::string> lines_of(const std::filesystem::path& path);

/// A fresh folder under the system's temporary folder, removed with its content at destruction.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file of the folder; its full name.
    std::string write(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path path_;
};

/// The PEER originals under records/original/ and their one-sample-per-line conversions under
/// records/, X and Y files of a pair one after the other (El Centro stands alone, fifth).
extern const std::vector<std::pair<std::string, std::string>> kPeerConversions;

}  // namespace tv::test

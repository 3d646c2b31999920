#pragma once
// How a reading or writing of a file ended, as every reader and writer hands it back.
#include <string>

namespace tv::compute {

struct FileStatus {
    int error = 0;            // 0 when done; else the old run-time error number
    std::string description;  // the error's description with the file's name
    std::string path;         // the file as it was named
    std::string reason;       // the system's reason ("No such file or directory", ...)
    bool ok() const { return error == 0; }
};

/// A failure of `number` on `path`: the description is the error's text, ": ", then the path.
FileStatus file_failure(int number, const std::string& path, std::string reason);

/// Throws the failure as the run-time error text::FileError, with its path and reason.
[[noreturn]] void throw_file_error(const FileStatus& failure);

/// The system's words for an errno value; 0 reads as an input/output error.
std::string system_reason(int errno_value);

}  // namespace tv::compute

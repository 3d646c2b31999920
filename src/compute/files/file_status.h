#pragma once
// How a reading or writing of a file ended, as every reader and writer hands it back.
#include <cstddef>
#include <string>

namespace tv::compute {

struct FileStatus {
    int error = 0;            // 0 when done; else the old run-time error number
    std::string description;  // the error's description with the file's name
    std::string path;         // the file as it was named
    std::string reason;       // the system's reason ("No such file or directory", ...), or the reader's
    std::size_t line = 0;     // the line of the file where the reading stopped, from 1; 0 when none
    bool ok() const { return error == 0; }
};

/// A failure of `number` on `path`: the description is the error's text, ": ", then the path.
FileStatus file_failure(int number, const std::string& path, std::string reason);

/// A reading that stopped at line `line` (from 1) of a table whose only whole-number column is
/// the step: the run-time error's number and description, and what the line should have held.
void step_table_stopped(FileStatus& status, std::size_t line, int number, const std::string& description);

/// What went wrong with `path`, for the line under a message box: the failure's description,
/// with the file's name when the description does not hold it and the system's reason when
/// there is one; empty when nothing failed.
std::string failure_detail(const FileStatus& status, const std::string& path);

/// Throws the failure as the run-time error text::FileError, with its path and reason.
[[noreturn]] void throw_file_error(const FileStatus& failure);

/// The system's words for an errno value; 0 reads as an input/output error.
std::string system_reason(int errno_value);

}  // namespace tv::compute

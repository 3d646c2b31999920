#include "compute/files/file_status.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "text/runtime_error.h"

namespace tv::compute {

FileStatus file_failure(int number, const std::string& path, std::string reason) {
    FileStatus status;
    status.error = number;
    status.description = text::error_description(number) + ": " + path;
    status.path = path;
    status.reason = std::move(reason);
    return status;
}

void step_table_stopped(FileStatus& status, std::size_t line, int number, const std::string& description) {
    status.error = number;
    status.description = description;
    status.line = line;
    // Overflow is the only failure a row's conversion raises: the step is a 16-bit whole number.
    if (number == 6) status.reason = "a step number from -32768 to 32767 was expected";
}

std::string failure_detail(const FileStatus& status, const std::string& path) {
    if (status.ok()) return {};
    std::string detail = status.description;
    if (status.line > 0) detail = "line " + std::to_string(status.line) + ": " + detail;
    if (!path.empty() && detail.find(path) == std::string::npos) detail = path + (status.line > 0 ? ", " : ": ") + detail;
    if (!status.reason.empty()) detail += " (" + status.reason + ")";
    return detail;
}

void throw_file_error(const FileStatus& failure) {
    throw text::FileError(failure.error, failure.description, failure.path, failure.reason);
}

std::string system_reason(int errno_value) { return std::strerror(errno_value != 0 ? errno_value : EIO); }

}  // namespace tv::compute

#include "compute/files/file_status.h"

#include <cerrno>
#include <cstring>
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

void throw_file_error(const FileStatus& failure) {
    throw text::FileError(failure.error, failure.description, failure.path, failure.reason);
}

std::string system_reason(int errno_value) { return std::strerror(errno_value != 0 ? errno_value : EIO); }

}  // namespace tv::compute

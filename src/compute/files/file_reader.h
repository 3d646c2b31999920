#pragma once
// The one way files come in: a regular file, read whole, within a size limit. Devices, pipes,
// folders and files above the limit are refused at once, before any memory is taken.
#include <cstdint>
#include <string>

#include "compute/files/file_status.h"

namespace tv::compute {

inline constexpr std::uint64_t kMiB = std::uint64_t{1} << 20;
/// The largest input file a reader takes: records, spectrum files, pushover listings and
/// workbooks, capacity tables.
inline constexpr std::uint64_t kInputFileLimit = 64 * kMiB;

/// The reason given for an input that is not a regular file (a device, a pipe, a socket).
inline constexpr const char* kNotRegularReason = "Not a regular file";

/// The bytes of a file, or why there are none.
struct FileBytes : FileStatus {
    std::string bytes;
};

/// Opens `path` and checks that it can be read whole: a regular file (a link to one counts) of
/// at most `limit` bytes. Never blocks on a pipe.
/// Failure: 53 "File not found" when the path leads nowhere (missing, a link loop, a folder on
/// the way missing); 75 "Path/File access error" when it is a folder ("Is a directory"), not a
/// regular file, above the limit ("File too large ...") or cannot be opened (the system's reason).
FileStatus check_input_file(const std::string& path, std::uint64_t limit = kInputFileLimit);

/// Reads the file whole after the checks of check_input_file; a file that grows past the limit
/// while it is read is refused the same way. Failure: as check_input_file, or 75 with the
/// system's reason of a failed read.
FileBytes read_input_file(const std::string& path, std::uint64_t limit = kInputFileLimit);

}  // namespace tv::compute

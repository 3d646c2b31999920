#pragma once
// The one way files go out: a file is replaced whole or left as it was.
#include <string>
#include <string_view>

#include "compute/files/file_status.h"

namespace tv::compute {

/// Writes `bytes` as the whole content of `path`. A regular file (or none yet) is replaced
/// through a temporary file of a unique name beside it: every write, fsync and close checked,
/// then renamed over the target; the target's mode (and owner, where allowed) is kept, a new
/// file gets 0666 less the umask. A link is followed and the file it names is replaced; the link
/// stays. A device or a pipe is written in place, never replaced; a pipe that nobody reads is
/// refused. On every failure the old file stays whole and no temporary file is left.
/// Failure: 76 "Path not found" when the folder is missing; 75 "Path/File access error" with
/// the system's reason otherwise ("No space left on device", "Permission denied", ...).
FileStatus write_file(const std::string& path, std::string_view bytes);

}  // namespace tv::compute

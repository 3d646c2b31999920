#pragma once
// One batch run: the platform, the program's windows, and the exit rules of each step.
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "cli/batch_platform.h"
#include "windows/program.h"

namespace tv::cli {

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2, kRuntimeError = 3 };

/// Thrown to end a command with a status; the message is already printed.
struct Exit {
    int status;
};

class Session {
public:
    Session(std::ostream& out, std::ostream& err);
    BatchPlatform platform;
    windows::Program program;
    std::ostream& out;
    std::ostream& err;

    /// Runs one user action as the window would; a run-time error ends the command with 3,
    /// a critical message box or a file that cannot be read or written with 1.
    void step(const std::function<void()>& action);
    /// Prints "key: value".
    void print(const std::string& key, const std::string& value);
};

/// Ends with status 1 naming the file and the system's reason when the readers would refuse it
/// (missing, a folder, not a regular file, too large, not readable).
void require_readable(Session& s, const std::string& path);

}  // namespace tv::cli

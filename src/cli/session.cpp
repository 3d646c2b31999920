#include "cli/session.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>

#include "windows/project/main_frame_window.h"

namespace tv::cli {

Session::Session(std::ostream& o, std::ostream& e) : platform(e), program(platform), out(o), err(e) {
    windows::start(program);
}

void Session::step(const std::function<void()>& action) {
    program.run(action);
    if (platform.file_error) {
        err << "tremorvault-cli: " << *platform.file_error << '\n';
        throw Exit{kFailed};
    }
    if (platform.runtime_error) {
        err << "run-time error: " << *platform.runtime_error << '\n';
        throw Exit{kRuntimeError};
    }
    if (platform.failed) throw Exit{kFailed};
}

void Session::print(const std::string& key, const std::string& value) { out << key << ": " << value << '\n'; }

void require_readable(Session& s, const std::string& path) {
    auto refuse = [&](int why) {
        s.err << "tremorvault-cli: " << path << ": " << std::strerror(why) << '\n';
        throw Exit{kFailed};
    };
    // A folder opens for reading but holds no lines.
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) refuse(EISDIR);
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) refuse(errno != 0 ? errno : EIO);
}

}  // namespace tv::cli

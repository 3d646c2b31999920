#include "cli/session.h"

#include <ostream>

#include "compute/files/file_reader.h"
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
    const compute::FileStatus file = compute::check_input_file(path);
    if (file.ok()) return;
    s.err << "tremorvault-cli: " << path << ": " << file.reason << '\n';
    throw Exit{kFailed};
}

}  // namespace tv::cli

#include "compute/files/file_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "text/runtime_error.h"

namespace tv::compute {

namespace {

constexpr int kAccessError = 75;

class Descriptor {
public:
    Descriptor() = default;
    ~Descriptor() {
        if (fd >= 0) ::close(fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int fd = -1;
};

std::string too_large(std::uint64_t limit) {
    return "File too large (more than " + std::to_string(limit / kMiB) + " MiB)";
}

// Opens for reading without blocking on a pipe, then checks what was opened, not the name.
FileStatus open_checked(const std::string& path, std::uint64_t limit, Descriptor& in) {
    in.fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (in.fd < 0) {
        const int why = errno;
        // A path that leads nowhere is "File not found"; a file that is there but will not open
        // is an access error.
        struct stat there {};
        if (::stat(path.c_str(), &there) != 0) return file_failure(text::kFileNotFound, path, system_reason(errno));
        return file_failure(kAccessError, path, system_reason(why));
    }
    struct stat st {};
    if (::fstat(in.fd, &st) != 0) return file_failure(kAccessError, path, system_reason(errno));
    if (S_ISDIR(st.st_mode)) return file_failure(kAccessError, path, system_reason(EISDIR));
    if (!S_ISREG(st.st_mode)) return file_failure(kAccessError, path, kNotRegularReason);
    if (static_cast<std::uint64_t>(st.st_size) > limit) return file_failure(kAccessError, path, too_large(limit));
    FileStatus ok;
    ok.path = path;
    return ok;
}

}  // namespace

FileStatus check_input_file(const std::string& path, std::uint64_t limit) {
    Descriptor in;
    return open_checked(path, limit, in);
}

FileBytes read_input_file(const std::string& path, std::uint64_t limit) {
    FileBytes out;
    Descriptor in;
    static_cast<FileStatus&>(out) = open_checked(path, limit, in);
    if (!out.ok()) return out;
    struct stat st {};
    if (::fstat(in.fd, &st) == 0) out.bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buf[65536];
    for (;;) {
        const ssize_t got = ::read(in.fd, buf, sizeof buf);
        if (got == 0) break;
        if (got < 0) {
            if (errno == EINTR) continue;
            const int why = errno;
            out.bytes.clear();
            static_cast<FileStatus&>(out) = file_failure(kAccessError, path, system_reason(why));
            return out;
        }
        if (out.bytes.size() + static_cast<std::size_t>(got) > limit) {
            out.bytes.clear();
            static_cast<FileStatus&>(out) = file_failure(kAccessError, path, too_large(limit));
            return out;
        }
        out.bytes.append(buf, static_cast<std::size_t>(got));
    }
    return out;
}

}  // namespace tv::compute

#include "compute/files/file_writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "text/runtime_error.h"

namespace tv::compute {

namespace {

namespace fs = std::filesystem;

constexpr int kAccessError = 75;
constexpr int kLinkHops = 40;  // as the kernel allows before ELOOP

std::string folder_of(const std::string& path) {
    fs::path parent = fs::path(path).parent_path();
    return parent.empty() ? std::string(".") : parent.string();
}

// Every byte, through short writes and interruptions; errno is kept on failure.
bool write_all(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = ::write(fd, bytes.data(), bytes.size());
        if (put < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

mode_t current_umask() {
    // Read, not set: setting it for a moment would race with other threads making files.
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("Umask:", 0) == 0) return static_cast<mode_t>(std::stoul(line.substr(6), nullptr, 8));
    const mode_t old = ::umask(022);
    ::umask(old);
    return old;
}

// The file a name stands for: links followed to the end, relative ones from their folder. A
// missing end is fine (the file is new).
bool follow_links(std::string& target, int& why) {
    for (int hop = 0; hop <= kLinkHops; ++hop) {
        struct stat st {};
        if (::lstat(target.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return true;
        std::error_code ec;
        fs::path next = fs::read_symlink(target, ec);
        if (ec) {
            why = ec.value();
            return false;
        }
        target = next.is_absolute() ? next.string() : (fs::path(folder_of(target)) / next).string();
    }
    why = ELOOP;
    return false;
}

// A device or a pipe keeps its node: the bytes go into it.
FileStatus write_in_place(const std::string& path, const std::string& target, std::string_view bytes) {
    const int fd = ::open(target.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        if (errno == ENXIO) return file_failure(kAccessError, path, "Not a regular file, and nothing reads from it");
        return file_failure(kAccessError, path, system_reason(errno));
    }
    // Blocking from here on: a reader is there and takes its time.
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    const bool written = write_all(fd, bytes);
    const int why = errno;
    const bool closed = ::close(fd) == 0;
    if (!written) return file_failure(kAccessError, path, system_reason(why));
    if (!closed) return file_failure(kAccessError, path, system_reason(errno));
    FileStatus ok;
    ok.path = path;
    return ok;
}

FileStatus replace_whole(const std::string& path, const std::string& target, const struct stat* old,
                         std::string_view bytes) {
    const std::string folder = folder_of(target);
    std::string name = fs::path(target).filename().string();
    // Room for the dot and the unique tail within a name's 255 bytes.
    if (name.size() > NAME_MAX - 8) name.resize(NAME_MAX - 8);
    std::string temp = (fs::path(folder) / ("." + name + ".XXXXXX")).string();
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) return file_failure(kAccessError, path, system_reason(errno));

    auto fail = [&](int why) {
        ::close(fd);
        ::unlink(temp.c_str());
        return file_failure(kAccessError, path, system_reason(why));
    };
    const mode_t mode = old != nullptr ? (old->st_mode & 07777) : (0666 & ~current_umask());
    if (::fchmod(fd, mode) != 0) return fail(errno);
    // The owner stays where the system lets us keep it; a plain user cannot give files away.
    if (old != nullptr && (old->st_uid != ::geteuid() || old->st_gid != ::getegid()))
        if (::fchown(fd, old->st_uid, old->st_gid) != 0) (void)::fchown(fd, static_cast<uid_t>(-1), old->st_gid);
    if (!write_all(fd, bytes)) return fail(errno);
    if (::fsync(fd) != 0) return fail(errno);
    if (::close(fd) != 0) {
        const int why = errno;
        ::unlink(temp.c_str());
        return file_failure(kAccessError, path, system_reason(why));
    }
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int why = errno;
        ::unlink(temp.c_str());
        return file_failure(kAccessError, path, system_reason(why));
    }
    // The new name on disk too; a folder that cannot be synced leaves the file written all the same.
    const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        (void)::fsync(dir);
        ::close(dir);
    }
    FileStatus ok;
    ok.path = path;
    return ok;
}

// A missing folder is "Path not found", as the old program said.
bool folder_missing(const std::string& path, int& why) {
    struct stat st {};
    if (::stat(folder_of(path).c_str(), &st) != 0) {
        why = errno;
        return true;
    }
    if (!S_ISDIR(st.st_mode)) {
        why = ENOTDIR;
        return true;
    }
    return false;
}

}  // namespace

FileStatus write_file(const std::string& path, std::string_view bytes) {
    int why = 0;
    if (folder_missing(path, why)) return file_failure(text::kPathNotFound, path, system_reason(why));
    std::string target = path;
    if (!follow_links(target, why)) return file_failure(kAccessError, path, system_reason(why));
    if (target != path && folder_missing(target, why)) return file_failure(text::kPathNotFound, path, system_reason(why));

    struct stat st {};
    if (::stat(target.c_str(), &st) != 0) {
        if (errno != ENOENT) return file_failure(kAccessError, path, system_reason(errno));
        return replace_whole(path, target, nullptr, bytes);
    }
    if (S_ISDIR(st.st_mode)) return file_failure(kAccessError, path, system_reason(EISDIR));
    if (!S_ISREG(st.st_mode)) return write_in_place(path, target, bytes);
    return replace_whole(path, target, &st, bytes);
}

}  // namespace tv::compute

// The one file writer against the ways a write goes wrong: each case checks the status, the
// message and what is left on disk (the old file whole, no temporary file behind); and the text
// file reader's line ends and errors.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <sstream>

#include "compute/files/file_writer.h"
#include "compute/files/text_file.h"
#include "support/files.h"

namespace tv::compute {
namespace {

namespace fs = std::filesystem;

// Every entry under a folder (links not followed): its kind, its mode and a regular file's bytes.
std::map<std::string, std::string> snapshot(const fs::path& dir) {
    std::map<std::string, std::string> out;
    for (const auto& e : fs::recursive_directory_iterator(dir)) {
        const fs::file_status st = fs::symlink_status(e.path());
        std::ostringstream entry;
        entry << static_cast<int>(st.type()) << " " << std::oct << static_cast<int>(st.permissions() & fs::perms::all);
        if (st.type() == fs::file_type::regular) entry << " " << test::slurp(e.path());
        out[e.path().lexically_relative(dir).string()] = entry.str();
    }
    return out;
}

// The write runs in a child process, so that a case may limit the file size (a full disk) or
// drop root's rights (a read-only folder means nothing to root); it answers in shared memory.
struct Outcome {
    int error = -1;
    char reason[256] = "";
};

Outcome write_in_child(const std::string& path, const std::string& bytes, rlim_t file_size_limit, bool as_nobody) {
    void* shared = ::mmap(nullptr, sizeof(Outcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) return {};
    Outcome* answer = new (shared) Outcome;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::umask(022);
        if (file_size_limit != RLIM_INFINITY) {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit r{file_size_limit, file_size_limit};
            ::setrlimit(RLIMIT_FSIZE, &r);
        }
        if (as_nobody && ::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
        const FileStatus st = write_file(path, bytes);
        answer->error = st.error;
        std::snprintf(answer->reason, sizeof answer->reason, "%s", st.reason.c_str());
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    const Outcome o = *answer;
    ::munmap(shared, sizeof(Outcome));
    return o;
}

struct WriteCase {
    const char* name;
    // Makes the scene in `dir` and gives the name to write to.
    std::function<std::string(const fs::path& dir)> scene;
    int error;           // expected error number, 0 for success
    const char* reason;  // expected reason, empty when none
    rlim_t file_size_limit = RLIM_INFINITY;
    bool as_nobody = false;
};

constexpr const char* kNew = "new content\n";
constexpr const char* kOld = "old content, kept whole\n";

class FileWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        char name[] = "/tmp/tv-writer-XXXXXX";
        ASSERT_NE(::mkdtemp(name), nullptr);
        dir = name;
        fs::permissions(dir, fs::perms(0755));  // reachable by the unprivileged child
    }
    void TearDown() override {
        std::error_code ec;
        for (const auto& e : fs::recursive_directory_iterator(dir, ec))
            if (e.is_directory()) fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(dir, ec);
    }
    fs::path dir;
};

// After a failure everything is as it was; after a success only the file written (through a
// link, the link's target) differs: the new bytes, its mode kept or made from the umask.
TEST_F(FileWriterTest, EveryWayAWriteEndsLeavesTheOldFileWholeOrTheNewOneInPlace) {
    auto old_file = [](const std::string& name, fs::perms mode = fs::perms(0644)) {
        return [=](const fs::path& d) {
            test::spill(d / name, kOld);
            fs::permissions(d / name, mode);
            return (d / name).string();
        };
    };
    const std::vector<WriteCase> cases = {
        {"new file, mode from the umask", [](const fs::path& d) { return (d / "out.txt").string(); }, 0, ""},
        {"mode 600 kept", old_file("secret.txt", fs::perms(0600)), 0, ""},
        {"full disk", old_file("keep.txt"), 75, "File too large", 4},
        {"full device written in place", [](const fs::path&) { return std::string("/dev/full"); }, 75,
         "No space left on device"},
        {"null device written in place", [](const fs::path&) { return std::string("/dev/null"); }, 0, ""},
        {"pipe that nobody reads",
         [](const fs::path& d) {
             ::mkfifo((d / "pipe").c_str(), 0644);
             return (d / "pipe").string();
         },
         75, "Not a regular file, and nothing reads from it"},
        {"link written through",
         [](const fs::path& d) {
             test::spill(d / "real.txt", kOld);
             fs::create_symlink("real.txt", d / "link.txt");
             return (d / "link.txt").string();
         },
         0, ""},
        {"temporary names of others left alone",
         [](const fs::path& d) {
             test::spill(d / "out2.txt.tmp", kOld);
             test::spill(d / ".out2.txt.tmp", kOld);
             return (d / "out2.txt").string();
         },
         0, ""},
        {"read-only folder",
         [](const fs::path& d) {
             fs::create_directory(d / "ro");
             test::spill(d / "ro" / "keep.txt", kOld);
             fs::permissions(d / "ro" / "keep.txt", fs::perms(0666));
             fs::permissions(d / "ro", fs::perms(0555));
             return (d / "ro" / "keep.txt").string();
         },
         75, "Permission denied", RLIM_INFINITY, true},
        {"missing folder", [](const fs::path& d) { return (d / "none" / "out.txt").string(); }, 76,
         "No such file or directory"},
        {"a folder in the way",
         [](const fs::path& d) {
             fs::create_directory(d / "taken.txt");
             return (d / "taken.txt").string();
         },
         75, "Is a directory"},
    };
    for (const WriteCase& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string target = c.scene(dir);
        const fs::file_type kind = fs::symlink_status(target).type();
        std::map<std::string, std::string> want = snapshot(dir);
        const Outcome o = write_in_child(target, kNew, c.file_size_limit, c.as_nobody);
        EXPECT_EQ(o.error, c.error);
        EXPECT_STREQ(o.reason, c.reason);
        EXPECT_EQ(fs::symlink_status(target).type(), kind == fs::file_type::not_found && c.error == 0
                                                          ? fs::file_type::regular
                                                          : kind);
        const std::string written = fs::relative(fs::weakly_canonical(target), fs::weakly_canonical(dir)).string();
        if (c.error == 0 && !written.starts_with("..")) {
            const std::string mode = want.contains(written) ? want[written].substr(2, 3) : "644";
            want[written] = std::to_string(static_cast<int>(fs::file_type::regular)) + " " + mode + " " + kNew;
        }
        EXPECT_EQ(snapshot(dir), want);
    }
}

TEST(FileWriter, TheMessageNamesTheFileAsGiven) {
    const FileStatus st = write_file("/nonexistent-tv-folder/out.txt", "x");
    EXPECT_EQ(st.description, "Path not found: /nonexistent-tv-folder/out.txt");
    EXPECT_EQ(st.path, "/nonexistent-tv-folder/out.txt");
}

TEST(TextFileTest, LinesEndAtLfCrLfOrALoneCr) {
    EXPECT_EQ(split_lines("a\nb\r\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(split_lines("a\n\n"), (std::vector<std::string>{"a", ""}));
    EXPECT_TRUE(split_lines("").empty());
    TextFile missing = read_text_file("/nonexistent/tv/file.txt");
    EXPECT_EQ(missing.error, 53);
    EXPECT_NE(missing.description.find("/nonexistent/tv/file.txt"), std::string::npos);
    EXPECT_EQ(missing.reason, "No such file or directory");
    // A folder, a device, a pipe, a link loop and a file too large: UnreadableInputs.
}

}  // namespace
}  // namespace tv::compute

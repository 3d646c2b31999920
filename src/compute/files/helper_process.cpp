#include "compute/files/helper_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>

extern char** environ;

namespace tv::compute {

namespace {

namespace fs = std::filesystem;

bool is_program(const fs::path& p) {
    std::error_code ec;
    return fs::is_regular_file(p, ec) && ::access(p.c_str(), X_OK) == 0;
}

}  // namespace

std::string helper_program(const std::string& name) {
    std::error_code ec;
    const fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path here = self.parent_path();
        for (const fs::path& p : {here / name, here / ".." / "libexec" / "tremorvault" / name})
            if (is_program(p)) return p.string();
    }
#ifdef TV_HELPER_BUILD_DIR
    const fs::path built = fs::path(TV_HELPER_BUILD_DIR) / name;
    if (is_program(built)) return built.string();
#endif
    return {};
}

HelperRun run_helper(const std::string& program, const std::vector<std::string>& args, int seconds,
                     std::size_t output_limit) {
    HelperRun run;
    int pipe_fds[2];
    if (::pipe2(pipe_fds, O_CLOEXEC) != 0) {
        run.trouble = std::string("no pipe: ") + std::strerror(errno);
        return run;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, pipe_fds[1], 1);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    pid_t pid = -1;
    const int spawned = ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe_fds[1]);
    if (spawned != 0) {
        ::close(pipe_fds[0]);
        run.trouble = "cannot start " + program + ": " + std::strerror(spawned);
        return run;
    }

    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    char buf[65536];
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            run.trouble = "no answer within " + std::to_string(seconds) + " s";
            break;
        }
        pollfd p{pipe_fds[0], POLLIN, 0};
        const int ready = ::poll(&p, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) continue;  // the deadline is checked above
        const ssize_t got = ::read(pipe_fds[0], buf, sizeof buf);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        if (run.output.size() + static_cast<std::size_t>(got) > output_limit) {
            run.trouble = "more than " + std::to_string(output_limit) + " bytes of answer";
            break;
        }
        run.output.append(buf, static_cast<std::size_t>(got));
    }
    ::close(pipe_fds[0]);
    if (!run.trouble.empty()) ::kill(pid, SIGKILL);
    // Its output closed: it should be ending now; one that lingers past the deadline is killed.
    int status = 0;
    for (;;) {
        const pid_t done = ::waitpid(pid, &status, WNOHANG);
        if (done == pid || (done < 0 && errno != EINTR)) break;
        if (done == 0 && std::chrono::steady_clock::now() >= deadline) {
            if (run.trouble.empty()) run.trouble = "no end within " + std::to_string(seconds) + " s";
            ::kill(pid, SIGKILL);
            while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
            }
            break;
        }
        if (done == 0) ::usleep(2000);
    }
    if (WIFEXITED(status)) {
        run.exited = true;
        run.exit_status = WEXITSTATUS(status);
    } else if (WIFSIGNALED(status) && run.trouble.empty()) {
        run.trouble = std::string("stopped by signal ") + std::to_string(WTERMSIG(status)) + " (" +
                      ::strsignal(WTERMSIG(status)) + ")";
    }
    return run;
}

}  // namespace tv::compute

#include "cli_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "support/files.h"

namespace tv::test {

namespace {
std::string quote(const std::string& a) {
    std::string q = "'";
    for (char c : a) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}
}  // namespace

CliResult run_cli(const std::vector<std::string>& args) {
    auto dir = std::filesystem::temp_directory_path() / ("tv_cli_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    // A run that hangs is a failure of its own, not a wait for the test's time limit.
    std::string cmd = "timeout 60 " + quote(TV_CLI_BINARY);
    for (const auto& a : args) cmd += " " + quote(a);
    cmd += " >" + quote((dir / "out").string()) + " 2>" + quote((dir / "err").string()) + " </dev/null";
    int raw = std::system(cmd.c_str());
    CliResult r;
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = slurp(dir / "out");
    r.err = slurp(dir / "err");
    std::filesystem::remove_all(dir);
    return r;
}

}  // namespace tv::test

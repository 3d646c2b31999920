#pragma once
// Short-lived helper programs of ours, for work that must not reach a library fault in the
// program's own process: run with a time limit, their output taken up to a limit.
#include <cstddef>
#include <string>
#include <vector>

namespace tv::compute {

/// How a helper run ended.
struct HelperRun {
    std::string output;       // what it wrote on its standard output
    bool exited = false;      // it ended by itself; exit_status holds its status
    int exit_status = -1;
    std::string trouble;      // when it did not finish well: why, in a few words
    bool ok() const { return exited && exit_status == 0 && trouble.empty(); }
};

/// The path of the helper program `name`: beside the running program, in
/// ../libexec/tremorvault/ from it, or in the build tree's helper folder; the first that exists.
/// Empty when none does.
std::string helper_program(const std::string& name);

/// Runs `program` with `args`, standard input and error on /dev/null. A helper still running
/// after `seconds`, or writing more than `output_limit` bytes, is killed. Never throws.
HelperRun run_helper(const std::string& program, const std::vector<std::string>& args, int seconds,
                     std::size_t output_limit);

}  // namespace tv::compute

#pragma once
// Runs tremorvault-cli with arguments and collects its output and exit status; a run still
// going after 60 s is killed (status 124).
#include <string>
#include <vector>

namespace tv::test {

struct CliResult {
    int status = -1;
    std::string out;
    std::string err;
};

CliResult run_cli(const std::vector<std::string>& args);

}  // namespace tv::test

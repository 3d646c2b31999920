#pragma once
// Command-line options of one command: "--name VALUE", "--name=VALUE" or a flag.
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tv::cli {

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct OptionSpec {
    std::set<std::string> with_value;
    std::set<std::string> flags;
};

struct ParsedOptions {
    std::map<std::string, std::string> values;
    std::set<std::string> flags;
    std::vector<std::string> files;
    bool help = false;

    std::optional<std::string> get(const std::string& name) const;
    bool has(const std::string& name) const { return flags.count(name) != 0; }
};

/// Throws UsageError on an unknown option or a missing value.
ParsedOptions parse_options(const std::vector<std::string>& args, const OptionSpec& spec);

/// Splits "T1,T2,T3" into its texts (a value without commas is one text).
std::vector<std::string> split_list(const std::string& text);

}  // namespace tv::cli

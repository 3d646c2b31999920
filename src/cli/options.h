#pragma once
// Command-line options of one command: "--name VALUE", "--name=VALUE" or a flag.
#include <iosfwd>
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
ParsedOptions parse_options(const std::vector<std::string>& args, const OptionSpec& known);

/// A command's command line: parses it into `o`, answers --help with `usage` on standard output,
/// and reports a bad line with the reason and `usage` on standard error. Returns the exit status
/// when the command should stop here (0 after --help, 2 after a bad line), nullopt to go on.
std::optional<int> parse_command(const std::vector<std::string>& args, const OptionSpec& known,
                                 const std::string& command, const std::string& usage, ParsedOptions& o,
                                 std::ostream& out, std::ostream& err);

/// Prints "tremorvault-cli COMMAND: WHY" and the usage on standard error; returns 2.
int usage_error(std::ostream& err, const std::string& command, const std::string& why, const std::string& usage);

/// The design spectrum's soils and hazards as the options name them, in the order of the
/// program's own lists.
extern const std::vector<std::string> kSoilNames;
extern const std::vector<std::string> kHazardNames;

/// Splits "T1,T2,T3" into its texts (a value without commas is one text).
std::vector<std::string> split_list(const std::string& text);

}  // namespace tv::cli

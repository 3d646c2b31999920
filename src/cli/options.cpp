#include "cli/options.h"

#include <ostream>

namespace tv::cli {

std::optional<std::string> ParsedOptions::get(const std::string& name) const {
    auto it = values.find(name);
    if (it == values.end()) return std::nullopt;
    return it->second;
}

ParsedOptions parse_options(const std::vector<std::string>& args, const OptionSpec& known) {
    ParsedOptions out;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            out.help = true;
            continue;
        }
        if (a.size() > 2 && a.compare(0, 2, "--") == 0) {
            std::string name = a.substr(2);
            std::optional<std::string> value;
            if (auto eq = name.find('='); eq != std::string::npos) {
                value = name.substr(eq + 1);
                name = name.substr(0, eq);
            }
            if (known.flags.count(name)) {
                if (value) throw UsageError("option --" + name + " takes no value");
                out.flags.insert(name);
            } else if (known.with_value.count(name)) {
                if (!value) {
                    if (i + 1 >= args.size()) throw UsageError("option --" + name + " needs a value");
                    value = args[++i];
                }
                out.values[name] = *value;
            } else {
                throw UsageError("unknown option --" + name);
            }
            continue;
        }
        out.files.push_back(a);
    }
    return out;
}

int usage_error(std::ostream& err, const std::string& command, const std::string& why, const std::string& usage) {
    err << "tremorvault-cli " << command << ": " << why << '\n' << usage;
    return 2;
}

std::optional<int> parse_command(const std::vector<std::string>& args, const OptionSpec& known,
                                 const std::string& command, const std::string& usage, ParsedOptions& o,
                                 std::ostream& out, std::ostream& err) {
    try {
        o = parse_options(args, known);
    } catch (const UsageError& e) {
        return usage_error(err, command, e.what(), usage);
    }
    if (o.help) {
        out << usage;
        return 0;
    }
    return std::nullopt;
}

const std::vector<std::string> kSoilNames{"I", "II", "III", "IV"};
const std::vector<std::string> kHazardNames{"low", "moderate", "high", "very-high"};

std::vector<std::string> split_list(const std::string& text) {
    std::vector<std::string> out;
    std::size_t start = 0;
    while (true) {
        std::size_t comma = text.find(',', start);
        out.push_back(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return out;
}

}  // namespace tv::cli

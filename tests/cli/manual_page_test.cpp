// The manual page made from the help at build time holds every command and option.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "cli_run.h"

namespace tv::test {
namespace {

// The manual page is made from the help at build time: it must hold every command and option.
TEST(CliTest, ManualPageHoldsEveryCommandAndOption) {
    std::ifstream in(TV_BINARY_DIR "/packaging/tremorvault-cli.1");
    ASSERT_TRUE(in) << "manual page not built";
    const std::string page{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    auto roff = [](std::string s) {
        for (std::size_t i = 0; (i = s.find('-', i)) != std::string::npos; i += 2) s.insert(i, "\\");
        return s;
    };
    const std::string version = run_cli({"--version"}).out;
    EXPECT_NE(page.find('"' + version.substr(0, version.find('\n')) + '"'), std::string::npos);  // in its title line
    const std::string usage = run_cli({"--help"}).out;
    const std::regex command("\n  ([a-z]+)  "), option("--[a-z0-9-]+");
    int commands = 0;
    for (std::sregex_iterator c(usage.begin(), usage.end(), command), end; c != end; ++c, ++commands) {
        const std::string name = (*c)[1];
        EXPECT_NE(page.find(".SS " + name + "\n"), std::string::npos) << name;
        const std::string help = run_cli({name, "--help"}).out;
        for (std::sregex_iterator o(help.begin(), help.end(), option); o != end; ++o)
            EXPECT_NE(page.find(roff(o->str())), std::string::npos) << name << ' ' << o->str();
    }
    EXPECT_GT(commands, 0);
}

}  // namespace
}  // namespace tv::test

// Golden cases: each folder holds the CLI arguments, its inputs and the expected output and
// exports, compared as exact text (the text is the result). TV_GOLDEN_UPDATE=1 rewrites them.
// In the arguments @CASE@ is the case's folder, @OUT@ a fresh output folder, @DATA@ the real
// files beside the checkout and @SOURCE@ the checkout (for its samples).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "../cli/cli_run.h"

namespace tv::test {
namespace {

namespace fs = std::filesystem;

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void spill(const fs::path& p, const std::string& text) { std::ofstream(p, std::ios::binary) << text; }

std::string replace_all(std::string s, const std::string& from, const std::string& to) {
    for (std::size_t pos = 0; (pos = s.find(from, pos)) != std::string::npos; pos += to.size()) s.replace(pos, from.size(), to);
    return s;
}

class GoldenTest : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenTest, OutputAndExportsMatch) {
    const fs::path dir = fs::path(TV_SOURCE_DIR) / "tests" / "golden" / GetParam();
    const fs::path out = fs::temp_directory_path() / ("tv_golden_" + GetParam() + "_" + std::to_string(::getpid()));
    fs::remove_all(out);
    fs::create_directories(out);
    const std::string case_args = slurp(dir / "args");
    // @DATA@ names the real files beside the checkout; without them the case cannot run.
    if (case_args.find("@DATA@") != std::string::npos && !fs::exists(TV_DATA_DIR)) GTEST_SKIP() << "no " << TV_DATA_DIR;
    std::vector<std::string> args;
    std::istringstream lines(case_args);
    for (std::string a; std::getline(lines, a);)
        if (!a.empty())
            args.push_back(replace_all(
                replace_all(replace_all(replace_all(a, "@CASE@", dir.string()), "@OUT@", out.string()), "@DATA@",
                            TV_DATA_DIR),
                "@SOURCE@", TV_SOURCE_DIR));
    CliResult r = run_cli(args);
    const std::string err =
        replace_all(replace_all(replace_all(r.err, out.string(), "@OUT@"), TV_DATA_DIR, "@DATA@"), TV_SOURCE_DIR, "@SOURCE@");
    const fs::path expected = dir / "expected";
    if (std::getenv("TV_GOLDEN_UPDATE")) {
        fs::remove_all(expected);
        fs::create_directories(expected);
        spill(expected / "status", std::to_string(r.status) + "\n");
        spill(expected / "stdout", r.out);
        spill(expected / "stderr", err);
        for (const auto& f : fs::directory_iterator(out)) fs::copy_file(f.path(), expected / f.path().filename());
    }
    EXPECT_EQ(std::to_string(r.status) + "\n", slurp(expected / "status"));
    EXPECT_EQ(r.out, slurp(expected / "stdout"));
    EXPECT_EQ(err, slurp(expected / "stderr"));
    for (const auto& f : fs::directory_iterator(expected)) {
        const std::string name = f.path().filename().string();
        if (name == "status" || name == "stdout" || name == "stderr") continue;
        ASSERT_TRUE(fs::exists(out / name)) << name << " was not written";
        EXPECT_TRUE(slurp(out / name) == slurp(f.path())) << name << " differs from " << f.path();
    }
    fs::remove_all(out);
}

std::vector<std::string> cases() {
    std::vector<std::string> names;
    for (const auto& d : fs::directory_iterator(fs::path(TV_SOURCE_DIR) / "tests" / "golden"))
        if (d.is_directory()) names.push_back(d.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenTest, ::testing::ValuesIn(cases()));

}  // namespace
}  // namespace tv::test

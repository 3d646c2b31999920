// Golden cases: each folder holds `args` (the arguments, separated by blanks; `#` lines are
// notes) and `expected/` with the exit status, standard output, standard error and every file
// the run writes, compared as exact text (the text is the result). In `args` and in the
// expected text, @CASE@ is the case's folder, @GOLDEN@ this folder, @SAMPLES@ samples/, @DATA@
// the real input files (the case is skipped when they are missing) and @OUT@ a scratch folder
// that starts as a copy of the case's `before/`. TV_GOLDEN_UPDATE=1 rewrites `expected/`.
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <utility>

#include "../cli/cli_run.h"
#include "support/files.h"

namespace tv::test {
namespace {

namespace fs = std::filesystem;

const fs::path kGolden = fs::path(TV_SOURCE_DIR) / "tests" / "golden";

std::string replace_all(std::string s, const std::string& from, const std::string& to) {
    for (std::size_t pos = 0; (pos = s.find(from, pos)) != std::string::npos; pos += to.size())
        s.replace(pos, from.size(), to);
    return s;
}

// The files under a folder, by their paths relative to it.
std::set<std::string> files_under(const fs::path& dir) {
    std::set<std::string> names;
    if (!fs::exists(dir)) return names;
    for (const auto& f : fs::recursive_directory_iterator(dir))
        if (f.is_regular_file()) names.insert(fs::relative(f.path(), dir).string());
    return names;
}

class GoldenTest : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenTest, OutputAndExportsMatch) {
    const fs::path dir = kGolden / GetParam();
    ASSERT_TRUE(fs::exists(dir / "args")) << dir << " holds no case";
    const std::string args_text = slurp(dir / "args");
    if (args_text.find("@DATA@") != std::string::npos && !fs::exists(TV_DATA_DIR))
        GTEST_SKIP() << "the real input files are not at " << TV_DATA_DIR;
    const fs::path out = fs::temp_directory_path() / ("tv_golden_" + GetParam() + "_" + std::to_string(::getpid()));
    fs::remove_all(out);
    fs::create_directories(out);
    if (fs::exists(dir / "before")) fs::copy(dir / "before", out, fs::copy_options::recursive);
    const std::set<std::string> before = files_under(out);

    // Longest first: the case's folder lies inside the golden folder.
    const std::vector<std::pair<std::string, std::string>> places{{"@OUT@", out.string()},
                                                                  {"@CASE@", dir.string()},
                                                                  {"@GOLDEN@", kGolden.string()},
                                                                  {"@SAMPLES@", TV_SOURCE_DIR "/samples"},
                                                                  {"@DATA@", TV_DATA_DIR}};
    std::vector<std::string> args;
    std::istringstream lines(args_text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        for (std::string a; words >> a;) {
            for (const auto& [mark, place] : places) a = replace_all(a, mark, place);
            args.push_back(a);
        }
    }
    CliResult r = run_cli(args);
    for (const auto& [mark, place] : places) {
        r.out = replace_all(r.out, place, mark);
        r.err = replace_all(r.err, place, mark);
    }
    std::set<std::string> written;
    for (const auto& name : files_under(out))
        if (!before.count(name)) written.insert(name);

    const fs::path expected = dir / "expected";
    if (std::getenv("TV_GOLDEN_UPDATE")) {
        fs::remove_all(expected);
        fs::create_directories(expected);
        spill(expected / "status", std::to_string(r.status) + "\n");
        spill(expected / "stdout", r.out);
        spill(expected / "stderr", r.err);
        for (const auto& name : written) {
            fs::create_directories((expected / name).parent_path());
            fs::copy_file(out / name, expected / name);
        }
    }
    EXPECT_EQ(std::to_string(r.status) + "\n", slurp(expected / "status"));
    EXPECT_EQ(r.out, slurp(expected / "stdout"));
    EXPECT_EQ(r.err, slurp(expected / "stderr"));
    std::set<std::string> exports = files_under(expected);
    for (const char* own : {"status", "stdout", "stderr"}) exports.erase(own);
    EXPECT_EQ(written, exports) << "the files the run wrote";
    for (const auto& name : exports) {
        if (written.count(name)) {
            EXPECT_TRUE(slurp(out / name) == slurp(expected / name)) << name << " differs";
        }
    }
    fs::remove_all(out);
}

std::vector<std::string> cases() {
    std::vector<std::string> names;
    for (const auto& d : fs::directory_iterator(kGolden))
        if (fs::exists(d.path() / "args")) names.push_back(d.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenTest, ::testing::ValuesIn(cases()),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace tv::test

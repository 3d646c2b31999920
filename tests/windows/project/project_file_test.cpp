// Project files: the corpus written by earlier versions opens without a difference, a record
// that moved or changed is told, and a broken file is refused with where it is broken.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "forms/journal_platform.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "support/tables.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/project_file.h"
#include "windows/project/record_input_window.h"

namespace tv::test {
namespace {

namespace fs = std::filesystem;

// A desktop program's stack without a display: the journal between the windows and the platform.
struct Desk {
    FakePlatform fake;
    forms::Journal journal;
    forms::JournalPlatform platform{fake, journal};
    windows::Program program{platform};
    Desk() {
        program.set_journal(&journal);
        windows::start(program);
    }
    void act(forms::ActionKind kind, const std::string& form, const std::string& control, std::string text = {}) {
        forms::Action a;
        a.kind = kind;
        a.form = form;
        a.control = control;
        a.text = std::move(text);
        program.perform(*program.loaded_named(form), a);
    }
    windows::ProjectOpened open(const std::string& path, const windows::LocateInput& locate = nullptr,
                                const std::vector<std::string>& folders = {}) {
        windows::ProjectRead read = windows::read_project(path);
        EXPECT_TRUE(read.content) << read.error;
        if (!read.content) return {};
        return windows::open_project(program, platform, *read.content, path, locate, folders);
    }
};

TEST(ProjectCorpus, EveryProjectOpensWithTheResultsItKept) {
    const fs::path corpus = fs::path(TV_SOURCE_DIR) / "tests/projects";
    if (!fs::exists(TV_DATA_DIR)) GTEST_SKIP() << "shared data not present";
    int opened = 0;
    for (const auto& entry : fs::directory_iterator(corpus)) {
        if (entry.path().extension() != ".tvproj") continue;
        SCOPED_TRACE(entry.path().filename().string());
        Desk desk;
        const windows::ProjectOpened result =
            desk.open(entry.path().string(), nullptr,
                      {std::string(TV_DATA_DIR) + "/records", std::string(TV_DATA_DIR) + "/pushover",
                       std::string(TV_DATA_DIR) + "/capacity", std::string(TV_SOURCE_DIR) + "/samples"});
        EXPECT_TRUE(result.clean()) << result.message();
        EXPECT_FALSE(desk.journal.modified());
        EXPECT_GT(desk.program.loaded().size(), 1u);
        ++opened;
    }
    EXPECT_GE(opened, 3);
}

// One record opened and shown in a project beside it; the record then moves or changes.
class ProjectRecordTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string sample = slurp(fs::path(TV_SOURCE_DIR) / "samples/synthetic_X.txt");
        x = dir.write("x.txt", sample);
        y = dir.write("y.txt", slurp(fs::path(TV_SOURCE_DIR) / "samples/synthetic_Y.txt"));
        desk.fake.input_answers = {"1", "5"};
        desk.fake.file_answers = {x, y};
        desk.act(forms::ActionKind::Menu, "frmMain", "menu_open");
        desk.act(forms::ActionKind::Menu, "frmMain", "menu_open");
        desk.act(forms::ActionKind::Press, "Form1", "Command2");
        ASSERT_TRUE(desk.journal.modified());
        ASSERT_TRUE(windows::save_project(desk.program, desk.journal, project).ok());
    }
    TempDir dir;
    std::string x, y, project = dir.file("work.tvproj");
    Desk desk;
};

TEST_F(ProjectRecordTest, SavedPathsAreRelativeAndTheWorkComesBack) {
    const std::string text = slurp(project);
    EXPECT_NE(text.find(R"("path":"x.txt")"), std::string::npos);
    Desk again;
    const windows::ProjectOpened result = again.open(project);
    EXPECT_TRUE(result.clean()) << result.message();
    EXPECT_EQ(again.program.form<windows::Form1>().Text1.text(), desk.program.form<windows::Form1>().Text1.text());
}

TEST_F(ProjectRecordTest, AMovedRecordIsAskedForAndAChangedOneIsTold) {
    fs::create_directory(dir.path() / "moved");
    fs::rename(x, dir.path() / "moved/x.txt");
    std::vector<std::string> asked;
    Desk again;
    const windows::ProjectOpened moved = again.open(project, [&](const std::string& missing) {
        asked.push_back(missing);
        return std::optional<std::string>((dir.path() / "moved/x.txt").string());
    });
    EXPECT_EQ(asked, std::vector<std::string>{"x.txt"});
    ASSERT_EQ(moved.moved.size(), 1u);
    EXPECT_TRUE(moved.changed.empty());
    EXPECT_TRUE(moved.differences.empty()) << moved.message();

    spill(y, slurp(y) + "0.5\n");
    const windows::ProjectOpened changed = Desk().open(project, [&](const std::string&) {
        return std::optional<std::string>((dir.path() / "moved/x.txt").string());
    });
    EXPECT_EQ(changed.changed, std::vector<std::string>{y});
}

// The broken files' messages are in tests/golden/tables/project_bad.txt.
TEST(ProjectBadInput, ABrokenFileIsRefusedWithWhatAndWhere) {
    run_table("project_bad.txt", {{"parse", [](const TableArgs& a) -> TableResult {
                   const windows::ProjectRead read = windows::parse_project(a.at(1), "p.tvproj");
                   return read.content ? std::string("read") : read.error;
               }}});
    const std::string deep = R"({"format": "tremorvault-project", "version": 1, "inputs": [], "road": [],
        "windows": [{"window": "Form1", "lists": {}, "ticks": {}, "options": {}, "tables": {}, "boxes": {"b": )" +
                             std::string(100000, '[') + std::string(100000, ']') + "}}]}";
    EXPECT_EQ(windows::parse_project(deep, "p.tvproj").error, "p.tvproj: it nests deeper than 32 levels");
    EXPECT_NE(windows::read_project("/nonexistent/p.tvproj").error.find("/nonexistent/p.tvproj"), std::string::npos);
}

}  // namespace
}  // namespace tv::test

#pragma once
// A fresh program over a fake platform, with record files written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "support/fake_platform.h"
#include "support/files.h"
#include "support/form_dump.h"
#include "windows/program.h"
#include "windows/files/work_files.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::test {

/// A fake platform whose pending events can be a user's clicks, made while a calculation runs.
class EventPlatform : public FakePlatform {
public:
    std::function<void(int)> during;  // called with the number of the do_events call
    void do_events() override {
        FakePlatform::do_events();
        if (during) during(do_events_calls);
    }
};

class ProjectTest : public ::testing::Test {
protected:
    ProjectTest() : program(platform) {
        windows::start(program);
        program.state.workDir = dir.string();
    }

    std::string write(const std::string& name, const std::string& content) { return scratch.write(name, content); }
    /// Chooses "Open/Add Record" as a user does, answering the dialogs queued before.
    void open() {
        program.run([&] { program.form<windows::frmMain>().menu_open.choose(); });
    }
    /// Answers the two prompts and opens `content` as the first X file.
    void open_x(const std::string& content, const std::string& count = "1", const std::string& first = "1") {
        platform.input_answers = {count, first};
        platform.file_answers = {write("x.txt", content)};
        open();
    }
    /// Opens a record of two files, answering the prompts when they are asked.
    void open_record(const std::string& x, const std::string& y) {
        platform.file_answers.push_back(x);
        open();
        platform.file_answers.push_back(y);
        open();
    }
    void press(forms::CommandButton& b) { program.run([&] { b.press(); }); }
    /// Answers the prompts (one record, data from line `first`) and opens a record of two texts.
    void open_texts(const std::string& x, const std::string& y, const std::string& first = "2") {
        platform.input_answers = {"1", first};
        open_record(write("x.txt", x), write("y.txt", y));
    }
    windows::Form1& form1() { return program.form<windows::Form1>(); }
    /// A window and what the platform was shown, against tests/golden/windows/<name>.txt.
    void expect_shown(const forms::Form& form, const std::string& name) {
        expect_state(dump(form) + dump(platform), name, dir.string());
    }
    windows::ProjectState& state() { return program.state; }

    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
    EventPlatform platform;
    windows::Program program;
};

}  // namespace tv::test

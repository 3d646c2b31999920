#pragma once
// A fresh program over a fake platform, with record files written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/fake_platform.h"
#include "support/files.h"
#include "windows/program.h"
#include "windows/files/work_files.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::test {

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
    /// Opens a record of two files, answering the prompts when they are asked.
    void open_record(const std::string& x, const std::string& y) {
        platform.file_answers.push_back(x);
        open();
        platform.file_answers.push_back(y);
        open();
    }
    windows::Form1& form1() { return program.form<windows::Form1>(); }
    windows::ProjectState& state() { return program.state; }

    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
    FakePlatform platform;
    windows::Program program;
};

}  // namespace tv::test

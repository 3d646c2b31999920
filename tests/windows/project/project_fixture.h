#pragma once
// A fresh program over a fake platform, with record files written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/fake_platform.h"
#include "windows/program.h"
#include "windows/files/work_files.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::test {

class ProjectTest : public ::testing::Test {
protected:
    ProjectTest() : program(platform) {
        dir = std::filesystem::temp_directory_path() /
              ("tv_project_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        windows::start(program);
        program.state.workDir = dir.string();
    }
    ~ProjectTest() override { std::filesystem::remove_all(dir); }

    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(dir / name, std::ios::binary) << content;
        return (dir / name).string();
    }
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

    FakePlatform platform;
    windows::Program program;
    std::filesystem::path dir;
};

}  // namespace tv::test

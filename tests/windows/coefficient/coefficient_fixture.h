#pragma once
// A fresh program over a fake platform, with Form6 opened from the menu and pushover files
// written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/fake_platform.h"
#include "support/files.h"
#include "support/softening_curve.h"
#include "support/workbooks.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::test {

class CoefficientTest : public ::testing::Test {
protected:
    CoefficientTest() : program(platform) {
        windows::start(program);
        program.state.workDir = dir.string();
        platform.printer_names = {"Office Laser", "PDF Printer"};
        program.run([&] { program.form<windows::frmMain>().PUSHOVER.choose(); });
    }
    std::string write(const std::string& name, const std::string& content) { return scratch.write(name, content); }

    windows::Form6& f6() { return program.form<windows::Form6>(); }
    windows::Form8& f8() { return program.form<windows::Form8>(); }

    /// Types the path into Text1 and presses Start, as a user does.
    void start_listing(const std::string& path) {
        program.run([&] { f6().Text1.set_text(path); });
        program.run([&] { f6().Command2.press(); });
    }
    void press(forms::CommandButton& b) { program.run([&] { b.press(); }); }
    void type(forms::TextBox& box, const std::string& text) { program.run([&] { box.set_text(text); }); }
    void click(forms::CheckBox& box) { program.run([&] { box.user_click(); }); }

    /// The curve read, the last step selected and the yield point found by the scan.
    void solve_softening() {
        start_listing(write("curve.txt", slurp(kSofteningCurve)));
        press(f6().Command3);
    }

    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
    FakePlatform platform;
    windows::Program program;
};

}  // namespace tv::test

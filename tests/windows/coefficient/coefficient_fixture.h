#pragma once
// A fresh program over a fake platform, with Form6 opened from the menu and pushover files
// written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/fake_platform.h"
#include "support/files.h"
#include "support/workbooks.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::test {

/// The softening curve worked by hand in the scan's tests, in kg and cm: the target is step 5
/// at (8, 3300); Ki = 1500, A = 21550, and the scan stops at K = 1435.
inline const char* kSofteningListing =
    "Pushover curve, case PUSH\n"
    "Step  Displacement  BaseForce  Hinges\n"
    " 0  0  0  0\n"
    " 1  1  1500  0\n"
    " 2  2  2600  0\n"
    " 3  3  3000  0\n"
    " 4  5  3200  0\n"
    " 5  8  3300  0\n";

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
        start_listing(write("curve.txt", kSofteningListing));
        press(f6().Command3);
    }

    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
    FakePlatform platform;
    windows::Program program;
};

}  // namespace tv::test

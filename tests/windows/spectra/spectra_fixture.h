#pragma once
// A program with records read and shown in Form1 and Next pressed, so Form2 stands open.
#include "windows/project/project_fixture.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::test {

class SpectraTest : public ProjectTest {
protected:
    /// Opens `records` copies of a short record pair and goes on to Form2.
    void to_design(int records = 1) {
        std::string x = write("x.txt", "h\n0.1\n-0.4\n0.3\n-0.2\n0.25\n0\n-0.1\n0.05\n");
        std::string y = write("y.txt", "h\n0.2\n0.1\n-0.3\n0.35\n-0.1\n0.05\n0\n0\n");
        platform.input_answers = {std::to_string(records), "2"};
        for (int k = 0; k < records; ++k) {
            open_record(x, y);
            program.run([&] { form1().xstep.set_text("0.01"); });
            program.run([&] { form1().Command2.press(); });
            program.run([&] { form1().xnext.press(); });
        }
        ASSERT_TRUE(program.is_loaded<windows::Form2>());
    }
    /// Form2 with its defaults shown, then Next: Form3 stands open.
    void to_response(int records = 1) {
        to_design(records);
        program.run([&] { form2().Command1.press(); });
        program.run([&] { form2().xnext.press(); });
        ASSERT_TRUE(program.is_loaded<windows::Form3>());
    }
    /// Form3 calculated, then Next: Form4 stands open.
    void to_comparison(int records = 1) {
        to_response(records);
        press(form3().Command1);
        press(form3().Command4);
        ASSERT_TRUE(program.is_loaded<windows::Form4>());
    }
    windows::Form2& form2() { return program.form<windows::Form2>(); }
    windows::Form3& form3() { return program.form<windows::Form3>(); }
    windows::Form4& form4() { return program.form<windows::Form4>(); }
};

}  // namespace tv::test

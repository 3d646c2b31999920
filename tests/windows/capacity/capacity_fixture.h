#pragma once
// A fresh program over a fake platform with the capacity wizard open, and capacity and
// spectrum files written to a temporary folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "support/errors.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "support/form_dump.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/diagram_window.h"
#include "windows/capacity/grid_table.h"
#include "windows/capacity/sa_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::test {

/// The curve worked by hand in the sweep's tests: (T, d, a) = (0.3, 0, 0), (0.4, 1, 0.4),
/// (0.5, 2, 0.8), (0.6, 4, 1.0), (0.8, 6, 1.1), PFPhi 1.2, and a sixth row the sweep leaves out.
inline const char* kHandCurve =
    "Capacity spectrum of a hand-made curve\n"
    " Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi\n"
    " 1 0.3 5 0 0 0 0 0 1.2\n"
    " 2 0.4 5 1 0.4 0 0 0 1.2\n"
    " 3 0.5 5 2 0.8 0 0 0 1.2\n"
    " 4 0.6 5 4 1.0 0 0 0 1.2\n"
    " 5 0.8 5 6 1.1 0 0 0 1.2\n"
    " 6 1.0 5 8 1.15 0 0 0 1.2\n";

/// The sweep's hand-worked demand: Sa of the capacity rows in column 1, periods 0.2 .. 1.4 in
/// columns 2 and 3.
inline windows::TextTable demand_table(const std::vector<double>& saAtRow, int rows = 8) {
    windows::TextTable FG2(rows, 4);
    for (std::size_t i = 0; i < saAtRow.size(); ++i)
        FG2.set_text(static_cast<long>(i) + 1, 1, std::to_string(saAtRow[i]));
    const double T[] = {0.2, 0.4, 0.6, 0.8, 1.0, 1.2, 1.4};
    const double Sa[] = {1.0, 1.0, 0.9, 0.7, 0.5, 0.4, 0.3};
    for (long j = 1; j < rows && j <= 7; ++j) {
        FG2.set_text(j, 2, std::to_string(T[j - 1]));
        FG2.set_text(j, 3, std::to_string(Sa[j - 1]));
    }
    return FG2;
}

class CapacityTest : public ::testing::Test {
protected:
    CapacityTest() : program(platform) {
        windows::start(program);
        program.state.workDir = dir.string();
        run([&] { program.form<windows::frmMain>().menu_adrs.choose(); });
    }

    std::string write(const std::string& name, const std::string& bytes) { return scratch.write(name, bytes); }
    void run(const std::function<void()>& f) { program.run(f); }
    void press(forms::CommandButton& b) { run([&] { b.press(); }); }

    windows::Form9& form9() { return program.form<windows::Form9>(); }
    /// Form9 and what the platform was shown, against tests/golden/windows/capacity_<name>.txt.
    void expect_shown(const std::string& name) {
        expect_state(dump(form9()) + dump(platform), "capacity_" + name, dir.string());
    }

    /// Start on a capacity file typed into Text1.
    void read_capacity(const std::string& content) {
        const std::string path = write("capacity.txt", content);
        run([&] { form9().Text1.set_text(path); });
        press(form9().Command2);
    }
    /// A curve read, Next, the code spectrum shown and Sa calculated: page 1 done.
    void to_demand_done(const std::string& curve = kHandCurve) {
        read_capacity(curve);
        press(form9().Command3);
        press(form9().demand.Command6);
        press(form9().demand.Command7);
    }
    /// Then Next, the sweep and Next again: the diagram.
    windows::Form10& to_diagram_of(const std::string& curve) {
        to_demand_done(curve);
        press(form9().Command3);
        press(form9().Command9);
        press(form9().Command3);
        return program.form<windows::Form10>();
    }
    /// The hand case swept on page 2 with the hand settings (g 1000, T0 0.5, type A).
    void sweep_hand_case() {
        windows::Form9& f = form9();
        run([&] {
            f.T1.set_text("1000");
            f.T2.set_text("0.5");
        });
        to_demand_done();
        run([&] { copy_to_grid(demand_table({1.0, 0.9, 0.85, 0.8, 0.3}), f.FG2); });
        press(f.Command3);
        ASSERT_EQ(f.pageIndex, 2);
        press(f.Command9);
    }

    TempDir scratch;
    const std::filesystem::path dir = scratch.path();
    FakePlatform platform;
    windows::Program program;
};

}  // namespace tv::test

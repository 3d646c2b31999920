// "Target Displacement by Method" on the program's sample curve: opened from Form6 once a curve
// is read, it shows the targets of the comparison on the inputs it took over, changes them
// without touching Form6 or Form8, draws every method and prints one page.
#include "coefficient_fixture.h"
#include "support/form_dump.h"
#include "support/page_dump.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/spectra/design_spectrum_window.h"

namespace tv::test {
namespace {

namespace nsp = compute::nsp;

class NspWindowTest : public CoefficientTest {
protected:
    /// The sample listing fitted with Ti = 0.5 s and handed to Form8: 3 stories, W = 200000,
    /// Sa = 0.43 g; then the comparison opened and run with ag = 0.15 g.
    windows::NspWindow& opened() {
        start_listing(std::string(TV_SOURCE_DIR) + "/samples/pushover_listing.txt");
        press(f6().Command3);
        type(f6().txtTI, "0.5");
        press(f6().Command5);
        type(f8().Text1, "3");
        type(f8().Text10, "200000");
        type(f8().Text2, "0.43");
        press(f6().cmdNsp);
        windows::NspWindow& w = program.form<windows::NspWindow>();
        type(w.txtAg, "0.15");
        press(w.cmdCalculate);
        return w;
    }
    void pick(forms::ComboBox& c, int i) { program.run([&] { c.set_list_index(i); }); }
    /// The row of the table whose first cell is `name`.
    static int row_named(const forms::Grid& g, const std::string& name) {
        for (int r = 0; r < g.rows(); ++r)
            if (g.text(r, 0) == name) return r;
        return -1;
    }
};

TEST_F(NspWindowTest, OpensOnceACurveIsReadWithTheTargetsOfTheComparison) {
    EXPECT_FALSE(f6().cmdNsp.enabled());
    windows::NspWindow& w = opened();
    EXPECT_TRUE(w.visible());
    EXPECT_EQ(w.txtTe.text(), f6().txtTEF.caption());
    // Te, W = 200000 and 3 stories taken over; the targets of the five methods on EN 1998-1 type
    // 1, ground B, 0.15 g, each in its unit.
    expect_state(dump(w), "nsp_opened");
    const forms::Grid& g = w.grdMethods;
    // Each value stands in its row with its clause as the tip.
    const int c1 = row_named(g, "C1");
    ASSERT_GT(c1, 0);
    EXPECT_EQ(g.cell_tool_tip(c1, 2).rfind("C1: ASCE 41-17 \u00A77.4.3.3.2", 0), 0u) << g.cell_tool_tip(c1, 2);

    // The capacity and each method in its colour, the demands cut at the frame's edges, the
    // performance points in it.
    expect_state(dump(w.picAdrs), "nsp_adrs");
}

TEST_F(NspWindowTest, AnInputChangedHereLeavesTheCoefficientWindowsAlone) {
    windows::NspWindow& w = opened();
    const std::string te = f6().txtTEF.caption(), asce = w.grdMethods.text(row_named(w.grdMethods, "Target displacement"), 2);
    type(w.txtTe, "0.8");
    press(w.cmdCalculate);
    EXPECT_EQ(f6().txtTEF.caption(), te);
    EXPECT_NE(w.grdMethods.text(row_named(w.grdMethods, "Target displacement"), 2), asce);
    // Take Again brings Form6's value back.
    press(w.cmdTake);
    EXPECT_EQ(w.txtTe.text(), te);
    EXPECT_EQ(w.grdMethods.text(row_named(w.grdMethods, "Target displacement"), 2), asce);

    // No yield point: the methods that need one say why; the capacity spectrum sweep stands.
    type(w.txtXy, "");
    press(w.cmdCalculate);
    const int target = row_named(w.grdMethods, "Target displacement");
    EXPECT_EQ(w.grdMethods.text(target, 2).rfind("none: ", 0), 0u);
    EXPECT_EQ(w.grdMethods.text(target, 3).rfind("none: ", 0), std::string::npos);
}

// Beyond the defaults: the design spectrum as the demand, taken over from the design spectrum
// window, the methods' settings, and the iterations of the method chosen, with units.
TEST_F(NspWindowTest, TheDesignSpectrumAndTheSettingsReachEveryColumn) {
    windows::Form2& f2 = program.form<windows::Form2>();
    program.run([&] { f2.Option4.set_value(true); });
    program.run([&] { f2.Option8.set_value(true); });
    type(f2.Text1, "0.4");
    windows::NspWindow& w = opened();
    press(w.cmdTake);
    pick(w.cboDemand, 1);
    type(w.txtGamma, "1.3");
    pick(w.cboC0, 3);
    type(w.txtCm, "0.9");
    click(w.chkNearField);
    pick(w.cboCsmType, 1);
    press(w.cmdCalculate);
    // ag off; every column's values and target on the design spectrum taken over (IV, Very High,
    // 0.4) and the settings: Γ 1.3, C0 from the mode, Cm 0.9, near field, sweep type B.
    expect_state(dump(w), "nsp_design_spectrum_and_settings");
}

// FEMA 440's iterations are in the opening state; EC8 N2's, chosen, in the method's own units.
TEST_F(NspWindowTest, TheIterationsOfTheChosenMethodAreListedWithUnits) {
    windows::NspWindow& w = opened();
    const forms::Grid& g = w.grdIterations;
    pick(w.cboIterations, 2);
    const nsp::MethodColumn* m = nullptr;
    for (const nsp::MethodColumn& c : w.comparison.columns)
        if (c.method == nsp::Method::Ec8N2) m = &c;
    ASSERT_TRUE(m && !m->iterations.rows.empty());
    ASSERT_EQ(g.rows(), static_cast<int>(m->iterations.rows.size()) + 1);
    ASSERT_EQ(g.cols(), static_cast<int>(m->iterations.headings.size()));
    int col = 0;
    while (col < g.cols() && g.text(0, col) != "Em* (kgf cm)") ++col;
    ASSERT_LT(col, g.cols());
    EXPECT_EQ(g.text(g.rows() - 1, col), nsp::six_digits(m->iterations.rows.back()[col]));
}

}  // namespace
}  // namespace tv::test

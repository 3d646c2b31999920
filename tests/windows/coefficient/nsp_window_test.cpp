// "Target Displacement by Method" on the program's sample curve: opened from Form6 once a curve
// is read, it shows the targets of the comparison on the inputs it took over, changes them
// without touching Form6 or Form8, draws every method and prints one page.
#include "coefficient_fixture.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "support/form_dump.h"
#include "support/page_dump.h"
#include "windows/coefficient/nsp_inputs.h"
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
    EXPECT_EQ(w.txtW.text(), "200000");
    EXPECT_EQ(w.txtStories.text(), "3");

    // The same inputs as the window's own, with its demand: EN 1998-1 type 1, ground B, 0.15 g.
    nsp::NspInputs in = windows::nsp_inputs(program);
    in.asce41.stories = 3;
    in.demand = *nsp::ec8_demand({1, 'B', 0.15, 5});
    const nsp::NspComparison expected = nsp::compare_procedures(in);
    ASSERT_EQ(expected.columns.size(), 5u);
    const forms::Grid& g = w.grdMethods;
    ASSERT_EQ(g.cols(), 6);
    const int target = row_named(g, "Target displacement");
    ASSERT_GT(target, 0);
    for (std::size_t c = 0; c < expected.columns.size(); ++c) {
        const nsp::MethodColumn& m = expected.columns[c];
        const int col = static_cast<int>(c) + 1;
        EXPECT_EQ(g.text(0, col), m.title);
        ASSERT_TRUE(m.target) << m.title << ": " << m.no_result;
        EXPECT_EQ(g.text(target, col), nsp::six_digits(*m.target) + " " + m.target_unit);
    }
    // Each value stands in its row with its clause as the tip.
    const int c1 = row_named(g, "C1");
    ASSERT_GT(c1, 0);
    EXPECT_EQ(g.cell_tool_tip(c1, 2).rfind("C1: ASCE 41-17 \u00A77.4.3.3.2", 0), 0u) << g.cell_tool_tip(c1, 2);

    // The capacity and every method's colour are drawn, the axes carry their units.
    std::set<int> colours;
    bool sd_axis = false, sa_axis = false;
    for (const forms::DrawOp& op : w.picAdrs.ops()) {
        colours.insert(op.color);
        sd_axis = sd_axis || op.text == "Sd (cm)";
        sa_axis = sa_axis || op.text == "Sa (g)";
    }
    for (const nsp::MethodColumn& m : expected.columns) EXPECT_TRUE(colours.count(windows::NspWindow::colour(m.method)));
    EXPECT_TRUE(sd_axis && sa_axis);
    // The demands cut at the frame's edges, the performance points in it.
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
    EXPECT_EQ(w.cboSoil.text(), "IV");
    EXPECT_EQ(w.cboHazard.text(), "Very High");
    EXPECT_EQ(w.txtA.text(), "0.4");

    pick(w.cboDemand, 1);
    EXPECT_FALSE(w.txtAg.enabled());
    type(w.txtGamma, "1.3");
    pick(w.cboC0, 3);
    type(w.txtCm, "0.9");
    click(w.chkNearField);
    pick(w.cboCsmType, 1);
    press(w.cmdCalculate);

    nsp::NspInputs in = windows::nsp_inputs(program);
    in.demand = *nsp::design_demand(compute::Soil::IV, compute::Hazard::VeryHigh, 0.4);
    in.gamma_phi = 1.3;
    in.asce41.c0_from_mode = true;
    in.asce41.Cm = 0.9;
    in.asce41.near_field = true;
    in.csm.kind = 2;
    const nsp::NspComparison expected = nsp::compare_procedures(in);
    ASSERT_EQ(w.comparison.columns.size(), expected.columns.size());
    for (std::size_t c = 0; c < expected.columns.size(); ++c) {
        EXPECT_EQ(w.comparison.columns[c].target, expected.columns[c].target) << expected.columns[c].title;
        EXPECT_EQ(w.comparison.columns[c].no_result, expected.columns[c].no_result);
    }
}

TEST_F(NspWindowTest, TheIterationsOfTheChosenMethodAreListedWithUnits) {
    windows::NspWindow& w = opened();
    const forms::Grid& g = w.grdIterations;
    for (auto [index, method, heading] : {std::tuple{0, nsp::Method::Fema440, "d (cm)"},
                                          std::tuple{2, nsp::Method::Ec8N2, "Em* (kgf cm)"}}) {
        pick(w.cboIterations, index);
        const nsp::MethodColumn* m = nullptr;
        for (const nsp::MethodColumn& c : w.comparison.columns)
            if (c.method == method) m = &c;
        ASSERT_TRUE(m && !m->iterations.rows.empty());
        ASSERT_EQ(g.rows(), static_cast<int>(m->iterations.rows.size()) + 1);
        ASSERT_EQ(g.cols(), static_cast<int>(m->iterations.headings.size()));
        int col = 0;
        while (col < g.cols() && g.text(0, col) != heading) ++col;
        ASSERT_LT(col, g.cols()) << heading;
        EXPECT_EQ(g.text(g.rows() - 1, col), nsp::six_digits(m->iterations.rows.back()[col]));
    }
}

}  // namespace
}  // namespace tv::test

// "Target Displacement by Method" beyond its defaults: the design spectrum as the demand (taken
// over from the design spectrum window), the methods' settings, and the iterations of the
// method chosen, listed with units from the same comparison as the table.
#include "coefficient_fixture.h"

#include "windows/coefficient/nsp_inputs.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/spectra/design_spectrum_window.h"

namespace tv::test {
namespace {

namespace nsp = compute::nsp;

class NspSettingsTest : public CoefficientTest {
protected:
    /// The sample listing fitted with Ti = 0.5 s, W = 200000 and Sa = 0.43 g in Form8.
    windows::NspWindow& opened() {
        start_listing(std::string(TV_SOURCE_DIR) + "/samples/pushover_listing.txt");
        press(f6().Command3);
        type(f6().txtTI, "0.5");
        press(f6().Command5);
        type(f8().Text10, "200000");
        type(f8().Text2, "0.43");
        press(f6().cmdNsp);
        return program.form<windows::NspWindow>();
    }
    void pick(forms::ComboBox& c, int i) { program.run([&] { c.set_list_index(i); }); }
};

TEST_F(NspSettingsTest, TheDesignSpectrumAndTheSettingsReachEveryColumn) {
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

TEST_F(NspSettingsTest, TheIterationsOfTheChosenMethodAreListedWithUnits) {
    windows::NspWindow& w = opened();
    type(w.txtAg, "0.15");
    press(w.cmdCalculate);
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

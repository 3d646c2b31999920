// The capacity table built from a pushover curve and held by Form9 as if read from a file.
#include "capacity_fixture.h"
#include "compute/capacity/capacity_reader.h"
#include "support/fake_platform.h"
#include "text/number_text.h"
#include "windows/capacity/curve_capacity_window.h"

namespace tv::test {
namespace {

using CurveCapacityTest = CapacityTest;

TEST_F(CurveCapacityTest, APushoverWorkbookBecomesTheCapacityTableAndIsSaved) {
    const std::string path = data_path("pushover/PDcurve_Xdir.xlsx");
    if (path.empty()) GTEST_SKIP() << "PDcurve_Xdir.xlsx not available";
    windows::Form9& f9 = form9();
    run([&] { f9.Combo1.set_list_index(1); });  // cm, g = 981
    press(f9.cmdFromCurve);
    auto& d = program.form<windows::frmCurveCapacity>();
    EXPECT_EQ(d.lblWUnit.caption(), "kgf");
    run([&] {
        d.txtFile.set_text(path);
        d.txtW.set_text("1000000");
        d.txtAlpha1.set_text("0.8");
        d.txtPfPhi.set_text("1.25");
    });
    press(d.cmdBuild);  // the first point is shifted to the origin: Yes
    ASSERT_EQ(platform.messages.size(), 1u);
    ASSERT_EQ(f9.Fg.rows(), 13);
    EXPECT_TRUE(f9.Command3.enabled());
    EXPECT_EQ(f9.Text1.text(), path);
    // The last step: Sd = (8.446 + 0.0093) / 1.25 cm, Sa = 397389.91 / (0.8 × 1000000) g.
    const compute::CapacityPoint& last = f9.capacityPoints.back();
    EXPECT_NEAR(last.Sd_C, (8.446 + 0.0093) / 1.25, 1e-12);
    EXPECT_NEAR(last.Sa_C, 397389.91 / 0.8e6, 1e-12);

    const std::string saved = (dir / "capacity.txt").string();
    platform.file_answers.push_back(saved);
    press(d.cmdSave);
    const compute::CapacityTable back = compute::read_capacity_file(saved);
    ASSERT_TRUE(back.ok());
    ASSERT_EQ(back.rows.size(), 12u);
    EXPECT_EQ(back.rows.back().point.Sd_C, last.Sd_C);

    // Numbers the table refuses leave the window's table as it was.
    run([&] { d.txtW.set_text("0"); });
    press(d.cmdBuild);
    EXPECT_EQ(platform.messages.back().text, path + ": W, alpha1 and PF1*phi must be above 0");
    EXPECT_EQ(f9.Fg.rows(), 13);
}

TEST_F(CurveCapacityTest, TheModalNumbersComeFromPastedStoreys) {
    press(form9().cmdFromCurve);
    auto& d = program.form<windows::frmCurveCapacity>();
    run([&] { d.txtStoreys.set_text("1239.562\t0.00006\r\n961.554\t0.61821\r\n\r\n687.12\t1\r\n"); });
    press(d.cmdModal);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(d.txtW.text(), "2888.236");
    EXPECT_NEAR(text::val(d.txtAlpha1.text()), 0.539, 0.0005);
    EXPECT_NEAR(text::val(d.txtPfPhi.text()), 1.215, 0.0005);
    run([&] { d.txtStoreys.set_text("100 1\n100 one\n"); });
    press(d.cmdModal);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Storey line 2: expected a weight and an amplitude, found \"100 one\"");
    EXPECT_EQ(d.txtW.text(), "2888.236");
}

TEST_F(CurveCapacityTest, StartReadsAnSdSaListIntoTheSameTable) {
    const std::string path = data_path("capacity/capacity_curves_Sd-Sa.csv");
    if (path.empty()) GTEST_SKIP() << "capacity_curves_Sd-Sa.csv not available";
    windows::Form9& f9 = form9();
    run([&] { f9.Combo1.set_list_index(1); });  // cm
    run([&] { f9.Text1.set_text(path); });
    press(f9.Command2);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.choices.empty());
    ASSERT_GT(f9.Fg.rows(), 2);
    EXPECT_TRUE(f9.Command3.enabled());
    EXPECT_EQ(f9.capacityPoints.back().Pf_fi, 1.275);  // the file's participation factor
}

}  // namespace
}  // namespace tv::test

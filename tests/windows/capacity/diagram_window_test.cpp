// Form10: the five series of the hand case, the read-out, Close and the printed page.
#include "capacity_fixture.h"

#include <algorithm>

#include "support/page_dump.h"
#include "windows/capacity/capacity_results.h"
#include "windows/chart/chart_data.h"

namespace tv::test {
namespace {

class DiagramTest : public CapacityTest {
protected:
    /// The hand case swept, then Next from the last page.
    windows::Form10& to_diagram() {
        sweep_hand_case();
        press(form9().Command3);
        EXPECT_TRUE(program.is_loaded<windows::Form10>());
        return program.form<windows::Form10>();
    }
    /// The hand curve with its displacements a hundred times larger, read in mm, swept on the
    /// code spectrum, and the diagram shown.
    windows::Form10& diagram_in_mm() {
        run([&] { form9().Combo1.set_list_index(0); });
        const std::string curve = slurp(std::string(TV_SOURCE_DIR) + "/tests/golden/inputs/hand_curve_mm.txt");
        windows::Form10& diagram = to_diagram_of(curve);
        EXPECT_TRUE(platform.messages.empty());
        return diagram;
    }
};

// Sd to 600 mm: the plot runs to 900; the 800-twip step is 78.6, so a label by "0.00" each 100,
// centred on its value's place (whole beside it at the strip's ends), 200 twips or more between
// the texts; a tick each 20 mm, 150 twips or more apart.
TEST_F(DiagramTest, TheAbscissaHasRoundLabelsOfHundredthsInMillimetres) {
    windows::Form10& d = diagram_in_mm();
    EXPECT_DOUBLE_EQ(d.chart.picNemodar.scale_width(), 900);
    expect_state(dump(d.chart.PicxSxale), "diagram_abscissa_mm");
}

// The slider goes through the diagram's own plot: four times as wide, and the series drawn again.
TEST_F(DiagramTest, TheSliderWidensTheDiagramAndDrawsItAgain) {
    windows::Form10& d = to_diagram();
    const std::size_t drawn = d.chart.picNemodar.ops().size();
    d.chart.Slider1.set_value(4);
    EXPECT_EQ(d.chart.picNemodar.width(), 36660);
    EXPECT_EQ(d.chart.HScroll1.max(), 275);
    EXPECT_EQ(d.chart.picNemodar.ops().size(), drawn);
}

TEST_F(DiagramTest, ThePrintedPageCarriesTheReadableStrips) {
    platform.printer_names = {"Office"};
    windows::Form10& d = diagram_in_mm();
    press(d.Command2);
    ASSERT_EQ(platform.printed.size(), 1u);
    std::vector<std::string> texts;
    for (const auto& op : d.pic1.ops())
        if (op.kind == forms::DrawOp::Kind::Text) texts.push_back(op.text);
    EXPECT_NE(std::find(texts.begin(), texts.end(), "900.00"), texts.end());
    EXPECT_EQ(std::find(texts.begin(), texts.end(), "1"), texts.end());
}

TEST_F(DiagramTest, NextFromTheLastPageShowsTheDiagramAndStaysOnPageTwo) {
    windows::Form10& d = to_diagram();
    windows::Form9& f = form9();
    EXPECT_EQ(d.caption(), "Diagram");
    EXPECT_TRUE(d.visible());
    EXPECT_EQ(platform.shown.back(), "Form10");
    EXPECT_EQ(f.pageIndex, 2);
    EXPECT_FALSE(f.Command3.enabled());
    EXPECT_TRUE(d.activated);
}

TEST_F(DiagramTest, SaveDataHasAnSdAndAnSaColumnForEachSeriesDrawn) {
    // Ten columns from "Demand Sd" to "Reduced points Sa": six demand rows, three of the bilinear
    // form, its second Sd 2.
    expect_state(windows::chart_csv(to_diagram().drawn_data()), "diagram_saved_data");
}

TEST_F(DiagramTest, PrintSendsThePlotWithTheFourResultLines) {
    platform.printer_names = {"Office", "Plotter"};
    windows::Form10& d = to_diagram();
    EXPECT_EQ(d.xprinter.items().size(), 2u);
    EXPECT_EQ(d.xprinter.text(), "Office");
    run([&] { d.xprinter.set_list_index(1); });
    press(d.Command2);
    ASSERT_EQ(platform.printed.size(), 1u);
    EXPECT_EQ(platform.printed[0].printer, "Plotter");
    EXPECT_FALSE(d.pic1.ops().empty());
    const std::vector<std::string> texts = page_texts(platform.printed[0].page);
    ASSERT_GE(texts.size(), 5u);
    EXPECT_EQ(std::vector<std::string>(texts.end() - 5, texts.end()),
              (std::vector<std::string>{"Diagram & Result", "Target.Disp : 5.0169 mm", "SRA= 0.4676", "SRV= 0.5893",
                                        "Beff= 26.1787"}));
}

TEST_F(DiagramTest, WithoutAPrinterPrintDoesNothingAndCloseUnloads) {
    windows::Form10& d = to_diagram();
    press(d.Command2);
    EXPECT_TRUE(platform.printed.empty());
    press(d.Command1);
    EXPECT_FALSE(program.is_loaded<windows::Form10>());
}

TEST_F(DiagramTest, WithoutACrossingThePlotFailsOnlyWhenNothingCanBeScaled) {
    // A capacity curve of zeros: no abscissa to scale by.
    to_diagram_of("Teff\n 1 0.3 5 0 0 0 0 0 1\n 2 0.4 5 0 0 0 0 0 1\n 3 0.5 5 0 0 0 0 0 1\n");
    EXPECT_EQ(platform.message_texts(), std::vector<std::string>{"Error Reading File"});
    EXPECT_TRUE(program.is_loaded<windows::Form10>());
}

}  // namespace
}  // namespace tv::test

// Form10: the five series of the hand case, the read-out, Close and the printed page.
#include "capacity_fixture.h"

#include <algorithm>

#include "compute/capacity/capacity_results.h"

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
    std::size_t lines_in(const windows::Form10& f, int colour) {
        const auto& ops = f.chart.picNemodar.ops();
        return static_cast<std::size_t>(std::count_if(ops.begin(), ops.end(), [colour](const forms::DrawOp& op) {
            return op.kind == forms::DrawOp::Kind::Line && op.color == colour;
        }));
    }
};

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

TEST_F(DiagramTest, FillarrayReadsTheFiveSeriesOfTheTable) {
    windows::Form10& d = to_diagram();
    using D = compute::CapacityDiagram;
    const auto& capacity = d.diagram.series[D::kCapacity];
    ASSERT_EQ(capacity.x.ubound(), 5);
    EXPECT_EQ(capacity.x(4), 4.0);
    EXPECT_EQ(capacity.y(5), 1.1);
    const auto& bilinear = d.diagram.series[D::kBilinear];
    ASSERT_EQ(bilinear.x.ubound(), 3);
    EXPECT_EQ(bilinear.x(2), 2.0);
    EXPECT_EQ(bilinear.y(3), 1.009);
    EXPECT_EQ(d.diagram.series[D::kDemand].x.ubound(), 6);  // the demand pass's rows
    EXPECT_EQ(d.diagram.maxAbscissa, 6.0);
    EXPECT_EQ(d.diagram.maxOrdinate, 1.1);
}

TEST_F(DiagramTest, TheSeriesAreDrawnXAgainstYInTheirColours) {
    windows::Form10& d = to_diagram();
    const forms::PictureBox& p = d.chart.picNemodar;
    // 1.5 times the largest ordinate and the largest capacity displacement.
    EXPECT_DOUBLE_EQ(p.scale_top(), 1.5 * 1.1);
    EXPECT_DOUBLE_EQ(p.scale_height(), -2 * 1.5 * 1.1);
    EXPECT_DOUBLE_EQ(p.scale_width(), 1.5 * 6.0);
    EXPECT_EQ(lines_in(d, 0xFF0000), 5u);  // demand, blue: six points
    EXPECT_EQ(lines_in(d, 0x00FF00), 5u);  // reduced demand, green
    EXPECT_EQ(lines_in(d, 0x0000FF), 4u);  // capacity, red: five points
    EXPECT_EQ(lines_in(d, 0xFFFF00), 4u);  // reduced points of the sweep, cyan
    // The bilinear form, black: two lines from (0, 0) through (2, 0.8).
    std::vector<forms::DrawOp> black;
    for (const auto& op : p.ops())
        if (op.kind == forms::DrawOp::Kind::Line && op.color == 0) black.push_back(op);
    ASSERT_EQ(black.size(), 2u);
    EXPECT_DOUBLE_EQ(black[0].x1, p.x_to_twips(0));
    EXPECT_DOUBLE_EQ(black[0].x2, p.x_to_twips(2.0f));
    EXPECT_DOUBLE_EQ(black[0].y2, p.y_to_twips(0.8f));
    EXPECT_FALSE(d.chart.PicySxale.ops().empty());
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(DiagramTest, TheReadOutShowsThePointer) {
    windows::Form10& d = to_diagram();
    run([&] { d.chart.picNemodar.MouseMove(0, 0, 3.254, 0.5); });
    ASSERT_NE(d.chart.readout, nullptr);
    EXPECT_EQ(d.chart.readout->name(), "Label1");
    EXPECT_EQ(d.chart.readout->caption(), "X: 3.25, Y: 0.50  ");
}

TEST_F(DiagramTest, PrintSendsThePlotWithTheFourResultLines) {
    platform.printer_names = {"Office", "Plotter"};
    windows::Form10& d = to_diagram();
    EXPECT_EQ(d.xprinter.items().size(), 2u);
    EXPECT_EQ(d.xprinter.text(), "Office");
    run([&] { d.xprinter.set_list_index(1); });
    press(d.Command2);
    ASSERT_EQ(platform.printed.size(), 1u);
    const forms::PrintJob& job = platform.printed[0];
    EXPECT_EQ(job.printer, "Plotter");
    EXPECT_EQ(job.heading, "Diagram & Result");
    EXPECT_EQ(job.font, "Tahoma");
    EXPECT_EQ(job.picture, &d.pic1);
    EXPECT_FALSE(d.pic1.ops().empty());
    EXPECT_EQ(job.lines, (std::vector<std::string>{"Target.Disp : 5.0169 mm", "SRA= 0.4676", "SRV= 0.5893",
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
    read_capacity("Teff\n 1 0.3 5 0 0 0 0 0 1\n 2 0.4 5 0 0 0 0 0 1\n 3 0.5 5 0 0 0 0 0 1\n");
    windows::Form9& f = form9();
    press(f.Command3);
    press(f.Command6);
    press(f.Command7);
    press(f.Command3);
    press(f.Command9);
    press(f.Command3);
    EXPECT_EQ(platform.message_texts(), std::vector<std::string>{"Error Reading File"});
    EXPECT_TRUE(program.is_loaded<windows::Form10>());
}

}  // namespace
}  // namespace tv::test

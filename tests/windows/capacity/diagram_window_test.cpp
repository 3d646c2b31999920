// Form10: the five series of the hand case, the read-out, Close and the printed page.
#include "capacity_fixture.h"

#include <algorithm>

#include "windows/capacity/capacity_results.h"

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
};

// The hand curve with its displacements times `factor`, read in `unit`, swept on the code
// spectrum, and the diagram shown.
std::string hand_curve_times(double factor) {
    const double d[] = {0, 1, 2, 4, 6, 8};
    const double a[] = {0, 0.4, 0.8, 1.0, 1.1, 1.15};
    const double T[] = {0.3, 0.4, 0.5, 0.6, 0.8, 1.0};
    std::string text = "Teff\n";
    for (int i = 0; i < 6; ++i)
        text += " " + std::to_string(i + 1) + " " + std::to_string(T[i]) + " 5 " + std::to_string(d[i] * factor) + " " +
                std::to_string(a[i]) + " 0 0 0 1.2\n";
    return text;
}

/// One mark of the abscissa strip: a tick's x, or a label's left and text.
struct StripText {
    double x;
    std::string text;
};

std::vector<StripText> strip_labels(const forms::PictureBox& strip) {
    std::vector<StripText> out;
    for (const auto& op : strip.ops())
        if (op.kind == forms::DrawOp::Kind::Text) out.push_back({op.x1, op.text});
    return out;
}

std::vector<double> strip_ticks(const forms::PictureBox& strip) {
    std::vector<double> out;
    for (const auto& op : strip.ops())
        if (op.kind == forms::DrawOp::Kind::Line) out.push_back(op.x1);
    return out;
}

class DiagramAxesTest : public DiagramTest {
protected:
    windows::Form10& diagram_of(double factor, int unit) {
        run([&] { form9().Combo1.set_list_index(unit); });
        windows::Form10& d = to_diagram_of(hand_curve_times(factor));
        EXPECT_TRUE(platform.messages.empty());
        return d;
    }
    /// Labels by "0.00" a round step apart, ticks four or five to a step, nothing run together.
    void expect_round_abscissa(const windows::Form10& d, const std::vector<std::string>& texts, double step) {
        const forms::PictureBox& strip = d.chart.PicxSxale;
        const auto labels = strip_labels(strip);
        std::vector<std::string> got;
        for (const auto& l : labels) got.push_back(l.text);
        EXPECT_EQ(got, texts);
        const double twips_per_unit = d.chart.picNemodar.width() / d.chart.picNemodar.scale_width();
        const double o = d.chart.HScroll1.value() * 100.0;
        for (const auto& l : labels) {
            // Centred on the value's own place, or whole beside it at the ends of the strip.
            const double w = strip.text_width(l.text);
            const double at = std::stod(l.text) * twips_per_unit - o;
            if (at < 0 || at > strip.width()) continue;  // out of sight, clipped
            EXPECT_GE(l.x, 0) << l.text;
            EXPECT_LE(l.x + w, strip.width() + 1) << l.text;
            if (l.x > 0 && l.x + w < strip.width() - 1)
                EXPECT_NEAR(l.x + w / 2, at, 1.0) << l.text;
            else
                EXPECT_TRUE(l.x - 1 <= at && at <= l.x + w + 1) << l.text;
        }
        for (std::size_t i = 1; i < labels.size(); ++i) {
            EXPECT_NEAR(std::stod(labels[i].text) - std::stod(labels[i - 1].text), step, 1e-9);
            // About 800 twips of plot or more, and room between the texts.
            EXPECT_GE(step * twips_per_unit, 800);
            EXPECT_GE(labels[i].x - (labels[i - 1].x + strip.text_width(labels[i - 1].text)), 200);
        }
        const auto ticks = strip_ticks(strip);
        for (std::size_t i = 1; i < ticks.size(); ++i) EXPECT_GE(ticks[i] - ticks[i - 1], 150) << i;
        EXPECT_GE(ticks.size(), 4 * labels.size() - 3);
    }
};

TEST_F(DiagramAxesTest, TheAbscissaHasRoundLabelsOfHundredthsInMillimetres) {
    // Sd to 600 mm: the plot runs to 900; the 800-twip step is 78.6, so a label each 100.
    windows::Form10& d = diagram_of(100, 0);
    EXPECT_DOUBLE_EQ(d.chart.picNemodar.scale_width(), 900);
    expect_round_abscissa(d, {"0.00", "100.00", "200.00", "300.00", "400.00", "500.00", "600.00", "700.00", "800.00",
                              "900.00"},
                          100);
    EXPECT_EQ(strip_ticks(d.chart.PicxSxale).size(), 46u);  // one each 20 mm
}

TEST_F(DiagramAxesTest, ThePrintedPageCarriesTheReadableStrips) {
    platform.printer_names = {"Office"};
    windows::Form10& d = diagram_of(100, 0);
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
    windows::Form10& d = to_diagram();
    const auto data = d.drawn_data();
    ASSERT_EQ(data.size(), 10u);
    EXPECT_EQ(data[0].heading.substr(0, 9), "Demand Sd");
    EXPECT_EQ(data[7].heading, "Bilinear Sa (g)");
    EXPECT_EQ(data[0].values.size(), 6u);
    EXPECT_EQ(data[7].values.size(), 3u);
    EXPECT_EQ(data[6].values[1], 2.0);
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

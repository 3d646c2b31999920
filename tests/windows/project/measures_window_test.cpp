// The measures window opened from the record window: it shows what the measures give for the
// record in work, previews and applies processing to the project's record, and undoes it.
#include <cmath>
#include <sstream>

#include "compute/measures/ground_motion_measures.h"
#include "compute/measures/record_processing.h"
#include "project_fixture.h"
#include "windows/measures/measures_window.h"

namespace tv::test {
namespace {

class MeasuresWindowTest : public ProjectTest {
protected:
    // A 2 s record at 0.01 s: a decaying 2 Hz wave in X, a 5 Hz one in Y.
    void open_record() {
        std::ostringstream x, y;
        x << "head\n";
        y << "head\n";
        for (int i = 0; i < 200; ++i) {
            const double t = i * 0.01;
            x << 0.3 * std::exp(-t) * std::sin(2 * 3.14159265358979 * 2 * t) << '\n';
            y << 0.2 * std::sin(2 * 3.14159265358979 * 5 * t) << '\n';
        }
        open_texts(x.str(), y.str());
        program.run([&] { form1().xstep.set_text("0.01"); });
    }
    windows::MeasuresWindow& open_measures() {
        press(form1().Command2);
        press(form1().cmdMeasures);
        return program.form<windows::MeasuresWindow>();
    }
    std::vector<double> samples(char c) { return state().samples(1, c, form1().firstLine, form1().lastLine); }
    void choose_band_pass(windows::MeasuresWindow& m, const std::string& high = "20") {
        program.run([&] {
            m.FilterKind.set_list_index(3);
            m.LowCorner.set_text("0.5");
            m.HighCorner.set_text(high);
            m.BaselineFit.set_list_index(1);
            m.BaselineOrder.set_text("1");
        });
    }
    /// What choose_band_pass chooses.
    compute::ProcessingOptions band_pass() const {
        return {.baseline = compute::BaselineFit::acceleration, .baseline_order = 1,
                .filter = compute::FilterKind::band_pass, .low_corner = 0.5, .high_corner = 20};
    }
};

TEST_F(MeasuresWindowTest, AComponentOfZerosIsNamedAndTheOtherStillShown) {
    open_record();
    press(form1().Command2);
    for (int i = form1().firstLine; i <= form1().lastLine; ++i) form1().gridY(1).set_text(i, 1, "0");
    press(form1().cmdMeasures);
    windows::MeasuresWindow& m = program.form<windows::MeasuresWindow>();
    ASSERT_TRUE(platform.runtime_errors.empty());
    EXPECT_EQ(m.Message.caption(), std::string("Y: ") + compute::kRecordOfZeros);
    EXPECT_NE(m.MeasureTable.text(1, 2), "");
    EXPECT_EQ(m.MeasureTable.text(1, 3), "");
}

TEST_F(MeasuresWindowTest, ADragPastTheEndStopsWithTheRecordsLastSecondShown) {
    open_record();
    windows::MeasuresWindow& m = open_measures();
    program.run([&] { m.set_time_view(0.9, 0.5); });
    EXPECT_EQ(m.time_view_from(), 0.5);
}

TEST_F(MeasuresWindowTest, BeforeTheDiagramIsShownTheWindowStaysShut) {
    open_record();
    press(form1().cmdMeasures);
    EXPECT_FALSE(program.is_loaded<windows::MeasuresWindow>());
    EXPECT_EQ(platform.message_texts().back(), "Show the diagram of the record first");
}

TEST_F(MeasuresWindowTest, ApplyReplacesTheRecordAndUndoRestoresIt) {
    open_record();
    windows::MeasuresWindow& m = open_measures();
    const std::vector<double> before = samples('Y');
    choose_band_pass(m);
    EXPECT_FALSE(m.Undo.enabled());
    press(m.Apply);
    EXPECT_EQ(samples('Y'), compute::process_record(before, 0.01, band_pass()).samples);
    EXPECT_EQ(state().baseAccelY1(2), samples('Y')[0]);
    const std::string summary = compute::processing_summary(band_pass());
    EXPECT_EQ(form1().caption(), "Input file parameters (1) - processed: " + summary);
    press(m.Undo);
    EXPECT_EQ(samples('Y'), before);
    EXPECT_EQ(form1().caption(), "Input file parameters (1)");

    // Show Diagram reads the tables again and applies the processing anew; the window goes.
    press(m.Apply);
    const std::vector<double> processed = samples('Y');
    press(form1().Command2);
    EXPECT_EQ(samples('Y'), processed);
    EXPECT_EQ(form1().caption(), "Input file parameters (1) - processed: " + summary);
    EXPECT_FALSE(program.is_loaded<windows::MeasuresWindow>());
    // Opened again, the window still undoes it.
    press(form1().cmdMeasures);
    press(program.form<windows::MeasuresWindow>().Undo);
    EXPECT_EQ(samples('Y'), before);
    EXPECT_EQ(form1().caption(), "Input file parameters (1)");
}

TEST_F(MeasuresWindowTest, BadProcessingIsRefusedWithoutTouchingTheRecord) {
    open_record();
    windows::MeasuresWindow& m = open_measures();
    const std::vector<double> before = samples('X');
    choose_band_pass(m, "80");  // above the Nyquist frequency of 50 Hz
    press(m.Apply);
    EXPECT_EQ(m.Message.caption().rfind("X: ", 0), 0u);
    program.run([&] { m.FilterOrder.set_text("four"); });
    press(m.Preview);
    EXPECT_EQ(m.Message.caption(), "Filter order: type a whole number from 1 to 8");
    EXPECT_EQ(samples('X'), before);
    EXPECT_FALSE(m.Undo.enabled());
    ASSERT_TRUE(platform.runtime_errors.empty());
}

// Show Diagram on a processed record whose processing no longer fits the lines now chosen: a
// message, and the record as read, no longer marked processed.
TEST_F(MeasuresWindowTest, ProcessingThatNoLongerFitsIsDroppedWithAMessage) {
    open_texts("h\n0.1\n-0.2\n0.3\n0.1\n-0.1\n0.2\n0\n0.1\n-0.3\n0.2\n",
               "h\n0.2\n0.1\n-0.1\n0.3\n0.2\n-0.2\n0.1\n0\n0.1\n-0.1\n");
    windows::MeasuresWindow& m = open_measures();
    program.run([&] {
        m.BaselineFit.set_list_index(1);
        m.BaselineOrder.set_text("6");  // seven coefficients: more than six samples needed
    });
    press(m.Apply);
    ASSERT_TRUE(m.Undo.enabled());
    program.run([&] { form1().xeline.set_text("7"); });  // six samples left
    press(form1().Command2);
    EXPECT_EQ(platform.message_texts().back().rfind("The processing applied before does not fit", 0), 0u);
    EXPECT_EQ(form1().caption(), "Input file parameters (1)");
    EXPECT_EQ(state().samples(1, 'X', 2, 7), (std::vector<double>{0.1, -0.2, 0.3, 0.1, -0.1, 0.2}));
}

}  // namespace
}  // namespace tv::test

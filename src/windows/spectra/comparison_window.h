#pragma once
// Form4, the comparison window: the records' combined spectra against the code target, and the one
// scale factor that lifts their average to it over a period band.
#include <cstdint>

#include "windows/chart/chart.h"
#include "windows/program.h"
#include "windows/spectra/response_run.h"

namespace tv::windows {

/// The guard's message when T (end) passes the end of the spectrum.
extern const char* const kBandEndMessage;

class Form4 : public Window {
public:
    explicit Form4(forms::App& app);

    forms::Frame& Frame2 = frame("Frame2", "");
    forms::CheckBox& Check2 = check_box("Check2", "\u0646\u0634\u0631\u064a\u0647 360", &Frame2);
    forms::TextBox& xbeta = text_box("xbeta", "1.17", &Frame2);
    forms::CommandButton& Command1 = button("Command1", "Calculate", &Frame2);
    forms::Frame& Frame3 = frame("Frame3", "");
    forms::TextBox& tstart = text_box("tstart", "0.01", &Frame3);
    forms::TextBox& tend = text_box("tend", "4", &Frame3);
    forms::Frame& Frame4 = frame("Frame4", "Result");
    forms::TextBox& xzarib = text_box("xzarib", "1.0", &Frame4);
    forms::TextBox& xspeed = text_box("xspeed", "0.01", &Frame4);
    /// Each record's D5-95, beside the factor, against the code's minimum strong-motion duration.
    forms::Label& LabelDurations = label("LabelDurations", "", &Frame4);
    forms::Frame& Frame1 = frame("Frame1", "Setting");
    forms::CheckBox& Check1 = check_box("Check1", "Mouse Co.", &Frame1);
    forms::CommandButton& Command3 = button("Command3", "Export");
    forms::CommandButton& Command2 = button("Command2", "Back");
    forms::Frame& Picbar = frame("Picbar", "");
    forms::Label& Label3 = label("Label3", "Please Wait...............", &Picbar);
    forms::ProgressBar& pbar = progress("pbar", &Picbar);
    forms::TextBox& Text1 = text_box("Text1");
    forms::TextBox& Text2 = text_box("Text2");
    forms::TextBox& Text3 = text_box("Text3");
    forms::TextBox& Text4 = text_box("Text4");
    forms::TextBox& Text5 = text_box("Text5");
    forms::TextBox& Text6 = text_box("Text6");
    forms::TextBox& Text7 = text_box("Text7");
    forms::Label& LabelRed = label("LabelRed", "X: 0.00");
    forms::Label& LabelBlue = label("LabelBlue", "Y: 0.00");
    forms::Label& Label12 = label("Label12", "X: 0.00");
    Chart chart;
    forms::LineShape& LineRed = line_shape("LineRed", &chart.picNemodar);
    forms::LineShape& LineBlue = line_shape("LineBlue", &chart.picNemodar);

    text::DoubleArray combined1, combined2, combined3;
    text::DoubleArray averageSpectrum, targetSpectrum;
    std::int32_t activated = 0;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(int& cancel) override;
    void Check2_Click();
    void tend_Change();
    void Command1_Click();
    void Command2_Click();
    /// Export: sixteen columns, accelerations from the data's first line, spectra from index 1.
    void Command3_Click();
    /// The comparison: combination, average, target, the band search and the second run.
    void calculate();
    void picNemodar_MouseMove(double x, double y);

    /// LabelDurations from the records as they stand.
    void show_durations();

private:
    void draw_curves(bool rescale);
    text::DoubleArray& combined(std::int32_t record);
};

}  // namespace tv::windows

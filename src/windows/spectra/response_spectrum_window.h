#pragma once
// Form3 ("Response spectrum"): damped single-degree-of-freedom spectra of every loaded record,
// one record and component on the chart at a time, and their export.
#include <array>
#include <cstdint>

#include "windows/chart/chart.h"
#include "windows/program.h"
#include "windows/spectra/response_run.h"
#include "windows/spectra/rotated_run.h"

namespace tv::windows {

class Form3 : public Window {
public:
    explicit Form3(forms::App& app);

    forms::Frame& Frame1 = frame("Frame1", "Input");
    forms::TextBox& xbeta = text_box("xbeta", "0.05", &Frame1);
    forms::ComboBox& Combo1 = combo("Combo1", &Frame1);
    forms::OptionButton& Option1 = option("Option1", "Acceleration X", &Frame1);
    forms::OptionButton& Option2 = option("Option2", "Acceleration Y", &Frame1);
    forms::CheckBox& Check1 = check_box("Check1", "Displacement", &Frame1);
    forms::CheckBox& Check2 = check_box("Check2", "Ps.Velocity", &Frame1);
    forms::CheckBox& Check3 = check_box("Check3", "Velocity", &Frame1);
    forms::Label& Label4 = label("Label4", "(Default : Pseudo.Acceleration)", &Frame1);
    /// Orientation-independent PSA of each record's X and Y, beside the component's PSA.
    forms::CheckBox& CheckRotD50 = check_box("CheckRotD50", "RotD50", &Frame1);
    forms::CheckBox& CheckRotD100 = check_box("CheckRotD100", "RotD100", &Frame1);
    forms::CommandButton& Command1 = button("Command1", "Calculate");
    forms::CommandButton& Command3 = button("Command3", "Show diagram");
    forms::CommandButton& Command5 = button("Command5", "Export");
    forms::CommandButton& Command4 = button("Command4", "Next");
    forms::CommandButton& Command2 = button("Command2", "Back");
    forms::Frame& Picbar = frame("Picbar", "");
    forms::Label& Label3 = label("Label3", "Please Wait...............", &Picbar);
    forms::ProgressBar& pbar = progress("pbar", &Picbar);
    /// Carries one export line on its way to the file.
    forms::TextBox& Text1 = text_box("Text1");
    forms::TextBox& Text2 = text_box("Text2");
    forms::TextBox& Text3 = text_box("Text3");
    forms::TextBox& Text4 = text_box("Text4");
    forms::TextBox& Text5 = text_box("Text5");
    forms::TextBox& Text6 = text_box("Text6");
    forms::TextBox& Text7 = text_box("Text7");
    Chart chart;

    std::int32_t calculated = 0;
    /// RotD50 and RotD100 as the last Calculate made them (none when neither was ticked), and
    /// by record (index 1..3) at the spectra's indices: which were asked, and their ordinates (g).
    RotatedRun rotated;
    bool rotd50Calculated = false, rotd100Calculated = false;
    std::array<text::DoubleArray, 4> rotd50, rotd100;

    void Form_Load() override;
    void Form_Unload(int& cancel) override;
    /// Calculate: runs the integrator with the damping of xbeta, then shows the spectrum.
    void Command1_Click();
    /// Show diagram: plots the chosen record and component (calculating first if needed).
    void Command3_Click();
    void Command4_Click();
    /// Export: the twelve columns of accelerations and spectra side by side, then the RotD
    /// spectra of records 1 to 3 that were calculated.
    void Command5_Click();
    void Command2_Click();
    /// The integrator run of this window, with its measure from the tick boxes.
    void calculate(double zeta);
    /// RotD50 and RotD100 of the records as the boxes ask, after the integrator's run.
    void calculate_rotated(double zeta);

    /// The spectrum on the chart: by Combo1's number and the component option; null for none.
    text::DoubleArray* selected_spectrum();
    /// Draws the selected spectrum, then the RotD curves of its record that were calculated.
    void plot_selected();
};

/// The chart colours of the RotD curves (0xBBGGRR); the component's spectrum is red.
constexpr int kRotD50Colour = 0x008000;
constexpr int kRotD100Colour = 0xFF0000;

/// The export's heading line.
extern const char* const kResponseExportHeading;

}  // namespace tv::windows

#pragma once
// Form2 ("Standard"): the code design spectrum for a soil class and hazard level, or one read
// from a file; it fixes the period grid that every later spectrum uses.
#include <cstdint>

#include "compute/spectra/design_spectrum.h"
#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

class Form2 : public Window {
public:
    explicit Form2(forms::App& app);

    forms::Frame& Frame2 = frame("Frame2", "Soil");
    forms::OptionButton& Option1 = option("Option1", "I", &Frame2);
    forms::OptionButton& Option2 = option("Option2", "II", &Frame2);
    forms::OptionButton& Option3 = option("Option3", "III", &Frame2);
    forms::OptionButton& Option4 = option("Option4", "IV", &Frame2);
    forms::Frame& Frame3 = frame("Frame3", "Hazard");
    forms::OptionButton& Option5 = option("Option5", "Low", &Frame3);
    forms::OptionButton& Option7 = option("Option7", "Moderate", &Frame3);
    forms::OptionButton& Option6 = option("Option6", "High", &Frame3);
    forms::OptionButton& Option8 = option("Option8", "Very High", &Frame3);
    forms::TextBox& Text1 = text_box("Text1", "0.2");
    forms::TextBox& tstart = text_box("tstart", "0.01");
    forms::TextBox& tend = text_box("tend", "4");
    forms::TextBox& xstep = text_box("xstep", "0.01");
    /// Keeps a copy of the step text.
    forms::TextBox& Text8 = text_box("Text8", "0.01");
    forms::CheckBox& Check1 = check_box("Check1", "From File");
    forms::CommandButton& Command3 = button("Command3", "Browse");
    forms::CommandButton& Command1 = button("Command1", "Show Diagram");
    forms::CommandButton& xnext = button("xnext", "Next");
    forms::CommandButton& Command2 = button("Command2", "Back");
    // The six peaks of Form1, handed on as texts.
    forms::TextBox& Text2 = text_box("Text2");
    forms::TextBox& Text3 = text_box("Text3");
    forms::TextBox& Text4 = text_box("Text4");
    forms::TextBox& Text5 = text_box("Text5");
    forms::TextBox& Text6 = text_box("Text6");
    forms::TextBox& Text7 = text_box("Text7");
    Chart chart;

    double S = 0, T0 = 0, Ts = 0;
    std::int32_t shown = 0;
    bool fromFile = false;

    void Form_Load() override;
    void Form_Unload(int& cancel) override;
    /// Show Diagram: fills designSa from the spectrum function (or keeps the file's) and plots.
    void Command1_Click();
    /// Browse: reads the ordinates from a file, then plots.
    void Command3_Click();
    void xnext_Click();
    void Command2_Click();
    void Check1_Click();

    compute::Soil soil() const;
    compute::Hazard hazard() const;

private:
    void plot_design();
};

}  // namespace tv::windows

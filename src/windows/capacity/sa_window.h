#pragma once
// Form11 ("Calculate SA"): the code spectrum, or a period and Sa file, and Sa at the one period
// that the target displacement window asks for; "Calculate Sa" hands Sa and Ts back to it.
#include <functional>
#include <string>

#include "compute/spectra/design_spectrum.h"
#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

class Form11 : public Window {
public:
    explicit Form11(forms::App& app);

    forms::CheckBox& Check1 = check_box("Check1", "From File");
    forms::CommandButton& Command4 = button("Command4", "Browse");
    forms::CommandButton& Command6 = button("Command6", "Show Diagram");
    forms::Frame& fsoil = frame("fsoil", "Soil");
    forms::OptionButton& Option1 = option("Option1", "I", &fsoil);
    forms::OptionButton& Option2 = option("Option2", "II", &fsoil);
    forms::OptionButton& Option3 = option("Option3", "III", &fsoil);
    forms::OptionButton& Option4 = option("Option4", "IV", &fsoil);
    forms::Frame& Frisk = frame("Frisk", "Hazard");
    forms::OptionButton& Option5 = option("Option5", "Low", &Frisk);
    forms::OptionButton& Option6 = option("Option6", "High", &Frisk);
    forms::Label& Label1 = label("Label1", "T (start) =");
    forms::TextBox& tstart = text_box("tstart", "0.01");
    forms::Label& Label2 = label("Label2", "sec");
    forms::Label& Label3 = label("Label3", "T (end) =");
    forms::TextBox& tend = text_box("tend", "4");
    forms::Label& Label4 = label("Label4", "sec");
    forms::Label& Label5 = label("Label5", "Step =");
    forms::TextBox& xstep = text_box("xstep", "0.01");
    forms::Label& Label7 = label("Label7", "Scale(A) =");
    forms::TextBox& xscale = text_box("xscale", "1");
    forms::CommandButton& Command7 = button("Command7", "Calculate Sa");
    /// The chart of the spectrum, with its read-out Label8.
    Chart chart;

    /// True after a spectrum file was read.
    bool fromFile = false;
    /// Sa found at requestedPeriod by the last calculare_sa; 0 when none.
    double saAtPeriod = 0;
    /// The period asked for, seconds; set by the window that opens this one.
    double requestedPeriod = 0;
    /// Second corner period of the chosen soil and hazard, seconds.
    double Ts = 0;

    /// Where "Calculate Sa" sends Sa and Ts, both as "0.0000" texts: the opener's Text2 and
    /// Text8. Empty: nothing is handed back.
    std::function<void(const std::string& sa, const std::string& ts)> writeBack;

    void Form_Load() override;
    void Check1_Click();
    /// Browse: the period and Sa file; Ts from the (greyed) options.
    void Command4_Click();
    /// Show Diagram: the code spectrum B(T) into designSa, periods into designAux, then the plot.
    void Command6_Click();
    /// Calculate Sa: Sa at requestedPeriod, handed back with Ts; the window closes.
    void Command7_Click();
    /// saAtPeriod from the spectrum.
    void calculare_sa();

    compute::Soil soil() const;
    compute::HazardGroup risk_group() const;

    /// designSa on the chart, its value labels clear of each other.
    void plot_spectrum();
};

}  // namespace tv::windows

#pragma once
// Form11 ("Calculate SA"): the code spectrum, or a period and Sa file, and Sa at the one period
// that the target displacement window asks for; "Calculate Sa" hands Sa and Ts back to it.
#include <functional>
#include <string>

#include "windows/capacity/demand_spectrum_panel.h"
#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

class Form11 : public Window {
public:
    explicit Form11(forms::App& app);

    DemandSpectrumPanel demand{*this, {.hazard = "Hazard", .step = "0.01"}};
    forms::Label& Label1 = label("Label1", "T (start) =");
    forms::Label& Label2 = label("Label2", "sec");
    forms::Label& Label3 = label("Label3", "T (end) =");
    forms::Label& Label4 = label("Label4", "sec");
    forms::Label& Label5 = label("Label5", "Step =");
    forms::Label& Label7 = label("Label7", "Scale(A) =");
    /// The chart of the spectrum, with its read-out Label8.
    Chart chart;

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

    /// designSa on the chart, its value labels clear of each other.
    void plot_spectrum();
};

}  // namespace tv::windows

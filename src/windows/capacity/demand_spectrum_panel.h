#pragma once
// The demand spectrum's inputs as both capacity windows hold them, under the same names: the
// soil and hazard options, the period grid and scale, From File with its Browse, Show Diagram
// and Calculate Sa, with the routines the two windows share.
#include <optional>
#include <string>

#include "compute/spectra/design_spectrum.h"
#include "windows/program.h"

namespace tv::windows {

class DemandSpectrumPanel {
public:
    /// Where the controls stand and what differs between the windows.
    struct Place {
        forms::Control* inputs = nullptr;     // the frame of the inputs; null: the window
        forms::Control* calculate = nullptr;  // the frame of Calculate Sa; null: the window
        const char* hazard = "Hazard";        // caption of the hazard frame
        const char* step = "0.01";            // the step box's default, s
    };
    /// The code spectrum at period T (s) for scale A, the constants of the soil and the group.
    using Ordinate = double (*)(double T, double A, const compute::SpectrumConstants& k, compute::HazardGroup group);

    DemandSpectrumPanel(Window& window, const Place& place);

private:
    Window& window_;
    Place place_;

public:
    forms::CheckBox& Check1 = window_.check_box("Check1", "From File", place_.inputs);
    forms::CommandButton& Command4 = window_.button("Command4", "Browse", place_.inputs);
    forms::CommandButton& Command6 = window_.button("Command6", "Show Diagram", place_.inputs);
    forms::Frame& fsoil = window_.frame("fsoil", "Soil", place_.inputs);
    forms::OptionButton& Option1 = window_.option("Option1", "I", &fsoil);
    forms::OptionButton& Option2 = window_.option("Option2", "II", &fsoil);
    forms::OptionButton& Option3 = window_.option("Option3", "III", &fsoil);
    forms::OptionButton& Option4 = window_.option("Option4", "IV", &fsoil);
    forms::Frame& Frisk = window_.frame("Frisk", place_.hazard, place_.inputs);
    forms::OptionButton& Option5 = window_.option("Option5", "Low", &Frisk);
    forms::OptionButton& Option6 = window_.option("Option6", "High", &Frisk);
    forms::TextBox& xscale = window_.text_box("xscale", "1", place_.inputs);
    forms::TextBox& tstart = window_.text_box("tstart", "0.01", place_.inputs);
    forms::TextBox& tend = window_.text_box("tend", "4", place_.inputs);
    forms::TextBox& xstep = window_.text_box("xstep", place_.step, place_.inputs);
    forms::CommandButton& Command7 = window_.button("Command7", "Calculate Sa", place_.calculate);

    /// True after a spectrum file was read.
    bool fromFile = false;

    compute::Soil soil() const;
    /// "Low" is the group Low, Moderate; "High" the group High, Very High.
    compute::HazardGroup risk_group() const;
    /// The code spectrum's constants of the chosen soil and hazard.
    compute::SpectrumConstants constants() const;

    /// From File: ticked, Browse is the way and the soil and hazard are greyed; unticked, Show
    /// Diagram is, and a file read before no longer counts.
    void Check1_Click();
    /// Browse's dialog, filter and name "*.txt"; empty when cancelled.
    std::optional<std::string> choose_file();
    /// The period and Sa file `name` into designAux and designSa, with the busy pointer (left
    /// on for the window to reset); Calculate Sa is enabled and fromFile set.
    /// Failure: the reader's (53, 75, 6), busy pointer on.
    void read_file(const std::string& name);
    /// Show Diagram's spectrum: peakAccel = xscale; unless a file was read, the grid tstart to
    /// tend by xstep filled with `ordinate` into designSa and designAux; Calculate Sa enabled.
    /// Returns the constants used. Failure: those of the fill, Calculate Sa as it was.
    compute::SpectrumConstants show_spectrum(Ordinate ordinate);
};

}  // namespace tv::windows

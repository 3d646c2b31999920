#pragma once
// Form12 ("Fourier Transform"): the direct Fourier sum of record 1's X component at an omega
// grid, its amplitude spectrum and peak, the strongest omegas, and a history rebuilt from them.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

class Form12 : public Window {
public:
    explicit Form12(forms::App& app);

    forms::TextBox& Text1 = text_box("Text1", "");
    forms::TextBox& Text2 = text_box("Text2", "0.05");
    forms::CommandButton& Command1 = button("Command1", "GO--!");
    forms::Grid& Grid1 = grid("Grid1", 1, 4);
    forms::TextBox& Text3 = text_box("Text3", "");
    forms::TextBox& Text4 = text_box("Text4", "");
    forms::Label& Label11 = label("Label11", "");
    forms::Frame& Picbar = frame("Picbar", "");
    forms::Label& Label3 = label("Label3", "Please Wait...............", &Picbar);
    forms::ProgressBar& pbar = progress("pbar", &Picbar);
    forms::CommandButton& Command8 = button("Command8", "Close");
    forms::CommandButton& Command3 = button("Command3", "Accel");
    forms::TextBox& Text5 = text_box("Text5", "");
    forms::TextBox& Text6 = text_box("Text6", "0.05");
    forms::CheckBox& Check1 = check_box("Check1", "No. Omega=");
    forms::TextBox& Text8 = text_box("Text8", "5");
    forms::TextBox& Text9 = text_box("Text9", "0");
    forms::Grid& Grid2 = grid("Grid2", 1, 2);
    forms::CommandButton& Command4 = button("Command4", "Export");
    forms::CommandButton& Command9 = button("Command9", "Export.fft");
    /// Holds the export line being written.
    forms::TextBox& Text7 = text_box("Text7", "");
    forms::Grid& Grid3 = grid("Grid3", 1, 5);
    forms::CommandButton& Command5 = button("Command5", "Find Omega");
    forms::CommandButton& Command7 = button("Command7", "Omega Calculator");
    Chart chart;

    double omegaLim = 0, deltaOmega = 0, peakOmega = 0, peakAmp = 0;
    /// The omega count omegaLim / deltaOmega as GO, Accel or Find Omega last took it.
    std::int32_t n = 0;
    /// Set once a history was rebuilt.
    double inverted = 0;
    /// The processing of the record that GO--! last summed, for the exports' first lines.
    std::vector<std::string> sourceNotes;

    void Form_Load() override;
    /// A close while a loop of the window runs is refused.
    void Form_Unload(int& cancel) override;
    /// GO--!: the direct sum over the scaled X of record 1, the amplitude and its peak.
    void Command1_Click();
    /// Accel: the history rebuilt from all omegas or the picked ones.
    void Command3_Click();
    /// Find Omega: the strongest omegas, spaced apart, into Grid3.
    void Command5_Click();
    /// Export: the rebuilt history.
    void Command4_Click();
    /// Export.fft: omega and amplitude.
    void Command9_Click();
    void Command8_Click();
    void Command7_Click();
    void Check1_Click();

    /// Whether a long loop of the window (GO--!, Accel, Find Omega) is under way.
    bool looping() const { return looping_; }
    /// Told when a long loop starts (true) and ends (false); the view keeps the user out meanwhile.
    std::function<void(bool)> looping_changed;

private:
    class Busy;
    // The sums let pending events run; a click that comes in meanwhile must not start another.
    bool looping_ = false;
    void plot_amplitude();
    void export_lines(const std::string& caption, std::string_view heading, forms::Grid& grid, int first_col,
                      int second_col, text::DoubleArray& first, text::DoubleArray& second);
};

/// Form13 ("Omega Calculator"): an omega from a period, for Form12's omega limit.
class Form13 : public Window {
public:
    explicit Form13(forms::App& app);
    forms::TextBox& Text1 = text_box("Text1", "");
    forms::TextBox& Text2 = text_box("Text2", "");
    forms::CommandButton& Command1 = button("Command1", "Calculate");
    forms::CommandButton& Command2 = button("Command2", "Transfer");
    forms::CommandButton& Command3 = button("Command3", "Close");
    void Form_Load() override;
    void Command1_Click();
    void Command2_Click();
};

}  // namespace tv::windows

#pragma once
// Form9: the three-page wizard of the capacity spectrum method. Page 0
// reads the capacity curve, page 1 makes the demand spectrum and takes Sa at every period,
// page 2 sweeps the curve for the target point; Next from there shows the diagram.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "compute/capacity/capacity_reader.h"
#include "text/checked.h"
#include "windows/capacity/demand_spectrum_panel.h"
#include "windows/capacity/sweep_table.h"
#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

/// Shown when a calculation needs the capacity steps and the file gave none.
inline constexpr const char* kNoCapacitySteps =
    "The capacity file holds no steps: after a line holding \"Teff\" it needs one line per step of nine "
    "columns (Step Teff Betaeff Sd_C Sa_C Sd_d Sa_d ALPHA Pf_fi).";

class Form9 : public Window {
public:
    explicit Form9(forms::App& app);

    // Page 0: the capacity curve and the settings of the sweep.
    forms::Frame& Frame1 = frame("Frame1", "Capacity");
    forms::Label& Label1 = label("Label1", "Select Capasity Spectrum File :", &Frame1);
    forms::Label& Label2 = label("Label2", "Step 1 : Selecting Capasity Spectrum  ", &Frame1);
    forms::Label& Label3 = label("Label3", "Step 2 : Drawing Diagram :", &Frame1);
    forms::TextBox& Text1 = text_box("Text1", "", &Frame1);
    forms::CommandButton& Command1 = button("Command1", "Browse", &Frame1);
    forms::CommandButton& Command2 = button("Command2", "Start", &Frame1);
    forms::Grid& Fg = grid("Fg", 1, 9, &Frame1);
    /// Opens the window that builds the table from a pushover curve.
    forms::CommandButton& cmdFromCurve = button("cmdFromCurve", "From Pushover Curve...", &Frame1);
    forms::Frame& Frame4 = frame("Frame4", "Input", &Frame1);
    forms::Label& Label4 = label("Label4", "g(user unit)  =", &Frame4);
    forms::TextBox& T1 = text_box("T1", "9810", &Frame4);
    forms::Label& Label5 = label("Label5", "T0 (s)          =", &Frame4);
    forms::TextBox& T2 = text_box("T2", "0.4358", &Frame4);
    forms::Label& Label7 = label("Label7", "line Skip      =", &Frame4);
    forms::TextBox& T3 = text_box("T3", "0", &Frame4);
    forms::Label& Label8 = label("Label8", "step m        =", &Frame4);
    forms::TextBox& T4 = text_box("T4", "2", &Frame4);
    forms::ComboBox& Combo1 = combo("Combo1", &Frame4);

    // Page 1: the demand spectrum.
    forms::Frame& Frame2 = frame("Frame2", "Demand Spectrum");
    forms::Frame& Framex = frame("Framex", "Input", &Frame2);
    DemandSpectrumPanel demand{*this, {.inputs = &Framex, .calculate = &Frame2, .hazard = "Risk", .step = "0.02"}};
    forms::Label& Label9 = label("Label9", "Scale(A)", &Framex);
    forms::Label& Label10 = label("Label10", "T (start)", &Framex);
    forms::Label& Label13 = label("Label13", "sec", &Framex);
    forms::Label& Label11 = label("Label11", "T (end)", &Framex);
    forms::Label& Label15 = label("Label15", "sec", &Framex);
    forms::Label& Label12 = label("Label12", "Step ", &Framex);
    forms::Frame& frame2_internal = frame("frame2_internal", "Calculate Sa", &Frame2);
    forms::Grid& FG2 = grid("FG2", 1, 4, &frame2_internal);
    forms::CommandButton& Command8 = button("Command8", "Input Teff From Capacity", &frame2_internal);
    /// The chart of the demand spectrum, with its read-out Label14.
    Chart chart;

    // Page 2: the sweep and its results.
    forms::Frame& Frame3 = frame("Frame3", "Calculate");
    forms::Grid& Fg3 = grid("Fg3", 1, fg3::kCount, &Frame3);
    forms::Frame& Frame5 = frame("Frame5", "Structure Type", &Frame3);
    forms::OptionButton& Op1 = option("Op1", "A", &Frame5);
    forms::OptionButton& Op2 = option("Op2", "B", &Frame5);
    forms::OptionButton& Op3 = option("Op3", "C", &Frame5);
    forms::CommandButton& Command9 = button("Command9", "CALCULATE..!", &Frame3);
    forms::Frame& Frame6 = frame("Frame6", "Result", &Frame3);
    forms::Label& Label16 = label("Label16", "Target.Disp :", &Frame6);
    forms::TextBox& Re1 = text_box("Re1", "", &Frame6);
    forms::Label& vahed = label("vahed", "", &Frame6);
    forms::Label& Label17 = label("Label17", "SRA=", &Frame6);
    forms::TextBox& Re2 = text_box("Re2", "", &Frame6);
    forms::Label& Label18 = label("Label18", "SRV=", &Frame6);
    forms::TextBox& Re3 = text_box("Re3", "", &Frame6);
    forms::Label& Label19 = label("Label19", "Beff=", &Frame6);
    forms::TextBox& Re4 = text_box("Re4", "", &Frame6);

    // The wizard's buttons.
    forms::CommandButton& Command3 = button("Command3", "Next");
    forms::CommandButton& Command5 = button("Command5", "Back");

    // The popup menu of Fg3; never in the menu bar.
    forms::Menu& menu_file = menu("menu_file", "File");
    forms::Menu& copy = menu("copy", "Copy to Clipboard", &menu_file);

    /// Shows a popup menu at the pointer; the view sets it. Empty: nothing is shown.
    std::function<void(forms::Menu&)> PopupMenu;

    /// 0 capacity, 1 demand, 2 calculation.
    std::int16_t pageIndex = 0;
    /// 1 once Show Diagram ran on this visit of page 1.
    std::int32_t shown = 0;
    /// Sa of FG2 column 3 by period step, kept by calculare_sa.
    text::DoubleArray saAtStep;
    /// The initial slope of the last sweep.
    double slopeK0 = 0;
    /// The last plot was of a spectrum file (the chart's second routine).
    bool fileChart = false;
    /// The records of the last read; the sweep works from Fg, so they are kept only.
    std::vector<compute::CapacityPoint> capacityPoints;

    void Form_Load() override;
    void Form_Unload(int& cancel) override;

    /// Browse: chooses the capacity file and reads it.
    void Command1_Click();
    /// Start: reads the capacity file named in Text1 into Fg; a list of Sd and Sa that the
    /// capacity reader would misread is imported into the same table.
    void Command2_Click();
    /// A capacity table another reader made (built from a pushover curve, or an Sd-Sa list),
    /// taken as Start takes the file's: into capacityPoints and Fg, then Next enabled.
    void ReadCapacityTable(const compute::CapacityTable& table);
    /// The unit: g in that unit into T1, the unit's name into vahed.
    void Combo1_Click();
    /// Browse of page 1: the period and Sa spectrum file.
    void Command4_Click();
    /// Show Diagram: the short code spectrum (or the file's), then the plot.
    void Command6_Click();
    /// Calculate Sa: FG2 from the spectrum.
    void Command7_Click();
    /// Input Teff From Capacity: FG2 column 0 from Fg column 1, after the skipped rows.
    void Command8_Click();
    /// CALCULATE..!
    void Command9_Click();
    /// Next.
    void Command3_Click();
    /// Back.
    void Command5_Click();
    /// Copy to Clipboard: Fg3, its selected rows or all, as tab-separated lines.
    void copy_Click();
    void Fg3_MouseUp(int button, int shift, float x, float y);

    /// Sa at every Teff of Fg and at every period step, into FG2.
    void calculare_sa();
    /// The sweep of Fg against FG2 into Fg3 and the results.
    void calculate();
    /// Whether the capacity file gave any step; if not, says what the file lacks.
    bool has_capacity_steps();

    /// 1 "A", 2 "B", 3 "C".
    int kind() const;

    /// The demand spectrum on the chart: the code spectrum's routine (labels about every 800
    /// twips of plot), or the file's (a label at every tick).
    void plot_spectrum(bool fromFileRoutine);
    /// The strips over the chart's, in the routine that drew last.
    void redraw_strips();

private:
    void show_error_description(const std::string& description, const std::string& title);
};

}  // namespace tv::windows

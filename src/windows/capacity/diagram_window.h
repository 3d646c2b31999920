#pragma once
// Form10 ("Diagram"): the result of the capacity spectrum method drawn as five series (demand,
// reduced demand, capacity curve, bilinear form, reduced points of the sweep), with the
// read-out and the printed page "Diagram & Result".
#include "forms/page.h"
#include "windows/capacity/capacity_results.h"
#include "windows/chart/chart.h"
#include "windows/program.h"

namespace tv::windows {

class Form10 : public Window {
public:
    explicit Form10(forms::App& app);

    /// The chart, with its read-out Label1.
    Chart chart;
    forms::CommandButton& Command1 = button("Command1", "Close");
    forms::CommandButton& Command2 = button("Command2", "Print");
    forms::CommandButton& cmdSavePdf = button("cmdSavePdf", "Save PDF...");
    forms::Label& Label2 = label("Label2", "Select Device :");
    forms::ComboBox& xprinter = combo("xprinter");
    /// The page's copy of the chart: plot and strips side by side, as printed.
    forms::PictureBox& pic1 =
        picture("pic1", Chart::kValueStripWidth + 9165, Chart::kPlotHeight + Chart::kTimeStripHeight);

    /// The five series read from Form9's Fg3, and the largest values met.
    CapacityDiagram diagram;
    /// Form_Activate has run once since the load.
    bool activated = false;

    /// The first time only: the printers, fillarray, the plot.
    void Form_Activate() override;
    /// Close.
    void Command1_Click();
    /// Print: the plot and the four result lines of Form9 on the chosen printer.
    void Command2_Click();
    /// Save PDF...: the page of Print, to a PDF file, with or without a printer.
    void cmdSavePdf_Click();

    /// The five series from Form9's Fg3.
    void fillarray();
    /// Draws the series in their colours (x against y), the base line and the axes. The value
    /// range is 1.5 x the largest ordinate, the abscissa 1.5 x the largest capacity
    /// displacement. Failures raise as the arithmetic does.
    void plot(bool rescale);
    /// The strips again, readable at any length unit: the abscissa's round labels of "0.00"
    /// about every 800 twips with ticks between, the value labels clear of each other.
    void legible_axes();
    /// The plot under the window's trap: a failure shows "Error Reading File".
    void plot_or_say_so();
    /// The page that Print sends.
    forms::Page report_page();
    /// The abscissa's title in the length unit of the capacity window ("Sd (cm)").
    std::string abscissa_title() const;
    /// The series as drawn, a column of Sd and one of Sa for each; empty when nothing is drawn.
    std::vector<DataColumn> drawn_data() const;

private:
    unsigned long drawn_revision_ = 0;
    bool drawn_ = false;
};

}  // namespace tv::windows

#pragma once
// Form1: where a record comes alive. Its two component files are read into tables, trimmed,
// scaled into the project's acceleration arrays and drawn; Next steps through the records.
#include <array>
#include <cstdint>
#include <optional>

#include "windows/chart/chart.h"
#include "windows/program.h"
#include "windows/project/record_file.h"

namespace tv::windows {

class Form1 : public Window {
public:
    explicit Form1(forms::App& app);

    forms::TextBox& Xfline = text_box("Xfline", "");
    forms::TextBox& xeline = text_box("xeline", "3500");
    forms::TextBox& xstep = text_box("xstep", "0.005");
    forms::TextBox& xscale = text_box("xscale", "1.0");
    forms::TextBox& xvalue = text_box("xvalue", "");
    forms::TextBox& Text1 = text_box("Text1", "");
    forms::TextBox& Text2 = text_box("Text2", "");
    forms::OptionButton& Option1 = option("Option1", "Acceleration units : g");
    forms::OptionButton& Option2 = option("Option2", "Acceleration units : m/s^2");
    forms::Frame& Draw = frame("Draw", "Draw");
    forms::OptionButton& Option3 = option("Option3", "Acceleration X", &Draw);
    forms::OptionButton& Option4 = option("Option4", "Acceleration Y", &Draw);
    forms::CommandButton& Command2 = button("Command2", "Show Diagram");
    forms::CommandButton& xnext = button("xnext", "Next");
    forms::CommandButton& xBack = button("xBack", "Back");
    forms::CommandButton& Command1 = button("Command1", "Fourier");
    forms::CommandButton& cmdMeasures = button("cmdMeasures", "Measures");
    forms::Grid& Grid1 = grid("Grid1", 1, 2);
    forms::Grid& Grid2 = grid("Grid2", 1, 2);
    forms::Grid& Grid3 = grid("Grid3", 1, 2);
    forms::Grid& grid4 = grid("grid4", 1, 2);
    forms::Grid& grid5 = grid("grid5", 1, 2);
    forms::Grid& grid6 = grid("grid6", 1, 2);
    Chart chart;

    std::int32_t fileLoaded = 0;
    double curMaxX = 0, curMaxY = 0;
    double rawMaxX = 0, rawMaxY = 0;
    /// savedMaxX1 ... savedMaxY3 by record (index 1..3).
    std::array<double, 4> savedMaxX{}, savedMaxY{};
    /// The Scale box's text as Show Diagram last applied it, by record (index 1..3), for the report.
    std::array<std::string, 4> appliedScale{};
    double scaleFactor = 0;
    std::int32_t firstLine = 0, lastLine = 0;
    std::int32_t diagramShown = 0;

    void Form_Load() override;
    /// Reads the pending file (once per file: fileLoaded guards it).
    void Form_Activate() override;
    void Form_Unload(int& cancel) override;
    /// Show Diagram: scales the record into the acceleration arrays and plots it.
    void Command2_Click();
    void xnext_Click();
    void xBack_Click();
    void Command1_Click();
    /// Measures: opens the measures window on the record in work once its diagram is shown.
    void cmdMeasures_Click();

    /// Shows the two tables of record r and hides the others; r outside 1..3 changes nothing.
    void setenb(std::int32_t r);
    /// Reads the open file into the table of the component named by the reading state.
    void fillgrid(forms::Grid& gridX, forms::Grid& gridY);

    forms::Grid& gridX(std::int32_t record);
    forms::Grid& gridY(std::int32_t record);

    /// The file opened by Form_Activate for fillgrid.
    std::vector<std::string> openLines;
    /// The file as it was read when chosen; Form_Activate reads it itself when none is given.
    std::optional<OpenedRecord> opened;

    /// The array drawn and read: the record in work, component 'X' or 'Y'.
    text::DoubleArray& component_array(char component);

    /// "Input file parameters (r)", with the processing applied to record r when there is some.
    void set_caption_for_record();
    /// Draws the component chosen under Draw again.
    void plot_selected();
    /// X and Y of the record in work as Show Diagram read them from the tables (lines
    /// firstLine..lastLine of the scaled column), before any processing.
    std::array<std::vector<double>, 2> read_samples();

private:
    /// The component whose lines fillgrid takes: its peak is that of its samples.
    const compute::RecordComponent* openComponent = nullptr;

    void take_components(const OpenedRecord& file);
    /// Tells of a time step the X file (offered for the box) or the Y file declares, when the
    /// box holds another and nobody typed it.
    void offer_declared_step(double step, const std::string& source, bool forX);
    void store_record_settings();
    /// After Show Diagram: the processing applied to the record in work, on the record as read
    /// now; when it no longer fits, a message, and the record stays as read.
    void apply_processing_again();
};

}  // namespace tv::windows

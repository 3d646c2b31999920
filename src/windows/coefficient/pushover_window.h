#pragma once
// Form6 ("Calculate T-Effective"): a pushover curve is read and drawn, a step is chosen, the
// yield point of the two-line curve is found by a downward scan of slopes (or typed), and Ke,
// Te and the response modification factor follow. Command5 hands the results to Form8.
#include <cstdint>
#include <string>

#include "compute/coefficient/pushover_table.h"
#include "compute/import/curve_import.h"
#include "forms/page.h"
#include "text/checked.h"
#include "windows/chart/chart_data.h"
#include "windows/program.h"

namespace tv::windows {

class Form6 : public Window {
public:
    explicit Form6(forms::App& app);

    // Step 1: the file.
    forms::Label& lblStep1 =
        label("lblStep1", "Step 1 : Selecting Pushover File ( Unit Must be : Kg.cm , Kg.mm or Ton.m )");
    forms::Label& Label22 = label("Label22", "Input Unit");
    /// The unit system an exported curve is converted to: kgf·cm, kgf·mm, tonf·m.
    forms::ComboBox& cboUnits = combo("cboUnits");
    /// What the import of an exported curve read and converted; empty for the window's own layouts.
    forms::Label& lblConversion = label("lblConversion", "");
    forms::TextBox& Text1 = text_box("Text1", "");
    forms::CommandButton& Command1 = button("Command1", "Browse");
    forms::CommandButton& Command2 = button("Command2", "Start");
    forms::CommandButton& Command7 = button("Command7", "Excel table");
    forms::Frame& Frame2 = frame("Frame2", "Excel Formated");
    /// A fixed picture of a well-formed sheet, drawn once at load.
    forms::PictureBox& Picture2 = picture("Picture2", 3600, 1500, &Frame2);

    // The step table and the diagram.
    forms::Grid& Fg = grid("Fg", 1, 3);
    /// The printed area: the diagram with its two scale strips, and room at the right for the
    /// last tick's text.
    forms::PictureBox& Picture1 = picture("Picture1", 7600, 5200);
    forms::PictureBox& picDiagram = picture("picDiagram", 6400, 4500, &Picture1);
    forms::PictureBox& xBar = picture("xBar", 6800, 500, &Picture1);
    forms::PictureBox& yBar = picture("yBar", 800, 4500, &Picture1);
    forms::LineShape& Line5 = line_shape("Line5", &picDiagram);
    forms::LineShape& Line6 = line_shape("Line6", &picDiagram);
    forms::LineShape& Line3 = line_shape("Line3", &picDiagram);
    forms::Shape& Shape1 = shape("Shape1", &picDiagram, 0, 0);
    forms::Timer& Timer1 = timer("Timer1", 400);
    forms::CheckBox& Check1 = check_box("Check1", "Show Ki Line");

    // Step 3: the yield point.
    forms::Label& lblStep3 = label("lblStep3", "Step 3 : Determine Yeld Point");
    forms::Label& lblInstruction = label(
        "lblInstruction", "To Start : Select On of the steps in Step Table , then Click \"Auto Yeld Point\"");
    forms::Label& lblPointNo = label("lblPointNo", "Point.No for Cal Ki=");
    forms::TextBox& Text4 = text_box("Text4", "1");
    forms::Label& lblStartTan = label("lblStartTan", "Start Tan : ");
    forms::TextBox& txtKi = text_box("txtKi", "");
    forms::Label& lblRatio = label("lblRatio", "Ratio :");
    forms::TextBox& txtZarib = text_box("txtZarib", "0.6");
    forms::Label& Label16 = label("Label16", "Set Default");
    forms::Label& lblTolerance = label("lblTolerance", "Tolerance :");
    forms::TextBox& txtTolerance = text_box("txtTolerance", "0.01");
    forms::Label& Label17 = label("Label17", "Set Default");
    forms::Label& lblXYeld = label("lblXYeld", "X Yeld :");
    forms::TextBox& txtXC2 = text_box("txtXC2", "");
    forms::Label& lblYYeld = label("lblYYeld", "Y Yeld :");
    forms::TextBox& txtYC2 = text_box("txtYC2", "");
    forms::CheckBox& Check2 = check_box("Check2", "Lock Values");
    /// Displacement and force of the target point, as full number text.
    forms::TextBox& Text2 = text_box("Text2", "");
    forms::TextBox& Text3 = text_box("Text3", "");
    /// Area under the two lines as full number text, for the R factor.
    forms::TextBox& Text12 = text_box("Text12", "");
    forms::Label& lblCollisionIn = label("lblCollisionIn", "Collision in :");
    forms::Label& Label19 = label("Label19", "0 , 0");
    forms::Label& Label10 = label("Label10", "Current Progress : K = ");
    forms::Label& lblAlfa1 = label("lblAlfa1", "alfa1=");
    forms::TextBox& Text11 = text_box("Text11", "");
    forms::ProgressBar& ProgressBar1 = progress("ProgressBar1");
    forms::CommandButton& Command3 = button("Command3", "Auto Yeld Point");
    forms::CommandButton& Command4 = button("Command4", "Manual Yeld Point");

    // Final results.
    forms::Frame& Frame1 = frame("Frame1", "Final Results");
    forms::Label& Label11 = label("Label11", "Pushover Area : ", &Frame1);
    forms::Label& lblArea = label("lblArea", "", &Frame1);
    forms::Label& lblPArea = label("lblPArea", "Collision Area :", &Frame1);
    forms::Label& lblArea2 = label("lblArea2", "", &Frame1);
    forms::Label& Label5 = label("Label5", "K-Effective :", &Frame1);
    forms::Label& txtKE = label("txtKE", "", &Frame1);
    forms::Label& Label8 = label("Label8", "Ti (Sec) : ", &Frame1);
    forms::TextBox& txtTI = text_box("txtTI", "1", &Frame1);
    forms::Label& Label18 = label("Label18", "T-Effective :", &Frame1);
    forms::Label& txtTEF = label("txtTEF", "0", &Frame1);
    /// Ke as full number text, for computing.
    forms::TextBox& Text5 = text_box("Text5", "");
    /// The largest displacement of the curve, handed on as the displacement limit.
    forms::TextBox& Text14 = text_box("Text14", "");
    forms::CommandButton& Command5 = button("Command5", "Calculate Target Displacement");
    /// Opens the procedures side by side; on once a curve is read.
    forms::CommandButton& cmdNsp = button("cmdNsp", "Target Displacement by Method");

    // Response modification factor.
    forms::Label& lblVs = label("lblVs", "Vs :");
    forms::TextBox& Text6 = text_box("Text6", "");
    forms::Label& lblRs = label("lblRs", "Rs :");
    forms::TextBox& Text7 = text_box("Text7", "");
    forms::Label& lblRm1 = label("lblRm1", "Rm1 :");
    forms::TextBox& Text8 = text_box("Text8", "");
    forms::Label& lblRm2 = label("lblRm2", "Rm2 :");
    forms::TextBox& Text10 = text_box("Text10", "");
    forms::Label& lblRu = label("lblRu", "Ru :");
    forms::TextBox& Text9 = text_box("Text9", "");
    forms::Label& lblMiu = label("lblMiu", "miu :");
    forms::TextBox& Text13 = text_box("Text13", "");
    forms::CommandButton& Command8 = button("Command8", "Calculate R");

    // Printing.
    forms::Label& lblSelectDevice = label("lblSelectDevice", "Select Device :");
    forms::ComboBox& xprinter = combo("xprinter");
    forms::CommandButton& Command6 = button("Command6", "Print");
    forms::CommandButton& cmdSavePdf = button("cmdSavePdf", "Save PDF...");
    /// Hidden staging copy of Picture1 for the printed page.
    forms::PictureBox& pic1 = picture("pic1", 7600, 5200);

    text::Array<compute::PushoverPoint> pushoverPoints;
    std::int32_t selectedStep = 0;
    double kSelected = 0;
    double kInitial = 0;
    double manualYieldFlag = 0;
    double maxDisplacement = 0;
    double maxForce = 0;
    /// The slope of Line5 kept by a redraw while a yield point stands.
    double yieldSlope = 0;

    void Form_Load() override;
    /// Lists the printers and selects the current one.
    void Form_Activate() override;

    /// Browse: chooses a spreadsheet and reads it; a file the workbook reader would misread is
    /// imported instead.
    void Command1_Click();
    /// Start: reads the text listing named in Text1, or imports a file the listing reader would
    /// misread.
    void Command2_Click();
    void ReadPushoverText();
    void ReadPushoverWorkbook();
    /// A curve another reader made (an imported export), taken as the two readers take theirs:
    /// the same opening, step table, diagram and selection of the last step.
    void ReadPushoverTable(const compute::PushoverTable& table);
    /// Imports the curve at `path`, asking what the file leaves open; a file that cannot be read,
    /// or a question cancelled, leaves the window as it was.
    void ImportPushoverCurve(const std::string& path);
    /// A curve the import read: its name into Text1, what was converted into lblConversion, its
    /// points into the step table.
    void TakeImportedCurve(const std::string& path, const compute::CurveImport& curve);
    /// The unit system chosen in cboUnits.
    compute::UnitSystem unit_system() const;
    void Command7_Click();
    void DrawPushoverDiagram();
    /// The diagram's axis titles in the chosen units, and the curve's points as it draws them.
    std::string displacement_title() const;
    std::string force_title() const;
    std::vector<DataColumn> drawn_data() const;
    void Check1_Click();
    void Check2_Click();
    void Timer1_Timer();
    void Label16_Click();
    void Label17_Click();

    /// Row change of Fg: the step of that row becomes the target point.
    void OnStepSelected(int newRow);
    void Text4_Change();
    /// Auto Yeld Point: the downward scan of slopes.
    void Command3_Click();
    /// Manual Yeld Point: accepts the typed yield point.
    void Command4_Click();
    /// The area under the two lines for slope K, or -1.0 when the line meets no segment.
    double EvaluateSlope(double K);
    void RefreshYieldResults();
    void txtXC2_Change();
    void txtYC2_Change();
    void txtTI_Change();

    /// Calculate Target Displacement: shows Form8 and copies the results over.
    void Command5_Click();
    /// Target Displacement by Method: the comparison window, on the inputs as they stand.
    void cmdNsp_Click();
    /// Calculate R.
    void Command8_Click();
    void Text6_Change();
    void Text11_Change();

    /// Print: the diagram and the final results on the chosen printer.
    void Command6_Click();
    /// Save PDF...: the page of Print, to a PDF file, with or without a printer.
    void cmdSavePdf_Click();
    /// The page that Print sends: the staged diagram and the lines of the final results.
    forms::Page report_page();

    /// Selects a row of Fg as a user's click does: it becomes the only selected row and the
    /// current row (so RowColChange runs when the row changes).
    void select_row(int row);

private:
    void reader_opening();
    /// Puts the rows read into Fg and pushoverPoints; false (after the message) on a failure.
    bool fill_from(const compute::PushoverTable& table);
    void reader_close();
    void xy_changed();
    void show_error(const std::string& text);
    void draw_excel_sample();
};

}  // namespace tv::windows

#pragma once
// "Target Displacement by Method": the nonlinear static procedures side by side on the curve of
// Form6. The shared inputs are copied from Form6 and Form8 when the window is opened and may be
// changed here without touching those windows; the first column stays Form8's own calculation.
// A table of every method's values (the clause of each in its cell's tip) and a diagram in ADRS
// coordinates.
#include <string>
#include <vector>

#include "compute/nsp/nsp_comparison.h"
#include "forms/page.h"
#include "windows/chart/chart_data.h"
#include "windows/program.h"

namespace tv::windows {

class NspWindow : public Window {
public:
    explicit NspWindow(forms::App& app);

    // Inputs taken from the coefficient road.
    forms::Frame& fraShared = frame("fraShared", "From the coefficient windows");
    forms::Label& lblXy = label("lblXy", "X yield:", &fraShared);
    forms::TextBox& txtXy = text_box("txtXy", "", &fraShared);
    forms::Label& lblYy = label("lblYy", "Y yield:", &fraShared);
    forms::TextBox& txtYy = text_box("txtYy", "", &fraShared);
    forms::Label& lblTi = label("lblTi", "Ti (s):", &fraShared);
    forms::TextBox& txtTi = text_box("txtTi", "", &fraShared);
    forms::Label& lblTe = label("lblTe", "Te (s):", &fraShared);
    forms::TextBox& txtTe = text_box("txtTe", "", &fraShared);
    forms::Label& lblW = label("lblW", "W:", &fraShared);
    forms::TextBox& txtW = text_box("txtW", "", &fraShared);
    forms::Label& lblStories = label("lblStories", "Stories:", &fraShared);
    forms::TextBox& txtStories = text_box("txtStories", "1", &fraShared);
    forms::CommandButton& cmdTake = button("cmdTake", "Take Again", &fraShared);

    // Inputs of this window alone.
    forms::Frame& fraOwn = frame("fraOwn", "Curve, mode and demand");
    forms::Label& lblUnits = label("lblUnits", "Units (length, force):", &fraOwn);
    forms::TextBox& txtLength = text_box("txtLength", "cm", &fraOwn);
    forms::TextBox& txtForce = text_box("txtForce", "kgf", &fraOwn);
    forms::Label& lblG = label("lblG", "g (length/s\u00B2):", &fraOwn);
    forms::TextBox& txtG = text_box("txtG", "981", &fraOwn);
    forms::Label& lblGamma = label("lblGamma", "\u03931 \u03C61,roof:", &fraOwn);
    forms::TextBox& txtGamma = text_box("txtGamma", "1", &fraOwn);
    forms::Label& lblAlpha1 = label("lblAlpha1", "Modal mass ratio \u03B11:", &fraOwn);
    forms::TextBox& txtAlpha1 = text_box("txtAlpha1", "1", &fraOwn);
    /// The one demand of every method: 0 the EN 1998-1 spectrum, 1 the design spectrum.
    forms::Label& lblDemand = label("lblDemand", "Demand:", &fraOwn);
    forms::ComboBox& cboDemand = combo("cboDemand", &fraOwn);
    forms::Label& lblSpectrum = label("lblSpectrum", "EN 1998-1 spectrum (type, ground, ag in g):", &fraOwn);
    forms::ComboBox& cboType = combo("cboType", &fraOwn);
    forms::ComboBox& cboGround = combo("cboGround", &fraOwn);
    forms::TextBox& txtAg = text_box("txtAg", "0.3", &fraOwn);
    forms::Label& lblDesign = label("lblDesign", "Design spectrum (soil, hazard, A in g):", &fraOwn);
    forms::ComboBox& cboSoil = combo("cboSoil", &fraOwn);
    forms::ComboBox& cboHazard = combo("cboHazard", &fraOwn);
    forms::TextBox& txtA = text_box("txtA", "0.3", &fraOwn);

    // The settings of the methods.
    forms::Frame& fraOptions = frame("fraOptions", "Method settings");
    forms::Label& lblSite = label("lblSite", "ASCE 41 site class:", &fraOptions);
    forms::ComboBox& cboSite = combo("cboSite", &fraOptions);
    /// 0 to 2: the columns of Table 7-5; 3: C0 = Γ1 φ1,roof.
    forms::Label& lblC0 = label("lblC0", "ASCE 41 C0:", &fraOptions);
    forms::ComboBox& cboC0 = combo("cboC0", &fraOptions);
    forms::Label& lblCm = label("lblCm", "ASCE 41 Cm:", &fraOptions);
    forms::TextBox& txtCm = text_box("txtCm", "1", &fraOptions);
    forms::Label& lblAlphaPD = label("lblAlphaPD", "ASCE 41 \u03B1P-\u0394:", &fraOptions);
    forms::TextBox& txtAlphaPD = text_box("txtAlphaPD", "0", &fraOptions);
    forms::CheckBox& chkNearField = check_box("chkNearField", "ASCE 41 &near field (\u03BB = 0.2)", &fraOptions);
    forms::Label& lblCsm = label("lblCsm", "ATC-40 sweep (T0 in s, m, type):", &fraOptions);
    forms::TextBox& txtCsmT0 = text_box("txtCsmT0", "0.4358", &fraOptions);
    forms::TextBox& txtCsmM = text_box("txtCsmM", "2", &fraOptions);
    forms::ComboBox& cboCsmType = combo("cboCsmType", &fraOptions);
    forms::Label& lblBeta0 = label("lblBeta0", "FEMA 440 \u03B20 (%):", &fraOptions);
    forms::TextBox& txtBeta0 = text_box("txtBeta0", "5", &fraOptions);
    forms::CheckBox& chkIterate = check_box("chkIterate", "N2: iterate dm* on dt*", &fraOptions);

    /// Rows: the values by name; columns: the methods. The last rows hold the target
    /// displacement (or why there is none) and the method's notes.
    forms::Grid& grdMethods = grid("grdMethods", 1, 1);
    /// The iterations of the method chosen (FEMA 440 to start with), one row per pass, the
    /// headings with their units.
    forms::Label& lblIterations = label("lblIterations", "Iterations of:");
    forms::ComboBox& cboIterations = combo("cboIterations");
    forms::Grid& grdIterations = grid("grdIterations", 1, 1);
    /// The capacity curve, each method's demand and performance point, in ADRS coordinates.
    forms::PictureBox& picAdrs = picture("picAdrs", 8000, 5600);

    forms::CommandButton& cmdCalculate = button("cmdCalculate", "Calculate");
    forms::CommandButton& cmdPrint = button("cmdPrint", "Print");
    forms::CommandButton& cmdSavePdf = button("cmdSavePdf", "Save PDF...");

    /// The comparison last calculated.
    compute::nsp::NspComparison comparison;

    /// Copies the shared inputs from Form6 and Form8 as they stand, and the soil, hazard and A of
    /// the design spectrum window when it is open.
    void take_from_windows();
    /// Runs the comparison on the inputs shown and fills the table and the diagram.
    void calculate();
    /// What calculate works from.
    compute::nsp::NspInputs inputs();
    /// One page: the diagram, the inputs and every method's values.
    forms::Page report_page();

    /// Colour of a method in the diagram and its legend, 0xBBGGRR.
    static int colour(compute::nsp::Method m);

    /// The numbers the diagram draws: Sd and Sa of the capacity curve, of each method's demand
    /// and of its performance point, with their units; empty before a curve is drawn.
    std::vector<DataColumn> drawn_data() const;

private:
    void fill_table();
    void fill_iterations();
    void draw_diagram();
};

}  // namespace tv::windows

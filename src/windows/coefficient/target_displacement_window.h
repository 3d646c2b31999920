#pragma once
// Form8 ("Calculate Target Displacement"): the coefficients of the displacement coefficient
// method, the target displacement and Rmax. Form6 fills it and is read again at each
// calculation, so Form6 must stay loaded.
#include <vector>

#include "compute/coefficient/target_displacement.h"
#include "forms/page.h"
#include "windows/program.h"

namespace tv::windows {

class Form8 : public Window {
public:
    explicit Form8(forms::App& app);

    forms::Label& lblStories = label("lblStories", "Input Number of Stories:");
    forms::TextBox& Text1 = text_box("Text1", "");

    // C0 by building and load pattern; one box always on.
    forms::PictureBox& Picture2 = picture("Picture2", 3600, 1000);
    forms::CheckBox& Check1 = check_box("Check1", "Shear building, uniform load", &Picture2);
    forms::CheckBox& Check2 = check_box("Check2", "Shear building, triangular load", &Picture2);
    forms::CheckBox& Check3 = check_box("Check3", "Other buildings", &Picture2);
    forms::Label& lblC0 = label("lblC0", "C0");
    forms::TextBox& Text12 = text_box("Text12", "");

    // Cm by structural system; one box always on.
    forms::PictureBox& Picture4 = picture("Picture4", 3600, 1300);
    forms::CheckBox& Check11 = check_box("Check11", "Concrete moment frame", &Picture4);
    forms::CheckBox& Check12 = check_box("Check12", "Steel frame", &Picture4);
    forms::CheckBox& Check13 = check_box("Check13", "Concrete shear wall", &Picture4);
    forms::CheckBox& Check14 = check_box("Check14", "Other", &Picture4);
    forms::Label& lblCm = label("lblCm", "Cm");
    forms::TextBox& Text11 = text_box("Text11", "");

    // A three-way choice that no computation reads.
    forms::PictureBox& Picture3 = picture("Picture3", 3600, 1000);
    forms::CheckBox& Check4 = check_box("Check4", "Immediate Occupancy", &Picture3);
    forms::CheckBox& Check5 = check_box("Check5", "Life Safety", &Picture3);
    forms::CheckBox& Check6 = check_box("Check6", "Collapse Prevention", &Picture3);

    forms::Frame& fraSoil = frame("fraSoil", "Soil");
    forms::CheckBox& Check7 = check_box("Check7", "SOIL I", &fraSoil);
    forms::CheckBox& Check8 = check_box("Check8", "Soil II", &fraSoil);
    forms::CheckBox& Check9 = check_box("Check9", "Soil III,IV", &fraSoil);

    forms::Label& lblTe = label("lblTe", "Te :");
    forms::TextBox& Text7 = text_box("Text7", "");
    forms::Label& lblTeUnit = label("lblTeUnit", "Sec");
    forms::Label& lblSa = label("lblSa", "Sa : (for Te)");
    forms::TextBox& Text2 = text_box("Text2", "");
    forms::CommandButton& Command3 = button("Command3", "Cal");
    forms::Label& lblTs = label("lblTs", "Ts : (Soil Period)");
    forms::TextBox& Text8 = text_box("Text8", "");
    forms::Label& lblTsUnit = label("lblTsUnit", "Second");
    forms::Label& lblW = label("lblW", "W:");
    forms::TextBox& Text10 = text_box("Text10", "");
    forms::Label& lblWUnit = label("lblWUnit", "(user Unit)");
    forms::Label& lblDy = label("lblDy", "dy =");
    forms::TextBox& Text16 = text_box("Text16", "");
    forms::Label& lblDyUnit = label("lblDyUnit", "cm");
    forms::Label& lblVy = label("lblVy", "Vy =");
    forms::TextBox& Text17 = text_box("Text17", "");
    forms::Label& lblVyUnit = label("lblVyUnit", "(user Unit)");
    forms::Label& lblLimit = label("lblLimit", "\u0394d=");
    forms::TextBox& Text18 = text_box("Text18", "");
    forms::Label& lblLimitUnit = label("lblLimitUnit", "cm");
    forms::Label& lblAlphaE = label("lblAlphaE", "\u03B1e:");
    forms::TextBox& Text15 = text_box("Text15", "");
    forms::CheckBox& Check10 = check_box("Check10", "Use");

    forms::Frame& Frame1 = frame("Frame1", "Output");
    forms::Label& lblC0Out = label("lblC0Out", "C0 =", &Frame1);
    forms::TextBox& Text3 = text_box("Text3", "", &Frame1);
    forms::Label& lblC1 = label("lblC1", "C1 =", &Frame1);
    forms::TextBox& Text4 = text_box("Text4", "", &Frame1);
    forms::Label& lblC2 = label("lblC2", "C2 =", &Frame1);
    forms::TextBox& Text5 = text_box("Text5", "", &Frame1);
    forms::Label& lblC3 = label("lblC3", "C3", &Frame1);
    forms::TextBox& Text6 = text_box("Text6", "", &Frame1);
    forms::CheckBox& Check15 = check_box("Check15", " User  Input", &Frame1);
    forms::Label& lblRu = label("lblRu", "Ru=", &Frame1);
    forms::TextBox& Text13 = text_box("Text13", "", &Frame1);
    forms::Label& lblRmax = label("lblRmax", "Rmax==", &Frame1);
    forms::TextBox& Text14 = text_box("Text14", "", &Frame1);
    forms::Label& lblAlpha = label("lblAlpha", "Alpha=", &Frame1);
    forms::Label& Label18 = label("Label18", "", &Frame1);
    /// The warning of a negative post-yield slope.
    forms::Label& Label17 = label("Label17", "", &Frame1);
    forms::Label& lblTarget = label("lblTarget", "\u0394", &Frame1);
    forms::TextBox& Text9 = text_box("Text9", "", &Frame1);
    forms::Label& lblTargetUnit = label("lblTargetUnit", "cm", &Frame1);

    forms::CommandButton& Command1 = button("Command1", "Calculate");
    forms::CommandButton& Command2 = button("Command2", "Note");
    forms::CommandButton& print = button("print", "Print");
    forms::CommandButton& cmdSavePdf = button("cmdSavePdf", "Save PDF...");
    /// Hidden staging picture of the printed window image.
    forms::PictureBox& pic1 = picture("pic1", 9000, 7000);

    void Form_Load() override;

    /// A new story count: the C0 and Cm boxes are cleared, and their handlers fill both anew.
    void Text1_Change();
    void Check1_Click();
    void Check2_Click();
    void Check3_Click();
    void Check11_Click();
    void Check12_Click();
    void Check13_Click();
    void Check14_Click();

    /// Calculate.
    void Command1_Click();
    /// What Calculate works from: the boxes of this window and the fit of Form6 as they stand.
    compute::CoefficientMethodInputs coefficient_inputs();
    /// The note window.
    void Command2_Click();
    /// Cal: asks Form11 for Sa at the period of Text7.
    void Command3_Click();
    /// Opens Form11 modally for Sa at `requestedPeriod`; its "Calculate Sa" writes Text2 (Sa)
    /// and Text8 (Ts) back, both as "0.0000" texts.
    void showForm11(double requestedPeriod);
    void print_Click();
    /// Save PDF...: the page of Print, to a PDF file, with or without a printer.
    void cmdSavePdf_Click();
    /// The page that Print sends: the image of this window alone.
    forms::Page report_page();

private:
    /// The box just clicked turns the others of its group off, and itself on when all are off.
    static void group_click(forms::CheckBox& box, const std::vector<forms::CheckBox*>& group);
    void c0_lookup();
    void cm_lookup();
    std::vector<forms::CheckBox*> c0Boxes() { return {&Check1, &Check2, &Check3}; }
    std::vector<forms::CheckBox*> cmBoxes() { return {&Check11, &Check12, &Check13, &Check14}; }
};

}  // namespace tv::windows

#include "windows/coefficient/target_displacement_window.h"

#include "windows/capacity/sa_window.h"

#include <cmath>

#include "compute/coefficient/target_displacement.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"

namespace tv::windows {

using text::round_to;
using text::to_text;
using text::val;

Form8::Form8(forms::App& app) : Window(app, "Form8", "Calculate Target Displacement", 11000, 8400) {
    // The first box of each group stands on as the window is laid out.
    Check1.set_value(1);
    Check11.set_value(1);
    Check4.set_value(1);
    pic1.set_visible(false);

    Text1.Change = [this] { Text1_Change(); };
    Check1.Click = [this] { Check1_Click(); };
    Check2.Click = [this] { Check2_Click(); };
    Check3.Click = [this] { Check3_Click(); };
    Check11.Click = [this] { Check11_Click(); };
    Check12.Click = [this] { Check12_Click(); };
    Check13.Click = [this] { Check13_Click(); };
    Check14.Click = [this] { Check14_Click(); };
    for (forms::CheckBox* box : {&Check4, &Check5, &Check6})
        box->Click = [this, box] { group_click(*box, {&Check4, &Check5, &Check6}); };
    for (forms::CheckBox* box : {&Check7, &Check8, &Check9})
        box->Click = [this, box] { group_click(*box, {&Check7, &Check8, &Check9}); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    print.Click = [this] { print_Click(); };
    cmdSavePdf.Click = [this] { cmdSavePdf_Click(); };
}

void Form8::Form_Load() { Check9.set_value(1); }

void Form8::group_click(forms::CheckBox& box, const std::vector<forms::CheckBox*>& group) {
    for (forms::CheckBox* other : group)
        if (other != &box && other->value() == 1) other->set_value(0);
    for (forms::CheckBox* other : group)
        if (other != &box && other->value() != 0) return;
    box.set_value(1);
}

void Form8::c0_lookup() {
    const double n = val(Text1.text());
    const int column = Check1.checked() ? 1 : Check2.checked() ? 2 : Check3.checked() ? 3 : 0;
    const std::optional<double> c0 = compute::c0_coefficient(n, column);
    Text12.set_text(c0 ? to_text(*c0) : std::string());
}

void Form8::cm_lookup() {
    const double n = val(Text1.text());
    const int column = Check11.checked() ? 1 : Check12.checked() ? 2 : Check13.checked() ? 3 : Check14.checked() ? 4 : 0;
    if (column == 0) return;  // only between two steps of a click chain
    Text11.set_text(to_text(compute::cm_factor(n, column)));
}

void Form8::Text1_Change() {
    for (forms::CheckBox* box : {&Check1, &Check2, &Check3, &Check11, &Check12, &Check13}) box->set_value(0);
}

void Form8::Check1_Click() {
    group_click(Check1, c0Boxes());
    c0_lookup();
}
void Form8::Check2_Click() {
    group_click(Check2, c0Boxes());
    c0_lookup();
}
void Form8::Check3_Click() {
    group_click(Check3, c0Boxes());
    c0_lookup();
}
void Form8::Check11_Click() {
    group_click(Check11, cmBoxes());
    cm_lookup();
}
void Form8::Check12_Click() {
    group_click(Check12, cmBoxes());
    cm_lookup();
}
void Form8::Check13_Click() {
    group_click(Check13, cmBoxes());
    cm_lookup();
}
void Form8::Check14_Click() {
    group_click(Check14, cmBoxes());
    cm_lookup();
}

void Form8::Command1_Click() {
    if (val(Text10.text()) == 0 || val(Text11.text()) == 0 || val(Text12.text()) == 0 || val(Text16.text()) == 0 ||
        val(Text17.text()) == 0) {
        platform().message_box("Pleas Input W ,C0 , Cm, dy, Vy", forms::MsgButtons::Ok, "", forms::MsgIcon::None);
        return;
    }
    const compute::CoefficientMethodInputs in = coefficient_inputs();
    compute::CoefficientMethodResult r;
    // The boxes show what the run reached, in the order it reached them.
    auto show = [&] {
        if (std::isnan(r.Alpha)) return;
        Label17.set_caption(r.Alpha < 0 ? "Alpha < 0 . . . !!" : "");
        Label18.set_caption(to_text(round_to(r.Alpha, 2)));
        Text3.set_text(to_text(in.C0));
        if (std::isnan(r.C1)) return;
        Text13.set_text(to_text(round_to(r.R, 2)));
        Text4.set_text(to_text(round_to(r.C1, 2)));
        Text5.set_text(to_text(round_to(r.C2, 2)));
        if (std::isnan(r.C3)) return;
        if (!in.C3) Text6.set_text(to_text(round_to(r.C3, 2)));
        if (std::isnan(r.Rmax)) return;
        Text14.set_text(to_text(round_to(r.Rmax, 2)));
        Text9.set_text(to_text(round_to(r.d, 2)));
    };
    try {
        compute::coefficient_method(in, r);
    } catch (...) {
        show();
        throw;
    }
    show();
}

compute::CoefficientMethodInputs Form8::coefficient_inputs() {
    // Form6 as it stands now, which may differ from what Command5 copied.
    Form6& f6 = program().form<Form6>();
    compute::CoefficientMethodInputs in;
    in.du = val(f6.Text2.text());
    in.Vu = val(f6.Text3.text());
    in.Xy = val(f6.txtXC2.text());
    in.Ki = val(f6.txtKi.text());
    in.Vy = val(Text17.text());
    in.C0 = val(Text12.text());
    in.Sa = val(Text2.text());
    in.Te = val(Text7.text());
    in.Cm = val(Text11.text());
    in.W = val(Text10.text());
    in.a = compute::soil_constant(Check7.checked(), Check8.checked(), Check9.checked());
    if (Check15.checked()) in.C3 = val(Text6.text());
    in.displacement_limit = val(Text18.text());
    in.dy = val(Text16.text());
    in.alpha_e = val(Text15.text());
    in.use_alpha_e = Check10.checked() && in.alpha_e != 0;
    return in;
}

void Form8::Command2_Click() { program().form<Form7>().show(); }

void Form8::Command3_Click() { showForm11(text::to_double(Text7.text())); }

void Form8::showForm11(double requestedPeriod) {
    Form11& f = program().form<Form11>();
    f.requestedPeriod = requestedPeriod;
    f.writeBack = [this](const std::string& sa, const std::string& ts) {
        Text2.set_text(sa);
        Text8.set_text(ts);
    };
    f.show(true);
}

namespace {

// The window as it stands: the building and its tables, the inputs, the output, the buttons.
WindowLayout page_layout() {
    auto part = [](LayoutRow r) { return LayoutPart{std::move(r), {}}; };
    auto box = [](std::vector<LayoutRow> rows) { return LayoutPart{{}, std::move(rows)}; };
    WindowLayout l;
    l.columns.push_back(LayoutColumn{{
        LayoutGroup{"Building",
                    {part({{"lblStories"}, {"Text1", 30}}), box({{{"Check1"}}, {{"Check2"}}, {{"Check3"}}}),
                     part({{"lblC0"}, {"Text12", 44}}),
                     box({{{"Check11"}}, {{"Check12"}}, {{"Check13"}}, {{"Check14"}}}),
                     part({{"lblCm"}, {"Text11", 44}}), box({{{"Check4"}}, {{"Check5"}}, {{"Check6"}}})}},
        LayoutGroup{"fraSoil", {part({{"Check7"}, {"Check8"}, {"Check9"}})}},
    }});
    l.columns.push_back(LayoutColumn{{LayoutGroup{"Inputs",
                                                  {part({{"lblTe"}, {"Text7", 48}, {"lblTeUnit"}}),
                                                   part({{"lblSa"}, {"Text2", 48}, {"Command3", 30}}),
                                                   part({{"lblTs"}, {"Text8", 48}, {"lblTsUnit"}}),
                                                   part({{"lblW"}, {"Text10", 48}, {"lblWUnit"}}),
                                                   part({{"lblDy"}, {"Text16", 48}, {"lblDyUnit"}}),
                                                   part({{"lblVy"}, {"Text17", 48}, {"lblVyUnit"}}),
                                                   part({{"lblLimit"}, {"Text18", 48}, {"lblLimitUnit"}}),
                                                   part({{"lblAlphaE"}, {"Text15", 48}, {"Check10"}})},
                                                  true}}});
    l.columns.push_back(LayoutColumn{{LayoutGroup{"Frame1",
                                                  {part({{"lblC0Out"}, {"Text3", 44}}), part({{"lblC1"}, {"Text4", 44}}),
                                                   part({{"lblC2"}, {"Text5", 44}}),
                                                   part({{"lblC3"}, {"Text6", 44}, {"Check15"}}),
                                                   part({{"lblRu"}, {"Text13", 44}}),
                                                   part({{"lblRmax"}, {"Text14", 44}}),
                                                   part({{"lblAlpha"}, {"Label18"}}), part({{"Label17"}}),
                                                   part({{"lblTarget"}, {"Text9", 44}, {"lblTargetUnit"}})},
                                                  true}}});
    l.buttons = {{"Command2", 62}, {"print", 62}, {"cmdSavePdf", 62}};
    l.button_right = {{"Command1", 62}};
    return l;
}

}  // namespace

forms::Page Form8::report_page() {
    PageContent page;
    page.title = caption();
    page.window = this;
    page.window_layout = page_layout();
    return compose_page(page, platform());
}

void Form8::print_Click() {
    const Form6* f6 = program().if_loaded<Form6>();
    const std::string printer =
        f6 && !f6->xprinter.text().empty() ? f6->xprinter.text() : platform().current_printer();
    print_page(platform(), report_page(), printer);
}

void Form8::cmdSavePdf_Click() { save_page_as_pdf(platform(), report_page()); }

}  // namespace tv::windows

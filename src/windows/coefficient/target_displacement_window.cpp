#include "windows/coefficient/target_displacement_window.h"

#include "windows/capacity/sa_window.h"

#include <cmath>

#include "compute/coefficient/target_displacement.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/pushover_window.h"

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

forms::PrintJob Form8::report_page() {
    forms::PrintJob job;
    const Form6* f6 = program().if_loaded<Form6>();
    job.printer = f6 && !f6->xprinter.text().empty() ? f6->xprinter.text() : platform().current_printer();
    job.title = caption();
    job.form_image = this;
    return job;
}

void Form8::print_Click() {
    if (platform().printers().empty()) return;
    platform().print(report_page());
}

void Form8::cmdSavePdf_Click() { forms::save_page_as_pdf(platform(), report_page()); }

}  // namespace tv::windows

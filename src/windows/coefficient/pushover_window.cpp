#include "windows/coefficient/pushover_window.h"

#include <algorithm>
#include <set>

#include "compute/coefficient/bilinear_fit.h"
#include "compute/coefficient/effective_period.h"
#include "compute/coefficient/pushover_listing_reader.h"
#include "compute/coefficient/pushover_workbook_reader.h"
#include "compute/coefficient/response_modification.h"
#include "text/format.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/files/curve_questions.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"

namespace tv::windows {

using text::format;
using text::round_to;
using text::to_text;
using text::val;

namespace {

const char* kProgress = "Current Progress , K=";

// Tick length and gaps of the scale strips, in twips.
constexpr double kTick = 90;
constexpr double kGap = 30;

}  // namespace

Form6::Form6(forms::App& app) : Window(app, "Form6", "Calculate T-Effective", 15000, 10200) {
    // The strips sit below and left of the diagram, which they measure.
    picDiagram.set_left(800);
    picDiagram.set_top(100);
    xBar.set_left(800);
    xBar.set_top(4600);
    yBar.set_left(0);
    yBar.set_top(100);
    Line5.color = 0xFF0000;
    Line6.color = 0xFF0000;
    Line3.color = 0x008000;
    Shape1.color = 0x0000FF;
    for (forms::Control* c : std::initializer_list<forms::Control*>{&Line5, &Line6, &Line3, &Shape1, &ProgressBar1, &pic1})
        c->set_visible(false);
    Timer1.set_enabled(false);
    Command5.set_enabled(false);
    Command8.set_enabled(false);

    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command7.Click = [this] { Command7_Click(); };
    Check1.Click = [this] { Check1_Click(); };
    Check2.Click = [this] { Check2_Click(); };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    Label16.Click = [this] { Label16_Click(); };
    Label17.Click = [this] { Label17_Click(); };
    Fg.RowColChange = [this] { OnStepSelected(Fg.row()); };
    Text4.Change = [this] { Text4_Change(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    txtXC2.Change = [this] { txtXC2_Change(); };
    txtYC2.Change = [this] { txtYC2_Change(); };
    txtTI.Change = [this] { txtTI_Change(); };
    Command5.Click = [this] { Command5_Click(); };
    Command8.Click = [this] { Command8_Click(); };
    cmdNsp.Click = [this] { cmdNsp_Click(); };
    Text6.Change = [this] { Text6_Change(); };
    Text11.Change = [this] { Text11_Change(); };
    Command6.Click = [this] { Command6_Click(); };
    cmdSavePdf.Click = [this] { cmdSavePdf_Click(); };

    pushoverPoints.redim(0);
    draw_excel_sample();
}

void Form6::Form_Load() {
    Frame2.set_visible(false);
    Fg.set_text(0, 0, "Step");
    Fg.set_text(0, 1, "Displacement");
    Fg.set_text(0, 2, "Base Force");
    Fg.set_col_width(0, 500);
    Fg.set_col_width(1, 1000);
    Check1.set_enabled(false);
    for (auto system : {compute::UnitSystem::kgf_cm, compute::UnitSystem::kgf_mm, compute::UnitSystem::tonf_m})
        cboUnits.add_item(compute::unit_system_name(system));
    cboUnits.set_list_index(0);
    cmdNsp.set_enabled(false);
}

void Form6::Form_Activate() { fill_printer_list(xprinter, platform()); }

void Form6::show_error(const std::string& message) {
    platform().message_box(message, forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
}

// A picture of the sheet layout the reader expects, drawn once.
void Form6::draw_excel_sample() {
    const char* rows[][3] = {{"Step", "Displacement", "Base Force"}, {"0", "0", "0"}, {"1", "0.25", "1500"},
                             {"2", "0.5", "2600"}, {"...", "...", "..."}};
    const double col[] = {100, 900, 2300, 3500};
    const double h = 280;
    for (int r = 0; r <= 5; ++r) Picture2.line(col[0], 50 + r * h, col[3], 50 + r * h);
    for (double x : col) Picture2.line(x, 50, x, 50 + 5 * h);
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 3; ++c) {
            Picture2.set_current_x(col[c] + 60);
            Picture2.set_current_y(50 + r * h + 40);
            Picture2.print(rows[r][c]);
        }
}

// --- Reading -------------------------------------------------------------------------------

void Form6::Command1_Click() {
    txtXC2.set_text("");
    txtYC2.set_text("");
    Check1.set_enabled(false);
    Frame2.set_visible(false);
    forms::FileDialogRequest request;
    request.filter = "*.xls";
    request.title = "Pushover curve workbook";
    std::optional<std::string> name = platform().file_dialog(request);
    if (!name) return;  // cancel ends the handler; the clearing above stays
    if (!compute::pushover_file_has_own_layout(*name, true)) {
        ImportPushoverCurve(*name);
        return;
    }
    Text1.set_text(*name);
    ReadPushoverWorkbook();
}

void Form6::Command2_Click() {
    if (!compute::pushover_file_has_own_layout(Text1.text(), false)) {
        ImportPushoverCurve(Text1.text());
        return;
    }
    ReadPushoverText();
}

compute::UnitSystem Form6::unit_system() const {
    switch (cboUnits.list_index()) {
        case 1: return compute::UnitSystem::kgf_mm;
        case 2: return compute::UnitSystem::tonf_m;
        default: return compute::UnitSystem::kgf_cm;
    }
}

std::string Form6::displacement_title() const {
    return "Roof displacement (" + compute::unit_system_length(unit_system()) + ")";
}

std::string Form6::force_title() const { return "Base force (" + compute::unit_system_force(unit_system()) + ")"; }

std::vector<DataColumn> Form6::drawn_data() const {
    DataColumn d{displacement_title(), {}}, v{force_title(), {}};
    const long last = pushoverPoints.ubound();
    // One point draws nothing.
    for (long i = 0; last >= 1 && i <= last; ++i) {
        d.values.push_back(pushoverPoints(i).Displacement);
        v.values.push_back(pushoverPoints(i).BaseForce);
    }
    if (d.values.empty()) return {};
    return {d, v};
}

void Form6::ImportPushoverCurve(const std::string& path) {
    compute::CurveImportOptions options;
    options.system = unit_system();
    const auto curve = import_curve_asking(platform(), path, compute::CurveKind::pushover, options);
    if (curve) TakeImportedCurve(path, *curve);
}

void Form6::TakeImportedCurve(const std::string& path, const compute::CurveImport& curve) {
    Text1.set_text(path);
    lblConversion.set_caption(curve_facts_line(curve));
    ReadPushoverTable(compute::pushover_table_from_curve(curve.points));
}

void Form6::reader_opening() {
    Line5.set_visible(false);
    Line6.set_visible(false);
    Fg.set_redraw(false);
    Fg.set_rows(1);
    pushoverPoints.redim(0);
}

bool Form6::fill_from(const compute::PushoverTable& table) {
    pushoverPoints = table.points;
    int n = 0;
    for (const compute::PushoverRow& row : table.rows) {
        Fg.set_rows(n + 2);
        Fg.set_text(n + 1, 0, row.step_text);
        Fg.set_text(n + 1, 1, row.displacement_text);
        Fg.set_text(n + 1, 2, row.force_text);
        ++n;
    }
    if (table.ok()) return true;
    Fg.set_redraw(true);
    platform().message_box_detailed("Error Reading Pushover file!", compute::failure_detail(table, Text1.text()),
                                    forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
    return false;
}

void Form6::reader_close() {
    Fg.set_redraw(true);
    cmdNsp.set_enabled(true);
    platform().do_events();
    DrawPushoverDiagram();
    select_row(Fg.rows() - 1);
}

void Form6::ReadPushoverWorkbook() {
    lblConversion.set_caption("");
    reader_opening();
    if (!fill_from(compute::read_pushover_workbook(Text1.text()))) return;
    reader_close();
}

void Form6::ReadPushoverText() {
    lblConversion.set_caption("");
    reader_opening();
    if (!fill_from(compute::read_pushover_listing(Text1.text()))) return;
    reader_close();
}

void Form6::ReadPushoverTable(const compute::PushoverTable& table) {
    reader_opening();
    if (!fill_from(table)) return;
    reader_close();
}

void Form6::select_row(int row) {
    const int before = Fg.row();
    Fg.set_selected_rows(row >= Fg.fixed_rows() ? std::set<int>{row} : std::set<int>{});
    Fg.set_row(row);
    if (Fg.row() == before) OnStepSelected(row);  // no row change, no event: run it all the same
}

void Form6::Command7_Click() {
    Frame2.set_visible(!Frame2.visible());
    Text4.set_enabled(!Frame2.visible());
}

// --- Diagram -------------------------------------------------------------------------------

void Form6::DrawPushoverDiagram() {
    try {
        if (val(txtXC2.text()) != 0 && val(txtYC2.text()) != 0) {
            manualYieldFlag = 1.0;
            yieldSlope = text::div(Line5.y2(), Line5.x2());
        } else {
            manualYieldFlag = 0;
            txtKi.set_text(to_text(round_to(kInitial, 3)));
        }
        maxDisplacement = 0;
        maxForce = 0;
        const long last = pushoverPoints.ubound();
        for (long i = 0; i <= last; ++i) {
            if (pushoverPoints(i).Displacement > maxDisplacement) maxDisplacement = pushoverPoints(i).Displacement;
            if (pushoverPoints(i).BaseForce > maxForce) maxForce = pushoverPoints(i).BaseForce;
        }
        picDiagram.cls();
        picDiagram.scale(0, maxForce * 1.7, maxDisplacement * 1.2, 0);
        Shape1.set_size(static_cast<float>(maxDisplacement * 1.2 / 60), static_cast<float>(maxForce * 1.7 / 45));
        for (long i = 1; i <= last; ++i) {
            const compute::PushoverPoint& a = pushoverPoints(i - 1);
            const compute::PushoverPoint& b = pushoverPoints(i);
            picDiagram.line(a.Displacement, a.BaseForce, b.Displacement, b.BaseForce);
        }
        picDiagram.refresh();

        xBar.cls();
        const double xStep = round_to(maxDisplacement * 1.5, 3) / 10;
        const double xEnd = picDiagram.scale_left() + picDiagram.scale_width();
        // A zero step would never end the loop.
        if (!(xStep > 0)) text::raise(text::kInvalidCall);
        for (double v = 0; v <= xEnd; v += xStep) {
            const double x = picDiagram.x_to_twips(v) + picDiagram.left() - xBar.left();
            xBar.line(x, 0, x, kTick);
            const std::string s = format(v, "0.000");
            xBar.set_current_x(x - xBar.text_width(s) / 2);
            xBar.set_current_y(kTick + kGap);
            xBar.print(s);
        }
        xBar.refresh();

        yBar.cls();
        const double yStep = maxForce * 1.7 / 10;
        const double yEnd = maxForce * 1.7;
        if (!(yStep > 0)) text::raise(text::kInvalidCall);
        for (double v = 0; v <= yEnd; v += yStep) {
            const double y = picDiagram.y_to_twips(v) + picDiagram.top() - yBar.top();
            yBar.line(yBar.width() - kTick, y, yBar.width(), y);
            const std::string s = format(v, "0");
            yBar.set_current_x(yBar.width() - kTick - kGap - yBar.text_width(s));
            yBar.set_current_y(y - yBar.text_height() / 2);
            yBar.print(s);
        }
        yBar.refresh();
        Text14.set_text(to_text(maxDisplacement));
    } catch (const text::RuntimeError&) {
        // The drawing stays as far as it got and the caller goes on.
        show_error("Error Drawing Pushover Diagram!");
        platform().action_goes_on();
    }
}

void Form6::Check1_Click() {
    if (Check1.value() == 1) {
        const double Y2 = maxForce * 1.5;
        const double X2 = text::div(Y2, kInitial);
        Line3.set(0, 0, static_cast<float>(X2), static_cast<float>(Y2));
        picDiagram.line(0, 0, X2, Y2, Line3.color);
        Line3.set_visible(true);
    } else {
        Line3.set_visible(false);
    }
}

void Form6::Timer1_Timer() { Shape1.set_visible(!Shape1.visible()); }

void Form6::Check2_Click() {
    const bool locked = Check2.value() == 1;
    txtXC2.set_enabled(!locked);
    txtYC2.set_enabled(!locked);
}

void Form6::Label16_Click() { txtZarib.set_text("0.6"); }
void Form6::Label17_Click() { txtTolerance.set_text("0.01"); }

// --- Yield point ---------------------------------------------------------------------------

void Form6::OnStepSelected(int newRow) {
    // A row that cannot be used (the heading, the origin) ends here silently.
    try {
        const std::string step = Fg.text(newRow, 0);
        const std::string displacement = Fg.text(newRow, 1);
        const std::string force = Fg.text(newRow, 2);
        Shape1.set_left(static_cast<float>(text::to_double(displacement) - Shape1.width() / 2));
        Shape1.set_top(static_cast<float>(text::to_double(force) + Shape1.height() / 2));
        kSelected = text::div(val(force), val(displacement));
        selectedStep = text::to_int32(val(step));
        Shape1.set_visible(true);
        Timer1.set_enabled(true);
        Text4.set_text("1");
        kInitial = compute::initial_stiffness(pushoverPoints, val(Text4.text()));
        txtKi.set_text(to_text(round_to(kInitial, 3)));
        Label10.set_caption(kProgress + format(kInitial, "0.000"));
        Check1.set_enabled(true);
    } catch (const text::RuntimeError&) {
    }
}

void Form6::Text4_Change() {
    kInitial = compute::initial_stiffness(pushoverPoints, val(Text4.text()));
    txtKi.set_text(to_text(round_to(kInitial, 3)));
    Label10.set_caption(kProgress + format(kInitial, "0.000"));
    Check1.set_enabled(true);
}

void Form6::Command3_Click() {
    auto write_target = [this] {
        const compute::PushoverPoint& target = pushoverPoints(selectedStep);
        Text2.set_text(to_text(target.Displacement));
        Text3.set_text(to_text(target.BaseForce));
    };
    // What the scan reads must not change under it.
    const std::initializer_list<forms::Control*> inputs = {&txtTolerance, &txtZarib, &txtKi, &txtTI, &Text4,
                                                            &Label16,      &Label17,  &Check1, &Command4};
    write_target();
    for (forms::Control* c : inputs) c->set_enabled(false);
    txtXC2.set_text("");
    txtYC2.set_text("");
    manualYieldFlag = 0;
    kInitial = compute::initial_stiffness(pushoverPoints, val(Text4.text()));

    bool solved = false;
    bool failed = false;
    try {
        ProgressBar1.set_visible(true);
        platform().do_events();
        const int selected = Fg.selected_row_count();
        // These two leave the window half disabled until the next search or read.
        if (selected == 0) {
            show_error("No Step Selected , Please select one Step !");
            return;
        }
        if (selected >= 2) {
            show_error("More than one step Selected , Please select one Step !");
            return;
        }
        Command3.set_enabled(false);
        const double A = compute::pushover_area(pushoverPoints, selectedStep);
        lblArea.set_caption(format(A, "0.000"));
        const double D = compute::slope_step(kInitial);
        const compute::StartSlope start = compute::start_slope(pushoverPoints, selectedStep, kSelected, kInitial);
        kInitial = start.k_initial;
        if (start.point != 0) Text4.set_text(to_text(static_cast<std::int64_t>(start.point)));
        ProgressBar1.set_max(compute::scan_progress_maximum(kInitial, kSelected, D));
        const double last = kSelected;
        const double step = -D;
        for (double K = kInitial; K >= last; K += step) {
            Label10.set_caption(kProgress + format(K, "0.000"));
            ProgressBar1.set_value(static_cast<float>(text::int_div(kInitial - K, D)));
            const double B = EvaluateSlope(K);
            lblArea2.set_caption(format(B, "0.000"));
            if (B != -1.0) {
                const double tol = val(txtTolerance.text());
                if (compute::area_matches(A, B, tol)) {
                    RefreshYieldResults();
                    solved = true;
                    break;
                }
            }
            platform().do_events();
        }
    } catch (const text::RuntimeError&) {
        failed = true;
    }
    // A failure abandons the scan unsolved, so it brings both messages, in this order.
    if (!solved) show_error("Equation Could Not Be Solved !");
    if (failed) show_error("Error in determining X & Y Yeld !");

    Command3.set_enabled(true);
    ProgressBar1.set_value(0);
    ProgressBar1.set_visible(false);
    Command5.set_enabled(true);
    write_target();
    for (forms::Control* c : inputs) c->set_enabled(true);
    if (!Command8.enabled()) Command8.set_enabled(true);
}

double Form6::EvaluateSlope(double K) {
    const compute::Crossing c = compute::evaluate_crossing(pushoverPoints, selectedStep, K);
    Label19.set_caption(format(c.x, "0.000") + " , " + format(c.y, "0.000"));
    if (!c.found) return -1.0;
    const double Z = val(txtZarib.text());
    const compute::YieldPoint yp = compute::yield_from_crossing(c.y, K, Z);
    const double B = compute::bilinear_area(pushoverPoints, selectedStep, yp.Xy, yp.Yy);
    txtXC2.set_text(format(yp.Xy, "0.0000"));
    txtYC2.set_text(format(yp.Yy, "0.0000"));
    RefreshYieldResults();
    return B;
}

void Form6::RefreshYieldResults() {
    try {
        const double X = val(txtXC2.text());
        const double Y = val(txtYC2.text());
        Line5.set(0, 0, static_cast<float>(X), static_cast<float>(Y));
        const compute::PushoverPoint& target = pushoverPoints(selectedStep);
        Line6.set(static_cast<float>(X), static_cast<float>(Y), static_cast<float>(target.Displacement),
                  static_cast<float>(target.BaseForce));
        Line5.set_visible(true);
        Line6.set_visible(true);
        // From here the yield point is read strictly: a box that holds no number is a failure.
        const double Xy = text::to_double(txtXC2.text());
        const double Yy = text::to_double(txtYC2.text());
        const double area = compute::bilinear_area(pushoverPoints, selectedStep, Xy, Yy);
        lblArea2.set_caption(format(area, "0.000"));
        Text12.set_text(to_text(area));
        if (manualYieldFlag == 1.0 && !Command8.enabled()) Command8.set_enabled(true);
        const double Ke = compute::effective_stiffness(Xy, Yy);
        txtKE.set_caption(format(Ke, "0.000"));
        const double Te = compute::effective_period(val(txtTI.text()), kInitial, Ke);
        txtKi.set_text(to_text(round_to(kInitial, 3)));
        Label10.set_caption(kProgress + format(kInitial, "0.000"));
        txtTEF.set_caption(format(Te, "0.000"));
        Text5.set_text(to_text(text::round15(Ke)));
    } catch (const text::RuntimeError& e) {
        show_error(e.description());
    }
}

void Form6::xy_changed() {
    const double X = val(txtXC2.text());
    const double Y = val(txtYC2.text());
    if (X == 0 || Y == 0) return;
    const double Xt = val(Text2.text());
    const double Yt = val(Text3.text());
    Text11.set_text(to_text(round_to(compute::post_yield_ratio(X, Y, Xt, Yt), 2)));
    RefreshYieldResults();
}

void Form6::txtXC2_Change() { xy_changed(); }
void Form6::txtYC2_Change() { xy_changed(); }

void Form6::txtTI_Change() {
    const double k = val(Text5.text());
    if (k != 0) {
        const double Te = compute::effective_period(val(txtTI.text()), kInitial, k);
        txtTEF.set_caption(format(Te, "0.000"));
    }
    Text10.set_text("");
    Text9.set_text("");
}

void Form6::Command4_Click() {
    Command5.set_enabled(true);
    Check1.set_enabled(true);
    manualYieldFlag = 1.0;
    RefreshYieldResults();
}

// --- Hand-over, R factor, printing -----------------------------------------------------------

void Form6::cmdNsp_Click() {
    NspWindow& f = program().form<NspWindow>();
    f.take_from_windows();
    f.calculate();
    f.show();
}

void Form6::Command5_Click() {
    Form8& f = program().form<Form8>();
    f.show();
    f.Text7.set_text(txtTEF.caption());
    // Only what is there goes over, to two decimals.
    auto copy = [](const forms::TextBox& from, forms::TextBox& to) {
        const double v = val(from.text());
        if (v != 0) to.set_text(to_text(round_to(v, 2)));
    };
    copy(txtXC2, f.Text16);
    copy(Text11, f.Text15);
    copy(txtYC2, f.Text17);
    copy(Text14, f.Text18);
}

void Form6::Command8_Click() {
    compute::ResponseModificationInputs in;
    in.Vs = val(Text6.text());
    in.T = val(txtTI.text());
    in.du = val(Text2.text());
    in.Xy = val(txtXC2.text());
    in.Yy = val(txtYC2.text());
    in.A = val(Text12.text());
    in.Ke = val(Text5.text());
    const std::optional<compute::ResponseModification> r = compute::response_modification(in);
    if (!r) {
        show_error("Error in Inputs!");
        return;
    }
    Text7.set_text(to_text(round_to(r->Rs, 1)));
    Text8.set_text(to_text(round_to(r->Rm1, 1)));
    Text10.set_text(to_text(round_to(r->Rm2, 1)));
    Text9.set_text(to_text(round_to(r->Ru, 1)));
    Text13.set_text(to_text(round_to(r->miu, 1)));
}

// A new input makes the results that depend on it stale.
void Form6::Text6_Change() {
    Text9.set_text("");
    Text7.set_text("");
}

void Form6::Text11_Change() {
    Text9.set_text("");
    Text8.set_text("");
}

forms::Page Form6::report_page() {
    // The staging copy of Picture1: the diagram, its strips and the lines laid over it.
    pic1.cls();
    auto copy = [this](const forms::PictureBox& from) {
        for (const forms::DrawOp& op : from.ops()) {
            const double x1 = op.x1 + from.left(), y1 = op.y1 + from.top();
            switch (op.kind) {
                case forms::DrawOp::Kind::Line:
                    pic1.line(x1, y1, op.x2 + from.left(), op.y2 + from.top(), op.color);
                    break;
                case forms::DrawOp::Kind::Point: pic1.pset(x1, y1, op.color); break;
                case forms::DrawOp::Kind::Text:
                    pic1.set_current_x(x1);
                    pic1.set_current_y(y1);
                    pic1.print(op.text);
                    break;
            }
        }
    };
    copy(picDiagram);
    copy(xBar);
    copy(yBar);
    for (const forms::LineShape* l : {&Line5, &Line6, &Line3}) {
        if (!l->visible()) continue;
        try {
            pic1.line(picDiagram.x_to_twips(l->x1()) + picDiagram.left(), picDiagram.y_to_twips(l->y1()) + picDiagram.top(),
                      picDiagram.x_to_twips(l->x2()) + picDiagram.left(), picDiagram.y_to_twips(l->y2()) + picDiagram.top(),
                      l->color);
        } catch (const text::RuntimeError&) {
            // a diagram without a scale shows no lines either
        }
    }

    PageContent page;
    page.title = caption();
    page.picture = &pic1;
    page.font = "Tahoma";
    page.lines = {Frame1.caption(),
                  Label11.caption() + " " + lblArea.caption(),
                  lblPArea.caption() + " " + lblArea2.caption(),
                  Label5.caption() + " " + txtKE.caption(),
                  Label8.caption() + " " + txtTI.text(),
                  Label18.caption() + " " + txtTEF.caption()};
    return compose_page(page, platform());
}

void Form6::Command6_Click() { print_page(platform(), report_page(), xprinter.text()); }

void Form6::cmdSavePdf_Click() { save_page_as_pdf(platform(), report_page()); }

}  // namespace tv::windows

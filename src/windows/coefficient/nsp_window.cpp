#include "windows/coefficient/nsp_window.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "forms/platform.h"
#include "text/number_text.h"
#include "windows/coefficient/nsp_inputs.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"

namespace tv::windows {

namespace nsp = compute::nsp;
using text::val;

namespace {

using nsp::six_digits;

std::string with_unit(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " (" + unit + ")";
}

std::string target_text(const nsp::MethodColumn& m) {
    return m.target ? six_digits(*m.target) + " " + m.target_unit : "none: " + m.no_result;
}

// A round step (1, 2 or 5 times a power of ten) giving about five labels up to `top`.
double round_step(double top) {
    const double raw = top / 5;
    const double p = std::pow(10.0, std::floor(std::log10(raw)));
    for (double k : {1.0, 2.0, 5.0})
        if (k * p >= raw) return k * p;
    return 10 * p;
}

// The part of the segment a-b inside [0, w] x [0, h]; false when none (Liang-Barsky).
bool clip(double& x1, double& y1, double& x2, double& y2, double w, double h) {
    double t0 = 0, t1 = 1;
    const double dx = x2 - x1, dy = y2 - y1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1, w - x1, y1, h - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0) t0 = std::max(t0, t);
        else t1 = std::min(t1, t);
    }
    if (t0 > t1) return false;
    const double ax = x1 + t0 * dx, ay = y1 + t0 * dy;
    x2 = x1 + t1 * dx;
    y2 = y1 + t1 * dy;
    x1 = ax;
    y1 = ay;
    return true;
}

// The legend's short names; the table's headings give the full titles.
std::string legend_name(nsp::Method m) {
    switch (m) {
        case nsp::Method::WindowCoefficient: return "Coefficient method";
        case nsp::Method::Asce41: return "ASCE 41-17";
        case nsp::Method::Atc40: return "ATC-40";
        case nsp::Method::Fema440: return "FEMA 440";
        case nsp::Method::Ec8N2: return "EC8 N2";
    }
    return {};
}

bool finite(const nsp::AdrsPoint& p) { return std::isfinite(p.Sd) && std::isfinite(p.Sa); }

// The methods that list iterations, in the order of the iterations' list.
constexpr nsp::Method kIterating[] = {nsp::Method::Fema440, nsp::Method::Atc40, nsp::Method::Ec8N2};

}  // namespace

NspWindow::NspWindow(forms::App& app) : Window(app, "frmNsp", "Target Displacement by Method", 15000, 10500) {
    for (const char* t : {"1", "2"}) cboType.add_item(t);
    for (const char* g : {"A", "B", "C", "D", "E"}) cboGround.add_item(g);
    for (const char* s : {"A", "B", "C", "D", "E", "F"}) cboSite.add_item(s);
    for (const char* d : {"EN 1998-1 elastic spectrum", "Design spectrum"}) cboDemand.add_item(d);
    for (const char* s : {"I", "II", "III", "IV"}) cboSoil.add_item(s);
    for (const char* h : {"Low", "Moderate", "High", "Very High"}) cboHazard.add_item(h);
    for (const char* c : {"Table 7-5, shear building, triangular load", "Table 7-5, shear building, uniform load",
                          "Table 7-5, other buildings", "\u03931 \u03C61,roof"})
        cboC0.add_item(c);
    for (const char* t : {"A", "B", "C"}) cboCsmType.add_item(t);
    for (nsp::Method m : kIterating) cboIterations.add_item(legend_name(m));
    cboType.set_list_index(0);
    cboGround.set_list_index(1);
    cboSite.set_list_index(3);
    cboDemand.set_list_index(0);
    cboSoil.set_list_index(1);
    cboHazard.set_list_index(2);
    cboC0.set_list_index(2);
    cboCsmType.set_list_index(0);
    cboIterations.set_list_index(0);
    grdIterations.set_fixed_rows(1);
    // A hazard puts its default scale into the box, as in the design spectrum window.
    cboHazard.Click = [this] {
        if (cboHazard.list_index() >= 0) txtA.set_text(text::to_text(compute::default_scale(compute::Hazard(cboHazard.list_index()))));
    };
    cboIterations.Click = [this] { fill_iterations(); };
    // Only the chosen spectrum's boxes can be typed in.
    cboDemand.Click = [this] {
        const bool design = cboDemand.list_index() == 1;
        for (forms::Control* c : std::initializer_list<forms::Control*>{&cboType, &cboGround, &txtAg})
            c->set_enabled(!design);
        for (forms::Control* c : std::initializer_list<forms::Control*>{&cboSoil, &cboHazard, &txtA})
            c->set_enabled(design);
    };
    cboDemand.Click();
    picAdrs.font_size = 8;
    grdMethods.set_fixed_rows(1);

    cmdTake.Click = [this] {
        take_from_windows();
        calculate();
    };
    cmdCalculate.Click = [this] { calculate(); };
    cmdPrint.Click = [this] {
        const Form6* f6 = program().if_loaded<Form6>();
        const std::string printer =
            f6 && !f6->xprinter.text().empty() ? f6->xprinter.text() : platform().current_printer();
        print_page(platform(), report_page(), printer);
    };
    cmdSavePdf.Click = [this] { save_page_as_pdf(platform(), report_page()); };
}

void NspWindow::take_from_windows() {
    if (const Form6* f6 = program().if_loaded<Form6>()) {
        txtXy.set_text(f6->txtXC2.text());
        txtYy.set_text(f6->txtYC2.text());
        txtTi.set_text(f6->txtTI.text());
        txtTe.set_text(f6->txtTEF.caption());
    }
    if (const Form8* f8 = program().if_loaded<Form8>()) {
        txtW.set_text(f8->Text10.text());
        if (!f8->Text1.text().empty()) txtStories.set_text(f8->Text1.text());
    }
    if (const Form2* f2 = program().if_loaded<Form2>()) {
        cboSoil.set_list_index(static_cast<int>(f2->soil()));
        cboHazard.set_list_index(static_cast<int>(f2->hazard()));
        txtA.set_text(f2->Text1.text());
    }
}

nsp::NspInputs NspWindow::inputs() {
    nsp::NspInputs in = nsp_inputs(program());
    const double Xy = val(txtXy.text()), Yy = val(txtYy.text());
    in.yield = Xy != 0 && Yy != 0 ? std::optional<nsp::CurvePoint>(nsp::CurvePoint{Xy, Yy}) : std::nullopt;
    in.Ti = val(txtTi.text());
    in.Te = val(txtTe.text());
    in.W = val(txtW.text());
    in.length_unit = txtLength.text();
    in.force_unit = txtForce.text();
    in.g = val(txtG.text());
    in.gamma_phi = val(txtGamma.text());
    in.alpha1 = val(txtAlpha1.text());
    in.beta0 = val(txtBeta0.text());
    in.n2_iterate = chkIterate.checked();
    in.asce41.stories = val(txtStories.text());
    if (cboSite.list_index() >= 0) in.asce41.site = nsp::SiteClass(cboSite.list_index());
    const int c0 = cboC0.list_index();
    in.asce41.c0_from_mode = c0 == 3;
    if (c0 >= 0 && c0 < 3) in.asce41.c0_column = c0 + 1;
    in.asce41.Cm = val(txtCm.text());
    in.asce41.alpha_p_delta = val(txtAlphaPD.text());
    in.asce41.near_field = chkNearField.checked();
    in.csm.T0 = val(txtCsmT0.text());
    in.csm.m = val(txtCsmM.text());
    in.csm.kind = cboCsmType.list_index() + 1;
    std::optional<nsp::Demand> demand;
    if (cboDemand.list_index() == 1) {
        if (cboSoil.list_index() >= 0 && cboHazard.list_index() >= 0)
            demand = nsp::design_demand(compute::Soil(cboSoil.list_index()), compute::Hazard(cboHazard.list_index()),
                                        val(txtA.text()));
    } else {
        demand = nsp::ec8_demand({cboType.list_index() + 1, static_cast<char>('A' + cboGround.list_index()),
                                  val(txtAg.text()), 5});
    }
    if (demand) in.demand = *demand;
    return in;
}

void NspWindow::calculate() {
    comparison = nsp::compare_procedures(inputs());
    fill_table();
    fill_iterations();
    draw_diagram();
}

void NspWindow::fill_iterations() {
    const int chosen = cboIterations.list_index();
    const nsp::MethodColumn* column = nullptr;
    for (const nsp::MethodColumn& m : comparison.columns)
        if (chosen >= 0 && chosen < static_cast<int>(std::size(kIterating)) && m.method == kIterating[chosen]) column = &m;
    grdIterations.set_redraw(false);
    grdIterations.clear();
    if (!column || column->iterations.headings.empty()) {
        grdIterations.set_rows(1);
        grdIterations.set_cols(1);
        grdIterations.set_redraw(true);
        return;
    }
    const nsp::IterationTable& t = column->iterations;
    grdIterations.set_rows(static_cast<int>(t.rows.size()) + 1);
    grdIterations.set_cols(static_cast<int>(t.headings.size()));
    for (std::size_t c = 0; c < t.headings.size(); ++c) {
        const int col = static_cast<int>(c);
        grdIterations.set_text(0, col, with_unit(t.headings[c], c < t.units.size() ? t.units[c] : ""));
        grdIterations.set_col_width(col, 1300);
        for (std::size_t r = 0; r < t.rows.size(); ++r)
            if (c < t.rows[r].size() && std::isfinite(t.rows[r][c]))
                grdIterations.set_text(static_cast<int>(r) + 1, col, six_digits(t.rows[r][c]));
    }
    grdIterations.set_redraw(true);
}

void NspWindow::fill_table() {
    const auto& columns = comparison.columns;
    // One row per name and unit, in the order first met; a method leaves blank what it has not.
    std::vector<std::string> keys;
    std::map<std::string, int> row_of;
    for (const nsp::MethodColumn& m : columns)
        for (const nsp::NamedValue& v : m.values) {
            const std::string key = with_unit(v.name, v.unit);
            if (row_of.emplace(key, static_cast<int>(keys.size()) + 1).second) keys.push_back(key);
        }
    const int target_row = static_cast<int>(keys.size()) + 1, notes_row = target_row + 1;
    grdMethods.set_redraw(false);
    grdMethods.clear();
    grdMethods.set_rows(notes_row + 1);
    grdMethods.set_cols(static_cast<int>(columns.size()) + 1);
    grdMethods.set_text(0, 0, "Value");
    grdMethods.set_col_width(0, 1800);
    for (std::size_t i = 0; i < keys.size(); ++i) grdMethods.set_text(static_cast<int>(i) + 1, 0, keys[i]);
    grdMethods.set_text(target_row, 0, "Target displacement");
    grdMethods.set_text(notes_row, 0, "Notes");
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const nsp::MethodColumn& m = columns[c];
        const int col = static_cast<int>(c) + 1;
        grdMethods.set_text(0, col, m.title);
        grdMethods.set_col_width(col, 3200);
        for (const nsp::NamedValue& v : m.values) {
            const int row = row_of[with_unit(v.name, v.unit)];
            grdMethods.set_text(row, col, six_digits(v.value));
            grdMethods.set_cell_tool_tip(row, col, v.name + ": " + v.clause);
        }
        grdMethods.set_text(target_row, col, target_text(m));
        std::string notes;
        for (const std::string& n : m.notes) notes += (notes.empty() ? "" : "; ") + n;
        grdMethods.set_text(notes_row, col, notes);
    }
    grdMethods.set_redraw(true);
}

int NspWindow::colour(nsp::Method m) {
    switch (m) {
        case nsp::Method::WindowCoefficient: return 0xC06000;  // blue
        case nsp::Method::Asce41: return 0x0000D0;             // red
        case nsp::Method::Atc40: return 0x008000;              // green
        case nsp::Method::Fema440: return 0xA000A0;            // purple
        case nsp::Method::Ec8N2: return 0x0080F0;              // orange
    }
    return 0;
}

void NspWindow::draw_diagram() {
    forms::PictureBox& p = picAdrs;
    p.cls();
    p.set_draw_width(1);
    // The plot inside margins for the value labels (left), the abscissa (below) and the legend
    // (right), all in twips from the picture's corner.
    const double left = 900, top = 300, right = 2700, bottom = 700;
    const double w = p.width() - left - right, h = p.height() - top - bottom;

    double sd_top = 0, sa_top = 0;
    for (const nsp::AdrsPoint& a : comparison.capacity)
        if (finite(a)) {
            sd_top = std::max(sd_top, a.Sd);
            sa_top = std::max(sa_top, a.Sa);
        }
    for (const nsp::MethodColumn& m : comparison.columns) {
        if (m.performance && finite(*m.performance)) {
            sd_top = std::max(sd_top, m.performance->Sd);
            sa_top = std::max(sa_top, m.performance->Sa);
        }
        // The demands reach far right at long periods; only their height widens the plot.
        for (const nsp::AdrsPoint& a : m.demand)
            if (finite(a) && a.Sd <= 1.2 * sd_top) sa_top = std::max(sa_top, a.Sa);
    }
    const std::string length = txtLength.text();
    if (!(sd_top > 0) || !(sa_top > 0)) {
        p.set_current_x(left);
        p.set_current_y(top);
        p.print("No curve to draw.");
        return;
    }
    const double sd_step = round_step(1.2 * sd_top), sa_step = round_step(1.1 * sa_top);
    sd_top = std::ceil(1.2 * sd_top / sd_step) * sd_step;
    sa_top = std::ceil(1.1 * sa_top / sa_step) * sa_step;
    auto x_of = [&](double sd) { return sd / sd_top * w; };
    auto y_of = [&](double sa) { return h - sa / sa_top * h; };
    // A polyline of ADRS points, cut at the plot's edges.
    auto polyline = [&](const std::vector<nsp::AdrsPoint>& pts, int colour) {
        for (std::size_t i = 1; i < pts.size(); ++i) {
            if (!finite(pts[i - 1]) || !finite(pts[i])) continue;
            double x1 = x_of(pts[i - 1].Sd), y1 = y_of(pts[i - 1].Sa), x2 = x_of(pts[i].Sd), y2 = y_of(pts[i].Sa);
            if (clip(x1, y1, x2, y2, w, h)) p.line(left + x1, top + y1, left + x2, top + y2, colour);
        }
    };

    // Axes, grid ticks and labels.
    const int grey = 0xC0C0C0;
    p.line(left, top, left, top + h, 0);
    p.line(left, top + h, left + w, top + h, 0);
    const double th = p.text_height();
    for (int i = 0; i * sd_step <= sd_top * (1 + 1e-9); ++i) {
        const double x = left + x_of(i * sd_step);
        if (i > 0) p.line(x, top, x, top + h, grey);
        p.line(x, top + h, x, top + h + 60, 0);
        const std::string t = six_digits(i * sd_step);
        p.set_current_x(x - p.text_width(t) / 2);
        p.set_current_y(top + h + 80);
        p.print(t);
    }
    for (int i = 0; i * sa_step <= sa_top * (1 + 1e-9); ++i) {
        const double y = top + y_of(i * sa_step);
        if (i > 0) p.line(left, y, left + w, y, grey);
        p.line(left - 60, y, left, y, 0);
        const std::string t = six_digits(i * sa_step);
        p.set_current_x(left - 100 - p.text_width(t));
        p.set_current_y(y - th / 2);
        p.print(t);
    }
    const std::string x_title = "Sd (" + length + ")";
    p.set_current_x(left + w / 2 - p.text_width(x_title) / 2);
    p.set_current_y(top + h + 80 + th);
    p.print(x_title);
    p.set_current_x(left - 100 - p.text_width("Sa (g)"));
    p.set_current_y(top - th - 20 < 0 ? 0 : top - th - 20);
    p.print("Sa (g)");

    // The demands, then the capacity over them, then the performance points.
    for (const nsp::MethodColumn& m : comparison.columns) polyline(m.demand, colour(m.method));
    p.set_draw_width(2);
    polyline(comparison.capacity, 0);
    p.set_draw_width(7);
    for (const nsp::MethodColumn& m : comparison.columns)
        if (m.performance && finite(*m.performance) && m.performance->Sd <= sd_top && m.performance->Sa <= sa_top)
            p.pset(left + x_of(m.performance->Sd), top + y_of(m.performance->Sa), colour(m.method));

    // The legend: a stroke of each colour and the name beside it.
    double y = top;
    const double lx = left + w + 200;
    auto entry = [&](const std::string& name, int colour, int width) {
        p.set_draw_width(width);
        p.line(lx, y + th / 2, lx + 300, y + th / 2, colour);
        p.set_draw_width(1);
        p.set_current_x(lx + 380);
        p.set_current_y(y);
        p.print(name);
        y += th + 60;
    };
    entry("Capacity", 0, 2);
    for (const nsp::MethodColumn& m : comparison.columns) entry(legend_name(m.method), colour(m.method), 1);
    y += 60;
    p.set_current_x(lx);
    p.set_current_y(y);
    p.print("Dots: performance points");
    p.refresh();
}

forms::Page NspWindow::report_page() {
    PageContent page;
    page.title = caption();
    page.picture = &picAdrs;
    page.heading = caption();
    // Long lists are broken between items to stay within the page's width.
    auto add = [&](std::string line, const std::vector<std::string>& items) {
        for (const std::string& item : items) {
            if (line.size() + 1 + item.size() > 95) {
                page.lines.push_back(line);
                line = "   ";
            }
            line += " " + item;
        }
        page.lines.push_back(line);
    };
    add("Inputs:", {"X yield " + txtXy.text(), "Y yield " + txtYy.text(), "Ti " + txtTi.text() + " s",
                    "Te " + txtTe.text() + " s", "W " + txtW.text(), "stories " + txtStories.text(),
                    "g " + txtG.text(), "\u03931 \u03C61,roof " + txtGamma.text(), "\u03B11 " + txtAlpha1.text(),
                    cboDemand.list_index() == 1
                        ? "design spectrum soil " + cboSoil.text() + " hazard " + cboHazard.text() + " A " + txtA.text() + " g"
                        : "EN 1998-1 type " + cboType.text() + " ground " + cboGround.text() + " ag " + txtAg.text() + " g",
                    "ASCE 41 site " + cboSite.text(), "\u03B20 " + txtBeta0.text() + " %"});
    add("Settings:", {"ASCE 41 C0 " + cboC0.text(), "Cm " + txtCm.text(), "\u03B1P-\u0394 " + txtAlphaPD.text(),
                      chkNearField.checked() ? "near field" : "far field", "ATC-40 T0 " + txtCsmT0.text() + " s",
                      "m " + txtCsmM.text(), "type " + cboCsmType.text(),
                      chkIterate.checked() ? "N2 iterated on dm*" : "N2 not iterated"});
    for (const nsp::MethodColumn& m : comparison.columns) {
        std::vector<std::string> items;
        for (const nsp::NamedValue& v : m.values)
            items.push_back(v.name + " = " + six_digits(v.value) + (v.unit.empty() ? "" : " " + v.unit));
        for (const std::string& n : m.notes) items.push_back(n);
        items.push_back("target " + target_text(m));
        add(m.title + ":", items);
    }
    return compose_page(page, platform());
}

std::vector<DataColumn> NspWindow::drawn_data() const {
    std::vector<DataColumn> out;
    const std::string sd = " Sd (" + txtLength.text() + ")", sa = " Sa (g)";
    // Each curve as a pair of columns, its points in order; points that cannot be drawn are left out.
    auto add = [&](const std::string& name, const std::vector<nsp::AdrsPoint>& pts) {
        DataColumn x{name + sd, {}}, y{name + sa, {}};
        for (const nsp::AdrsPoint& a : pts)
            if (finite(a)) {
                x.values.push_back(a.Sd);
                y.values.push_back(a.Sa);
            }
        out.push_back(std::move(x));
        out.push_back(std::move(y));
    };
    add("Capacity", comparison.capacity);
    if (out.front().values.empty()) return {};
    for (const nsp::MethodColumn& m : comparison.columns) {
        add(legend_name(m.method) + " demand", m.demand);
        if (m.performance) add(legend_name(m.method) + " performance point", {*m.performance});
    }
    return out;
}

}  // namespace tv::windows

#include "windows/road_reports.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "forms/controls.h"
#include "forms/grid.h"
#include "forms/platform.h"
#include "text/number_text.h"
#include "text/rounding.h"
#include "compute/import/curve_import.h"
#include "windows/printing/report_composer.h"
#include "windows/capacity/capacity_results.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/grid_table.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/project/about_window.h"
#include "windows/project/record_input_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::windows {

namespace {

constexpr int kInkBlue = 0x1F5FBF, kInkRed = 0xC8281E, kInkGreen = 0x1E8C3C, kInkBlack = 0x000000, kInkGrey = 0x909090;
constexpr int kRecordColours[] = {kInkBlue, kInkRed, kInkGreen};

std::string base_name(const std::string& path) { return std::filesystem::path(path).filename().string(); }

// The subject of the title block: the project, else the files the road read.
std::string subject(const ReportRequest& r, const std::vector<std::string>& files) {
    if (!r.project.empty()) return "Project: " + r.project;
    std::string s;
    for (const std::string& f : files) {
        if (f.empty()) continue;
        s += (s.empty() ? "" : ", ") + base_name(f);
    }
    return s.empty() ? "Tremorvault" : s;
}

ReportComposer composer(Program& program, const ReportRequest& r, const std::string& title,
                        const std::vector<std::string>& files) {
    forms::Platform& platform = program.platform();
    return ReportComposer(r.paper, {title, subject(r, files), report_date(), version_text()},
                          [&platform](const std::string& s, const forms::PageFont& f) {
                              return platform.page_text_width(s, f);
                          });
}

// The caption of the option chosen among `options`, "" when none is.
std::string chosen(std::initializer_list<const forms::OptionButton*> options) {
    for (const forms::OptionButton* o : options)
        if (o->value()) return o->caption();
    return "";
}

// A spectrum array of the period grid: index i stands at i times the step.
PlotSeries spectrum_series(const std::string& name, int colour, const text::DoubleArray& a, double step, long count) {
    PlotSeries s{name, colour, {}, {}, false};
    const std::vector<double>& v = a.raw();
    for (long i = 1; i <= count && static_cast<std::size_t>(i) < v.size(); ++i) {
        s.x.push_back(static_cast<double>(i) * step);
        s.y.push_back(v[static_cast<std::size_t>(i)]);
    }
    return s;
}

void value_if(ReportComposer& c, const std::string& name, const std::string& v, const std::string& unit = "") {
    if (!v.empty()) c.value(name, v, unit);
}

}  // namespace

bool ground_motion_has_results(Program& program) {
    const Form3* f3 = program.if_loaded<Form3>();
    return program.state.recordCount > 0 && f3 != nullptr && f3->calculated != 0;
}

bool coefficient_has_results(Program& program) {
    const Form6* f6 = program.if_loaded<Form6>();
    return f6 != nullptr && !f6->txtXC2.text().empty() && f6->pushoverPoints.ubound() >= 1;
}

bool capacity_has_results(Program& program) {
    const Form9* f9 = program.if_loaded<Form9>();
    return f9 != nullptr && !f9->Re1.text().empty();
}

std::vector<forms::Page> ground_motion_report(Program& program, const ReportRequest& r) {
    ProjectState& s = program.state;
    ReportComposer c = composer(program, r, "Ground Motion Report", r.record_files);
    const Form1* f1 = program.if_loaded<Form1>();
    const std::size_t per_record =
        r.record_files.size() >= static_cast<std::size_t>(2 * s.recordCount) ? 2 : 1;

    c.heading("Records");
    std::vector<std::vector<std::string>> rows{{"Record", "npts", "dt (s)", "PGA X (g)", "PGA Y (g)", "Scale"}};
    for (std::int32_t k = 1; k <= s.recordCount; ++k) {
        const std::size_t i = static_cast<std::size_t>(k - 1);
        const long npts = static_cast<long>(s.recordLastLine(k)) - s.recordFirstLine(k) + 1;
        auto peak = [&](const std::array<double, 4>& saved) {
            return text::to_text(text::round_to(saved[static_cast<std::size_t>(k)], 8));
        };
        rows.push_back({std::to_string(k), std::to_string(npts), text::to_text(s.recordDt(k)),
                        f1 ? peak(f1->savedMaxX) : "", f1 ? peak(f1->savedMaxY) : "",
                        i < r.record_scales.size() ? r.record_scales[i]
                        : f1                         ? f1->appliedScale[static_cast<std::size_t>(k)]
                                                     : ""});
    }
    c.table(rows);
    for (std::int32_t k = 1; k <= s.recordCount; ++k) {
        const std::size_t i = static_cast<std::size_t>(k - 1);
        std::string files;
        for (std::size_t j = 0; j < per_record && i * per_record + j < r.record_files.size(); ++j)
            files += (j ? ", " : "") + base_name(r.record_files[i * per_record + j]);
        value_if(c, "Record " + std::to_string(k) + (per_record == 2 ? " (X, Y)" : ""), files);
    }
    c.paragraph("npts: the samples from the record's first to its last data line; PGA: the peak of each "
                "component as the record window shows it. The plots draw the records as the windows hold them: "
                "scaled by the comparison when it has run.");
    for (std::int32_t k = 1; k <= s.recordCount; ++k) {
        ReportPlot p{"Record " + std::to_string(k) + ": acceleration", "Time (s)", "Acceleration (g)", {}};
        const char components[] = {'X', 'Y'};
        for (int j = 0; j < 2; ++j) {
            const std::vector<double> a = s.samples(k, components[j]);
            PlotSeries series{std::string(1, components[j]), j == 0 ? kInkBlue : kInkRed, {}, a, false};
            for (std::size_t n = 0; n < a.size(); ++n) series.x.push_back(static_cast<double>(n) * s.recordDt(k));
            if (!a.empty()) p.series.push_back(std::move(series));
        }
        c.plot(p);
    }

    if (const Form2* f2 = program.if_loaded<Form2>()) {
        c.heading("Design spectrum");
        c.value("Hazard", chosen({&f2->Option5, &f2->Option7, &f2->Option6, &f2->Option8}));
        c.value("Soil", chosen({&f2->Option1, &f2->Option2, &f2->Option3, &f2->Option4}));
        c.value("Scale A", f2->Text1.text(), "g");
        c.value("Periods", f2->tstart.text() + " to " + f2->tend.text() + " by " + f2->xstep.text(), "s");
        c.value("Points of the grid", text::to_text(s.specCount));
        if (f2->Check1.checked()) c.paragraph("The design ordinates were read from a file.");
    }

    const Form3* f3 = program.if_loaded<Form3>();
    if (f3 != nullptr) {
        c.heading("Response spectra");
        c.value("Damping ratio", f3->xbeta.text());
        c.value("Measure", f3->Label4.caption());
        ReportPlot p{"Response spectra of the records", "Period (s)", f3->Label4.caption(), {}};
        for (std::int32_t k = 1; k <= s.recordCount; ++k) {
            const int colour = kRecordColours[(k - 1) % 3];
            p.series.push_back(spectrum_series("Record " + std::to_string(k) + " X", colour, s.spectrum(k, 'X'),
                                               s.periodStep, s.specCount));
            PlotSeries y = spectrum_series("Record " + std::to_string(k) + " Y", colour, s.spectrum(k, 'Y'),
                                           s.periodStep, s.specCount);
            y.colour = (colour & 0xFEFEFE) / 2 + 0x7F7F7F;  // the same hue, lighter
            p.series.push_back(std::move(y));
        }
        c.plot(p);
    }

    const Form4* f4 = program.if_loaded<Form4>();
    if (f4 != nullptr && f4->activated == 1) {
        c.heading("Comparison with the target spectrum");
        c.value("Combination of the components", f4->Check2.checked() ? f4->Check2.caption() : "SRSS");
        c.value("Factor on the design spectrum", f4->xbeta.text());
        c.value("Period band", f4->tstart.text() + " to " + f4->tend.text(), "s");
        c.value("Scale factor", f4->xzarib.text());
        if (!f4->LabelDurations.caption().empty()) c.paragraph(f4->LabelDurations.caption());
        c.paragraph("The scale factor is the one factor that lifts the average of the records' combined spectra "
                    "to the target, the design spectrum times its factor, over the period band.");
        ReportPlot p{"Average of the records against the target", "Period (s)", "Sa (g)", {}};
        p.series.push_back(spectrum_series("Average of the records", kInkBlue, f4->averageSpectrum, s.periodStep, s.specCount));
        p.series.push_back(spectrum_series("Target", kInkRed, f4->targetSpectrum, s.periodStep, s.specCount));
        double top = 0;
        for (const PlotSeries& q : p.series)
            for (double v : q.y) top = std::max(top, v);
        const double t0 = text::val(f4->tstart.text()), t1 = text::val(f4->tend.text());
        p.series.push_back({"Period band", kInkGrey, {t0, t0, t1, t1}, {top, 0, 0, top}, false});
        c.plot(p);
    }
    return c.finish();
}

std::vector<forms::Page> coefficient_report(Program& program, const ReportRequest& r,
                                            const compute::nsp::NspComparison* comparison) {
    Form6& f6 = program.form<Form6>();
    ReportComposer c = composer(program, r, "Coefficient Method Report", {f6.Text1.text()});
    const std::string length = compute::unit_system_length(f6.unit_system());
    const std::string force = compute::unit_system_force(f6.unit_system());
    c.heading("Pushover curve");
    c.value("File", base_name(f6.Text1.text()));
    value_if(c, "Units", f6.cboUnits.text());
    value_if(c, "Conversion", f6.lblConversion.caption());
    c.value("Points on the curve", text::to_text(f6.pushoverPoints.ubound()));
    c.heading("Bilinear fit");
    c.value("Point No. for Ki", f6.Text4.text());
    c.value("Ratio", f6.txtZarib.text());
    c.value("Tolerance", f6.txtTolerance.text());
    c.value("Ki (initial stiffness)", f6.txtKi.text(), force + "/" + length);
    c.value("X yield", f6.txtXC2.text(), length);
    c.value("Y yield", f6.txtYC2.text(), force);
    c.value("alfa1 (post-yield ratio)", f6.Text11.text());
    c.value("Pushover area", f6.lblArea.caption(), force + "\u00B7" + length);
    c.value("Collision area", f6.lblArea2.caption(), force + "\u00B7" + length);
    c.value("Collision point", f6.Label19.caption(), length + " , " + force);
    c.value("K-effective", f6.txtKE.caption(), force + "/" + length);
    c.value("Ti", f6.txtTI.text(), "s");
    c.value("T-effective", f6.txtTEF.caption(), "s");
    c.formula("Effective stiffness, the secant to the yield point, and the effective period:",
              "Ke = Y yield / X yield;  Te = Ti \u00B7 (Ki / Ke)^0.5");
    if (!f6.Text7.text().empty()) {
        c.heading("Response modification");
        c.value("Vs (design base shear)", f6.Text6.text(), force);
        c.value("Rs", f6.Text7.text());
        c.value("Rm1", f6.Text8.text());
        c.value("Rm2", f6.Text10.text());
        c.value("Ru", f6.Text9.text());
        c.value("miu (ductility)", f6.Text13.text());
    }
    ReportPlot curve{"Pushover curve and its bilinear fit", "Roof displacement (" + length + ")",
                     "Base force (" + force + ")", {}};
    PlotSeries points{"Pushover curve", kInkBlue, {}, {}, false};
    for (long i = 1; i <= f6.pushoverPoints.ubound(); ++i) {
        points.x.push_back(f6.pushoverPoints(i).Displacement);
        points.y.push_back(f6.pushoverPoints(i).BaseForce);
    }
    curve.series.push_back(std::move(points));
    if (f6.selectedStep >= 1 && f6.selectedStep <= f6.pushoverPoints.ubound()) {
        const compute::PushoverPoint& target = f6.pushoverPoints(f6.selectedStep);
        const double X = text::val(f6.txtXC2.text()), Y = text::val(f6.txtYC2.text());
        curve.series.push_back({"Bilinear fit", kInkRed, {0, X, target.Displacement}, {0, Y, target.BaseForce}, false});
        curve.series.push_back({"Yield point", kInkBlack, {X}, {Y}, true});
    }
    c.plot(curve);

    if (const Form8* f8 = program.if_loaded<Form8>(); f8 != nullptr && !f8->Text9.text().empty()) {
        c.heading("Building and demand");
        c.value("Number of stories", f8->Text1.text());
        value_if(c, "C0 (input)", f8->Text12.text());
        value_if(c, "Cm", f8->Text11.text());
        c.value("Te", f8->Text7.text(), "s");
        c.value("Sa (for Te)", f8->Text2.text(), "g");
        value_if(c, "Ts (soil period)", f8->Text8.text(), "s");
        c.value("W (weight)", f8->Text10.text(), force);
        value_if(c, "dy", f8->Text16.text(), "cm");
        value_if(c, "Vy", f8->Text17.text(), force);
        value_if(c, "\u0394d", f8->Text18.text(), "cm");
        value_if(c, "\u03B1e", f8->Text15.text());
        c.heading("Target displacement");
        c.value("C0", f8->Text3.text());
        c.value("C1", f8->Text4.text());
        c.value("C2", f8->Text5.text());
        c.value("C3", f8->Text6.text());
        c.value("R (strength ratio)", f8->Text13.text());
        value_if(c, "Alpha (post-yield slope ratio)", f8->Label18.caption());
        value_if(c, "Rmax", f8->Text14.text());
        c.value("Target displacement \u03B4t", f8->Text9.text(), f8->lblTargetUnit.caption());
        if (!f8->Label17.caption().empty()) c.paragraph(f8->Label17.caption());
        c.formula("Target displacement, with g = 981 cm/s\u00B2 and \u03C0 = 3.1416 (C3 is shown, not multiplied in):",
                  "\u03B4t = C0 \u00B7 C1 \u00B7 C2 \u00B7 Sa \u00B7 g \u00B7 Te\u00B2 / (4\u03C0\u00B2)");
        c.formula("Strength ratio:", "R = Cm \u00B7 Sa / (Vy / W)");
        c.formula("C1, with a = 130, 90, 60 for soil I, II, III-IV:",
                  "C1 = 1 + (R \u2212 1) / (a \u00B7 Te\u00B2) for 0.2 < Te \u2264 1 s;  "
                  "1 + 25 (R \u2212 1) / a for Te \u2264 0.2 s;  1 for Te > 1 s");
        c.formula("C2:", "C2 = 1 + (1/800) \u00B7 ((R \u2212 1) / Te)\u00B2 for Te < 0.7 s;  1 otherwise");
        c.formula("C3, for a negative post-yield slope:", "C3 = 1 + |\u03B1| (R \u2212 1)^1.5 / Te;  1 otherwise");
        c.formula("Rmax, the larger of \u03B4t and \u0394d over dy, with \u03B1e when \"Use\" is ticked:",
                  "Rmax = max(\u03B4t, \u0394d) / dy + |\u03B1e|^(\u2212h) / 4,  h = 1 + 0.15 ln Te");
    }

    const NspWindow* window = program.if_loaded<NspWindow>();
    if (comparison == nullptr && window != nullptr && !window->comparison.columns.empty()) comparison = &window->comparison;
    if (comparison != nullptr) {
        const compute::nsp::NspComparison* nsp = comparison;
        c.heading("Target displacement by method");
        std::vector<std::vector<std::string>> rows{{"Method", "Target displacement"}};
        for (const compute::nsp::MethodColumn& m : nsp->columns)
            rows.push_back({m.title, m.target ? compute::nsp::six_digits(*m.target) + " " + m.target_unit : "no result"});
        c.table(rows);
        for (const compute::nsp::MethodColumn& m : nsp->columns)
            if (!m.target) c.paragraph(m.title + ", no result: " + m.no_result);
        for (const compute::nsp::MethodColumn& m : nsp->columns) {
            std::vector<std::vector<std::string>> values{{m.title, "Value", "Unit", "Clause"}};
            for (const compute::nsp::NamedValue& v : m.values)
                values.push_back({v.name, compute::nsp::six_digits(v.value), v.unit, v.clause});
            c.table(values);
            for (const std::string& note : m.notes) c.paragraph(note);
        }
        ReportPlot adrs{"Capacity curve and each method's demand (ADRS)", "Sd (" + length + ")", "Sa (g)", {}};
        PlotSeries cap{"Capacity curve", kInkBlack, {}, {}, false};
        for (const auto& p : nsp->capacity) {
            cap.x.push_back(p.Sd);
            cap.y.push_back(p.Sa);
        }
        // The demands run far past the curve: the abscissa ends at twice its last point.
        if (!cap.x.empty()) adrs.x_limit = 2 * cap.x.back();
        adrs.series.push_back(std::move(cap));
        for (const compute::nsp::MethodColumn& m : nsp->columns) {
            const int bgr = NspWindow::colour(m.method);
            const int rgb = ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF);
            PlotSeries demand{m.title, rgb, {}, {}, false};
            for (const auto& p : m.demand) {
                demand.x.push_back(p.Sd);
                demand.y.push_back(p.Sa);
            }
            if (!demand.x.empty()) adrs.series.push_back(std::move(demand));
            if (m.performance) adrs.x_limit = std::max(adrs.x_limit, 1.2 * m.performance->Sd);
            if (m.performance)
                adrs.series.push_back({m.title + ": performance point", rgb, {m.performance->Sd}, {m.performance->Sa}, true});
        }
        c.plot(adrs);
    }
    return c.finish();
}

std::vector<forms::Page> capacity_report(Program& program, const ReportRequest& r) {
    Form9& f9 = program.form<Form9>();
    ReportComposer c = composer(program, r, "Capacity Spectrum Report", {f9.Text1.text()});
    c.heading("Capacity curve");
    c.value("File", base_name(f9.Text1.text()));
    c.value("Length unit", f9.Combo1.text());
    c.value("g", f9.T1.text(), "length unit / s\u00B2");
    c.value("T0", f9.T2.text(), "s");
    c.value("Rows skipped", f9.T3.text());
    c.value("Step m of the initial slope", f9.T4.text());
    c.heading("Demand spectrum");
    if (f9.demand.Check1.checked()) {
        c.paragraph("The demand spectrum was read from a file.");
    } else {
        c.value("Soil", chosen({&f9.demand.Option1, &f9.demand.Option2, &f9.demand.Option3, &f9.demand.Option4}));
        c.value("Hazard", chosen({&f9.demand.Option5, &f9.demand.Option6}));
        c.value("Scale A", f9.demand.xscale.text());
    }
    c.value("Periods", f9.demand.tstart.text() + " to " + f9.demand.tend.text() + " by " + f9.demand.xstep.text(), "s");
    c.value("Structure type", chosen({&f9.Op1, &f9.Op2, &f9.Op3}));
    c.heading("Result");
    c.value("Target displacement", f9.Re1.text(), f9.vahed.caption());
    c.value("SRA", f9.Re2.text());
    c.value("SRV", f9.Re3.text());
    c.value("Beff", f9.Re4.text(), "%");
    c.formula("Effective damping, with \u03BA by structure type (A, B, C):",
              "\u03B2eff = 63.7 \u03BA (ay dpi \u2212 dy api) / (api dpi) + 5");
    c.formula("Reduction of the constant-acceleration range:", "SRA = (3.21 \u2212 0.68 ln \u03B2eff) / 2.12");
    c.formula("Reduction of the constant-velocity range:", "SRV = (2.31 \u2212 0.41 ln \u03B2eff) / 1.65");
    const CapacityDiagram d = fillarray(to_table(f9.Fg3));
    const char* names[] = {"Demand (5%)", "Reduced demand", "Capacity curve", "Bilinear form", "Points of the sweep"};
    const int colours[] = {kInkBlue, kInkGreen, kInkRed, kInkBlack, 0x00A0C0};
    ReportPlot adrs{"ADRS diagram", "Sd (" + f9.vahed.caption() + ")", "Sa (g)", {}};
    for (std::size_t i = 0; i < d.series.size(); ++i) {
        const std::vector<double>& x = d.series[i].x.raw();
        const std::vector<double>& y = d.series[i].y.raw();
        PlotSeries s{names[i], colours[i], {}, {}, i == CapacityDiagram::kSweep};
        // Index 0 is no row of the table.
        for (std::size_t j = 1; j < std::min(x.size(), y.size()); ++j) {
            s.x.push_back(x[j]);
            s.y.push_back(y[j]);
        }
        adrs.series.push_back(std::move(s));
    }
    // The bilinear form ends at the performance point, where the sweep met the reduced demand.
    const DiagramSeries& bilinear = d.series[CapacityDiagram::kBilinear];
    if (bilinear.x.raw().size() > 3 && bilinear.y.raw().size() > 3)
        adrs.series.push_back({"Performance point", 0xD000D0, {bilinear.x.raw()[3]}, {bilinear.y.raw()[3]}, true});
    adrs.x_limit = 1.5 * d.maxAbscissa;
    c.plot(adrs);
    return c.finish();
}

}  // namespace tv::windows

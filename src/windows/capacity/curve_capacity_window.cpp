#include "windows/capacity/curve_capacity_window.h"

#include <sstream>

#include "compute/import/first_mode.h"
#include "text/number_text.h"
#include "text/runtime_error.h"
#include "windows/capacity/capacity_window.h"
#include "windows/capacity/curve_capacity.h"
#include "windows/files/curve_questions.h"

namespace tv::windows {

frmCurveCapacity::frmCurveCapacity(forms::App& app)
    : Window(app, "frmCurveCapacity", "Capacity Curve from a Pushover Curve", 8400, 4600) {
    cmdSave.set_enabled(false);
    cmdBrowse.Click = [this] { cmdBrowse_Click(); };
    cmdBuild.Click = [this] { cmdBuild_Click(); };
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdModal.Click = [this] { cmdModal_Click(); };
    cmdClose.Click = [this] { hide(); };
}

compute::UnitSystem frmCurveCapacity::system() const {
    return capacity_unit_system(program().form<Form9>().Combo1.list_index());
}

void frmCurveCapacity::show_error(const std::string& text) {
    platform().message_box(text, forms::MsgButtons::Ok, "Error", forms::MsgIcon::Critical);
}

void frmCurveCapacity::Form_Activate() {
    const compute::UnitSystem s = system();
    lblSystem.set_caption("The curve is converted to " + compute::unit_system_name(s) +
                          ", the length unit of the capacity window: Sd in " + compute::unit_system_length(s) +
                          ", Sa in g.");
    lblWUnit.set_caption(compute::unit_system_force(s));
}

void frmCurveCapacity::cmdBrowse_Click() {
    forms::FileDialogRequest request;
    request.filter = "Pushover curve | *.xlsx;*.xls;*.csv;*.txt";
    request.title = "Pushover curve file";
    if (auto name = platform().file_dialog(request)) txtFile.set_text(*name);
}

void frmCurveCapacity::cmdBuild_Click() {
    Form_Activate();  // the capacity window's unit may have changed meanwhile
    if (txtFile.text().empty()) {
        show_error("Choose the file of the pushover curve first.");
        return;
    }
    Form9& f9 = program().form<Form9>();
    compute::CurveImportOptions options;
    options.system = system();
    const auto curve = import_curve_asking(platform(), txtFile.text(), compute::CurveKind::pushover, options);
    if (!curve) return;
    const compute::ModalNumbers modal{text::val(txtW.text()), text::val(txtAlpha1.text()), text::val(txtPfPhi.text())};
    const double g = text::val(f9.T1.text());
    compute::CapacityTable built = capacity_table_of(*curve, modal, g);
    if (!built.ok()) {
        show_error(txtFile.text() + ": " + built.description);
        return;
    }
    table = std::move(built);
    lblConversion.set_caption(curve_facts_line(*curve) + "; W = " + text::to_text(modal.weight) + " " +
                              compute::unit_system_force(options.system) + ", α1 = " + text::to_text(modal.alpha1) +
                              ", PF1·φ = " + text::to_text(modal.pf_phi) + ", g = " + text::to_text(g) + " " +
                              compute::unit_system_length(options.system) + "/s²; " +
                              std::to_string(table.rows.size()) + " rows");
    cmdSave.set_enabled(true);
    f9.Text1.set_text(txtFile.text());
    f9.ReadCapacityTable(table);
}

void frmCurveCapacity::cmdSave_Click() {
    forms::FileDialogRequest request;
    request.save = true;
    request.filter = "Capacity File | *.txt";
    request.file_name = "*.txt";
    request.title = "Save Capacity Table";
    auto name = platform().file_dialog(request);
    if (!name || name->empty() || name->find('*') != std::string::npos) return;
    const compute::TextFile written = save_capacity_table(*name, table, compute::CurveKind::pushover);
    if (!written.ok()) show_error(*name + ": " + written.reason);
}

void frmCurveCapacity::cmdModal_Click() {
    std::vector<double> weights, shape;
    std::istringstream lines(txtStoreys.text());
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        for (char& c : line)
            if (c == ';' || c == '\t' || c == '\r') c = ' ';
        std::istringstream cells(line);
        std::string w, phi, more;
        if (!(cells >> w)) continue;  // blank lines are skipped
        bool two = (cells >> phi) && !(cells >> more);
        double wv = 0, phiv = 0;
        try {
            if (two) {
                wv = text::to_double(w);
                phiv = text::to_double(phi);
            }
        } catch (const text::RuntimeError&) {
            two = false;
        }
        if (!two) {
            show_error("Storey line " + std::to_string(number) + ": expected a weight and an amplitude, found \"" +
                       line + "\"");
            return;
        }
        weights.push_back(wv);
        shape.push_back(phiv);
    }
    const auto modal = compute::first_mode_numbers(weights, shape);
    if (!modal) {
        show_error("The storeys need a weight above 0 each and a mode shape that is not zero everywhere.");
        return;
    }
    txtW.set_text(text::to_text(modal->weight));
    txtAlpha1.set_text(text::to_text(modal->alpha1));
    txtPfPhi.set_text(text::to_text(modal->pf_phi));
}

}  // namespace tv::windows

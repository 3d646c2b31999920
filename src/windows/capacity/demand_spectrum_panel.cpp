#include "windows/capacity/demand_spectrum_panel.h"

#include "compute/capacity/demand_spectrum.h"
#include "text/number_text.h"
#include "windows/files/work_files.h"

namespace tv::windows {

using text::val;

DemandSpectrumPanel::DemandSpectrumPanel(Window& window, const Place& place) : window_(window), place_(place) {
    Option1.set_value(true);
    Option5.set_value(true);
    Command4.set_enabled(false);
}

compute::Soil DemandSpectrumPanel::soil() const {
    if (Option2.value()) return compute::Soil::II;
    if (Option3.value()) return compute::Soil::III;
    if (Option4.value()) return compute::Soil::IV;
    return compute::Soil::I;
}

compute::HazardGroup DemandSpectrumPanel::risk_group() const {
    return Option6.value() ? compute::HazardGroup::HighVeryHigh : compute::HazardGroup::LowModerate;
}

compute::SpectrumConstants DemandSpectrumPanel::constants() const {
    return compute::spectrum_constants(soil(), risk_group());
}

void DemandSpectrumPanel::Check1_Click() {
    if (Check1.value() == 0) {
        Command6.set_enabled(true);
        Command4.set_enabled(false);
        fsoil.set_enabled(true);
        Frisk.set_enabled(true);
        fromFile = false;
    } else {
        Command4.set_enabled(true);
        fsoil.set_enabled(false);
        Frisk.set_enabled(false);
        Command6.set_enabled(false);
    }
}

std::optional<std::string> DemandSpectrumPanel::choose_file() {
    forms::FileDialogRequest request;
    request.filter = "*.txt";
    request.file_name = "*.txt";
    request.title = "Demand spectrum file";
    return window_.platform().file_dialog(request);
}

void DemandSpectrumPanel::read_file(const std::string& name) {
    ProjectState& s = window_.state();
    s.fileName = name;
    window_.platform().set_busy(true);
    compute::read_period_sa_file(resolve_in_workdir(s, s.fileName), s.designAux, s.designSa);
    Command7.set_enabled(true);
    fromFile = true;
}

compute::SpectrumConstants DemandSpectrumPanel::show_spectrum(Ordinate ordinate) {
    ProjectState& s = window_.state();
    s.peakAccel = val(xscale.text());
    const compute::HazardGroup group = risk_group();
    const compute::SpectrumConstants k = compute::spectrum_constants(soil(), group);
    if (!fromFile) {
        const double A = s.peakAccel;
        compute::fill_demand_spectrum(s.specCount, s.designSa, s.designAux, val(tstart.text()), val(tend.text()),
                                      val(xstep.text()), [&](double T) { return ordinate(T, A, k, group); });
    }
    Command7.set_enabled(true);
    return k;
}

}  // namespace tv::windows

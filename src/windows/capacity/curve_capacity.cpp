#include "windows/capacity/curve_capacity.h"

namespace tv::windows {

namespace {

const compute::UnitSystem kListSystems[] = {compute::UnitSystem::kgf_mm, compute::UnitSystem::kgf_cm,
                                            compute::UnitSystem::tonf_m};

}  // namespace

compute::UnitSystem capacity_unit_system(int list_index) {
    return list_index >= 0 && list_index < 3 ? kListSystems[list_index] : compute::UnitSystem::kgf_mm;
}

int capacity_unit_index(compute::UnitSystem system) {
    for (int i = 0; i < 3; ++i)
        if (kListSystems[i] == system) return i;
    return 0;
}

double pf_phi_for(const compute::CurveImport& curve, std::optional<double> typed) {
    const double pf_phi = typed ? *typed : curve.participation_factor;
    return pf_phi == 0.0 ? 1.0 : pf_phi;
}

compute::CapacityTable capacity_table_of(const compute::CurveImport& curve, const compute::ModalNumbers& modal, double g) {
    if (curve.kind == compute::CurveKind::pushover) return compute::capacity_table_from_pushover(curve.points, modal, g);
    return compute::capacity_table_from_spectral(curve.points, modal.alpha1, modal.pf_phi, g);
}

compute::TextFile save_capacity_table(const std::string& path, const compute::CapacityTable& table,
                                      compute::CurveKind from) {
    return compute::write_text_file(
        path, compute::capacity_file_lines(table, "Capacity curve made by Tremorvault from " +
                                                      std::string(from == compute::CurveKind::pushover
                                                                      ? "a pushover curve"
                                                                      : "an Sd-Sa list")));
}

}  // namespace tv::windows

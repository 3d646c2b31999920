#pragma once
// The capacity table of a curve read by the import, as the capacity window and the batch
// command build it: a pushover curve by the first mode's numbers, an Sd-Sa list as it is; and
// the length unit of the window's list that a curve is converted to.
#include <optional>
#include <string>

#include "compute/capacity/capacity_reader.h"
#include "compute/files/text_file.h"
#include "compute/import/curve_import.h"

namespace tv::windows {

/// The unit system of the capacity window's length list (0 mm, 1 cm, 2 m): kgf·mm, kgf·cm, tonf·m.
compute::UnitSystem capacity_unit_system(int list_index);
/// Its place in that list.
int capacity_unit_index(compute::UnitSystem system);

/// PF1·φroof,1 to use: the typed one, else the participation factor the file states, else 1.
double pf_phi_for(const compute::CurveImport& curve, std::optional<double> typed);

/// The nine-column table of `curve`: a pushover curve by W, α1 and PF1·φ (see
/// capacity_table_from_pushover), an Sd-Sa list with α1 and PF1·φ as given. `g` in the
/// curve's length unit.
compute::CapacityTable capacity_table_of(const compute::CurveImport& curve, const compute::ModalNumbers& modal, double g);

/// Writes `table` in the capacity file layout, titled by the kind of curve it came from.
compute::TextFile save_capacity_table(const std::string& path, const compute::CapacityTable& table,
                                      compute::CurveKind from);

}  // namespace tv::windows

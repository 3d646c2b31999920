#pragma once
// The six hidden boxes Text2 ... Text7 that carry the records' peak accelerations as texts
// along the chain Form1 -> Form2 -> Form3 -> Form4: X and Y of record 1, then 2, then 3.
#include <array>

#include "forms/controls.h"

namespace tv::windows {

using PeakBoxes = std::array<forms::TextBox*, 6>;

template <class W>
PeakBoxes peak_boxes(W& w) {
    return {&w.Text2, &w.Text3, &w.Text4, &w.Text5, &w.Text6, &w.Text7};
}

/// Copies the six texts as they stand.
inline void copy_peaks(const PeakBoxes& from, const PeakBoxes& to) {
    for (std::size_t i = 0; i < from.size(); ++i) to[i]->set_text(from[i]->text());
}

}  // namespace tv::windows

#pragma once
// The axis strips of this area's charts drawn so that an engineer can read them: the value
// labels thinned until they no longer print over each other, and the diagram's abscissa with
// round labels "0.00" and ticks that do not run together, in mm, cm or m alike.
#include "windows/chart/chart.h"

namespace tv::windows {

/// Writes the value strip again from the plot's present scale, with the peak rule's step
/// (peak / 0.35) widened to the smallest multiple whose labels stand clear of each other.
void draw_legible_value_strip(Chart& chart, double peak);

/// Writes the time strip of the capacity diagram: labels of "0.00" at a round step of at least
/// 800 twips of plot, centred on their ticks, and four or five ticks to a label.
void draw_diagram_abscissa(Chart& chart);

}  // namespace tv::windows

#pragma once
// The pieces of the two-line idealisation of a pushover curve. The window runs the downward
// scan of slopes itself, because it writes the yield point into its text boxes and reads it
// back between these steps; each piece here is one step of that scan.
#include <cstdint>

#include "compute/coefficient/pushover_table.h"
#include "text/checked.h"

namespace tv::compute {

using PushoverPoints = text::Array<PushoverPoint>;

/// Area under the curve from point 0 to point `selected_step`, by trapezoids, in force x
/// displacement units. Failure: 9 when `selected_step` lies beyond the points, 6 on overflow.
double pushover_area(const PushoverPoints& points, long selected_step);

/// Step D of the slope scan from the number of digits of Ki written with no decimals
/// (format "0", the minus sign counting): 1 for four characters, 10 for five, 100 for six...
/// Failure: 5 "Invalid procedure call or argument" for fewer than four characters, that is
/// |Ki| below 999.5.
double slope_step(double k_initial);

/// Where the scan starts.
struct StartSlope {
    double k_initial = 0.0;  // the secant slope BaseForce / Displacement of `point`
    long point = 0;          // the first point whose secant is steeper than kSelected; 0 if none
};

/// The walk over points 1 to `selected_step`: the secant of each in turn becomes kInitial, and
/// the first one above `k_selected` ends it. When none is above, kInitial is the secant of the
/// last point walked, or stays `k_initial` when there was none to walk.
/// Failure: 11 or 6 for a point of displacement 0, 9 beyond the points.
StartSlope start_slope(const PushoverPoints& points, long selected_step, double k_selected, double k_initial);

/// Maximum of the scan's progress bar: |kInitial - kSelected| integer-divided by D, operands
/// rounded to integers first. Failure: 6 when an operand is beyond 32 bits, 11 when D rounds
/// to 0.
float scan_progress_maximum(double k_initial, double k_selected, double step);

/// `c` lies between `a` and `b` (either order, ends included) once all three are rounded to 4
/// decimals, half to even.
bool IsBetweenRounded(double a, double b, double c);

/// Result of the crossing search of one candidate slope.
struct Crossing {
    bool found = false;
    double x = 0.0;  // the crossing of the last segment examined; 0 when none was examined
    double y = 0.0;
};

/// The crossing of the line y = K x with the curve: for segments i = 2 to `selected_step`
/// (from point i - 1 to i; the first segment is never examined) whose slope s is strictly
/// below K (dy / 1e-11 for a vertical segment), the crossing of the two lines; the first one
/// lying on its segment (IsBetweenRounded in x and in y) ends the search.
/// Failure: 9 beyond the points, 6 on overflow.
Crossing evaluate_crossing(const PushoverPoints& points, long selected_step, double K);

/// The yield point of a crossing.
struct YieldPoint {
    double Xy = 0.0;
    double Yy = 0.0;
};

/// The first line meets the curve at `Z` (Ratio) times the yield force: Yy = (1 / Z) y,
/// Xy = Yy / K. Failure: 11 for Z or K of 0.
YieldPoint yield_from_crossing(double y, double K, double Z);

/// Area under the two lines, from the origin to (Xy, Yy) and on to point `selected_step`:
/// Xy Yy / 2 + (BaseForce + Yy) / 2 (Displacement - Xy). Failure: 9 beyond the points,
/// 6 on overflow.
double bilinear_area(const PushoverPoints& points, long selected_step, double Xy, double Yy);

/// The scan's test: (1 - tol) B <= A and (1 + tol) B >= A.
bool area_matches(double pushover_area, double bilinear_area, double tolerance);

/// Post-yield stiffness ratio (alfa1) before rounding: the slope from the yield point (X, Y) to
/// the target point (Xt, Yt) over the slope Y / X. Failure: 11 or 6 for Xt equal to X, or X or
/// Y of 0.
double post_yield_ratio(double X, double Y, double Xt, double Yt);

/// Initial stiffness Ki: BaseForce / Displacement of the point numbered `point_number`
/// (rounded to an index, ties to even). Failure: 9 outside the points, 11 or 6 for a
/// displacement of 0.
double initial_stiffness(const PushoverPoints& points, double point_number);

}  // namespace tv::compute

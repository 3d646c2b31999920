#pragma once
// Scaling of the curve chart: the range of the value axis, the factor that brings a curve to
// the window's peak, the width of the widened plot and the reach of its scroll bar.
#include <cstdint>
#include <vector>

namespace tv::compute::chart {

/// Width of the plot at X scale 1, twips. Every chart widens by whole multiples of it.
inline constexpr double kWidthUnit = 9165;
/// Twips the plot moves for one step of the scroll bar.
inline constexpr double kScrollStep = 100;

/// How a chart finds the half height r of its value range.
enum class RangeRule {
    PeakFields,   // 1.2 x the larger of the window's two peak fields (record input)
    Largest,      // 1.2 x the largest absolute element
    LargestWide,  // 1.5 x the largest absolute element (capacity diagram)
};

/// Largest absolute value of all elements; 0 for an empty array.
double largest_abs(const std::vector<double>& values);

/// Range from the peak fields: each peak passes the 15-digit text round trip and is rounded to
/// 8 decimals; the larger times 1.2. Units those of the peaks.
double peak_field_range(double peak_x, double peak_y);

/// Range from the largest absolute element: 1.2 x amax, or 1.5 x amax for LargestWide.
/// PeakFields is not a rule of this kind and raises 5.
double element_range(double amax, RangeRule rule);

/// Factor k = (r / 1.2) / amax that lifts the largest sample to the peak of the fields.
/// amax 0 raises 11 (6 when r is 0 as well).
double curve_factor(double range, double amax);

/// Plot width in twips at a slider value.
double plot_width(int slider);

/// Scroll bar maximum: (slider - 1) x 9165 / 100, nearest 16-bit integer, ties to even.
/// Beyond the 16-bit range raises 6.
std::int16_t scroll_max(int slider);

/// Left of the plot in its viewport, twips, for a scroll value.
double scroll_left(int scroll_value);

}  // namespace tv::compute::chart

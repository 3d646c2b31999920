#pragma once
// The old layouts measure in twips, 1440 to the inch; the screen measures in logical pixels.
class QWidget;

namespace tv::gui {

inline constexpr double kTwipsPerInch = 1440.0;

/// Logical dots per inch of the screen that shows `w` (the primary screen when null).
double logical_dpi(const QWidget* w = nullptr);

/// Twips to logical pixels and back at the given resolution.
inline double twips_to_px(double twips, double dpi) { return twips * dpi / kTwipsPerInch; }
inline double px_to_twips(double px, double dpi) { return px * kTwipsPerInch / dpi; }

/// Twips to whole logical pixels on the screen of `w`, rounded to the nearest.
int twips_to_px(double twips, const QWidget* w = nullptr);

}  // namespace tv::gui

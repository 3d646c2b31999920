#pragma once
// The old program's units against Qt's: layouts in twips (1440 to the inch) against logical
// pixels, colours as 0xBBGGRR, mouse buttons and shift keys as bit codes.
#include <QColor>
#include <Qt>

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

/// A colour 0xBBGGRR.
inline QColor old_colour(int bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

/// Buttons: 1 left, 2 right, 4 middle, added up when several are held.
int old_button(Qt::MouseButtons buttons);
/// Keys held: 1 Shift, 2 Ctrl, 4 Alt.
int old_shift(Qt::KeyboardModifiers keys);

}  // namespace tv::gui

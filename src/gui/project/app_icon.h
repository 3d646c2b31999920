#pragma once
// The program's icon, drawn rather than stored, so it is sharp at every size. The installed
// icon files are drawn by the same routine.
#include <QIcon>

class QPainter;

namespace tv::gui {

QIcon app_icon();

/// Draws the icon on a square of `size` pixels (or points) at the painter's origin.
void paint_app_icon(QPainter& p, int size);

}  // namespace tv::gui

#pragma once
// One printed page of a PrintJob, painted on any device (printer, PDF, image).
#include <QRectF>

class QPainter;
class QPixmap;

namespace tv::forms {
struct PrintJob;
}

namespace tv::gui {

/// Paints the page inside `area` (device units): first the picture or the window's image at
/// its size on the screen (shrunk to fit the width), then the heading, larger, and the lines.
void paint_page(QPainter& p, const QRectF& area, const forms::PrintJob& job, const QPixmap* form_image);

}  // namespace tv::gui

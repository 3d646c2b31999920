#include "gui/platform/page_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

#include "forms/picture_box.h"
#include "forms/platform.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"

namespace tv::gui {

namespace {

QFont page_font(const std::string& family, double points, bool bold = false) {
    QFont f;
    f.setFamilies({QString::fromStdString(family), QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"),
                   QStringLiteral("Sans Serif")});
    f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

}  // namespace

void paint_page(QPainter& p, const QRectF& area, const forms::PrintJob& job, const QPixmap* form_image) {
    const double dpi = p.device()->logicalDpiX();
    double y = area.top();
    const double gap = dpi / 6;  // a sixth of an inch between the parts

    if (job.picture != nullptr) {
        const forms::PictureBox& pic = *job.picture;
        double per_twip = dpi / kTwipsPerInch;
        const double w = pic.width() * per_twip;
        if (w > area.width() && w > 0) per_twip *= area.width() / w;
        p.save();
        p.translate(area.left(), y);
        const QRectF drawn(0, 0, pic.width() * per_twip, pic.height() * per_twip);
        p.setClipRect(drawn);
        paint_picture(p, pic, {}, PaintScale{per_twip, dpi / 96.0}, drawn);
        p.restore();
        y += drawn.height() + gap;
    } else if (form_image != nullptr && !form_image->isNull()) {
        // The window as it stands on the screen, at the screen's size.
        const QSizeF logical = form_image->deviceIndependentSize();
        double scale = dpi / 96.0;
        if (logical.width() * scale > area.width()) scale = area.width() / logical.width();
        const QRectF target(area.left(), y, logical.width() * scale, logical.height() * scale);
        p.save();
        p.setRenderHint(QPainter::SmoothPixmapTransform, true);
        p.drawPixmap(target, *form_image, QRectF(form_image->rect()));
        p.restore();
        y += target.height() + gap;
    }

    if (!job.heading.empty()) {
        p.setFont(page_font(job.font, 14, true));
        const QFontMetricsF fm(p.font(), p.device());
        p.setPen(Qt::black);
        p.drawText(QPointF(area.left(), y + fm.ascent()), QString::fromStdString(job.heading));
        y += fm.lineSpacing() * 1.5;
    }
    p.setFont(page_font(job.font, 10));
    const QFontMetricsF fm(p.font(), p.device());
    p.setPen(Qt::black);
    for (const std::string& line : job.lines) {
        if (y + fm.height() > area.bottom()) break;
        p.drawText(QPointF(area.left(), y + fm.ascent()), QString::fromStdString(line));
        y += fm.lineSpacing();
    }
}

}  // namespace tv::gui

#include "gui/project/app_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <cmath>

namespace tv::gui {

// A record trace on a rounded tile: a few cycles growing and dying away.
void paint_app_icon(QPainter& p, int size) {
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r(0.5, 0.5, size - 1.0, size - 1.0);
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, QColor(0x1f, 0x5f, 0x9e));
    g.setColorAt(1, QColor(0x12, 0x3a, 0x66));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawRoundedRect(r, size * 0.2, size * 0.2);
    QPainterPath trace;
    const double mid = size * 0.55, left = size * 0.12, right = size * 0.88;
    const int n = 64;
    for (int i = 0; i <= n; ++i) {
        const double t = static_cast<double>(i) / n;
        const double envelope = std::exp(-std::pow((t - 0.38) / 0.2, 2));
        const double y = mid - size * 0.3 * envelope * std::sin(t * 6.283 * 5.5);
        const QPointF pt(left + t * (right - left), y);
        if (i == 0)
            trace.moveTo(pt);
        else
            trace.lineTo(pt);
    }
    p.setPen(QPen(QColor(0xff, 0x6b, 0x4a), std::max(1.0, size / 22.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(trace);
    p.setPen(QPen(QColor(255, 255, 255, 150), std::max(1.0, size / 48.0)));
    p.drawLine(QPointF(left, mid), QPointF(right, mid));
}

namespace {

QPixmap tile(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    paint_app_icon(p, size);
    return pm;
}

}  // namespace

QIcon app_icon() {
    QIcon icon;
    for (int s : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(tile(s));
    return icon;
}

}  // namespace tv::gui

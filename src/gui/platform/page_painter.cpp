#include "gui/platform/page_painter.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPolygonF>

namespace tv::gui {

namespace {

QColor colour(int rgb) { return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF); }

// The family alone: where it is missing, the system's substitute stands in, the one cairo
// takes too, so that both front ends set the page in the same font.
QFont page_font(const forms::PageFont& f) {
    QFont font(QString::fromStdString(f.family));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(f.size);
    font.setBold(f.bold);
    return font;
}

QPageLayout page_layout(const forms::Page& page) {
    return QPageLayout(QPageSize(QSizeF(page.width, page.height), QPageSize::Point), QPageLayout::Portrait,
                       QMarginsF());
}

}  // namespace

void paint_page(QPainter& p, const forms::Page& page, double per_point) {
    auto at = [&](double x, double y) { return QPointF(x * per_point, y * per_point); };
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    forms::PageRect clip;
    for (const forms::PageOp& op : page.ops) {
        if (!(op.clip == clip)) {
            if (op.clip.empty())
                p.setClipping(false);
            else
                p.setClipRect(QRectF(at(op.clip.x, op.clip.y), QSizeF(op.clip.w * per_point, op.clip.h * per_point)));
            clip = op.clip;
        }
        switch (op.kind) {
            case forms::PageOp::Kind::Line:
                if (op.colour < 0) break;
                p.setPen(QPen(colour(op.colour), op.width * per_point, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
                p.drawLine(at(op.x1, op.y1), at(op.x2, op.y2));
                break;
            case forms::PageOp::Kind::Rect: {
                const QRectF r(at(op.x1, op.y1), at(op.x2, op.y2));
                if (op.fill >= 0) p.fillRect(r, colour(op.fill));
                if (op.colour < 0 || op.width <= 0) break;
                p.setPen(QPen(colour(op.colour), op.width * per_point, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
                p.setBrush(Qt::NoBrush);
                p.drawRect(r);
                break;
            }
            case forms::PageOp::Kind::Dot:
                if (op.colour < 0) break;
                p.setPen(Qt::NoPen);
                p.setBrush(colour(op.colour));
                p.drawEllipse(at(op.x1, op.y1), op.width * per_point, op.width * per_point);
                break;
            case forms::PageOp::Kind::Polyline: {
                if (op.colour < 0 || op.points.size() < 4) break;
                QPolygonF corners;
                for (std::size_t i = 0; i + 1 < op.points.size(); i += 2) corners << at(op.points[i], op.points[i + 1]);
                p.setPen(QPen(colour(op.colour), op.width * per_point, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
                p.setBrush(Qt::NoBrush);
                p.drawPolyline(corners);
                break;
            }
            case forms::PageOp::Kind::Text: {
                if (op.colour < 0) break;
                p.setFont(page_font(op.font));
                // The operation gives the top-left corner; Qt sets text on its base line.
                const QFontMetricsF fm(p.font(), p.device());
                p.setPen(colour(op.colour));
                p.drawText(at(op.x1, op.y1) + QPointF(0, fm.ascent()), QString::fromStdString(op.text));
                break;
            }
        }
    }
    p.restore();
}

bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) {
    QByteArray data;
    QBuffer buffer(&data);
    if (!buffer.open(QIODevice::WriteOnly)) {
        reason = buffer.errorString().toStdString();
        return false;
    }
    const forms::Page blank;
    const forms::Page& first = pages.empty() ? blank : pages.front();
    bool done = false;
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(QString::fromStdString(first.title));
        writer.setPageLayout(page_layout(first));
        QPainter p;
        if (p.begin(&writer)) {
            for (std::size_t i = 0; i < pages.size(); ++i) {
                if (i > 0) {
                    writer.setPageLayout(page_layout(pages[i]));
                    writer.newPage();
                }
                paint_page(p, pages[i], writer.resolution() / 72.0);
            }
            done = p.end();
        }
    }
    buffer.close();
    if (!done || data.isEmpty()) {
        reason = "the PDF could not be made";
        return false;
    }
    bytes.assign(data.constData(), static_cast<std::size_t>(data.size()));
    return true;
}

double page_text_width(const std::string& text, const forms::PageFont& font) {
    // Measured at 1200 dots an inch, where the glyphs' hinting no longer rounds the widths.
    static const QImage device = [] {
        QImage image(1, 1, QImage::Format_RGB32);
        image.setDotsPerMeterX(47244);
        image.setDotsPerMeterY(47244);
        return image;
    }();
    const QFontMetricsF fm(page_font(font), &device);
    return fm.horizontalAdvance(QString::fromStdString(text)) * 72.0 / device.logicalDpiX();
}

}  // namespace tv::gui

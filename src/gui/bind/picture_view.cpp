#include "gui/bind/picture_view.h"

#include <QLayout>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "forms/controls.h"
#include "forms/picture_box.h"
#include "gui/bind/old_units.h"
#include "text/runtime_error.h"

namespace tv::gui {

namespace {

// Liang-Barsky: the part of a segment inside r, so that far-off coordinates never reach the
// raster engine and unseen segments cost nothing.
std::optional<QLineF> clip(QLineF l, const QRectF& r) {
    double x1 = l.x1(), y1 = l.y1(), dx = l.x2() - x1, dy = l.y2() - y1;
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(dx) || !std::isfinite(dy)) return std::nullopt;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1 - r.left(), r.right() - x1, y1 - r.top(), r.bottom() - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return std::nullopt;
            continue;
        }
        double t = q[i] / p[i];
        if (p[i] < 0) {
            if (t > t1) return std::nullopt;
            t0 = std::max(t0, t);
        } else {
            if (t < t0) return std::nullopt;
            t1 = std::min(t1, t);
        }
    }
    return QLineF(x1 + t0 * dx, y1 + t0 * dy, x1 + t1 * dx, y1 + t1 * dy);
}

// Lines along an axis land on pixel centres and are drawn without smoothing, so ticks and
// base lines stay crisp; slanted lines (the curves) are smoothed.
struct Stroke {
    QColor colour;
    double width;
    bool smooth;
    bool operator==(const Stroke& o) const { return colour == o.colour && width == o.width && smooth == o.smooth; }
};

class LineBatch {
public:
    explicit LineBatch(QPainter& p) : p_(p) {}
    ~LineBatch() { flush(); }
    void add(const Stroke& s, QLineF l) {
        if (!lines_.isEmpty() && !(s == stroke_)) flush();
        stroke_ = s;
        if (!s.smooth) {
            // Odd widths sit on pixel centres, even widths on pixel edges.
            const double off = std::fmod(std::max(1.0, std::round(s.width)), 2.0) == 1.0 ? 0.5 : 0.0;
            if (l.x1() == l.x2()) {
                const double x = std::floor(l.x1()) + off;
                l = QLineF(x, l.y1(), x, l.y2());
            } else {
                const double y = std::floor(l.y1()) + off;
                l = QLineF(l.x1(), y, l.x2(), y);
            }
        }
        lines_.push_back(l);
    }
    void flush() {
        if (lines_.isEmpty()) return;
        QPen pen(stroke_.colour, stroke_.width, Qt::SolidLine, stroke_.smooth ? Qt::RoundCap : Qt::SquareCap);
        p_.setPen(pen);
        p_.setRenderHint(QPainter::Antialiasing, stroke_.smooth);
        p_.drawLines(lines_);
        lines_.clear();
    }

private:
    QPainter& p_;
    Stroke stroke_{};
    QList<QLineF> lines_;
};

QFont picture_font(const forms::PictureBox& pic) {
    QFont f;
    f.setFamilies({QString::fromStdString(pic.font_name), QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"),
                   QStringLiteral("Sans Serif")});
    f.setPointSizeF(pic.font_size > 0 ? pic.font_size : 8.25);
    return f;
}

void draw_line(LineBatch& batch, const QRectF& area, QColor colour, double width, QLineF l) {
    const bool axis = l.x1() == l.x2() || l.y1() == l.y2();
    if (auto c = clip(l, area)) batch.add({colour, width, !axis}, *c);
}

}  // namespace

void paint_operations(QPainter& p, const forms::PictureBox& pic, std::size_t first, const PaintScale& scale,
                      const QRectF& exposed) {
    const double s = scale.per_twip;
    const QColor fore = old_colour(pic.fore_color);
    p.save();
    if (first == 0) p.fillRect(exposed, old_colour(pic.back_color));
    const QRectF area = exposed.adjusted(-8 * scale.pen, -8 * scale.pen, 8 * scale.pen, 8 * scale.pen);
    p.setFont(picture_font(pic));
    const QFontMetricsF fm(p.font(), p.device());
    {
        LineBatch batch(p);
        const std::vector<forms::DrawOp>& ops = pic.ops();
        for (std::size_t i = first; i < ops.size(); ++i) {
            const forms::DrawOp& op = ops[i];
            const QColor colour = op.color < 0 ? fore : old_colour(op.color);
            const double width = std::max(1, op.width) * scale.pen;
            switch (op.kind) {
                case forms::DrawOp::Kind::Line:
                    draw_line(batch, area, colour, width, QLineF(op.x1 * s, op.y1 * s, op.x2 * s, op.y2 * s));
                    break;
                case forms::DrawOp::Kind::Point: {
                    const QPointF pt(op.x1 * s, op.y1 * s);
                    if (area.contains(pt)) draw_line(batch, area, colour, width, QLineF(pt, pt));
                    break;
                }
                case forms::DrawOp::Kind::Text: {
                    batch.flush();
                    const QString t = QString::fromStdString(op.text);
                    const QPointF at(op.x1 * s, op.y1 * s);
                    const QRectF box(at, QSizeF(fm.horizontalAdvance(t), fm.height()));
                    if (!box.intersects(area)) break;
                    p.setRenderHint(QPainter::Antialiasing, true);
                    p.setPen(colour);
                    p.drawText(QPointF(at.x(), at.y() + fm.ascent()), t);
                    break;
                }
            }
        }
    }
    p.restore();
}

void paint_overlays(QPainter& p, const forms::PictureBox& pic, const std::vector<const forms::Control*>& overlays,
                    const PaintScale& scale, const QRectF& exposed) {
    const double s = scale.per_twip;
    p.save();
    const QRectF area = exposed.adjusted(-8 * scale.pen, -8 * scale.pen, 8 * scale.pen, 8 * scale.pen);
    {
        LineBatch batch(p);
        // The line and shape objects placed on the picture, in its user scale.
        for (const forms::Control* c : overlays) {
            if (!c->visible()) continue;
            try {
                if (const auto* l = dynamic_cast<const forms::LineShape*>(c)) {
                    // A line object not placed yet has both ends at one point: nothing to see.
                    if (l->x1() == l->x2() && l->y1() == l->y2()) continue;
                    draw_line(batch, area, old_colour(l->color), std::max(1, l->width) * scale.pen,
                              QLineF(pic.x_to_twips(l->x1()) * s, pic.y_to_twips(l->y1()) * s,
                                     pic.x_to_twips(l->x2()) * s, pic.y_to_twips(l->y2()) * s));
                } else if (const auto* sh = dynamic_cast<const forms::Shape*>(c)) {
                    batch.flush();
                    QRectF r(QPointF(pic.x_to_twips(sh->left()) * s, pic.y_to_twips(sh->top()) * s),
                             QSizeF(pic.dx_to_twips(sh->width()) * s, pic.dy_to_twips(sh->height()) * s));
                    r = r.normalized();
                    if (r.intersects(area)) p.fillRect(r, old_colour(sh->color));
                }
            } catch (const text::RuntimeError&) {
                // a picture without a usable scale shows no objects
            }
        }
    }
    p.restore();
}

void paint_picture(QPainter& p, const forms::PictureBox& pic, const std::vector<const forms::Control*>& overlays,
                   const PaintScale& scale, const QRectF& exposed) {
    paint_operations(p, pic, 0, scale, exposed);
    paint_overlays(p, pic, overlays, scale, exposed);
}

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureView::set_picture(const forms::PictureBox* picture, std::vector<const forms::Control*> overlays) {
    if (picture != picture_) cache_ = QPixmap();
    picture_ = picture;
    overlays_ = std::move(overlays);
    if (picture_ != nullptr) follow_model();
    update();
}

namespace {

bool layout_holds(const QLayout* layout, const QWidget* w) {
    if (layout == nullptr) return false;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (item->widget() == w) return true;
        if (layout_holds(item->layout(), w)) return true;
    }
    return false;
}

}  // namespace

void PictureView::follow_model() {
    if (picture_ == nullptr) return;
    const QSize size = sizeHint();
    if (parentWidget() != nullptr && layout_holds(parentWidget()->layout(), this)) {
        if (size != minimumSize() || size != maximumSize()) setFixedSize(size);
    } else {
        const QPoint at(twips_to_px(picture_->left(), this), twips_to_px(picture_->top(), this));
        if (geometry() != QRect(at, size)) setGeometry(QRect(at, size));
    }
}

QSize PictureView::sizeHint() const {
    if (picture_ == nullptr) return QWidget::sizeHint().isValid() ? QWidget::sizeHint() : QSize(100, 60);
    return {twips_to_px(picture_->width(), this), twips_to_px(picture_->height(), this)};
}

void PictureView::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    if (picture_ == nullptr) {
        p.fillRect(event->rect(), palette().base());
        return;
    }
    const double dpi = logical_dpi(this);
    const PaintScale scale{dpi / kTwipsPerInch, 1.0};
    if (update_cache(dpi)) {
        // An expose or a slide of the plot copies from the image; the curve is not replayed.
        const QRect r = event->rect();
        p.drawPixmap(r, cache_, QRectF(QPointF(r.topLeft()) * cache_ratio_, QSizeF(r.size()) * cache_ratio_).toRect());
        paint_overlays(p, *picture_, overlays_, scale, QRectF(r));
    } else {
        paint_picture(p, *picture_, overlays_, scale, QRectF(event->rect()));
    }
}

bool PictureView::update_cache(double dpi) {
    const qreal ratio = devicePixelRatioF();
    const QSize device(static_cast<int>(std::ceil(width() * ratio)), static_cast<int>(std::ceil(height() * ratio)));
    // Beyond what an image can hold, the picture is painted straight from the model.
    constexpr int kLargest = 32767;
    if (device.isEmpty() || device.width() > kLargest || device.height() > kLargest) {
        cache_ = QPixmap();
        return false;
    }
    const std::size_t count = picture_->ops().size();
    const bool fresh = cache_.isNull() || cache_.size() != device || cache_ratio_ != ratio || cache_dpi_ != dpi ||
                       cache_revision_ != picture_->revision() || cache_back_ != picture_->back_color ||
                       cache_fore_ != picture_->fore_color || cache_font_ != picture_->font_name ||
                       cache_font_size_ != picture_->font_size || count < cache_ops_;
    if (!fresh && count == cache_ops_) return true;
    if (fresh) {
        cache_ = QPixmap(device);
        cache_.setDevicePixelRatio(ratio);
        cache_ops_ = 0;
        cache_revision_ = picture_->revision();
        cache_dpi_ = dpi;
        cache_ratio_ = ratio;
        cache_back_ = picture_->back_color;
        cache_fore_ = picture_->fore_color;
        cache_font_ = picture_->font_name;
        cache_font_size_ = picture_->font_size;
        ++cache_rebuilds_;
    }
    QPainter p(&cache_);
    // Operations are only ever added between two clears: the new ones go over the image.
    paint_operations(p, *picture_, cache_ops_, PaintScale{dpi / kTwipsPerInch, 1.0},
                     QRectF(QPointF(0, 0), QSizeF(size())));
    cache_ops_ = count;
    return true;
}

void PictureView::emit_mouse(int kind, QMouseEvent* event) {
    const double dpi = logical_dpi(this);
    const QPointF pos = event->position();
    // A press or release names the button that changed; a move names the buttons held.
    const int button = kind == 0 ? old_button(event->buttons()) : old_button(event->button());
    emit mouse(kind, button, old_shift(event->modifiers()), px_to_twips(pos.x(), dpi), px_to_twips(pos.y(), dpi));
}

void PictureView::mouseMoveEvent(QMouseEvent* event) { emit_mouse(0, event); }
void PictureView::mousePressEvent(QMouseEvent* event) { emit_mouse(1, event); }
void PictureView::mouseReleaseEvent(QMouseEvent* event) { emit_mouse(2, event); }

}  // namespace tv::gui

#include "gui/bind/picture_view.h"

#include <QLayout>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

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

bool light(const QColor& c) { return 0.299 * c.redF() + 0.587 * c.greenF() + 0.114 * c.blueF() > 0.5; }

// A picture's corner in twips from the outermost picture it stands in.
QPointF origin_of(const forms::PictureBox& pic) {
    QPointF at(0, 0);
    for (const forms::Control* c = &pic; c != nullptr; c = c->container()) {
        const auto* p = dynamic_cast<const forms::PictureBox*>(c);
        if (p == nullptr) break;
        at += QPointF(p->left(), p->top());
    }
    return at;
}

bool is_tick(const forms::DrawOp& op, AxisStrip strip) {
    return op.kind == forms::DrawOp::Kind::Line && (strip == AxisStrip::Below ? op.x1 == op.x2 : op.y1 == op.y2);
}

void paint_grid(QPainter& p, const forms::PictureBox& plot, const PaintScale& scale, const QRectF& area) {
    LineBatch batch(p);
    for (const QLineF& l : plot_grid_lines(plot, scale.grid))
        draw_line(batch, area, QColor(0xDD, 0xE1, 0xE6), scale.pen,
                  QLineF(scale.x(l.x1()), scale.y(l.y1()), scale.x(l.x2()), scale.y(l.y2())));
}

// A strip label's place: centred on its tick (the nearer of the lines drawn just before and
// just after it), beside it on a left strip, and whole inside the strip.
QPointF strip_label_at(const forms::PictureBox& pic, std::size_t i, QPointF at, QSizeF box, const PaintScale& scale) {
    const auto& ops = pic.ops();
    const bool below = scale.strip == AxisStrip::Below;
    const QPointF centre = at + QPointF(box.width() / 2, box.height() / 2);
    const forms::DrawOp* tick = nullptr;
    double nearest = 0;
    for (std::size_t j : {i - 1, i + 1}) {
        if (j >= ops.size() || !is_tick(ops[j], scale.strip)) continue;
        const double d = below ? std::fabs(scale.x(ops[j].x1) - centre.x()) : std::fabs(scale.y(ops[j].y1) - centre.y());
        if (tick == nullptr || d < nearest) {
            tick = &ops[j];
            nearest = d;
        }
    }
    // In whole pixels: the widget is no wider than its picture's width rounded.
    const double w = std::floor(scale.extent_x(pic.width())), h = std::floor(scale.y(pic.height()));
    // A label of a tick out of sight (the plot runs on past the strip) stays wholly out of sight;
    // a tick within half its label of the edge keeps its label, pushed inside.
    if (tick != nullptr) {
        const double t = below ? scale.x(tick->x1) : scale.y(tick->y1), end = below ? w : h;
        const double size = below ? box.width() : box.height();
        if (t < -size / 2 || t > end + size / 2) {
            const double beyond = t < 0 ? std::min(t, 0.0) - size : std::max(t, end);
            return below ? QPointF(beyond, at.y()) : QPointF(at.x(), beyond);
        }
    }
    if (tick == nullptr && !QRectF(at, box).intersects(QRectF(0, 0, w, h))) return at;
    if (tick != nullptr) {
        if (below) {
            at.setX(scale.x(tick->x1) - box.width() / 2);
        } else {
            at.setY(scale.y(tick->y1) - box.height() / 2);
            at.setX(scale.x(std::min(tick->x1, tick->x2)) - box.width() - 3 * scale.pen);
        }
    }
    at.setX(std::clamp(at.x(), 0.0, std::max(0.0, w - box.width())));
    at.setY(std::clamp(at.y(), 0.0, std::max(0.0, h - box.height())));
    return at;
}

QRectF text_box(const forms::PictureBox& pic, std::size_t i, const QFontMetricsF& fm, const PaintScale& scale) {
    const forms::DrawOp& op = pic.ops()[i];
    const QSizeF extent(fm.horizontalAdvance(QString::fromStdString(op.text)), fm.height());
    QPointF at(scale.x(op.x1), scale.y(op.y1));
    if (scale.strip != AxisStrip::None) at = strip_label_at(pic, i, at, extent, scale);
    return {at, extent};
}

}  // namespace

QColor readable_on_white(const QColor& colour) {
    if (!light(colour)) return colour;
    // Down to the lightness of a mid green, hue kept.
    QColor c = colour.toHsv();
    c.setHsvF(c.hsvHueF(), c.hsvSaturationF(), c.valueF() * 0.62);
    return c.toRgb();
}

std::vector<QLineF> plot_grid_lines(const forms::PictureBox& plot, const PlotGrid& grid) {
    std::vector<QLineF> out;
    const QPointF plot_at = origin_of(plot);
    const std::pair<const forms::PictureBox*, AxisStrip> strips[] = {{grid.below, AxisStrip::Below},
                                                                     {grid.left, AxisStrip::Left}};
    for (const auto& [strip, side] : strips) {
        if (strip == nullptr) continue;
        const QPointF shift = origin_of(*strip) - plot_at;
        const auto& ops = strip->ops();
        const bool some_wide = std::any_of(ops.begin(), ops.end(), [side](const forms::DrawOp& o) {
            return is_tick(o, side) && o.width >= 2;
        });
        for (const forms::DrawOp& o : ops) {
            if (!is_tick(o, side) || (some_wide && o.width < 2)) continue;
            out.push_back(side == AxisStrip::Below
                              ? QLineF(o.x1 + shift.x(), 0, o.x1 + shift.x(), plot.height())
                              : QLineF(0, o.y1 + shift.y(), plot.width(), o.y1 + shift.y()));
        }
    }
    return out;
}

void paint_operations(QPainter& p, const forms::PictureBox& pic, std::size_t first, const PaintScale& scale,
                      const QRectF& exposed) {
    const QColor fore = old_colour(pic.fore_color);
    p.save();
    const QColor back = old_colour(pic.back_color);
    if (first == 0) p.fillRect(exposed, back);
    const QRectF area = exposed.adjusted(-8 * scale.pen, -8 * scale.pen, 8 * scale.pen, 8 * scale.pen);
    if (first == 0 && (scale.grid.below != nullptr || scale.grid.left != nullptr)) paint_grid(p, pic, scale, area);
    // Light curves on a light plot are darkened so that they read (a cyan on white).
    const bool darken = scale.grid.below != nullptr && light(back);
    p.setFont(picture_font(pic));
    const QFontMetricsF fm(p.font(), p.device());
    {
        LineBatch batch(p);
        const std::vector<forms::DrawOp>& ops = pic.ops();
        for (std::size_t i = first; i < ops.size(); ++i) {
            const forms::DrawOp& op = ops[i];
            QColor colour = op.color < 0 ? fore : old_colour(op.color);
            if (darken && op.kind != forms::DrawOp::Kind::Text) colour = readable_on_white(colour);
            const double width = std::max(1, op.width) * scale.pen;
            switch (op.kind) {
                case forms::DrawOp::Kind::Line:
                    draw_line(batch, area, colour, width, QLineF(scale.x(op.x1), scale.y(op.y1), scale.x(op.x2), scale.y(op.y2)));
                    break;
                case forms::DrawOp::Kind::Point: {
                    const QPointF pt(scale.x(op.x1), scale.y(op.y1));
                    if (area.contains(pt)) draw_line(batch, area, colour, width, QLineF(pt, pt));
                    break;
                }
                case forms::DrawOp::Kind::Text: {
                    batch.flush();
                    const QRectF box = text_box(pic, i, fm, scale);
                    if (!box.intersects(area)) break;
                    p.setRenderHint(QPainter::Antialiasing, true);
                    p.setPen(colour);
                    p.drawText(QPointF(box.x(), box.y() + fm.ascent()), QString::fromStdString(op.text));
                    break;
                }
            }
        }
    }
    p.restore();
}

void paint_overlays(QPainter& p, const forms::PictureBox& pic, const std::vector<const forms::Control*>& overlays,
                    const PaintScale& scale, const QRectF& exposed) {
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
                              QLineF(scale.x(pic.x_to_twips(l->x1())), scale.y(pic.y_to_twips(l->y1())),
                                     scale.x(pic.x_to_twips(l->x2())), scale.y(pic.y_to_twips(l->y2()))));
                } else if (const auto* sh = dynamic_cast<const forms::Shape*>(c)) {
                    batch.flush();
                    QRectF r(QPointF(scale.x(pic.x_to_twips(sh->left())), scale.y(pic.y_to_twips(sh->top()))),
                             QSizeF(scale.x(pic.dx_to_twips(sh->width())), scale.y(pic.dy_to_twips(sh->height()))));
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

std::vector<QRectF> PictureView::text_boxes() const {
    std::vector<QRectF> out;
    if (picture_ == nullptr) return out;
    const PaintScale scale = screen_scale(logical_dpi(this));
    const QFontMetricsF fm(picture_font(*picture_), this);
    const auto& ops = picture_->ops();
    for (std::size_t i = 0; i < ops.size(); ++i)
        if (ops[i].kind == forms::DrawOp::Kind::Text) out.push_back(text_box(*picture_, i, fm, scale));
    return out;
}

void PictureView::set_axis_strip(AxisStrip strip) {
    strip_ = strip;
    cache_ = QPixmap();
    update();
}

void PictureView::set_grid(PlotGrid grid) {
    grid_ = grid;
    cache_ = QPixmap();
    update();
}

bool layout_holds(const QLayout* layout, const QWidget* w) {
    if (layout == nullptr) return false;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (item->widget() == w) return true;
        if (layout_holds(item->layout(), w)) return true;
    }
    return false;
}

void PictureView::follow_model() {
    if (picture_ == nullptr) return;
    const QSize size = sizeHint();
    if (parentWidget() != nullptr && layout_holds(parentWidget()->layout(), this)) {
        if (grows_) {
            // Stretched to the room it was given, it may still be made smaller again.
            const QSize least(twips_to_px(picture_->width(), this), twips_to_px(picture_->height(), this));
            if (least != minimumSize()) setMinimumSize(least);
        } else if (size != minimumSize() || size != maximumSize()) {
            setFixedSize(size);
        }
    } else {
        const QPoint at(twips_to_px(origin_.x() + (picture_->left() - origin_.x()) * place_.width(), this),
                        twips_to_px(origin_.y() + (picture_->top() - origin_.y()) * place_.height(), this));
        if (geometry() != QRect(at, size)) setGeometry(QRect(at, size));
    }
}

QSize PictureView::sizeHint() const {
    if (picture_ == nullptr) return QWidget::sizeHint().isValid() ? QWidget::sizeHint() : QSize(100, 60);
    return {twips_to_px(picture_->width() * stretch_.width(), this),
            twips_to_px(picture_->height() * stretch_.height(), this)};
}

void PictureView::set_stretch(QSizeF content, QSizeF place, QPointF origin) {
    if (content == stretch_ && place == place_ && origin == origin_) return;
    origin_ = origin;
    stretch_ = content;
    place_ = place;
    follow_model();
    update();
}

void PictureView::set_x_zoom(double zoom, double shift) {
    if (zoom == zoom_ && shift == shift_) return;
    zoom_ = zoom;
    shift_ = shift;
    update();
}

void PictureView::set_grows(bool grows) {
    grows_ = grows;
    if (grows) {
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }
    follow_model();
}

PaintScale PictureView::screen_scale(double dpi) const {
    PaintScale scale{dpi / kTwipsPerInch, 1.0, strip_, grid_};
    scale.sx = stretch_.width();
    scale.sy = stretch_.height();
    scale.zoom = zoom_;
    scale.shift = shift_;
    return scale;
}

void PictureView::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    if (picture_ == nullptr) {
        p.fillRect(event->rect(), palette().base());
        return;
    }
    const double dpi = logical_dpi(this);
    const PaintScale scale = screen_scale(dpi);
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
    // The gridlines follow the strips' ticks; a slide of the plot leaves them where they are.
    std::vector<QLineF> grid_lines = plot_grid_lines(*picture_, grid_);
    const bool fresh = cache_grid_ != grid_lines || cache_.isNull() ||
                       cache_.size() != device || cache_ratio_ != ratio || cache_dpi_ != dpi ||
                       cache_revision_ != picture_->revision() || cache_back_ != picture_->back_color ||
                       cache_fore_ != picture_->fore_color || cache_font_ != picture_->font_name ||
                       cache_font_size_ != picture_->font_size || cache_stretch_ != stretch_ ||
                       cache_zoom_ != QPointF(zoom_, shift_) || count < cache_ops_;
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
        cache_stretch_ = stretch_;
        cache_zoom_ = QPointF(zoom_, shift_);
        cache_grid_ = std::move(grid_lines);
        ++cache_rebuilds_;
    }
    QPainter p(&cache_);
    // Operations are only ever added between two clears: the new ones go over the image.
    paint_operations(p, *picture_, cache_ops_, screen_scale(dpi),
                     QRectF(QPointF(0, 0), QSizeF(size())));
    cache_ops_ = count;
    return true;
}

void PictureView::emit_mouse(int kind, QMouseEvent* event) {
    const double dpi = logical_dpi(this);
    const QPointF pos = event->position();
    // A press or release names the button that changed; a move names the buttons held.
    const int button = kind == 0 ? old_button(event->buttons()) : old_button(event->button());
    emit mouse(kind, button, old_shift(event->modifiers()),
               px_to_twips((pos.x() + shift_) / (stretch_.width() * zoom_), dpi),
               px_to_twips(pos.y() / stretch_.height(), dpi));
}

void PictureView::mouseMoveEvent(QMouseEvent* event) { emit_mouse(0, event); }
void PictureView::mousePressEvent(QMouseEvent* event) { emit_mouse(1, event); }
void PictureView::mouseReleaseEvent(QMouseEvent* event) { emit_mouse(2, event); }

}  // namespace tv::gui

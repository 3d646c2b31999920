#pragma once
// The view of a PictureBox: replays what the model recorded, at the screen's resolution, with
// the line and shape objects that stand on it. Promoted from QWidget in the .ui files.
#include <QColor>
#include <QLineF>
#include <QPixmap>
#include <QRectF>
#include <QSizeF>
#include <QWidget>
#include <cstddef>
#include <string>
#include <vector>

class QLayout;
class QPainter;

namespace tv::forms {
class Control;
class PictureBox;
}  // namespace tv::forms

namespace tv::gui {

/// Where a picture stands beside a plot. On the screen a strip's labels are centred on their
/// ticks and kept whole inside it.
enum class AxisStrip { None, Below, Left };

/// What the screen adds to a plot: light gridlines at the ticks of the strips beside it.
struct PlotGrid {
    const forms::PictureBox* below = nullptr;
    const forms::PictureBox* left = nullptr;
};

/// Device units of a page or screen: pixels per twip, and device pixels per screen pixel
/// (for the old pen widths, given in screen pixels); and what the screen draws beyond the
/// recorded operations.
struct PaintScale {
    double per_twip = 96.0 / 1440.0;
    double pen = 1.0;
    AxisStrip strip = AxisStrip::None;
    PlotGrid grid{};
    /// A chart grown with its window draws its coordinates this much wider and taller; texts
    /// keep their size.
    double sx = 1.0;
    double sy = 1.0;
    /// A plot zoomed along X on the screen: drawn `zoom` times wider, `shift` device units to the left.
    double zoom = 1.0;
    double shift = 0.0;
    double x(double twips) const { return twips * per_twip * sx * zoom - shift; }
    /// The width the picture takes, whatever its zoom.
    double extent_x(double twips) const { return twips * per_twip * sx; }
    double y(double twips) const { return twips * per_twip * sy; }
};

/// The gridlines of a plot, in twips of the plot, from the ticks of its strips.
std::vector<QLineF> plot_grid_lines(const forms::PictureBox& plot, const PlotGrid& grid);

/// A curve colour as it reads on white and in grey: light colours (cyan, yellow) are darkened.
QColor readable_on_white(const QColor& colour);

/// Draws the picture's background, recorded operations and overlays (LineShape, Shape on it)
/// with the top-left corner at the painter's origin. Only what meets `exposed` (device units)
/// is drawn.
void paint_picture(QPainter& p, const forms::PictureBox& picture, const std::vector<const forms::Control*>& overlays,
                   const PaintScale& scale, const QRectF& exposed);

/// The parts of paint_picture: the recorded operations from index `first` on (the background
/// too when `first` is 0), and the overlays alone.
void paint_operations(QPainter& p, const forms::PictureBox& picture, std::size_t first, const PaintScale& scale,
                      const QRectF& exposed);
void paint_overlays(QPainter& p, const forms::PictureBox& picture, const std::vector<const forms::Control*>& overlays,
                    const PaintScale& scale, const QRectF& exposed);

/// Whether the layout, or one inside it, places the widget.
bool layout_holds(const QLayout* layout, const QWidget* w);

class PictureView : public QWidget {
    Q_OBJECT
public:
    explicit PictureView(QWidget* parent = nullptr);

    /// The model drawn here; null leaves an empty surface.
    void set_picture(const forms::PictureBox* picture, std::vector<const forms::Control*> overlays = {});
    const forms::PictureBox* picture() const { return picture_; }

    /// Operations painted into the cached image so far, and how often it was painted from the
    /// start: a scroll or an expose only copies from it.
    std::size_t cached_operations() const { return cache_ops_; }
    int cache_rebuilds() const { return cache_rebuilds_; }

    /// A strip beside a plot: its labels are centred on their ticks and stay whole.
    void set_axis_strip(AxisStrip strip);
    /// A plot: light gridlines under its curves, at the strips' ticks.
    void set_grid(PlotGrid grid);
    AxisStrip axis_strip() const { return strip_; }
    /// Where the texts of the picture are painted, in pixels of this view.
    std::vector<QRectF> text_boxes() const;

    /// Size from the model's twips; the position too, unless a layout places the widget.
    void follow_model();

    /// Drawn larger than the model's twips: `content` stretches the drawing and the size,
    /// `place` the position in the container away from `origin` (twips of the container). The
    /// mouse reads in the model's twips still.
    void set_stretch(QSizeF content, QSizeF place, QPointF origin = {});
    QSizeF stretch() const { return stretch_; }
    /// Drawn `zoom` times wider along X inside the same size, `shift` pixels to the left; the
    /// mouse reads in the model's twips still.
    void set_x_zoom(double zoom, double shift);
    double x_zoom() const { return zoom_; }
    double x_shift() const { return shift_; }
    /// In a layout: the model's size is the least, the widget takes what room it is given.
    void set_grows(bool grows);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// A mouse event in twips of this picture: kind 0 move, 1 down, 2 up; button 1 left,
    /// 2 right, 4 middle; shift 1 Shift, 2 Ctrl, 4 Alt.
    void mouse(int kind, int button, int shift, double x_twips, double y_twips);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void emit_mouse(int kind, QMouseEvent* event);
    /// Brings the cached image up to the model: new operations are added to it, anything else
    /// (a clear, a new size, other colours) paints it again. False when no image is kept.
    bool update_cache(double dpi);
    PaintScale screen_scale(double dpi) const;

    const forms::PictureBox* picture_ = nullptr;
    AxisStrip strip_ = AxisStrip::None;
    PlotGrid grid_;
    std::vector<QLineF> cache_grid_;
    std::vector<const forms::Control*> overlays_;
    QSizeF stretch_{1, 1};
    QSizeF place_{1, 1};
    QPointF origin_{0, 0};
    double zoom_ = 1;
    double shift_ = 0;
    bool grows_ = false;

    // The recorded operations painted once; the overlays (cross-hairs) go on top at each paint.
    QPixmap cache_;
    unsigned long cache_revision_ = 0;
    std::size_t cache_ops_ = 0;
    double cache_dpi_ = 0;
    qreal cache_ratio_ = 0;
    int cache_back_ = -1, cache_fore_ = -1;
    std::string cache_font_;
    double cache_font_size_ = 0;
    int cache_rebuilds_ = 0;
    QSizeF cache_stretch_{1, 1};
    QPointF cache_zoom_{1, 0};
};

}  // namespace tv::gui

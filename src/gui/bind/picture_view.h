#pragma once
// The view of a PictureBox: replays what the model recorded, at the screen's resolution, with
// the line and shape objects that stand on it. Promoted from QWidget in the .ui files.
#include <QWidget>
#include <vector>

class QPainter;

namespace tv::forms {
class Control;
class PictureBox;
}  // namespace tv::forms

namespace tv::gui {

/// Device units of a page or screen: pixels per twip, and device pixels per screen pixel
/// (for the old pen widths, given in screen pixels).
struct PaintScale {
    double per_twip = 96.0 / 1440.0;
    double pen = 1.0;
};

/// Draws the picture's background, recorded operations and overlays (LineShape, Shape on it)
/// with the top-left corner at the painter's origin. Only what meets `exposed` (device units)
/// is drawn.
void paint_picture(QPainter& p, const forms::PictureBox& picture, const std::vector<const forms::Control*>& overlays,
                   const PaintScale& scale, const QRectF& exposed);

class PictureView : public QWidget {
    Q_OBJECT
public:
    explicit PictureView(QWidget* parent = nullptr);

    /// The model drawn here; null leaves an empty surface.
    void set_picture(const forms::PictureBox* picture, std::vector<const forms::Control*> overlays = {});
    const forms::PictureBox* picture() const { return picture_; }

    /// Size from the model's twips; the position too, unless a layout places the widget.
    void follow_model();

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

    const forms::PictureBox* picture_ = nullptr;
    std::vector<const forms::Control*> overlays_;
};

}  // namespace tv::gui

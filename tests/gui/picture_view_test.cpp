#include "gui/bind/picture_view.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QMouseEvent>
#include <QWidget>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"

namespace tv::gui {
namespace {

// A viewport of 3000 x 1500 twips holding a plot twice as wide, with a cross-hair on the plot.
class PlotForm : public forms::Form {
public:
    explicit PlotForm(forms::App& app) : forms::Form(app, "PlotForm", "Plot") {
        plot.scale(0, 10, 100, -10);  // x 0..100 across 6000 twips, y +10 at the top
        plot.MouseMove = [this](int button, int shift, double x, double y) {
            moves.push_back({button, shift, x, y});
        };
        Line2.set_visible(false);
    }
    forms::PictureBox& viewport = picture("viewport", 3000, 1500);
    forms::PictureBox& plot = picture("plot", 6000, 1500, &viewport);
    forms::LineShape& Line2 = line_shape("Line2", &plot);
    struct Move {
        int button, shift;
        double x, y;
    };
    std::vector<Move> moves;
};

class PictureViewTest : public ::testing::Test {
protected:
    PictureViewTest() : app(platform), form(app.form<PlotForm>()) {
        viewport = new PictureView(&host);
        viewport->setObjectName("viewport");
        plot = new PictureView(viewport);
        plot->setObjectName("plot");
        bind::all(host, form, app);
        host.resize(400, 200);
        host.show();
        test::settle();
    }
    int px(double twips) const { return twips_to_px(twips, plot); }
    QImage image() {
        test::settle();
        return viewport->grab().toImage();
    }
    /// The colour at logical pixel (x, y), whatever the screen's pixel ratio.
    static QColor at(const QImage& img, int x, int y) {
        const double r = img.devicePixelRatio();
        return img.pixelColor(static_cast<int>((x + 0.5) * r), static_cast<int>((y + 0.5) * r));
    }

    test::FakePlatform platform;
    forms::App app;
    PlotForm& form;
    QWidget host;
    PictureView* viewport;
    PictureView* plot;
};

TEST_F(PictureViewTest, GeometryFollowsTheModelInTwips) {
    EXPECT_EQ(viewport->size(), QSize(px(3000), px(1500)));
    EXPECT_EQ(plot->geometry(), QRect(0, 0, px(6000), px(1500)));
    form.plot.set_left(-1500);  // the scroll bar slides the plot
    EXPECT_EQ(plot->geometry().left(), -px(1500));
    form.plot.set_width(9000);
    EXPECT_EQ(plot->width(), px(9000));
}

TEST_F(PictureViewTest, ReplaysLinesInTheirOldColours) {
    // A red horizontal line at y = 0 (mid-height) and a blue vertical one at x = 25.
    form.plot.line(0, 0, 100, 0, 0x0000FF);
    form.plot.line(25, 10, 25, -10, 0xFF0000);
    form.plot.refresh();
    const QImage img = image();
    const int mid = px(750);
    EXPECT_EQ(at(img, px(600), mid), QColor(255, 0, 0));
    EXPECT_EQ(at(img, px(1500), px(300)), QColor(0, 0, 255));
    EXPECT_EQ(at(img, px(600), px(300)), QColor(255, 255, 255));
}

TEST_F(PictureViewTest, ClearEmptiesThePicture) {
    form.plot.line(0, 0, 100, 0, 0x0000FF);
    form.plot.refresh();
    form.plot.cls();
    const QImage img = image();
    EXPECT_EQ(at(img, px(600), px(750)), QColor(255, 255, 255));
}

TEST_F(PictureViewTest, LineObjectsOnThePictureAreDrawn) {
    form.Line2.color = 0x00FF00;
    form.Line2.set(50, 10, 50, -10);
    form.Line2.set_visible(true);
    QImage img = image();
    EXPECT_EQ(at(img, px(3000) - 1, px(300)), QColor(255, 255, 255));  // past the viewport
    form.plot.set_left(-1500);
    img = image();
    EXPECT_EQ(at(img, px(1500), px(300)), QColor(0, 255, 0));
}

TEST_F(PictureViewTest, MouseMovesArriveInTheUserScale) {
    const QPointF at(px(1500), px(375));  // a quarter across, a quarter down
    QMouseEvent move(QEvent::MouseMove, at, plot->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(plot, &move);
    ASSERT_EQ(form.moves.size(), 1u);
    EXPECT_EQ(form.moves[0].button, 1);
    EXPECT_EQ(form.moves[0].shift, 1);
    EXPECT_NEAR(form.moves[0].x, 25, 0.5);
    EXPECT_NEAR(form.moves[0].y, 5, 0.2);
}

TEST(PaintPicture, TextStandsBelowItsCurrentPoint) {
    test::FakePlatform platform;
    forms::App app(platform);
    PlotForm& form = app.form<PlotForm>();
    form.viewport.set_current_x(0);
    form.viewport.set_current_y(0);
    form.viewport.print("0.5");
    QImage img(200, 100, QImage::Format_RGB32);
    QPainter p(&img);
    paint_picture(p, form.viewport, {}, PaintScale{96.0 / 1440, 1.0}, QRectF(0, 0, 200, 100));
    p.end();
    // Some ink near the top-left corner, none far below it.
    int ink_top = 0, ink_low = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 40; ++x) {
            if (img.pixelColor(x, y).lightness() > 128) continue;
            (y < 20 ? ink_top : ink_low)++;
        }
    EXPECT_GT(ink_top, 5);
    EXPECT_EQ(ink_low, 0);
}

}  // namespace
}  // namespace tv::gui

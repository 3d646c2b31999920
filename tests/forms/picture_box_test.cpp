// The recording picture: user scale to twips, what is recorded, clearing, a scale of no size.
#include "forms/picture_box.h"

#include <gtest/gtest.h>

#include "forms/app.h"
#include "forms/form.h"
#include "support/fake_platform.h"
#include "text/runtime_error.h"

namespace tv::forms {
namespace {

class Chart : public Form {
public:
    explicit Chart(App& app) : Form(app, "Chart", "Chart") {}
    PictureBox& picNemodar = picture("picNemodar", 9165, 3000);
};

class PictureBoxTest : public ::testing::Test {
protected:
    test::FakePlatform platform;
    App app{platform};
    PictureBox& p = app.form<Chart>().picNemodar;
};

TEST_F(PictureBoxTest, WithoutAUserScaleUnitsAreTwips) {
    EXPECT_EQ(p.scale_width(), 9165);
    EXPECT_EQ(p.scale_height(), 3000);
    p.line(10, 20, 30, 40);
    ASSERT_EQ(p.ops().size(), 1u);
    const DrawOp& op = p.ops()[0];
    EXPECT_EQ(op.kind, DrawOp::Kind::Line);
    EXPECT_EQ(op.x1, 10);
    EXPECT_EQ(op.y1, 20);
    EXPECT_EQ(op.x2, 30);
    EXPECT_EQ(op.y2, 40);
    EXPECT_EQ(op.color, -1);
    EXPECT_EQ(op.width, 1);
}

TEST_F(PictureBoxTest, UserScaleMapsOntoTheTwipsOfThePicture) {
    // A record chart: index on x from 0 to 1000, value from r = 0.6 at the top to -0.6 at the foot.
    p.scale(0, 0.6, 1000, -0.6);
    EXPECT_EQ(p.scale_left(), 0);
    EXPECT_EQ(p.scale_top(), 0.6);
    EXPECT_EQ(p.scale_width(), 1000);
    EXPECT_EQ(p.scale_height(), -1.2);
    EXPECT_DOUBLE_EQ(p.x_to_twips(500), 4582.5);
    EXPECT_DOUBLE_EQ(p.y_to_twips(0), 1500);
    EXPECT_DOUBLE_EQ(p.y_to_twips(0.6), 0);
    EXPECT_DOUBLE_EQ(p.y_to_twips(-0.6), 3000);
    EXPECT_DOUBLE_EQ(p.y_to_twips(0.3), 750);
    EXPECT_DOUBLE_EQ(p.dx_to_twips(100), 916.5);
    EXPECT_DOUBLE_EQ(p.dy_to_twips(0.6), -1500);
    EXPECT_DOUBLE_EQ(p.x_from_twips(4582.5), 500);
    EXPECT_DOUBLE_EQ(p.y_from_twips(750), 0.3);
}

TEST_F(PictureBoxTest, OperationsAreRecordedInTwips) {
    p.scale(0, 0.6, 1000, -0.6);
    p.line(0, 0, 1000, 0.3, 255);
    p.pset(500, -0.6, 0xFF0000);
    p.set_draw_width(2);
    p.line(0, 0.6, 0, -0.6);
    ASSERT_EQ(p.ops().size(), 3u);
    EXPECT_DOUBLE_EQ(p.ops()[0].x2, 9165);
    EXPECT_DOUBLE_EQ(p.ops()[0].y2, 750);
    EXPECT_EQ(p.ops()[0].color, 255);
    EXPECT_EQ(p.ops()[1].kind, DrawOp::Kind::Point);
    EXPECT_DOUBLE_EQ(p.ops()[1].x1, 4582.5);
    EXPECT_DOUBLE_EQ(p.ops()[1].y1, 3000);
    EXPECT_EQ(p.ops()[2].width, 2);
    EXPECT_DOUBLE_EQ(p.ops()[2].y2, 3000);
}

TEST_F(PictureBoxTest, DrawingMovesTheCurrentPointAndPrintStartsTheNextLine) {
    p.scale(0, 100, 100, 0);
    p.line(10, 20, 30, 40);
    EXPECT_EQ(p.current_x(), 30);
    EXPECT_EQ(p.current_y(), 40);
    p.set_current_x(50);
    p.set_current_y(80);
    const double line_height = p.text_height();
    p.print("0.4");
    ASSERT_EQ(p.ops().size(), 2u);
    EXPECT_EQ(p.ops()[1].kind, DrawOp::Kind::Text);
    EXPECT_EQ(p.ops()[1].text, "0.4");
    EXPECT_DOUBLE_EQ(p.ops()[1].x1, 4582.5);
    EXPECT_DOUBLE_EQ(p.ops()[1].y1, 600);
    EXPECT_EQ(p.current_x(), 0);
    EXPECT_DOUBLE_EQ(p.current_y(), 80 + line_height);
    EXPECT_LT(line_height, 0);  // the scale runs upward, so a line down is negative
}

TEST_F(PictureBoxTest, TextMetricsComeInTheUserScale) {
    const double twips = platform.text_width_twips("12.5", p.font_name, p.font_size);
    EXPECT_DOUBLE_EQ(p.text_width("12.5"), twips);
    p.scale(0, 0, 2 * 9165, 3000);  // two user units a twip across
    EXPECT_DOUBLE_EQ(p.text_width("12.5"), 2 * twips);
}

TEST_F(PictureBoxTest, ClsClearsAndCounts) {
    p.scale(0, 1, 10, -1);
    p.line(0, 0, 5, 0.5);
    const auto revision = p.revision();
    int repaints = 0;
    p.changed = [&] { ++repaints; };
    p.cls();
    EXPECT_TRUE(p.ops().empty());
    EXPECT_EQ(p.current_x(), 0);
    EXPECT_EQ(p.current_y(), 0);
    EXPECT_EQ(p.revision(), revision + 1);
    EXPECT_EQ(repaints, 1);
    EXPECT_EQ(p.scale_height(), -2);  // the scale stays
    p.refresh();
    EXPECT_EQ(repaints, 2);
}

TEST_F(PictureBoxTest, ScaleOfNoSizeRaisesWhenDrawnOn) {
    p.scale(0, 0, 0, -1);  // an empty record: no width
    for (auto draw : {+[](PictureBox& q) { q.line(0, 0, 1, 1); }, +[](PictureBox& q) { q.pset(0, 0); },
                      +[](PictureBox& q) { q.print("x"); }}) {
        try {
            draw(p);
            ADD_FAILURE();
        } catch (const text::RuntimeError& e) {
            EXPECT_EQ(e.number(), text::kInvalidCall);
        }
    }
    EXPECT_TRUE(p.ops().empty());
    p.scale(0, 0, 1, 0);
    EXPECT_THROW(p.line(0, 0, 1, 1), text::RuntimeError);
}

TEST_F(PictureBoxTest, ResizeKeepsACustomScaleAndFollowsTwipsOtherwise) {
    p.set_width(4 * 9165);
    EXPECT_EQ(p.scale_width(), 4 * 9165);
    p.scale(0, 1, 1000, -1);
    p.set_width(9165);
    EXPECT_EQ(p.scale_width(), 1000);
    EXPECT_DOUBLE_EQ(p.x_to_twips(1000), 9165);
    p.scale_reset();
    EXPECT_EQ(p.scale_width(), 9165);
    EXPECT_EQ(p.scale_top(), 0);
    p.set_height(1000);
    EXPECT_EQ(p.scale_height(), 1000);
}

TEST_F(PictureBoxTest, DrawWidthIsAtLeastOne) {
    p.set_draw_width(0);
    EXPECT_EQ(p.draw_width(), 1);
}

}  // namespace
}  // namespace tv::forms

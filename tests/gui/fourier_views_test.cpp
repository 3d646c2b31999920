// The Fourier window's view: "No. Omega=" opens its boxes, the tick stands in the caption
// column, and the chart takes the room the window is given.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "gui_fixture.h"
#include "windows/fourier/fourier_window.h"

namespace tv::gui {
namespace {

using test::tick;

using FourierViews = test::ViewTest;

TEST_F(FourierViews, FourierTransform) {
    auto& f12 = program.form<windows::Form12>();
    open<windows::Form12>();

    // "No. Omega=" opens the count and Find Omega.
    f12.Check1.set_enabled(true);
    tick(find<QCheckBox>("Check1"));
    EXPECT_TRUE(find<QLineEdit>("Text8")->isEnabled());
    EXPECT_TRUE(find<QPushButton>("Command5")->isEnabled());
    tick(find<QCheckBox>("Check1"));
    EXPECT_FALSE(find<QLineEdit>("Text8")->isEnabled());

    // The checkbox stands in the caption column, right-aligned like the captions below it.
    auto* tick = find<QCheckBox>("Check1");
    auto* caption = find<QLabel>("captionText9");
    EXPECT_LE(std::abs(tick->geometry().right() - caption->geometry().right()), 2);
    expect_chart_takes_spare_room();
}

}  // namespace
}  // namespace tv::gui

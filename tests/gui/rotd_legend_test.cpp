// The response spectrum chart's legend names the RotD curves that were calculated, and only then.
#include <gtest/gtest.h>
#include <QLabel>

#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "windows/spectra/response_spectrum_window.h"

namespace tv::gui {
namespace {

using RotDLegendView = test::ViewTest;

TEST_F(RotDLegendView, ShowsOnlyTheCalculatedCurves) {
    auto& f3 = program.form<windows::Form3>();
    open<windows::Form3>();
    auto* legend = find<QLabel>("chartLegend");
    ASSERT_NE(legend, nullptr);
    EXPECT_TRUE(legend->isHidden());
    f3.rotd50Calculated = true;
    find<PictureView>("picNemodar")->repaint();
    test::settle();
    EXPECT_FALSE(legend->isHidden());
    EXPECT_TRUE(legend->text().contains("RotD50"));
    EXPECT_FALSE(legend->text().contains("RotD100"));
}

}  // namespace
}  // namespace tv::gui

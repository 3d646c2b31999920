// The view of the measures window: a click on Preview reaches the model.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "gui_fixture.h"
#include "windows/measures/measures_window.h"

namespace tv::gui {
namespace {

using MeasuresViews = test::ViewTest;

TEST_F(MeasuresViews, PreviewWithProcessingOffSaysSo) {
    open<windows::MeasuresWindow>();
    EXPECT_EQ(find<QComboBox>("FilterKind")->count(), 4);
    // Processing off: Preview says so instead of processing.
    QTest::mouseClick(find<QPushButton>("Preview"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(find<QLabel>("Message")->text().startsWith("Processing is off"));
    EXPECT_FALSE(find<QPushButton>("Undo")->isEnabled());
}

}  // namespace
}  // namespace tv::gui

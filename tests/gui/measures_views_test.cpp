// The view of the measures window: every control finds its widget, and a click on Preview
// reaches the model.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "gui_fixture.h"
#include "windows/measures/measures_window.h"

namespace tv::gui {
namespace {

using MeasuresViews = test::SingleViewTest;

TEST_F(MeasuresViews, EveryControlIsBoundAndTheButtonsReachTheModel) {
    auto& model = program.form<windows::MeasuresWindow>();
    auto& w = open<windows::MeasuresWindow>();
    expect_all_bound(model, test::Visibility::Matched);
    EXPECT_EQ(find<QComboBox>("FilterKind")->count(), 4);
    // Processing off: Preview says so instead of processing.
    QTest::mouseClick(find<QPushButton>("Preview"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(find<QLabel>("Message")->text().startsWith("Processing is off"));
    EXPECT_FALSE(find<QPushButton>("Undo")->isEnabled());
    test::save_shot(w, "frmMeasures");
}

}  // namespace
}  // namespace tv::gui

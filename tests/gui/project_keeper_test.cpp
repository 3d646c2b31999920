// A project opened from the menu's side: the road done again on the real views, the title bar's
// name and unsaved mark. (The views' steps reach the journal in the binder's tests; a saved road
// opens again with its numbers in the project file's tests.)
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QStandardPaths>
#include <QTimer>

#include "forms/journal_platform.h"
#include "gui/platform/view_registry.h"
#include "gui/project/project_keeper.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "windows/capacity/capacity_window.h"
#include "windows/project/main_frame_window.h"

namespace tv::gui {
namespace {

class KeptProject : public ::testing::Test {
protected:
    KeptProject() : platform(views), journaled(platform, journal), program(journaled) {
        QStandardPaths::setTestModeEnabled(true);  // the recent list goes to a test folder
        register_views(views);
        program.set_journal(&journal);
        program.run([this] { windows::start(program); });
    }
    ~KeptProject() override { platform.release_views(); }

    ViewRegistry views;
    test::ScriptedPlatform platform;
    forms::Journal journal;
    forms::JournalPlatform journaled;
    windows::Program program;
};

TEST_F(KeptProject, TheCapacityRoadComesBackOnTheScreenUnmodified) {
    ProjectKeeper keeper(platform, journaled, program);
    // A message after opening would mean a difference: it is closed so that the test ends.
    QTimer::singleShot(20000, [] {
        if (QWidget* w = QApplication::activeModalWidget()) w->close();
    });
    keeper.open_path(QStringLiteral(TV_SOURCE_DIR "/tests/projects/capacity.tvproj"));
    test::settle();
    auto* f9 = program.if_loaded<windows::Form9>();
    ASSERT_NE(f9, nullptr);
    auto* re1 = platform.view_of(*f9)->findChild<QLineEdit*>("Re1");
    ASSERT_NE(re1, nullptr);
    EXPECT_EQ(re1->text(), "254.9210");
    QMainWindow* frame = platform.frame();
    EXPECT_EQ(frame->windowTitle(), "capacity[*] - Tremorvault");
    EXPECT_FALSE(frame->isWindowModified());
    forms::Action pick;
    pick.kind = forms::ActionKind::Option;
    pick.form = "Form9";
    pick.control = "Op1";
    program.perform(*f9, pick);
    EXPECT_TRUE(frame->isWindowModified());
    EXPECT_EQ(ProjectKeeper::recent().value(0), QStringLiteral(TV_SOURCE_DIR "/tests/projects/capacity.tvproj"));
}

}  // namespace
}  // namespace tv::gui

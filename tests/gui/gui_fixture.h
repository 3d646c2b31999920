#pragma once
// Helpers of the view tests: screenshots, letting queued work run, checks that every control has
// a widget of its kind, fixtures over the models alone or on the real platform, and a platform
// that answers dialogs from queues while the views are real.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <QWidget>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/form.h"
#include "gui/platform/qt_platform.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "support/fake_platform.h"
#include "support/softening_curve.h"
#include "windows/program.h"

namespace tv::test {

/// Saves the widget's image as <build>/gui-screenshots/<name>.png and gives the path.
std::string save_shot(QWidget& widget, const std::string& name);
/// Lets queued refreshes, layouts and paints run.
void settle();

/// Every control of the window finds an object of its kind, hidden when the control is; lines
/// stand on a bound picture.
void expect_all_bound(const QWidget& view, const forms::Form& model);

/// A click on the box of a check box or option, where a user aims: a click in the empty room
/// beside its text is no click.
void tick(QAbstractButton* box);

/// Every label of the view's axis strips, and of the charts drawn whole by their windows, is
/// painted whole inside its picture, and there is one.
void expect_labels_inside_strips(const QWidget& view);

/// No table of the view cuts a heading or a number: each column is as wide as both.
void expect_tables_whole(const QWidget& view);

/// Views over their models alone, on the fake platform; each view opened stays open until the
/// test ends, and find() and expect_chart_takes_spare_room() look at the last.
class ViewTest : public ::testing::Test {
protected:
    ViewTest() : program(platform) { gui::register_views(views); }

    /// The view of a window model, bound, shown at its own size.
    template <class F>
    QWidget& open() {
        opened.emplace_back(views.create(program.form<F>(), program));
        QWidget& w = *opened.back();
        w.show();
        settle();
        return w;
    }

    template <class W>
    W* find(const char* name) {
        return opened.back()->findChild<W*>(name);
    }

    template <class W>
    static W& child(QWidget& view, const char* name) {
        W* w = view.findChild<W*>(name);
        EXPECT_NE(w, nullptr) << name;
        if (w == nullptr) throw std::runtime_error(name);
        return *w;
    }

    static void type_into(QWidget& view, const char* name, const QString& text) {
        auto& box = child<QLineEdit>(view, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    static void click(QWidget& view, const char* name) {
        QTest::mouseClick(&child<QAbstractButton>(view, name), Qt::LeftButton);
        settle();
    }

    /// The window fits the main frame's document area, and what it is given beyond its own
    /// size goes to the chart.
    void expect_chart_takes_spare_room();

    FakePlatform platform;
    windows::Program program;
    gui::ViewRegistry views;
    std::vector<std::unique_ptr<QWidget>> opened;
};

/// QtPlatform with every dialog answered from a queue (empty queue: cancel, Ok, Yes).
class ScriptedPlatform : public Answering<gui::QtPlatform> {
public:
    using Answering::Answering;

    std::optional<std::string> file_dialog(const forms::FileDialogRequest& request) override {
        // A file named on the command line answers as it does on the real platform.
        if (open_answer_pending()) return gui::QtPlatform::file_dialog(request);
        return Answering::file_dialog(request);
    }
};

}  // namespace tv::test

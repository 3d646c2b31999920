// The program as a user drives it: the main frame, "Open/Add Record" for both files of a real
// record, Show Diagram, the charts' gestures, About, Exit. Dialogs are answered from queues;
// everything else is the real views on the offscreen platform.
#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui/chart/chart_card.h"
#include "gui/project/command_line_files.h"
#include "gui_fixture.h"
#include "support/files.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/measures/measures_window.h"
#include "windows/spectra/comparison_window.h"
#include "windows/spectra/design_spectrum_window.h"
#include "windows/spectra/response_spectrum_window.h"
#include "windows/project/about_window.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {
namespace {

void wheel_in(QWidget* w, QPointF at) {
    QWheelEvent e(at, w->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                  false);
    QCoreApplication::sendEvent(w, &e);
    test::settle();
}

void drag(QWidget* w, QPointF from, double dx) {
    QMouseEvent press(QEvent::MouseButtonPress, from, w->mapToGlobal(from), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(w, &press);
    const QPointF to = from + QPointF(dx, 0);
    QMouseEvent move(QEvent::MouseMove, to, w->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(w, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, to, w->mapToGlobal(to), Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(w, &release);
    test::settle();
}

// The real views on the real platform, dialogs answered from queues; the program started with
// its main frame, and both files of a real record at hand.
class ScriptedRun : public ::testing::Test {
protected:
    ScriptedRun() : platform(views), program(platform) { register_views(views); }
    ~ScriptedRun() override { platform.release_views(); }
    void SetUp() override {
        x_file = test::data_path("records/northridge1994_rinaldi_228.txt");
        y_file = test::data_path("records/northridge1994_rinaldi_318.txt");
        if (x_file.empty() || y_file.empty()) GTEST_SKIP() << "record files not found";
        program.run([this] { windows::start(program); });
        frame = platform.frame();
        ASSERT_NE(frame, nullptr);
        frame->resize(1360, 900);
        test::settle();
    }
    /// The widget of a window's view by name.
    template <class W>
    W* in(const forms::Form& form, const char* name) {
        QWidget* v = platform.view_of(form);
        return v ? v->findChild<W*>(name) : nullptr;
    }
    void click(const forms::Form& form, const char* name) {
        auto* b = in<QPushButton>(form, name);
        ASSERT_NE(b, nullptr) << name;
        ASSERT_TRUE(b->isEnabled()) << name;
        QTest::mouseClick(b, Qt::LeftButton);
        test::settle();
    }
    /// Chooses an item of the main frame's menus.
    void choose(const char* action) {
        QAction* a = frame->findChild<QAction*>(action);
        ASSERT_NE(a, nullptr) << action;
        a->trigger();
        test::settle();
    }
    /// "Open/Add Record" for both files of the record, answering "1" and "1" to the prompts.
    void open_record() {
        platform.input_answers = {"1", "1"};
        platform.file_answers = {x_file, y_file};
        choose("menu_open");
        choose("menu_open");
    }
    template <class W>
    W* in_form1(const char* name) {
        return in<W>(program.form<windows::Form1>(), name);
    }
    /// The record opened, its first line typed when given, and its diagram shown.
    windows::Form1& show_record(const char* first_line = nullptr) {
        open_record();
        if (first_line != nullptr) {
            in_form1<QLineEdit>("Xfline")->selectAll();
            QTest::keyClicks(in_form1<QLineEdit>("Xfline"), first_line);
        }
        click(program.form<windows::Form1>(), "Command2");
        return program.form<windows::Form1>();
    }
    /// What a chart's Save Data writes.
    std::string saved(QWidget& card) {
        platform.file_answers = {scratch.file("data.csv")};
        card.findChild<QAction*>("saveChartData")->trigger();
        return test::slurp(scratch.file("data.csv"));
    }
    /// The window maximised: the chart grew, and its labels and the tables are whole.
    void maximise(const forms::Form& form, const QWidget& chart) {
        // From its smallest: a window opened wider than the frame would shrink when maximised.
        platform.window_of(form)->resize(platform.window_of(form)->minimumSizeHint());
        test::settle();
        const QSize before = chart.size();
        platform.window_of(form)->showMaximized();
        test::settle();
        EXPECT_GE(chart.width(), before.width());
        EXPECT_GT(chart.width() + chart.height(), before.width() + before.height() + 100);
        test::expect_labels_inside_strips(*platform.view_of(form));
        test::expect_tables_whole(*platform.view_of(form));
        test::save_shot(*frame, form.name() + "_maximised");
    }
    ViewRegistry views;
    test::ScriptedPlatform platform;
    windows::Program program;
    std::string x_file, y_file;
    QMainWindow* frame = nullptr;
    test::TempDir scratch;
};

TEST_F(ScriptedRun, ShowDiagramDrawsTheChartAndTheGesturesWork) {
    windows::Form1& f1 = show_record("5");
    EXPECT_TRUE(platform.runtime_errors.empty());
    EXPECT_TRUE(platform.messages.empty());
    QWidget* view = platform.view_of(f1);
    test::save_shot(*view, "run_2_diagram_window");
    test::expect_labels_inside_strips(*view);
    test::expect_tables_whole(*view);
    test::save_shot(*frame, "run_2_diagram_frame");

    // The slider widens the plot; the scroll bar slides it under the viewport.
    auto* slider = in_form1<QSlider>("Slider1");
    slider->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    slider->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    test::settle();
    EXPECT_EQ(f1.chart.Slider1.value(), 3);
    auto* plot = in_form1<PictureView>("picNemodar");
    auto* viewport = in_form1<PictureView>("picNemodar1");
    // The window is wider than its own size in this frame: the chart is drawn that much wider.
    const double sx = plot->stretch().width(), sy = plot->stretch().height();
    EXPECT_EQ(plot->width(), twips_to_px(3 * 9165 * sx, plot));
    auto* scroll = in_form1<QScrollBar>("HScroll1");
    EXPECT_TRUE(scroll->isEnabled());
    scroll->setValue(50);
    test::settle();
    EXPECT_EQ(plot->x(), -twips_to_px(5000 * sx, plot));
    test::save_shot(*view, "run_3_scrolled");

    // The slide only moved the plot: its painting was kept and not replayed.
    const int rebuilds = plot->cache_rebuilds();
    scroll->setValue(60);
    test::settle();
    EXPECT_EQ(plot->cache_rebuilds(), rebuilds);
    EXPECT_EQ(plot->cached_operations(), f1.chart.picNemodar.ops().size());
    scroll->setValue(50);
    test::settle();

    // The read-out follows the mouse over the plot: at index 690 (line 690 of the file holds
    // .1671619), with the default time step 0.005.
    const double dpi = logical_dpi(plot);
    const QPointF at(twips_to_px(f1.chart.picNemodar.x_to_twips(690) * sx, dpi), viewport->height() / 3.0);
    ASSERT_GT(at.x() + plot->x(), 0);
    ASSERT_LT(at.x() + plot->x(), viewport->width());
    QMouseEvent move(QEvent::MouseMove, at, plot->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(plot, &move);
    test::settle();
    EXPECT_EQ(in_form1<QLabel>("Label8")->text().toStdString(), "t: 3.45 , Accel: 0.17  ");
    EXPECT_TRUE(f1.chart.Line2.visible());
    EXPECT_NEAR(f1.chart.Line2.x1(), 690, 1e-3);
    // Line3 stands at the sample's height across the plot: a black row of pixels, left and right
    // of the mouse.
    const int row =
        static_cast<int>(std::floor(twips_to_px(f1.chart.picNemodar.y_to_twips(0.1671619f) * sy, dpi)));
    const QImage shown = plot->grab().toImage();
    for (int dx : {-200, -60, 60, 200}) {
        const int col = static_cast<int>(at.x()) + dx;
        EXPECT_EQ(shown.pixel(col, row), qRgb(0, 0, 0)) << "column " << col << ", row " << row;
        EXPECT_NE(shown.pixel(col, row - 3), qRgb(0, 0, 0)) << "column " << col << ", row " << row - 3;
    }
    test::save_shot(*view, "run_4_readout");
}

TEST_F(ScriptedRun, AMaximisedWindowGrowsItsChartWhichZoomsAndHasAMenu) {
    windows::Form1& f1 = show_record();
    auto* container = in_form1<PictureView>("picContainer");
    auto* plot = in_form1<PictureView>("picNemodar");
    const QSize before = container->size();
    platform.window_of(f1)->showMaximized();
    test::settle();
    EXPECT_GT(container->width(), before.width() + 100);
    EXPECT_GT(container->height(), before.height() + 50);
    EXPECT_EQ(in_form1<QScrollBar>("HScroll1")->width(), in_form1<PictureView>("picNemodar1")->width());
    test::expect_labels_inside_strips(*platform.view_of(f1));
    test::save_shot(*frame, "record_window_maximised");

    QStringList menu;
    for (QAction* a : in_form1<QWidget>("chartPanel")->actions()) menu << a->text();
    EXPECT_EQ(menu, QStringList({"&Copy Image", "Save &Image...", "Save &Data..."}));
    EXPECT_TRUE(chart_image(*container, false).startsWith("\x89PNG"));
    EXPECT_TRUE(chart_image(*container, true).contains("<svg"));

    // The wheel zooms in about the pointer, a drag pans by whole scroll steps, a double-click
    // goes back to 1X.
    const auto& pic = f1.chart.picNemodar;
    const double x = 2000;  // twips of the viewport
    const double px_per_twip = twips_to_px(1.0, logical_dpi(plot)) * plot->stretch().width();
    const QPointF at(x * px_per_twip, plot->height() / 2.0);
    wheel_in(plot, at);
    EXPECT_EQ(f1.chart.Slider1.value(), 2);
    EXPECT_EQ(in_form1<QSlider>("Slider1")->value(), 2);
    // The point under the pointer stays within a scroll step.
    EXPECT_NEAR((x - pic.left()) / pic.width(), x / (pic.width() / 2), 100 / pic.width());
    const int scrolled = f1.chart.HScroll1.value();
    drag(plot, at, -1050 * px_per_twip);  // whole steps of 100 twips
    EXPECT_EQ(f1.chart.HScroll1.value(), scrolled + 10);
    EXPECT_EQ(pic.left(), -100.0 * (scrolled + 10));
    QTest::mouseDClick(plot, Qt::LeftButton, Qt::NoModifier, at.toPoint());
    test::settle();
    EXPECT_EQ(f1.chart.Slider1.value(), 1);
}

TEST_F(ScriptedRun, TheGuidesPicturesAtALaptopsSize) {
    // The record road and both procedures in a frame of 1366 x 768, the record window once
    // maximised; scripts/make-screenshot copies them into docs/images. Every window fits.
    EXPECT_EQ(frame->windowTitle(), "Tremorvault");
    EXPECT_TRUE(frame->isVisible());
    frame->resize(1366, 768);
    test::settle();
    windows::Form1& f1 = show_record("5");
    QMdiSubWindow* record = platform.mdi_area()->activeSubWindow();
    ASSERT_NE(record, nullptr);
    record->showMaximized();
    test::settle();
    test::save_shot(*frame, "guide_record_maximised");
    record->showNormal();
    click(f1, "xnext");
    auto& f2 = program.form<windows::Form2>();
    click(f2, "Command1");
    test::save_shot(*frame, "guide_design_spectrum");
    click(f2, "xnext");
    auto& f3 = program.form<windows::Form3>();
    click(f3, "Command1");
    test::save_shot(*frame, "guide_response_spectrum");
    click(f3, "Command4");
    click(program.form<windows::Form4>(), "Command1");
    test::save_shot(*frame, "guide_comparison");
    choose("PUSHOVER");
    test::save_shot(*frame, "guide_coefficient");
    choose("menu_adrs");
    test::save_shot(*frame, "guide_capacity");
    EXPECT_TRUE(platform.runtime_errors.empty());
    QMdiArea* area = platform.mdi_area();
    const QRect room = area->viewport()->rect();
    for (const QMdiSubWindow* window : area->subWindowList()) {
        EXPECT_TRUE(room.contains(window->geometry())) << window->windowTitle().toStdString();
    }

    // The record window is in the Window menu once; choosing it brings it to the front.
    auto* menu = frame->findChild<QMenu*>("window_menu");
    ASSERT_NE(menu, nullptr);
    emit menu->aboutToShow();
    QList<QAction*> form1;
    for (QAction* a : menu->actions())
        if (a->text().contains("Input file parameters")) form1 << a;
    ASSERT_EQ(form1.size(), 1);
    form1[0]->trigger();
    test::settle();
    EXPECT_EQ(area->activeSubWindow(), platform.window_of(f1));
}

TEST_F(ScriptedRun, FilesOnTheCommandLineGoTheOpenAddRecordRoad) {
    const QString samples = QStringLiteral(TV_SOURCE_DIR "/samples/");
    platform.input_answers = {"1", "5"};
    open_command_line_files(platform, {samples + "synthetic_X.txt", samples + "synthetic_Y.txt"});
    EXPECT_EQ(platform.prompts,
              (std::vector<std::string>{"Number of Both Components ?  (Earthquakes)", "Data's First Line ?"}));
    EXPECT_FALSE(platform.open_answer_pending());
    windows::Form1* f1 = program.if_loaded<windows::Form1>();
    ASSERT_NE(f1, nullptr);
    // The Y file too: its four header lines and 2000 samples, under the heading row.
    EXPECT_EQ(f1->Grid2.rows(), 2005);
    EXPECT_EQ(in_form1<QLineEdit>("Xfline")->text(), "5");
    // The X file's header declares its step: offered, and Yes types it into the box.
    EXPECT_EQ(platform.message_texts(), (std::vector<std::string>{"synthetic_X.txt declares a time step of 0.01 s (DT= 0.01 "
                                                           "SEC, line 4); Time Step dt holds 0.005. Take 0.01 s?"}));
    EXPECT_EQ(in_form1<QLineEdit>("xstep")->text(), "0.01");
    QTest::mouseClick(in_form1<QPushButton>("Command2"), Qt::LeftButton);
    test::settle();
    EXPECT_EQ(platform.messages.size(), 1u);
    // The picture of the installed program's metainfo: the frame around the record window.
    const QRect window = platform.window_of(*f1)->geometry();
    QMdiArea* area = platform.mdi_area();
    frame->resize(frame->width() - area->width() + window.right() + 1,
                  frame->height() - area->height() + window.bottom() + 1);
    test::save_shot(*frame, "command_line_record");
}

TEST_F(ScriptedRun, ACancelledPromptDropsTheCommandLineFiles) {
    platform.file_answers = {x_file};
    open_command_line_files(platform, {QString::fromStdString(x_file), QString::fromStdString(y_file)});
    EXPECT_EQ(platform.prompts.size(), 2u);
    EXPECT_FALSE(program.is_loaded<windows::Form1>());
    EXPECT_FALSE(platform.open_answer_pending());
    EXPECT_EQ(platform.file_answers.size(), 1u);  // no dialog was asked for
}

TEST_F(ScriptedRun, AboutWaitsUntilItIsClosed) {
    bool seen = false;
    QTimer::singleShot(30, [&] {
        windows::xhelp* about = program.if_loaded<windows::xhelp>();
        ASSERT_NE(about, nullptr);
        QWidget* v = platform.view_of(*about);
        ASSERT_NE(v, nullptr);
        EXPECT_TRUE(v->isWindow());
        EXPECT_EQ(v->windowTitle(), "About");
        auto* version = v->findChild<QLabel*>("lblVersion");
        ASSERT_NE(version, nullptr);
        EXPECT_TRUE(version->text().startsWith("Version : ")) << version->text().toStdString();
        EXPECT_TRUE(v->isModal());
        test::save_shot(*v, "run_about");
        seen = true;
        QTest::mouseClick(v->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    choose("help");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(program.is_loaded<windows::xhelp>());
}

TEST_F(ScriptedRun, ExitEndsTheProgram) {
    choose("menu_exit");
    EXPECT_TRUE(program.ended());
    EXPECT_TRUE(platform.program_ended());
}

TEST_F(ScriptedRun, ClosingTheFrameEndsTheProgram) {
    frame->close();
    test::settle();
    EXPECT_TRUE(program.ended());
}

// The measures charts and the ADRS and pushover diagrams grow with their
// windows, zoom about the pointer, pan with a drag and save the numbers they draw.
TEST_F(ScriptedRun, TheMeasuresChartsGrowAndSaveWhatTheyDraw) {
    show_record();
    click(program.form<windows::Form1>(), "cmdMeasures");
    auto& m = program.form<windows::MeasuresWindow>();
    auto* plot = in<PictureView>(m, "VelocityPlot");
    maximise(m, *plot);
    const std::string data = saved(*plot);
    EXPECT_EQ(data.substr(0, data.find('\r')), "Time (s),X velocity (m/s),Y velocity (m/s)");
    const auto& f1 = program.form<windows::Form1>();
    EXPECT_EQ(std::count(data.begin(), data.end(), '\n'), 1 + f1.lastLine - f1.firstLine + 1);

    // The wheel at the frame's middle zooms the time of all four charts about it, a drag to the
    // right goes back in time, a double-click shows the whole record again.
    const QPointF middle(plot->width() * (950 + (m.VelocityPlot.width() - 1100) / 2) / m.VelocityPlot.width(),
                         plot->height() / 2.0);
    wheel_in(plot, middle);
    EXPECT_DOUBLE_EQ(m.time_view_span(), 0.8);
    EXPECT_NEAR(m.time_view_from(), 0.1, 1e-9);
    drag(in<PictureView>(m, "HusidPlot"), middle, 40);
    EXPECT_LT(m.time_view_from(), 0.1);
    test::expect_labels_inside_strips(*platform.view_of(m));
    test::save_shot(*frame, "frmMeasures_zoomed");
    QTest::mouseDClick(plot, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
    EXPECT_EQ(m.time_view_span(), 1);
}

TEST_F(ScriptedRun, ThePushoverDiagramZoomsAndTheProceduresDiagramGrows) {
    auto& f6 = program.form<windows::Form6>();
    program.run([&] { f6.show(), f6.Text1.set_text(test::kSofteningCurve); });
    click(f6, "Command2");
    click(f6, "Command3");
    auto* plot = in<PictureView>(f6, "picDiagram");
    auto* strip = in<PictureView>(f6, "xBar");
    const QPointF at(plot->width() / 3.0, plot->height() / 2.0);
    wheel_in(plot, at);
    EXPECT_EQ(plot->x_zoom(), 2);
    EXPECT_EQ(strip->x_zoom(), 2);
    EXPECT_NEAR((at.x() + plot->x_shift()) / 2, at.x(), 1e-9);
    drag(plot, at, -30);
    EXPECT_NEAR(plot->x_shift(), at.x() + 30, 1e-9);
    test::expect_labels_inside_strips(*platform.view_of(f6));
    test::save_shot(*platform.view_of(f6), "pushover_zoomed");
    QTest::mouseDClick(plot, Qt::LeftButton, Qt::NoModifier, at.toPoint());
    EXPECT_EQ(plot->x_zoom(), 1);

    click(f6, "cmdNsp");
    auto& nsp = program.form<windows::NspWindow>();
    program.run([&] { nsp.txtW.set_text("10000"); });
    click(nsp, "cmdCalculate");
    auto* adrs = in<PictureView>(nsp, "picAdrs");
    maximise(nsp, *adrs);
    EXPECT_EQ(saved(*adrs).rfind("Capacity Sd (cm),Capacity Sa (g),Coefficient method demand Sd (cm),", 0), 0u);
}

}  // namespace
}  // namespace tv::gui

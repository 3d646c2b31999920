// The bindings of window models to Qt widgets: every kind of control, the picture that replays
// a recorded drawing, and the table model over a grid.
#include "gui/bind/binder.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QBrush>
#include <QClipboard>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/grid_table_model.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "text/runtime_error.h"

namespace tv::gui {
namespace {

// A window with one control of each kind, and handlers that count.
class KindsForm : public forms::Form {
public:
    explicit KindsForm(forms::App& app) : forms::Form(app, "KindsForm", "Kinds") {
        Text1.Change = [this] { ++changes; };
        Check1.Click = [this] { ++check_clicks; };
        Option2.Click = [this] { ++option_clicks; };
        Command1.Click = [this] { ++presses; };
        Command2.Click = [] { text::raise(text::kDivisionByZero); };
        Combo1.Click = [this] { ++combo_clicks; };
        Slider1.Change = [this] { ++slider_changes; };
        HScroll1.Change = [this] { ++scroll_changes; };
        HScroll1.Scroll = [this] { ++scroll_scrolls; };
        Timer1.OnTimer = [this] { ++ticks; };
        mnuGo.Click = [this] { ++menu_clicks; };
        Label1.Click = [this] { ++label_clicks; };
        Option1.set_value(true);
        Combo1.add_item("one");
        Combo1.add_item("two");
        HScroll1.set_max(10);
        Timer1.set_enabled(false);
    }
    forms::TextBox& Text1 = text_box("Text1", "0.005");
    forms::Label& Label1 = label("Label1", "X Axis Scale : 1X");
    forms::CheckBox& Check1 = check_box("Check1", "Show");
    forms::Frame& Frame1 = frame("Frame1", "Draw");
    forms::OptionButton& Option1 = option("Option1", "Acceleration X", &Frame1);
    forms::OptionButton& Option2 = option("Option2", "Acceleration Y", &Frame1);
    forms::CommandButton& Command1 = button("Command1", "Show Diagram");
    forms::CommandButton& Command2 = button("Command2", "Divide");
    forms::ComboBox& Combo1 = combo("Combo1");
    forms::Slider& Slider1 = slider("Slider1", 1, 10, 1);
    forms::HScrollBar& HScroll1 = hscroll("HScroll1");
    forms::ProgressBar& Bar1 = progress("Bar1");
    forms::Timer& Timer1 = timer("Timer1", 10);
    forms::Grid& Grid1 = grid("Grid1", 5, 2);
    forms::Menu& mnuGo = menu("mnuGo", "Go");

    int changes = 0, check_clicks = 0, option_clicks = 0, presses = 0, combo_clicks = 0, slider_changes = 0,
        scroll_changes = 0, scroll_scrolls = 0, ticks = 0, menu_clicks = 0, label_clicks = 0;
};

template <class W>
W* add(QWidget& parent, const char* name) {
    auto* w = new W(&parent);
    w->setObjectName(name);
    if (parent.layout()) parent.layout()->addWidget(w);
    return w;
}

class BinderTest : public ::testing::Test {
protected:
    BinderTest() : app(platform), form(app.form<KindsForm>()) {
        new QVBoxLayout(&view);
        text = add<QLineEdit>(view, "Text1");
        label = add<QLabel>(view, "Label1");
        check = add<QCheckBox>(view, "Check1");
        frame = add<QGroupBox>(view, "Frame1");
        new QVBoxLayout(frame);
        option1 = add<QRadioButton>(*frame, "Option1");
        option2 = add<QRadioButton>(*frame, "Option2");
        command1 = add<QPushButton>(view, "Command1");
        command2 = add<QPushButton>(view, "Command2");
        combo = add<QComboBox>(view, "Combo1");
        slider = add<QSlider>(view, "Slider1");
        scroll = add<QScrollBar>(view, "HScroll1");
        bar = add<QProgressBar>(view, "Bar1");
        table = add<QTableView>(view, "Grid1");
        action = new QAction(&view);
        action->setObjectName("mnuGo");
        view.addAction(action);
        binder = bind::all(view, form, app);
        view.show();
        test::settle();
    }

    test::FakePlatform platform;
    forms::App app;
    KindsForm& form;
    QWidget view;
    QLineEdit* text;
    QLabel* label;
    QCheckBox* check;
    QGroupBox* frame;
    QRadioButton *option1, *option2;
    QPushButton *command1, *command2;
    QComboBox* combo;
    QSlider* slider;
    QScrollBar* scroll;
    QProgressBar* bar;
    QTableView* table;
    QAction* action;
    bind::Binder* binder;
};

TEST_F(BinderTest, WidgetsStartWithTheModelsState) {
    EXPECT_EQ(text->text(), "0.005");
    EXPECT_EQ(label->text(), "X Axis Scale : 1X");
    EXPECT_EQ(frame->title(), "Draw");
    // Captions answer Alt, each key once in the window, on a word's first letter where it can.
    EXPECT_EQ(option1->text(), "&Acceleration X");
    EXPECT_EQ(option2->text(), "Acceleration &Y");
    EXPECT_TRUE(option1->isChecked());
    EXPECT_FALSE(option2->isChecked());
    EXPECT_EQ(command1->text(), "Show &Diagram");
    EXPECT_EQ(command2->text(), "D&ivide");
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(slider->minimum(), 1);
    EXPECT_EQ(slider->maximum(), 10);
    EXPECT_EQ(scroll->maximum(), 10);
    EXPECT_EQ(action->text(), "&Go");
    // A new caption keeps its key where it can, and a literal & shows as itself.
    form.Command1.set_caption("Hide & Draw");
    EXPECT_EQ(command1->text(), "Hide && &Draw");
    EXPECT_EQ(form.Command1.caption(), "Hide & Draw");
}

TEST_F(BinderTest, TypingReachesTheModelAndFiresChangePerKey) {
    text->setFocus();
    text->end(false);
    QTest::keyClicks(text, "12");
    EXPECT_EQ(form.Text1.text(), "0.00512");
    EXPECT_EQ(form.changes, 2);
}

TEST_F(BinderTest, TheUsersStepsAreKeptAndTheModelsAreNot) {
    forms::Journal journal;
    app.set_journal(&journal);
    text->setFocus();
    text->end(false);
    QTest::keyClicks(text, "1");
    test::tick(check);
    form.Text1.set_text("0.01");
    app.set_journal(nullptr);
    ASSERT_EQ(journal.steps().size(), 2u);
    const auto& typed = std::get<forms::Action>(journal.steps()[0].what);
    EXPECT_EQ(typed.kind, forms::ActionKind::Text);
    EXPECT_EQ(typed.form + "." + typed.control + "=" + typed.text, "KindsForm.Text1=0.0051");
    EXPECT_EQ(std::get<forms::Action>(journal.steps()[1].what).kind, forms::ActionKind::Tick);
    EXPECT_TRUE(journal.modified());
}

TEST_F(BinderTest, ModelTextReachesTheWidgetWithoutAnEcho) {
    form.Text1.set_text("0.01");
    EXPECT_EQ(text->text(), "0.01");
    EXPECT_EQ(form.changes, 1);
    form.Label1.set_caption("X Axis Scale :3X");
    EXPECT_EQ(label->text(), "X Axis Scale :3X");
}

TEST_F(BinderTest, CheckBoxClick) {
    test::tick(check);
    EXPECT_EQ(form.Check1.value(), 1);
    EXPECT_EQ(form.check_clicks, 1);
    form.Check1.set_value(0);
    EXPECT_FALSE(check->isChecked());
}

TEST_F(BinderTest, OptionsAreExclusiveByTheModel) {
    test::tick(option2);
    EXPECT_TRUE(form.Option2.value());
    EXPECT_FALSE(form.Option1.value());
    EXPECT_TRUE(option2->isChecked());
    EXPECT_FALSE(option1->isChecked());
    EXPECT_EQ(form.option_clicks, 1);
    // A click on the option already set leaves it set and fires nothing.
    test::tick(option2);
    EXPECT_TRUE(option2->isChecked());
    EXPECT_EQ(form.option_clicks, 1);
}

TEST_F(BinderTest, ButtonPressGoesThroughTheDispatcher) {
    QTest::mouseClick(command1, Qt::LeftButton);
    EXPECT_EQ(form.presses, 1);
    // An untrapped run-time error is reported and the program goes on.
    QTest::mouseClick(command2, Qt::LeftButton);
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 11);
    QTest::mouseClick(command1, Qt::LeftButton);
    EXPECT_EQ(form.presses, 2);
}

TEST_F(BinderTest, DisabledAndHiddenFollowTheModel) {
    form.Command1.set_enabled(false);
    EXPECT_FALSE(command1->isEnabled());
    QTest::mouseClick(command1, Qt::LeftButton);
    EXPECT_EQ(form.presses, 0);
    form.Command1.set_enabled(true);
    EXPECT_TRUE(command1->isEnabled());
    form.Grid1.set_visible(false);
    EXPECT_TRUE(table->isHidden());
    form.Frame1.set_enabled(false);
    EXPECT_FALSE(option1->isEnabled());
    form.mnuGo.set_enabled(false);
    EXPECT_FALSE(action->isEnabled());
}

TEST_F(BinderTest, ComboSliderScrollAndProgress) {
    emit combo->activated(1);  // what a user's choice emits
    EXPECT_EQ(form.Combo1.list_index(), 1);
    EXPECT_EQ(form.Combo1.text(), "two");
    EXPECT_EQ(form.combo_clicks, 1);

    slider->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(form.Slider1.value(), 2);
    EXPECT_EQ(form.slider_changes, 1);
    form.Slider1.set_value(4);
    EXPECT_EQ(slider->value(), 4);
    EXPECT_EQ(form.slider_changes, 2);  // the model's own change, not an echo

    scroll->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(form.HScroll1.value(), 1);
    EXPECT_EQ(form.scroll_changes, 1);
    scroll->setSliderDown(true);
    scroll->setSliderPosition(5);
    scroll->setSliderDown(false);
    EXPECT_EQ(form.HScroll1.value(), 5);
    EXPECT_EQ(form.scroll_scrolls, 1);

    form.Bar1.set_value(25);
    EXPECT_EQ(bar->value(), 250);
}

TEST_F(BinderTest, MenuAndLabelClicks) {
    action->trigger();
    EXPECT_EQ(form.menu_clicks, 1);
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_EQ(form.label_clicks, 1);
}

TEST_F(BinderTest, TimerTicksWhileEnabled) {
    test::settle();
    QTest::qWait(40);
    EXPECT_EQ(form.ticks, 0);
    form.Timer1.set_enabled(true);
    QTest::qWait(80);
    EXPECT_GT(form.ticks, 0);
    form.Timer1.set_enabled(false);
    const int ticks = form.ticks;
    QTest::qWait(40);
    EXPECT_EQ(form.ticks, ticks);
}

TEST_F(BinderTest, TableSelectionAndCurrentRowBothWays) {
    for (int r = 1; r < 5; ++r) form.Grid1.set_text(r, 0, std::to_string(r));
    int row_changes = 0;
    form.Grid1.RowColChange = [&] { ++row_changes; };
    test::settle();
    auto* m = qobject_cast<GridTableModel*>(table->model());
    ASSERT_NE(m, nullptr);
    table->setCurrentIndex(m->index(2, 1));  // as a click on line 3 does
    EXPECT_EQ(form.Grid1.row(), 3);
    EXPECT_EQ(form.Grid1.col(), 1);
    EXPECT_GE(row_changes, 1);
    EXPECT_EQ(form.Grid1.selected_rows(), (std::set<int>{3}));
    form.Grid1.set_selected_rows({1, 4});
    test::settle();
    std::set<int> shown;
    for (const QModelIndex& i : table->selectionModel()->selectedIndexes()) shown.insert(m->grid_row(i.row()));
    EXPECT_EQ(shown, (std::set<int>{1, 4}));
}

TEST_F(BinderTest, CtrlCCopiesTheSelectionOrTheWholeTableWithTheHeadings) {
    form.Grid1.set_text(0, 0, "T (s)");
    form.Grid1.set_text(0, 1, "Sa (g)");
    for (int r = 1; r < 5; ++r) form.Grid1.set_text(r, 0, std::to_string(r));
    test::settle();
    EXPECT_EQ(table->contextMenuPolicy(), Qt::ActionsContextMenu);
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    table->setFocus();
    QTest::keySequence(table, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "T (s)\tSa (g)\n1\t\n2\t\n3\t\n4\t\n");
    form.Grid1.set_selected_rows({3});
    test::settle();
    QTest::keySequence(table, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "T (s)\tSa (g)\n3\t\n");
}

TEST_F(BinderTest, DetachedBinderNeitherListensNorTouches) {
    binder->detach();
    form.Text1.set_text("9");
    EXPECT_EQ(text->text(), "0.005");
    QTest::mouseClick(command1, Qt::LeftButton);
    EXPECT_EQ(form.presses, 0);
    EXPECT_FALSE(form.Text1.changed);
}

// The picture: geometry in twips, the recorded drawing replayed, mouse moves in the user scale.
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

TEST_F(PictureViewTest, ReplaysLinesInTheirOldColoursUntilCleared) {
    // A red horizontal line at y = 0 (mid-height) and a blue vertical one at x = 25.
    form.plot.line(0, 0, 100, 0, 0x0000FF);
    form.plot.line(25, 10, 25, -10, 0xFF0000);
    form.plot.refresh();
    const QImage img = image();
    const int mid = px(750);
    EXPECT_EQ(at(img, px(600), mid), QColor(255, 0, 0));
    EXPECT_EQ(at(img, px(1500), px(300)), QColor(0, 0, 255));
    EXPECT_EQ(at(img, px(600), px(300)), QColor(255, 255, 255));
    form.plot.cls();  // clears the picture
    EXPECT_EQ(at(image(), px(600), mid), QColor(255, 255, 255));
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

TEST_F(PictureViewTest, PaintedTextStandsBelowItsCurrentPoint) {
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

// The table model over a grid: the heading row, hidden rows and columns, alignment and colours.
class TableForm : public forms::Form {
public:
    explicit TableForm(forms::App& app) : forms::Form(app, "TableForm", "Table") {}
    forms::Grid& G = grid("G", 4, 2);
};

// Collects what QAbstractItemModelTester reports.
std::vector<QString>* g_messages = nullptr;
void collect(QtMsgType, const QMessageLogContext&, const QString& msg) {
    if (g_messages != nullptr) g_messages->push_back(msg);
}

class GridTableModelTest : public ::testing::Test {
protected:
    GridTableModelTest() : app(platform), form(app.form<TableForm>()), grid(form.G) {
        grid.set_text(0, 0, "Acceleration");
        grid.set_text(0, 1, "Acceleration with Scale");
        for (int r = 1; r < 4; ++r) {
            grid.set_text(r, 0, "a" + std::to_string(r));
            grid.set_text(r, 1, "b" + std::to_string(r));
        }
    }
    test::FakePlatform platform;
    forms::App app;
    TableForm& form;
    forms::Grid& grid;
};

TEST_F(GridTableModelTest, RowZeroIsTheHeaderAndRowsKeepTheirNumbers) {
    GridTableModel m(grid);
    EXPECT_EQ(m.rowCount(), 3);
    EXPECT_EQ(m.columnCount(), 2);
    EXPECT_EQ(m.headerData(0, Qt::Horizontal).toString(), "Acceleration");
    EXPECT_EQ(m.headerData(1, Qt::Horizontal).toString(), "Acceleration with Scale");
    EXPECT_EQ(m.data(m.index(0, 0)).toString(), "a1");
    EXPECT_EQ(m.data(m.index(2, 1)).toString(), "b3");
    // The vertical header names the grid row, which is the line of the file.
    EXPECT_EQ(m.headerData(0, Qt::Vertical).toInt(), 1);
}

TEST_F(GridTableModelTest, HiddenRowsAndColumnsAreLeftOut) {
    grid.set_row_hidden(2, true);
    grid.set_col_hidden(0, true);
    GridTableModel m(grid);
    ASSERT_EQ(m.rowCount(), 2);
    ASSERT_EQ(m.columnCount(), 1);
    EXPECT_EQ(m.data(m.index(1, 0)).toString(), "b3");
    EXPECT_EQ(m.headerData(1, Qt::Vertical).toInt(), 3);
    EXPECT_EQ(m.grid_row(1), 3);
    EXPECT_EQ(m.table_row(2), -1);
    EXPECT_EQ(m.table_row(3), 1);
    EXPECT_EQ(m.table_col(1), 0);
}

TEST_F(GridTableModelTest, NoHeaderRowWhenTheGridHasNoFixedRow) {
    grid.set_fixed_rows(0);
    GridTableModel m(grid);
    EXPECT_EQ(m.rowCount(), 4);
    EXPECT_EQ(m.data(m.index(0, 0)).toString(), "Acceleration");
    EXPECT_EQ(m.headerData(1, Qt::Horizontal).toInt(), 1);
}

TEST_F(GridTableModelTest, AlignmentCodesAndCellColours) {
    grid.set_col_alignment(0, 4);
    grid.set_col_alignment(1, 7);
    grid.set_cell_back_color(1, 1, 0x0000FF);
    GridTableModel m(grid);
    EXPECT_EQ(m.data(m.index(0, 0), Qt::TextAlignmentRole).toInt(), int(Qt::AlignHCenter | Qt::AlignVCenter));
    EXPECT_EQ(m.data(m.index(0, 1), Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    // 0xBBGGRR: 0x0000FF is red.
    EXPECT_EQ(m.data(m.index(0, 1), Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0));
    EXPECT_FALSE(m.data(m.index(0, 0), Qt::BackgroundRole).isValid());
    // Black would not read on the saturated red: its text is white.
    EXPECT_EQ(m.data(m.index(0, 1), Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
    EXPECT_FALSE(m.data(m.index(0, 0), Qt::ForegroundRole).isValid());
    // General alignment: numbers right, words left.
    EXPECT_EQ(grid_alignment(9, true), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(grid_alignment(9, false), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(grid_alignment(1, true), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(GridTableModelTest, StructureChangesOnlyInSync) {
    GridTableModel m(grid);
    QSignalSpy resets(&m, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&m, &QAbstractItemModel::dataChanged);
    grid.set_rows(10);
    // Until the view is told, it sees the table it knew; the gone or new cells read as nothing.
    EXPECT_EQ(m.rowCount(), 3);
    m.sync();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(m.rowCount(), 9);
    grid.set_text(5, 1, "x");
    m.sync();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m.data(m.index(4, 1)).toString(), "x");
    grid.set_rows(2);
    EXPECT_FALSE(m.data(m.index(4, 1)).isValid());
    m.sync();
    EXPECT_EQ(m.rowCount(), 1);
}

TEST_F(GridTableModelTest, PassesTheItemModelTester) {
    std::vector<QString> messages;
    g_messages = &messages;
    QtMessageHandler old = qInstallMessageHandler(collect);
    {
        GridTableModel m(grid);
        QAbstractItemModelTester tester(&m, QAbstractItemModelTester::FailureReportingMode::Warning);
        grid.set_rows(50);
        for (int r = 1; r < 50; ++r) grid.set_text(r, 0, std::to_string(r * 0.01));
        m.sync();
        for (int r = 10; r < 20; ++r) grid.set_row_hidden(r, true);
        m.sync();
        grid.set_cols(3);
        grid.set_col_hidden(1, true);
        m.sync();
        grid.set_text(3, 2, "z");
        m.sync();
        grid.set_rows(1);
        m.sync();
        EXPECT_EQ(m.rowCount(), 0);
        grid.set_rows(0);
        m.sync();
        m.detach();
        EXPECT_EQ(m.rowCount(), 0);
    }
    qInstallMessageHandler(old);
    g_messages = nullptr;
    for (const QString& msg : messages) EXPECT_FALSE(msg.contains("FAIL")) << msg.toStdString();
}

}  // namespace
}  // namespace tv::gui

// The controls: the event chains of the simple ones (what fires when code or a user changes a
// control), the table of text cells and the recording picture.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "forms/app.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/picture_box.h"
#include "support/fake_platform.h"
#include "support/tables.h"
#include "text/runtime_error.h"

namespace tv::forms {
namespace {

// A window with one of each kind; every handler writes its name into `fired`.
class Panel : public Form {
public:
    explicit Panel(App& app) : Form(app, "Panel", "Panel") {
        Text1.Change = [this] { fired.push_back("Text1_Change"); };
        Text2.Change = [this] {
            fired.push_back("Text2_Change");
            Text3.set_text("");  // a result goes stale when its input changes
        };
        Text3.Change = [this] { fired.push_back("Text3_Change"); };
        Check1.Click = [this] {
            fired.push_back("Check1_Click");
            if (Check1.value() == 1) Check2.set_value(0);
        };
        Check2.Click = [this] {
            fired.push_back("Check2_Click");
            if (Check2.value() == 1) Check1.set_value(0);
        };
        Option1.Click = [this] { fired.push_back("Option1_Click"); };
        Option2.Click = [this] { fired.push_back("Option2_Click"); };
        Option3.Click = [this] { fired.push_back("Option3_Click"); };
        Option4.Click = [this] { fired.push_back("Option4_Click"); };
        Command1.Click = [this] { fired.push_back("Command1_Click"); };
        Combo1.Click = [this] { fired.push_back("Combo1_Click"); };
        Slider1.Change = [this] { fired.push_back("Slider1_Change"); };
        HScroll1.Change = [this] { fired.push_back("HScroll1_Change"); };
        HScroll1.Scroll = [this] { fired.push_back("HScroll1_Scroll"); };
        Timer1.OnTimer = [this] { fired.push_back("Timer1_Timer"); };
        mnuExit.Click = [this] { fired.push_back("mnuExit_Click"); };
        Label1.Click = [this] { fired.push_back("Label1_Click"); };
    }

    std::vector<std::string> fired;

    TextBox& Text1 = text_box("Text1", "1");
    TextBox& Text2 = text_box("Text2", "0.05");
    TextBox& Text3 = text_box("Text3", "12.5");
    CheckBox& Check1 = check_box("Check1", "Smax");
    CheckBox& Check2 = check_box("Check2", "SRSS");
    Frame& Frame1 = frame("Frame1", "Soil");
    Frame& Frame2 = frame("Frame2", "Units");
    OptionButton& Option1 = option("Option1", "I", &Frame1);
    OptionButton& Option2 = option("Option2", "II", &Frame1);
    OptionButton& Option3 = option("Option3", "g", &Frame2);
    OptionButton& Option4 = option("Option4", "m/s^2", &Frame2);
    OptionButton& Option5 = option("Option5", "on the window");
    CommandButton& Command1 = button("Command1", "Calculate");
    ComboBox& Combo1 = combo("Combo1");
    Slider& Slider1 = slider("Slider1", 1, 10, 1);
    HScrollBar& HScroll1 = hscroll("HScroll1");
    Timer& Timer1 = timer("Timer1", 500);
    Menu& mnuExit = menu("mnuExit", "Exit");
    Label& Label1 = label("Label1", "Set Default");
};

class ControlsTest : public ::testing::Test {
protected:
    test::FakePlatform platform;
    App app{platform};
    Panel& w = app.form<Panel>();
};

TEST_F(ControlsTest, ChangedHookTellsTheViewOfEveryChange) {
    int calls = 0;
    w.Text1.changed = [&] { ++calls; };
    w.Text1.set_text("1");
    w.Text1.set_text("3");
    w.Text1.set_enabled(false);
    w.Text1.set_enabled(false);
    w.Text1.set_visible(false);
    EXPECT_EQ(calls, 3);
}

// What "?Name" reads: the value a control holds (a list's as index:text).
std::string value_of(const Control& c) {
    if (auto* t = dynamic_cast<const TextBox*>(&c)) return t->text();
    if (auto* b = dynamic_cast<const CheckBox*>(&c)) return std::to_string(b->value());
    if (auto* o = dynamic_cast<const OptionButton*>(&c)) return std::to_string(o->value());
    if (auto* l = dynamic_cast<const ComboBox*>(&c)) return std::to_string(l->list_index()) + ":" + l->text();
    if (auto* s = dynamic_cast<const Slider*>(&c)) return std::to_string(s->value());
    return std::to_string(dynamic_cast<const HScrollBar&>(c).value());
}

// One step on the panel: "Name=v" sets the value from code, "Name.enabled=0" (.visible, .locked,
// .max) a property, "Name+item" adds to a list, "Name!" is the user's click (a press, a tick, a
// menu choice), "Name~v" the user's drag of a scroll bar, "?Name" writes the value into `fired`.
void play(Panel& w, const std::string& step) {
    if (step[0] == '?') {
        w.fired.push_back(step.substr(1) + "=" + value_of(*w.find(step.substr(1))));
        return;
    }
    const std::size_t at = step.find_first_of(".=+!~");
    Control& c = *w.find(step.substr(0, at));
    const std::string v = step.substr(step.find_first_of("=+!~", at) + 1);
    const int n = std::atoi(v.c_str());
    if (step[at] == '.') {
        const std::string property = step.substr(at + 1, step.find('=') - at - 1);
        if (property == "enabled") c.set_enabled(n);
        if (property == "visible") c.set_visible(n);
        if (property == "locked") dynamic_cast<TextBox&>(c).locked = n;
        if (property == "max") dynamic_cast<HScrollBar&>(c).set_max(n);
    } else if (step[at] == '+') {
        dynamic_cast<ComboBox&>(c).add_item(v);
    } else if (step[at] == '~') {
        dynamic_cast<HScrollBar&>(c).user_scroll(n);
    } else if (step[at] == '!') {
        if (auto* b = dynamic_cast<CheckBox*>(&c)) b->user_click();
        if (auto* o = dynamic_cast<OptionButton*>(&c)) o->user_click();
        if (auto* b = dynamic_cast<CommandButton*>(&c)) b->press();
        if (auto* t = dynamic_cast<Timer*>(&c)) t->tick();
        if (auto* m = dynamic_cast<Menu*>(&c)) m->choose();
        if (auto* l = dynamic_cast<Label*>(&c)) l->click();
    } else {
        if (auto* t = dynamic_cast<TextBox*>(&c)) t->set_text(v);
        if (auto* b = dynamic_cast<CheckBox*>(&c)) b->set_value(n);
        if (auto* o = dynamic_cast<OptionButton*>(&c)) o->set_value(n);
        if (auto* l = dynamic_cast<ComboBox*>(&c)) l->set_list_index(n);
        if (auto* s = dynamic_cast<Slider*>(&c)) s->set_value(n);
        if (auto* s = dynamic_cast<HScrollBar*>(&c)) s->set_value(n);
    }
}

// tests/golden/tables/controls.txt: steps on a new panel -> what fired and what was read, in
// order; a run-time error fires "!<number>" and the steps go on.
TEST(ControlEvents, StepsFireTheirEvents) {
    test::run_table("controls.txt", {{"play", [](const test::TableArgs& steps) -> test::TableResult {
                                          test::FakePlatform platform;
                                          App app{platform};
                                          Panel& w = app.form<Panel>();
                                          for (std::size_t i = 1; i < steps.size(); ++i) {
                                              try {
                                                  play(w, steps[i]);
                                              } catch (const text::RuntimeError& e) {
                                                  w.fired.push_back("!" + std::to_string(e.number()));
                                              }
                                          }
                                          std::string out;
                                          for (const std::string& f : w.fired) out += (out.empty() ? "" : " ") + f;
                                          return out;
                                      }}});
}

TEST_F(ControlsTest, ControlsAreFoundByName) {
    EXPECT_EQ(w.find("Check2"), &w.Check2);
    EXPECT_EQ(w.find_as<TextBox>("Text3"), &w.Text3);
    EXPECT_EQ(w.find_as<TextBox>("Check2"), nullptr);
    EXPECT_EQ(w.find("Nothing"), nullptr);
    EXPECT_EQ(w.Option1.container(), &w.Frame1);
    EXPECT_EQ(&w.Option1.form(), &w);
}

// The table of text cells: sizes, bounds, hidden rows, selection, the current cell and redraw.
class TableWindow : public Form {
public:
    explicit TableWindow(App& app) : Form(app, "TableWindow", "Table") {
        Fg.RowColChange = [this] { ++row_col_changes; };
        Fg.changed = [this] { ++view_updates; };
    }
    Grid& Fg = grid("Fg", 3, 2);
    int row_col_changes = 0;
    int view_updates = 0;
};

class GridTest : public ::testing::Test {
protected:
    test::FakePlatform platform;
    App app{platform};
    TableWindow& w = app.form<TableWindow>();
    Grid& g = w.Fg;
};

// The table's steps: "key:i:j=v" sets, "?key:i:j" reads; the keys are these.
using Ints = std::vector<int>;
using GridSet = std::function<void(Grid&, const Ints&, int, const std::string&)>;
const std::map<std::string, GridSet> kGridSet{
    {"rows", [](Grid& g, const Ints&, int n, const std::string&) { g.set_rows(n); }},
    {"cols", [](Grid& g, const Ints&, int n, const std::string&) { g.set_cols(n); }},
    {"row", [](Grid& g, const Ints&, int n, const std::string&) { g.set_row(n); }},
    {"col", [](Grid& g, const Ints&, int n, const std::string&) { g.set_col(n); }},
    {"clear", [](Grid& g, const Ints&, int, const std::string&) { g.clear(); }},
    {"text", [](Grid& g, const Ints& a, int, const std::string& v) { g.set_text(a.at(0), a.at(1), v); }},
    {"back", [](Grid& g, const Ints& a, int n, const std::string&) { g.set_cell_back_color(a.at(0), a.at(1), n); }},
    {"hidden", [](Grid& g, const Ints& a, int n, const std::string&) { g.set_row_hidden(a.at(0), n); }},
    {"colhidden", [](Grid& g, const Ints& a, int n, const std::string&) { g.set_col_hidden(a.at(0), n); }},
    {"width", [](Grid& g, const Ints& a, int n, const std::string&) { g.set_col_width(a.at(0), n); }},
    {"align", [](Grid& g, const Ints& a, int n, const std::string&) { g.set_col_alignment(a.at(0), n); }},
    {"select", [](Grid& g, const Ints& a, int, const std::string&) { g.set_selected_rows({a.begin(), a.end()}); }},
};
const std::map<std::string, std::function<std::string(const Grid&, const Ints&)>> kGridGet{
    {"rows", [](const Grid& g, const Ints&) { return std::to_string(g.rows()); }},
    {"cols", [](const Grid& g, const Ints&) { return std::to_string(g.cols()); }},
    {"row", [](const Grid& g, const Ints&) { return std::to_string(g.row()); }},
    {"col", [](const Grid& g, const Ints&) { return std::to_string(g.col()); }},
    {"redraw", [](const Grid& g, const Ints&) { return std::to_string(g.redraw()); }},
    {"text", [](const Grid& g, const Ints& a) { return g.text(a.at(0), a.at(1)); }},
    {"back", [](const Grid& g, const Ints& a) { return std::to_string(g.cell_back_color(a.at(0), a.at(1))); }},
    {"hidden", [](const Grid& g, const Ints& a) { return std::to_string(g.row_hidden(a.at(0))); }},
    {"colhidden", [](const Grid& g, const Ints& a) { return std::to_string(g.col_hidden(a.at(0))); }},
    {"width", [](const Grid& g, const Ints& a) { return std::to_string(g.col_width(a.at(0))); }},
    {"align", [](const Grid& g, const Ints& a) { return std::to_string(g.col_alignment(a.at(0))); }},
    {"selcount", [](const Grid& g, const Ints&) { return std::to_string(g.selected_row_count()); }},
    {"select", [](const Grid& g, const Ints&) {
         std::string rows;
         for (int r : g.selected_rows()) rows += ":" + std::to_string(r);
         return rows;
     }},
};

// Plays the steps on a new table of 3 x 2 and gives what was read and each RowColChange, in
// order; a run-time error gives "!<number>" and the steps go on.
std::string play_grid(const test::TableArgs& steps) {
    test::FakePlatform platform;
    App app{platform};
    Grid& g = app.form<TableWindow>().Fg;
    std::string out;
    auto put = [&](const std::string& s) { out += (out.empty() ? "" : " ") + s; };
    g.RowColChange = [&] { put("RowColChange"); };
    for (std::size_t i = 1; i < steps.size(); ++i) {
        const bool read = steps[i][0] == '?';
        const std::string step = steps[i].substr(read ? 1 : 0);
        const std::size_t eq = step.find('=');
        const std::string lhs = step.substr(0, eq), v = eq == std::string::npos ? "" : step.substr(eq + 1);
        Ints a;
        for (std::size_t at = lhs.find(':'); at != std::string::npos; at = lhs.find(':', at + 1))
            a.push_back(std::atoi(lhs.c_str() + at + 1));
        const std::string key = lhs.substr(0, lhs.find(':'));
        try {
            if (read) put(lhs + "=" + kGridGet.at(key)(g, a));
            if (!read) kGridSet.at(key)(g, a, std::atoi(v.c_str()), v);
        } catch (const text::RuntimeError& e) {
            put("!" + std::to_string(e.number()));
        }
    }
    return out;
}

// tests/golden/tables/grid.txt: sizes, bounds, hidden rows and columns, selection, colours and the
// current cell.
TEST(GridSteps, StepsReadAndMoveTheTable) { test::run_table("grid.txt", {{"grid", play_grid}}); }

TEST_F(GridTest, RedrawOffHoldsTheViewAndOnNotifiesOnce) {
    const auto layout = g.layout_revision();
    w.view_updates = 0;
    g.set_redraw(false);
    g.set_rows(50);
    for (int r = 1; r < 50; ++r) g.set_text(r, 0, std::to_string(r));
    g.set_row_hidden(3, true);
    g.set_row(7);  // events still fire with redraw off
    EXPECT_EQ(w.view_updates, 0);
    EXPECT_EQ(w.row_col_changes, 1);
    g.set_redraw(true);
    EXPECT_EQ(w.view_updates, 1);
    EXPECT_GT(g.layout_revision(), layout);
    g.set_redraw(true);
    EXPECT_EQ(w.view_updates, 1);
    g.set_text(1, 1, "x");
    EXPECT_EQ(w.view_updates, 2);
    g.set_text(1, 1, "x");  // the same text: nothing to redraw
    EXPECT_EQ(w.view_updates, 2);
}

TEST_F(GridTest, ColumnWidthsAndHiddenFlagsCountAsLayout) {
    auto before = g.layout_revision();
    g.set_text(1, 1, "cell");
    EXPECT_EQ(g.layout_revision(), before);
    g.set_col_width(0, 500);
    EXPECT_GT(g.layout_revision(), before);
    before = g.layout_revision();
    g.set_row_hidden(1, true);
    EXPECT_GT(g.layout_revision(), before);
}

TEST_F(GridTest, CopiesAsTabSeparatedTextWithItsHeading) {
    g.set_rows(4);
    g.set_cols(3);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 3; ++c) g.set_text(r, c, std::string(1, static_cast<char>('a' + r)) + std::to_string(c));
    g.set_text(2, 0, "c\t0");
    // The whole table, but what the user does not see.
    g.set_row_hidden(3, true);
    g.set_col_width(1, 0);
    EXPECT_EQ(tab_separated(g), "a0\ta2\nb0\tb2\nc 0\tc2\n");
    // A selection keeps the heading row above it.
    g.set_col_width(1, -1);
    EXPECT_EQ(tab_separated(g, {2}, {1, 2}), "a1\ta2\nc1\tc2\n");
    // A table without a heading row.
    g.set_fixed_rows(0);
    EXPECT_EQ(tab_separated(g, {0}), "a0\ta1\ta2\n");
}

TEST_F(GridTest, TablesOfOneOrNoRowHaveTheirCurrentRowAtZero) {
    class Small : public Form {
    public:
        explicit Small(App& a) : Form(a, "Small", "") {}
        Grid& A = grid("A", 1, 3);
        Grid& B = grid("B", 0, 0);
    };
    Small& s = app.form<Small>();
    EXPECT_EQ(s.A.row(), 0);
    EXPECT_EQ(s.B.row(), 0);
    EXPECT_EQ(s.B.col(), 0);
    s.B.set_cols(2);
    s.B.set_rows(3);
    EXPECT_EQ(s.B.text(2, 1), "");
}

// The recording picture: user scale to twips, what is recorded, clearing, a scale of no size.
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

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

// Steps of the tables below write what happened into a transcript, a word each.
void put(std::string& out, const std::string& s) { out += (out.empty() ? "" : " ") + s; }

// Runs each step; a run-time error writes "!<number>" and the steps go on.
void each_step(const test::TableArgs& steps, std::string& out,
               const std::function<void(const std::string&)>& step) {
    for (std::size_t i = 1; i < steps.size(); ++i) {
        try {
            step(steps[i]);
        } catch (const text::RuntimeError& e) {
            put(out, "!" + std::to_string(e.number()));
        }
    }
}

// A window with one of each kind; every handler writes its name into `fired`.
class Panel : public Form {
public:
    explicit Panel(App& app) : Form(app, "Panel", "Panel") {
        Text1.Change = [this] { put(fired, "Text1_Change"); };
        Text1.changed = [this] { put(fired, "Text1_view"); };  // what tells the view
        Text2.Change = [this] {
            put(fired, "Text2_Change");
            Text3.set_text("");  // a result goes stale when its input changes
        };
        Text3.Change = [this] { put(fired, "Text3_Change"); };
        Check1.Click = [this] {
            put(fired, "Check1_Click");
            if (Check1.value() == 1) Check2.set_value(0);
        };
        Check2.Click = [this] {
            put(fired, "Check2_Click");
            if (Check2.value() == 1) Check1.set_value(0);
        };
        Option1.Click = [this] { put(fired, "Option1_Click"); };
        Option2.Click = [this] { put(fired, "Option2_Click"); };
        Option3.Click = [this] { put(fired, "Option3_Click"); };
        Option4.Click = [this] { put(fired, "Option4_Click"); };
        Command1.Click = [this] { put(fired, "Command1_Click"); };
        Combo1.Click = [this] { put(fired, "Combo1_Click"); };
        Slider1.Change = [this] { put(fired, "Slider1_Change"); };
        HScroll1.Change = [this] { put(fired, "HScroll1_Change"); };
        HScroll1.Scroll = [this] { put(fired, "HScroll1_Scroll"); };
        Timer1.OnTimer = [this] { put(fired, "Timer1_Timer"); };
        mnuExit.Click = [this] { put(fired, "mnuExit_Click"); };
        Label1.Click = [this] { put(fired, "Label1_Click"); };
    }

    std::string fired;

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

// What "?Name" reads: the value a control holds (a list's as index:text).
std::string value_of(const Control& c) {
    if (auto* t = dynamic_cast<const TextBox*>(&c)) return t->text();
    if (auto* b = dynamic_cast<const CheckBox*>(&c)) return std::to_string(b->value());
    if (auto* o = dynamic_cast<const OptionButton*>(&c)) return std::to_string(o->value());
    if (auto* l = dynamic_cast<const ComboBox*>(&c))
        return std::to_string(l->list_index()) + ":" + l->text();
    if (auto* s = dynamic_cast<const Slider*>(&c)) return std::to_string(s->value());
    return std::to_string(dynamic_cast<const HScrollBar&>(c).value());
}

// One step on the panel: "Name=v" sets the value from code, "Name.enabled=0" (.visible, .locked,
// .max) a property, "Name+item" adds to a list, "Name!" is the user's click (a press, a tick, a
// menu choice), "Name~v" the user's drag of a scroll bar, "?Name" writes the value into `fired`.
void play(Panel& w, const std::string& step) {
    if (step[0] == '?') {
        put(w.fired, step.substr(1) + "=" + value_of(*w.find(step.substr(1))));
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
// order.
test::TableResult play_panel(const test::TableArgs& steps) {
    test::FakePlatform platform;
    App app{platform};
    Panel& w = app.form<Panel>();
    each_step(steps, w.fired, [&](const std::string& step) { play(w, step); });
    return w.fired;
}

TEST(ControlEvents, StepsFireTheirEvents) {
    test::run_table("controls.txt", {{"play", play_panel}});
}

TEST(ControlEvents, ControlsAreFoundByName) {
    test::FakePlatform platform;
    App app{platform};
    Panel& w = app.form<Panel>();
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
    explicit TableWindow(App& app) : Form(app, "TableWindow", "Table") {}
    Grid& Fg = grid("Fg", 3, 2);
};

// Steps on a control, as words: "key:a:b=text" does, "?key:a:b" reads and writes "key:a:b=<value>"
// into the transcript.
using Nums = std::vector<double>;
using Text = const std::string&;
template <class C>
using Does = std::map<std::string, std::function<void(C&, const Nums&, Text)>>;
template <class C>
using Reads = std::map<std::string, std::function<std::string(const C&, const Nums&)>>;

template <class C>
void play_steps(C& c, const Does<C>& does, const Reads<C>& reads, const test::TableArgs& steps,
                std::string& out) {
    each_step(steps, out, [&](const std::string& word) {
        const bool read = word[0] == '?';
        const std::string step = word.substr(read ? 1 : 0);
        const std::size_t eq = step.find('=');
        const std::string lhs = step.substr(0, eq);
        const std::string v = eq == std::string::npos ? "" : step.substr(eq + 1);
        Nums a;
        for (std::size_t at = lhs.find(':'); at != std::string::npos; at = lhs.find(':', at + 1))
            a.push_back(test::number(lhs.substr(at + 1, lhs.find(':', at + 1) - at - 1)));
        const std::string key = lhs.substr(0, lhs.find(':'));
        if (read) put(out, lhs + "=" + reads.at(key)(c, a));
        if (!read) does.at(key)(c, a, v);
    });
}

std::string n(double x) { return test::shortest(x); }

const Does<Grid> kGridDoes{
    {"rows", [](Grid& g, const Nums& a, Text) { g.set_rows(a.at(0)); }},
    {"cols", [](Grid& g, const Nums& a, Text) { g.set_cols(a.at(0)); }},
    {"row", [](Grid& g, const Nums& a, Text) { g.set_row(a.at(0)); }},
    {"col", [](Grid& g, const Nums& a, Text) { g.set_col(a.at(0)); }},
    {"clear", [](Grid& g, const Nums&, Text) { g.clear(); }},
    {"redraw", [](Grid& g, const Nums& a, Text) { g.set_redraw(a.at(0)); }},
    {"text", [](Grid& g, const Nums& a, Text v) { g.set_text(a.at(0), a.at(1), v); }},
    {"back",
     [](Grid& g, const Nums& a, Text) { g.set_cell_back_color(a.at(0), a.at(1), a.at(2)); }},
    {"hidden", [](Grid& g, const Nums& a, Text) { g.set_row_hidden(a.at(0), a.at(1)); }},
    {"colhidden", [](Grid& g, const Nums& a, Text) { g.set_col_hidden(a.at(0), a.at(1)); }},
    {"width", [](Grid& g, const Nums& a, Text) { g.set_col_width(a.at(0), a.at(1)); }},
    {"align", [](Grid& g, const Nums& a, Text) { g.set_col_alignment(a.at(0), a.at(1)); }},
    {"select", [](Grid& g, const Nums& a, Text) { g.set_selected_rows({a.begin(), a.end()}); }},
};
const Reads<Grid> kGridReads{
    {"rows", [](const Grid& g, const Nums&) { return n(g.rows()); }},
    {"cols", [](const Grid& g, const Nums&) { return n(g.cols()); }},
    {"row", [](const Grid& g, const Nums&) { return n(g.row()); }},
    {"col", [](const Grid& g, const Nums&) { return n(g.col()); }},
    {"redraw", [](const Grid& g, const Nums&) { return n(g.redraw()); }},
    {"text", [](const Grid& g, const Nums& a) { return g.text(a.at(0), a.at(1)); }},
    {"back", [](const Grid& g, const Nums& a) { return n(g.cell_back_color(a.at(0), a.at(1))); }},
    {"hidden", [](const Grid& g, const Nums& a) { return n(g.row_hidden(a.at(0))); }},
    {"colhidden", [](const Grid& g, const Nums& a) { return n(g.col_hidden(a.at(0))); }},
    {"width", [](const Grid& g, const Nums& a) { return n(g.col_width(a.at(0))); }},
    {"align", [](const Grid& g, const Nums& a) { return n(g.col_alignment(a.at(0))); }},
    {"selcount", [](const Grid& g, const Nums&) { return n(g.selected_row_count()); }},
    {"layout", [](const Grid& g, const Nums&) { return n(double(g.layout_revision())); }},
    {"select", [](const Grid& g, const Nums&) {
         std::string rows;
         for (int r : g.selected_rows()) rows += ":" + n(r);
         return rows;
     }},
};

// tests/golden/tables/grid.txt: steps on a new table of 3 x 2, each RowColChange and each word to
// the view in the transcript: sizes, bounds, hidden rows and columns, selection, colours, the
// current cell and redraw.
test::TableResult play_grid(const test::TableArgs& steps) {
    test::FakePlatform platform;
    App app{platform};
    Grid& g = app.form<TableWindow>().Fg;
    std::string out;
    g.RowColChange = [&] { put(out, "RowColChange"); };
    g.changed = [&] { put(out, "view"); };
    play_steps(g, kGridDoes, kGridReads, steps, out);
    return out;
}

TEST(GridSteps, StepsReadAndMoveTheTable) { test::run_table("grid.txt", {{"grid", play_grid}}); }

TEST(Grid, CopiesAsTabSeparatedTextWithItsHeading) {
    test::FakePlatform platform;
    App app{platform};
    Grid& g = app.form<TableWindow>().Fg;
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

TEST(Grid, TablesOfOneOrNoRowHaveTheirCurrentRowAtZero) {
    class Small : public Form {
    public:
        explicit Small(App& a) : Form(a, "Small", "") {}
        Grid& A = grid("A", 1, 3);
        Grid& B = grid("B", 0, 0);
    };
    test::FakePlatform platform;
    App app{platform};
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

TEST(PictureBox, TextMetricsComeInTheUserScale) {
    test::FakePlatform platform;
    App app{platform};
    PictureBox& p = app.form<Chart>().picNemodar;
    const double twips = platform.text_width_twips("12.5", p.font_name, p.font_size);
    EXPECT_DOUBLE_EQ(p.text_width("12.5"), twips);
    p.scale(0, 0, 2 * 9165, 3000);  // two user units a twip across
    EXPECT_DOUBLE_EQ(p.text_width("12.5"), 2 * twips);
}

std::string op_text(const DrawOp& op) {
    const bool text = op.kind == DrawOp::Kind::Text;
    const std::string kind = op.kind == DrawOp::Kind::Line ? "line" : text ? "text" : "point";
    return kind + "," + n(op.x1) + "," + n(op.y1) + "," + n(op.x2) + "," + n(op.y2) + "," +
           n(op.color) + "," + n(op.width) + (text ? "," + op.text : "");
}

const Does<PictureBox> kPictureDoes{
    {"scale",
     [](PictureBox& p, const Nums& a, Text) { p.scale(a.at(0), a.at(1), a.at(2), a.at(3)); }},
    {"reset", [](PictureBox& p, const Nums&, Text) { p.scale_reset(); }},
    {"line",
     [](PictureBox& p, const Nums& a, Text) {
         p.line(a.at(0), a.at(1), a.at(2), a.at(3), a.size() > 4 ? a[4] : -1);
     }},
    {"pset",
     [](PictureBox& p, const Nums& a, Text) {
         p.pset(a.at(0), a.at(1), a.size() > 2 ? a[2] : -1);
     }},
    {"drawwidth", [](PictureBox& p, const Nums& a, Text) { p.set_draw_width(a.at(0)); }},
    {"cx", [](PictureBox& p, const Nums& a, Text) { p.set_current_x(a.at(0)); }},
    {"cy", [](PictureBox& p, const Nums& a, Text) { p.set_current_y(a.at(0)); }},
    {"print", [](PictureBox& p, const Nums&, Text v) { p.print(v); }},
    {"cls", [](PictureBox& p, const Nums&, Text) { p.cls(); }},
    {"refresh", [](PictureBox& p, const Nums&, Text) { p.refresh(); }},
    {"width", [](PictureBox& p, const Nums& a, Text) { p.set_width(a.at(0)); }},
    {"height", [](PictureBox& p, const Nums& a, Text) { p.set_height(a.at(0)); }},
};
const Reads<PictureBox> kPictureReads{
    {"left", [](const PictureBox& p, const Nums&) { return n(p.scale_left()); }},
    {"top", [](const PictureBox& p, const Nums&) { return n(p.scale_top()); }},
    {"swidth", [](const PictureBox& p, const Nums&) { return n(p.scale_width()); }},
    {"sheight", [](const PictureBox& p, const Nums&) { return n(p.scale_height()); }},
    {"xt", [](const PictureBox& p, const Nums& a) { return n(p.x_to_twips(a.at(0))); }},
    {"yt", [](const PictureBox& p, const Nums& a) { return n(p.y_to_twips(a.at(0))); }},
    {"dxt", [](const PictureBox& p, const Nums& a) { return n(p.dx_to_twips(a.at(0))); }},
    {"dyt", [](const PictureBox& p, const Nums& a) { return n(p.dy_to_twips(a.at(0))); }},
    {"xf", [](const PictureBox& p, const Nums& a) { return n(p.x_from_twips(a.at(0))); }},
    {"yf", [](const PictureBox& p, const Nums& a) { return n(p.y_from_twips(a.at(0))); }},
    {"cx", [](const PictureBox& p, const Nums&) { return n(p.current_x()); }},
    {"cy", [](const PictureBox& p, const Nums&) { return n(p.current_y()); }},
    {"lineheight", [](const PictureBox& p, const Nums&) { return n(p.text_height()); }},
    {"drawwidth", [](const PictureBox& p, const Nums&) { return n(p.draw_width()); }},
    {"revision", [](const PictureBox& p, const Nums&) { return n(double(p.revision())); }},
    {"ops", [](const PictureBox& p, const Nums&) { return n(double(p.ops().size())); }},
    {"op", [](const PictureBox& p, const Nums& a) { return op_text(p.ops().at(a.at(0))); }},
};

// tests/golden/tables/picture.txt: steps on a new picture of 9165 x 3000 twips, each repaint in
// the transcript: the user scale to twips, what is recorded, clearing, a scale of no size.
test::TableResult play_picture(const test::TableArgs& steps) {
    test::FakePlatform platform;
    App app{platform};
    PictureBox& p = app.form<Chart>().picNemodar;
    std::string out;
    p.changed = [&] { put(out, "changed"); };
    play_steps(p, kPictureDoes, kPictureReads, steps, out);
    return out;
}

TEST(PictureSteps, StepsDrawAndMapThePicture) {
    test::run_table("picture.txt", {{"picture", play_picture}});
}

}  // namespace
}  // namespace tv::forms

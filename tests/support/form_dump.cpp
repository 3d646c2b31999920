#include "support/form_dump.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "forms/controls.h"
#include "forms/grid.h"
#include "forms/picture_box.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "text/number_text.h"

namespace tv::test {

namespace {

std::string quoted(const std::string& s) { return '"' + s + '"'; }
std::string n(double x) { return text::to_text(x); }

std::string state_of(const forms::Control& c) {
    using namespace forms;
    if (auto* t = dynamic_cast<const TextBox*>(&c)) return "text " + quoted(t->text());
    if (auto* l = dynamic_cast<const Label*>(&c)) return "label " + quoted(l->caption());
    if (auto* b = dynamic_cast<const CheckBox*>(&c)) return "check " + quoted(b->caption()) + " " + n(b->value());
    if (auto* o = dynamic_cast<const OptionButton*>(&c)) return "option " + quoted(o->caption()) + (o->value() ? " set" : "");
    if (auto* b = dynamic_cast<const CommandButton*>(&c)) return "button " + quoted(b->caption());
    if (auto* m = dynamic_cast<const Menu*>(&c)) return "menu " + quoted(m->caption());
    if (auto* f = dynamic_cast<const Frame*>(&c)) return "frame " + quoted(f->caption());
    if (auto* s = dynamic_cast<const Slider*>(&c)) return "slider " + n(s->value()) + " of " + n(s->min()) + ".." + n(s->max());
    if (auto* s = dynamic_cast<const HScrollBar*>(&c)) return "scroll " + n(s->value()) + " of " + n(s->min()) + ".." + n(s->max());
    if (auto* p = dynamic_cast<const ProgressBar*>(&c)) return "progress " + n(p->value()) + " of " + n(p->max());
    if (auto* t = dynamic_cast<const Timer*>(&c)) return "timer " + n(t->interval());
    if (auto* l = dynamic_cast<const LineShape*>(&c))
        return "line " + n(l->x1()) + " " + n(l->y1()) + " " + n(l->x2()) + " " + n(l->y2()) + " colour " + n(l->color);
    if (dynamic_cast<const Shape*>(&c)) return "shape";
    if (auto* p = dynamic_cast<const PictureBox*>(&c)) {
        std::string s = "picture " + n(double(p->ops().size())) + " ops";
        for (const DrawOp& op : p->ops())
            if (op.kind == DrawOp::Kind::Text) s += " " + quoted(op.text);
        return s;
    }
    if (auto* c2 = dynamic_cast<const ComboBox*>(&c)) {
        std::string s = "combo " + quoted(c2->text()) + " " + n(c2->list_index()) + " of";
        for (const std::string& item : c2->items()) s += " " + quoted(item);
        return s;
    }
    if (auto* g = dynamic_cast<const Grid*>(&c)) {
        std::string s = "grid " + n(g->rows()) + "x" + n(g->cols()) + " row " + n(g->row());
        // Long tables: their head and their tail.
        for (int r = 0; r < g->rows(); ++r) {
            if (g->rows() > 40 && r == 20) s += "\n  ...";
            if (g->rows() > 40 && r >= 20 && r < g->rows() - 5) continue;
            s += "\n  " + std::string(g->row_hidden(r) ? "(hidden)" : "") + (g->selected_rows().contains(r) ? ">" : "|");
            for (int col = 0; col < g->cols(); ++col) s += " " + g->text(r, col) + " |";
        }
        return s;
    }
    return "control";
}

}  // namespace

std::string dump(const forms::Form& form) { return dump(form, {}); }

std::string dump(const forms::Form& form, const std::set<std::string>& names) {
    std::string out = form.name() + "\n";
    for (const auto& c : form.controls())
        if (names.empty() || names.contains(c->name()))
            out += c->name() + " " + state_of(*c) + (c->enabled() ? "" : " off") + (c->visible() ? "" : " hidden") + "\n";
    return out;
}

std::string dump(const FakePlatform& platform) {
    std::string out;
    for (const Message& m : platform.messages) out += "message " + quoted(m.title) + " " + quoted(m.text) + "\n";
    for (const std::string& p : platform.prompts) out += "prompt " + quoted(p) + "\n";
    for (const auto& [number, text] : platform.runtime_errors) out += "error " + n(number) + " " + quoted(text) + "\n";
    return out;
}

void expect_state(std::string text, const std::string& name, const std::string& scratch) {
    if (!scratch.empty())
        for (std::size_t at = 0; (at = text.find(scratch, at)) != std::string::npos;) text.replace(at, scratch.size(), "@TMP@");
    const std::filesystem::path path = std::filesystem::path(TV_SOURCE_DIR) / "tests/golden/windows" / (name + ".txt");
    if (std::getenv("TV_GOLDEN_UPDATE") != nullptr) {
        std::filesystem::create_directories(path.parent_path());
        spill(path, text);
        return;
    }
    const std::string want = slurp(path);
    EXPECT_FALSE(want.empty()) << path << " is missing: TV_GOLDEN_UPDATE=1 writes it";
    EXPECT_EQ(text, want) << path << ": the window shows other than expected";
}

}  // namespace tv::test

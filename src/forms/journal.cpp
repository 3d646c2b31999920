#include "forms/journal.h"

#include <set>

#include "forms/app.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/grid.h"

namespace tv::forms {

namespace {

template <class C>
C* control_as(Form& form, const Action& a) {
    return dynamic_cast<C*>(form.find(a.control));
}

}  // namespace

bool perform(Form& form, const Action& a) {
    switch (a.kind) {
        case ActionKind::Text:
            if (auto* t = control_as<TextBox>(form, a)) {
                t->set_text(a.text);
                return true;
            }
            if (auto* c = control_as<ComboBox>(form, a)) {
                if (c->text() != a.text) c->set_text(a.text);
                return true;
            }
            return false;
        case ActionKind::Tick:
            if (auto* c = control_as<CheckBox>(form, a)) return c->user_click(), true;
            return false;
        case ActionKind::Option:
            if (auto* o = control_as<OptionButton>(form, a)) return o->user_click(), true;
            return false;
        case ActionKind::Press:
            if (auto* b = control_as<CommandButton>(form, a)) return b->press(), true;
            return false;
        case ActionKind::Pick:
            if (auto* c = control_as<ComboBox>(form, a)) return c->set_list_index(a.value), true;
            return false;
        case ActionKind::Rows:
            if (auto* g = control_as<Grid>(form, a)) {
                g->set_selected_rows(std::set<int>(a.rows.begin(), a.rows.end()));
                return true;
            }
            return false;
        case ActionKind::Cell:
            if (auto* g = control_as<Grid>(form, a)) {
                if (a.value >= 0) g->set_row(a.value);
                if (a.col >= 0) g->set_col(a.col);
                return true;
            }
            return false;
        case ActionKind::Slide:
            if (auto* s = control_as<Slider>(form, a)) return s->set_value(a.value), true;
            return false;
        case ActionKind::Scroll:
            if (auto* s = control_as<HScrollBar>(form, a)) return s->set_value(a.value), true;
            return false;
        case ActionKind::Drag:
            if (auto* s = control_as<HScrollBar>(form, a)) return s->user_scroll(a.value), true;
            return false;
        case ActionKind::Label:
            if (auto* l = control_as<Label>(form, a)) return l->click(), true;
            return false;
        case ActionKind::Menu:
            if (auto* m = control_as<Menu>(form, a)) return m->choose(), true;
            return false;
        case ActionKind::Close:
            if (form.app().is_loaded(form)) form.app().unload(form);
            return true;
    }
    return false;
}

void Journal::add(Step step) {
    if (!recording) return;
    steps_.push_back(std::move(step));
    modified_ = true;
    if (changed) changed();
}

void Journal::clear() {
    steps_.clear();
    modified_ = false;
    if (changed) changed();
}

void Journal::replace(std::vector<Step> steps) {
    steps_ = std::move(steps);
    modified_ = false;
    if (changed) changed();
}

void Journal::mark_modified() {
    modified_ = true;
    if (changed) changed();
}

void Journal::mark_saved() {
    modified_ = false;
    if (changed) changed();
}

}  // namespace tv::forms

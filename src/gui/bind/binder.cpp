#include "gui/bind/binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QTableView>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <type_traits>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/grid_table_model.h"
#include "gui/bind/mnemonics.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"

namespace tv::gui::bind {

using forms::ControlKind;

struct Binder::Binding {
    forms::Control* control = nullptr;
    QPointer<QObject> target;
    std::function<void()> push;  // model -> widget, for the kind
    // Grids: the adapter and what the view shows now.
    GridTableModel* table = nullptr;
    bool dirty = false;
    bool widths_due = true;
    std::vector<int> least_widths;  // the narrowest each column may be for its texts, as last seen
    std::set<int> shown_selection;
    int shown_row = -1, shown_col = -1;
    // Lines and shapes: the picture they stand on.
    QPointer<PictureView> on_picture;
    // Timers.
    QTimer* timer = nullptr;

    QWidget* widget() const { return qobject_cast<QWidget*>(target.data()); }
};

namespace {

struct Guard {
    explicit Guard(int& n) : n_(n) { ++n_; }
    ~Guard() { --n_; }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    int& n_;
};

QString qs(const std::string& s) { return QString::fromStdString(s); }

template <class W>
W* find_named(QWidget& view, const QString& name) {
    if (view.objectName() == name) {
        if (auto* w = qobject_cast<W*>(&view)) return w;
    }
    return view.findChild<W*>(name);
}

}  // namespace

Binder::Binder(QWidget& view, forms::Form& model, forms::App& app)
    : QObject(&view), view_(&view), model_(&model), app_(&app) {
    setObjectName(QStringLiteral("tv_binder"));
    // Pictures before the lines and shapes that stand on them.
    for (const auto& c : model.controls())
        if (c->kind() != ControlKind::Line && c->kind() != ControlKind::Shape) bind(*c);
    for (const auto& c : model.controls())
        if (c->kind() == ControlKind::Line || c->kind() == ControlKind::Shape) bind(*c);
    for (auto& b : bindings_) {
        if (auto* pv = qobject_cast<PictureView*>(b->target.data())) {
            std::vector<const forms::Control*> overlays;
            for (const auto& o : bindings_)
                if (o->on_picture == pv) overlays.push_back(o->control);
            pv->set_picture(static_cast<const forms::PictureBox*>(b->control), std::move(overlays));
        }
    }
    Guard g(pushing_);
    for (auto& b : bindings_) push(*b);
    flush();
}

Binder::~Binder() {
    // The model's callbacks hold a guarded pointer to this binder: nothing to undo there,
    // and the model may be gone already.
    attached_ = false;
}

void Binder::detach() {
    if (!attached_) return;
    for (auto& b : bindings_) {
        b->control->changed = nullptr;
        if (b->timer) b->timer->stop();
        if (b->table) b->table->detach();
        if (auto* pv = qobject_cast<PictureView*>(b->target.data())) pv->set_picture(nullptr);
    }
    attached_ = false;
}

void Binder::abandon() {
    // Widgets let go of the model's tables and pictures; the controls themselves are not read.
    for (auto& b : bindings_) {
        if (b->timer) b->timer->stop();
        if (b->table) b->table->detach();
        if (auto* pv = qobject_cast<PictureView*>(b->target.data())) pv->set_picture(nullptr);
    }
    attached_ = false;
}

QObject* Binder::target(const forms::Control& control) const {
    for (const auto& b : bindings_)
        if (b->control == &control) return b->target.data();
    return nullptr;
}

std::vector<const forms::Control*> Binder::unbound() const {
    std::vector<const forms::Control*> out;
    for (const auto& b : bindings_) {
        switch (b->control->kind()) {
            case ControlKind::Timer: break;
            case ControlKind::Line:
            case ControlKind::Shape:
                if (!b->on_picture) out.push_back(b->control);
                break;
            default:
                if (!b->target) out.push_back(b->control);
        }
    }
    return out;
}

Binder::Binding* Binder::binding_of(const QObject* target) {
    for (auto& b : bindings_)
        if (b->target == target) return b.get();
    return nullptr;
}

void Binder::dispatch(Binding& b, const std::function<void()>& handler) {
    QPointer<Binder> self(this);
    app_->run(handler);
    if (self && self->attached_) {
        Guard g(pushing_);
        push(b);
    }
}

void Binder::perform(Binding& b, forms::Action action) {
    forms::Form& form = b.control->form();
    action.form = form.name();
    action.control = b.control->name();
    QPointer<Binder> self(this);
    app_->perform(form, action);
    if (self && self->attached_) {
        Guard g(pushing_);
        push(b);
    }
}

void Binder::push_common(Binding& b) {
    if (QWidget* w = b.widget()) {
        // Only the widget's own flag: a disabled parent frame keeps its children greyed anyway.
        if (w->testAttribute(Qt::WA_ForceDisabled) == b.control->enabled()) w->setEnabled(b.control->enabled());
        if (w->isHidden() == b.control->visible()) w->setVisible(b.control->visible());
    }
}

void Binder::push(Binding& b) {
    if (!attached_) return;
    push_common(b);
    if (b.push) b.push();
}

void Binder::schedule(Binding& b) {
    b.dirty = true;
    if (flush_queued_) return;
    flush_queued_ = true;
    QMetaObject::invokeMethod(this, &Binder::flush, Qt::QueuedConnection);
}

void Binder::flush() {
    flush_queued_ = false;
    if (!attached_) return;
    Guard g(pushing_);
    for (auto& b : bindings_)
        if (b->table && b->dirty) flush_grid(*b);
}

// How each kind of control meets its widget: the widget class looked for under the control's
// name, how the model is shown on it, and which signals are the user's.
struct Binder::Kinds {
    using Bind = void (*)(Binder&, Binding&);

    /// Finds the widget W of the control's name and shows the control C on it with `show`;
    /// null when the view has none.
    template <class W, class C, class Show>
    static W* show(Binder& self, Binding& b, Show show) {
        W* w = find_named<W>(*self.view_, qs(b.control->name()));
        if (w == nullptr) return nullptr;
        b.target = w;
        auto& c = static_cast<C&>(*b.control);
        b.push = [w, &c, show] { show(*w, c); };
        return w;
    }

    /// A user event: `signal` of `w`, unless the model is being shown, is the action
    /// `act(control, signal arguments...)` (none when it gives nullopt), kept and performed.
    template <class C, class W, class Sender, class... Args, class Act>
    static void listen(Binder& self, Binding& b, W* w, void (Sender::*signal)(Args...), Act act) {
        Binder* s = &self;
        Binding* bp = &b;
        auto& c = static_cast<C&>(*b.control);
        QObject::connect(w, signal, s, [s, bp, &c, act](std::decay_t<Args>... args) {
            if (s->pushing_ || !s->attached_) return;
            if (std::optional<forms::Action> a = act(c, args...)) s->perform(*bp, std::move(*a));
        });
    }
    static std::optional<forms::Action> doing(forms::ActionKind kind, std::string text = {}, int value = 0) {
        forms::Action a;
        a.kind = kind;
        a.text = std::move(text);
        a.value = value;
        return a;
    }

    static void text_box(Binder& self, Binding& b) {
        using C = forms::TextBox;
        if (auto* le = show<QLineEdit, C>(self, b, [](QLineEdit& w, C& c) {
                const QString t = qs(c.text());
                if (w.text() != t) w.setText(t);
                w.setReadOnly(c.locked);
            })) {
            listen<C>(self, b, le, &QLineEdit::textEdited, [](C&, const QString& t) { return doing(forms::ActionKind::Text, t.toStdString()); });
        } else if (auto* pe = show<QPlainTextEdit, C>(self, b, [](QPlainTextEdit& w, C& c) {
                       const QString t = qs(c.text());
                       if (w.toPlainText() != t) w.setPlainText(t);
                       w.setReadOnly(c.locked);
                   })) {
            listen<C>(self, b, pe, &QPlainTextEdit::textChanged,
                      [pe](C&) { return doing(forms::ActionKind::Text, pe->toPlainText().toStdString()); });
        }
    }

    static void label(Binder& self, Binding& b) {
        using C = forms::Label;
        if (auto* ql = show<QLabel, C>(self, b, [](QLabel& w, C& c) {
                const QString t = qs(c.caption());
                if (w.text() != t) w.setText(t);
            })) {
            ql->setTextFormat(Qt::PlainText);
            ql->installEventFilter(&self);  // a label's click arrives as a release
        }
    }

    static void check_box(Binder& self, Binding& b) {
        using C = forms::CheckBox;
        Binder* s = &self;
        if (auto* cb = show<QCheckBox, C>(self, b, [s](QCheckBox& w, C& c) {
                s->show_caption(&w, w.text(), c.caption());
                w.setCheckState(c.value() == 1 ? Qt::Checked : c.value() == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
            }))
            listen<C>(self, b, cb, &QCheckBox::clicked, [](C&, bool) { return doing(forms::ActionKind::Tick); });
    }

    static void option(Binder& self, Binding& b) {
        using C = forms::OptionButton;
        Binder* s = &self;
        if (auto* rb = show<QRadioButton, C>(self, b, [s](QRadioButton& w, C& c) {
                s->show_caption(&w, w.text(), c.caption());
                w.setChecked(c.value());
            })) {
            // The model clears the other options of the container.
            rb->setAutoExclusive(false);
            listen<C>(self, b, rb, &QRadioButton::clicked, [](C&, bool) { return doing(forms::ActionKind::Option); });
        }
    }

    static void button(Binder& self, Binding& b) {
        using C = forms::CommandButton;
        Binder* s = &self;
        if (auto* pb = show<QAbstractButton, C>(self, b, [s](QAbstractButton& w, C& c) {
                s->show_caption(&w, w.text(), c.caption());
            }))
            listen<C>(self, b, pb, &QAbstractButton::clicked, [](C&, bool) { return doing(forms::ActionKind::Press); });
    }

    static void combo(Binder& self, Binding& b) {
        using C = forms::ComboBox;
        auto* cb = show<QComboBox, C>(self, b, [](QComboBox& w, C& c) {
            QStringList items;
            for (const auto& i : c.items()) items << qs(i);
            bool same = w.count() == items.size();
            for (int i = 0; same && i < w.count(); ++i) same = w.itemText(i) == items[i];
            if (!same) {
                w.clear();
                w.addItems(items);
            }
            if (w.currentIndex() != c.list_index()) w.setCurrentIndex(c.list_index());
            if (w.isEditable() && w.currentText() != qs(c.text())) w.setEditText(qs(c.text()));
        });
        if (cb == nullptr) return;
        listen<C>(self, b, cb, &QComboBox::activated, [](C&, int i) { return doing(forms::ActionKind::Pick, {}, i); });
        // Only an editable box has a line to type in, and only it sends edited text.
        listen<C>(self, b, cb, &QComboBox::editTextChanged, [](C& c, const QString& t) -> std::optional<forms::Action> {
            const std::string text = t.toStdString();
            if (c.text() == text) return std::nullopt;
            return doing(forms::ActionKind::Text, text);
        });
    }

    static void frame(Binder& self, Binding& b) {
        using C = forms::Frame;
        if (show<QGroupBox, C>(self, b, [](QGroupBox& w, C& c) {
                const QString t = qs(c.caption());
                if (w.title() != t) w.setTitle(t);
            }) == nullptr)
            show<QWidget, C>(self, b, [](QWidget&, C&) {});  // a frame without a caption
    }

    static void grid(Binder& self, Binding& b) {
        if (auto* tv = find_named<QTableView>(*self.view_, qs(b.control->name()))) {
            b.target = tv;
            self.bind_grid(b);
        }
    }

    static void slider(Binder& self, Binding& b) {
        using C = forms::Slider;
        if (auto* sl = show<QSlider, C>(self, b, [](QSlider& w, C& c) {
                w.setRange(c.min(), c.max());
                w.setValue(c.value());
            }))
            listen<C>(self, b, sl, &QSlider::valueChanged, [](C&, int v) { return doing(forms::ActionKind::Slide, {}, v); });
    }

    static void scroll_bar(Binder& self, Binding& b) {
        using C = forms::HScrollBar;
        if (auto* sb = show<QScrollBar, C>(self, b, [](QScrollBar& w, C& c) {
                w.setInvertedAppearance(c.min() > c.max());
                w.setRange(std::min(c.min(), c.max()), std::max(c.min(), c.max()));
                w.setValue(c.value());
            }))
            // A drag of the thumb is Scroll; arrows, page clicks and keys are Change.
            listen<C>(self, b, sb, &QScrollBar::valueChanged, [sb](C&, int v) {
                return doing(sb->isSliderDown() ? forms::ActionKind::Drag : forms::ActionKind::Scroll, {}, v);
            });
    }

    static void progress(Binder& self, Binding& b) {
        using C = forms::ProgressBar;
        show<QProgressBar, C>(self, b, [](QProgressBar& w, C& c) {
            w.setRange(0, 1000);
            const double span = static_cast<double>(c.max()) - c.min();
            const double f = span > 0 ? (static_cast<double>(c.value()) - c.min()) / span : 0.0;
            w.setValue(static_cast<int>(std::lround(std::clamp(f, 0.0, 1.0) * 1000)));
        });
    }

    static void timer(Binder& self, Binding& b) {
        auto& timer = static_cast<forms::Timer&>(*b.control);
        b.timer = new QTimer(&self);
        QTimer* qt = b.timer;
        b.push = [qt, &timer] {
            qt->setInterval(timer.interval());
            const bool run = timer.enabled() && timer.interval() > 0;
            if (run && !qt->isActive()) qt->start();
            if (!run) qt->stop();
        };
        Binder* s = &self;
        Binding* bp = &b;
        QObject::connect(qt, &QTimer::timeout, s, [s, bp, &timer] {
            if (!s->attached_) return;
            s->dispatch(*bp, [&timer] { timer.tick(); });
        });
    }

    static void picture(Binder& self, Binding& b) {
        if (auto* pv = find_named<PictureView>(*self.view_, qs(b.control->name()))) {
            b.target = pv;
            self.bind_picture(b);
        }
    }

    // Lines and shapes are drawn by the picture they stand on.
    static void overlay(Binder& self, Binding& b) {
        for (const auto& o : self.bindings_)
            if (o->control == b.control->container()) b.on_picture = qobject_cast<PictureView*>(o->target.data());
        Binding* bp = &b;
        b.push = [bp] {
            if (bp->on_picture) bp->on_picture->update();
        };
    }

    static void menu(Binder& self, Binding& b) {
        using C = forms::Menu;
        const QString name = qs(b.control->name());
        QAction* action = self.view_->findChild<QAction*>(name);
        if (action == nullptr) {
            if (auto* m = self.view_->findChild<QMenu*>(name)) action = m->menuAction();
        }
        if (action == nullptr) return;
        b.target = action;
        auto& menu = static_cast<C&>(*b.control);
        Binder* s = &self;
        b.push = [s, action, &menu] {
            if (menu.separator())
                action->setSeparator(true);
            else
                s->show_caption(action, action->text(), menu.caption());
            action->setEnabled(menu.enabled());
            action->setVisible(menu.visible());
        };
        listen<C>(self, b, action, &QAction::triggered, [](C&, bool) { return doing(forms::ActionKind::Menu); });
    }

    static Bind of(ControlKind kind) {
        static const std::map<ControlKind, Bind> table = {
            {ControlKind::TextBox, &text_box},   {ControlKind::Label, &label},
            {ControlKind::CheckBox, &check_box}, {ControlKind::OptionButton, &option},
            {ControlKind::CommandButton, &button}, {ControlKind::ComboBox, &combo},
            {ControlKind::Frame, &frame},        {ControlKind::Grid, &grid},
            {ControlKind::Slider, &slider},      {ControlKind::HScrollBar, &scroll_bar},
            {ControlKind::ProgressBar, &progress}, {ControlKind::Timer, &timer},
            {ControlKind::PictureBox, &picture}, {ControlKind::Line, &overlay},
            {ControlKind::Shape, &overlay},      {ControlKind::Menu, &menu},
        };
        return table.at(kind);
    }
};

void Binder::show_caption(QObject* target, const QString& now, const std::string& caption) {
    const QString plain = qs(caption);
    auto show = [target](const QString& shown) {
        if (auto* action = qobject_cast<QAction*>(target))
            action->setText(shown);
        else if (auto* button = qobject_cast<QAbstractButton*>(target))
            button->setText(shown);
    };
    // A caption that brings its own key keeps it.
    if (!mnemonic_of(plain).isNull()) {
        if (now != plain) show(plain);
        return;
    }
    if (plain_caption(now) == plain && !mnemonic_of(now).isNull()) return;
    // The keys already given to the others that answer Alt beside it.
    QSet<QChar> taken;
    auto take = [&taken](const QString& shown) {
        const QChar key = mnemonic_of(shown);
        if (!key.isNull()) taken.insert(key);
    };
    if (auto* action = qobject_cast<QAction*>(target)) {
        for (QObject* o : action->associatedObjects())
            if (auto* w = qobject_cast<QWidget*>(o))
                for (QAction* a : w->actions())
                    if (a != action) take(a->text());
    } else {
        for (auto* other : view_->findChildren<QAbstractButton*>())
            if (other != target) take(other->text());
        // A window inside the main one shares Alt with the main menu bar.
        for (QWidget* top : QApplication::topLevelWidgets())
            for (auto* bar : top->findChildren<QMenuBar*>(Qt::FindDirectChildrenOnly))
                for (QAction* a : bar->actions()) take(a->text());
    }
    show(with_mnemonic(plain, mnemonic_of(now), taken));
}

void Binder::bind(forms::Control& c) {
    auto owned = std::make_unique<Binding>();
    Binding& b = *owned;
    bindings_.push_back(std::move(owned));
    b.control = &c;
    Kinds::of(c.kind())(*this, b);
    QPointer<Binder> self(this);
    Binding* bp = &b;
    if (c.kind() == ControlKind::Grid)
        // A table shows its changes once, when the events have run.
        c.changed = [self, bp] {
            if (!self || !self->attached_) return;
            {
                Guard g(self->pushing_);
                self->push_common(*bp);
            }
            self->schedule(*bp);
        };
    else
        // Model to widget: at once, under the echo guard.
        c.changed = [self, bp] {
            if (!self || !self->attached_) return;
            Guard g(self->pushing_);
            self->push(*bp);
        };
}

void Binder::bind_grid(Binding& b) {
    auto& grid = static_cast<forms::Grid&>(*b.control);
    auto* tv = static_cast<QTableView*>(b.widget());
    b.table = new GridTableModel(grid, this);
    tv->setModel(b.table);
    // Many thousand rows: fixed row heights keep the table quick.
    QHeaderView* rows = tv->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(tv->fontMetrics().height() + 6);
    b.dirty = true;
    Binding* bp = &b;
    connect(b.table, &QAbstractItemModel::modelReset, this, [bp] {
        bp->widths_due = true;
        bp->shown_selection.clear();
        bp->shown_row = bp->shown_col = -1;
    });
    connect(tv->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, bp, &grid, tv] {
        if (pushing_ || !attached_) return;
        std::set<int> chosen;
        for (const QModelIndex& i : tv->selectionModel()->selectedIndexes()) {
            const int r = bp->table->grid_row(i.row());
            if (r >= 0) chosen.insert(r);
        }
        bp->shown_selection = chosen;
        if (chosen == grid.selected_rows()) return;
        forms::Action a;
        a.kind = forms::ActionKind::Rows;
        a.rows.assign(chosen.begin(), chosen.end());
        perform(*bp, std::move(a));
    });
    connect(tv->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, bp](const QModelIndex& now) {
                if (pushing_ || !attached_ || !now.isValid()) return;
                const int r = bp->table->grid_row(now.row());
                const int c = bp->table->grid_col(now.column());
                bp->shown_row = r;
                bp->shown_col = c;
                forms::Action a;
                a.kind = forms::ActionKind::Cell;
                a.value = r;
                a.col = c;
                perform(*bp, std::move(a));
            });
    tv->viewport()->installEventFilter(this);
    // Ctrl+C and the table's context menu copy it as tab-separated text with its heading row;
    // a table whose window answers the right button keeps its own menu.
    auto* copy = new QAction(tr("&Copy"), tv);
    copy->setObjectName(QStringLiteral("copy_table"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    copy->setToolTip(tr("Copy the selected rows, or the whole table, with the headings"));
    tv->addAction(copy);
    if (!grid.MouseUp) tv->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, [this, bp] { copy_table(*bp); });
}

void Binder::copy_table(Binding& b) {
    auto* tv = qobject_cast<QTableView*>(b.widget());
    if (!attached_ || tv == nullptr || b.table == nullptr) return;
    std::set<int> rows, cols;
    for (const QModelIndex& i : tv->selectionModel()->selectedIndexes()) {
        rows.insert(b.table->grid_row(i.row()));
        cols.insert(b.table->grid_col(i.column()));
    }
    const auto& grid = static_cast<const forms::Grid&>(*b.control);
    QApplication::clipboard()->setText(qs(forms::tab_separated(grid, rows, cols)));
}

void Binder::flush_grid(Binding& b) {
    b.dirty = false;
    auto& grid = static_cast<forms::Grid&>(*b.control);
    auto* tv = qobject_cast<QTableView*>(b.widget());
    if (tv == nullptr || b.table == nullptr) return;
    b.table->sync();
    QHeaderView* h = tv->horizontalHeader();
    const bool widths_due = b.widths_due;
    if (b.widths_due) {
        b.widths_due = false;
        b.least_widths.clear();
        for (int tc = 0; tc < b.table->columnCount(); ++tc) {
            const int w = grid.col_width(b.table->grid_col(tc));
            if (w >= 0) h->resizeSection(tc, twips_to_px(w, tv));
        }
    }
    // A column is at least as wide as its heading and its widest cell, so that no text is cut;
    // it widens again only when its texts grow, and the user may still resize it.
    b.least_widths.resize(static_cast<std::size_t>(b.table->columnCount()), 0);
    const int cell_margin = 2 * (tv->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, tv) + 1) + 2;
    for (int tc = 0; tc < b.table->columnCount(); ++tc) {
        // A column of no width is one the window keeps out of sight.
        if (grid.col_width(b.table->grid_col(tc)) == 0) continue;
        const int least = std::max(h->sectionSizeHint(tc), b.table->widest_text(tc, tv->fontMetrics()) + cell_margin);
        int& known = b.least_widths[static_cast<std::size_t>(tc)];
        if (least <= known && !widths_due) continue;
        known = least;
        if (h->sectionSize(tc) < least) h->resizeSection(tc, least);
    }
    if (grid.selected_rows() != b.shown_selection) {
        QItemSelection sel;
        const int last_col = b.table->columnCount() - 1;
        for (int r : grid.selected_rows()) {
            const int tr = b.table->table_row(r);
            if (tr >= 0 && last_col >= 0) sel.select(b.table->index(tr, 0), b.table->index(tr, last_col));
        }
        tv->selectionModel()->select(sel, QItemSelectionModel::ClearAndSelect);
        b.shown_selection = grid.selected_rows();
    }
    if (grid.row() != b.shown_row || grid.col() != b.shown_col) {
        const int tr = b.table->table_row(grid.row()), tc = b.table->table_col(grid.col());
        if (tr >= 0 && tc >= 0) tv->selectionModel()->setCurrentIndex(b.table->index(tr, tc), QItemSelectionModel::NoUpdate);
        b.shown_row = grid.row();
        b.shown_col = grid.col();
    }
}

void Binder::bind_picture(Binding& b) {
    auto& pic = static_cast<forms::PictureBox&>(*b.control);
    auto* pv = static_cast<PictureView*>(b.widget());
    b.push = [pv] {
        pv->follow_model();
        pv->update();
    };
    Binding* bp = &b;
    connect(pv, &PictureView::mouse, this, [this, bp, &pic](int kind, int button, int shift, double tx, double ty) {
        if (!attached_) return;
        auto& handler = kind == 0 ? pic.MouseMove : kind == 1 ? pic.MouseDown : pic.MouseUp;
        if (!handler) return;
        dispatch(*bp, [&handler, &pic, button, shift, tx, ty] {
            handler(button, shift, pic.x_from_twips(tx), pic.y_from_twips(ty));
        });
    });
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonRelease || !attached_) return QObject::eventFilter(watched, event);
    auto* me = static_cast<QMouseEvent*>(event);
    if (auto* ql = qobject_cast<QLabel*>(watched)) {
        Binding* b = binding_of(ql);
        if (b != nullptr && me->button() == Qt::LeftButton) {
            auto& label = static_cast<forms::Label&>(*b->control);
            if (label.Click) perform(*b, *Kinds::doing(forms::ActionKind::Label));
        }
        return false;
    }
    // A table's viewport: the old table's MouseUp.
    for (auto& b : bindings_) {
        auto* tv = qobject_cast<QTableView*>(b->target.data());
        if (tv == nullptr || tv->viewport() != watched) continue;
        auto& grid = static_cast<forms::Grid&>(*b->control);
        if (!grid.MouseUp) break;
        const double dpi = logical_dpi(tv);
        const QPointF pos = me->position();
        const int button = old_button(me->button()), shift = old_shift(me->modifiers());
        const double x = px_to_twips(pos.x(), dpi), y = px_to_twips(pos.y(), dpi);
        Binding* bp = b.get();
        // The click's own selection change is handled first: Qt delivers it on press.
        QMetaObject::invokeMethod(
            this,
            [this, bp, button, shift, x, y] {
                if (!attached_) return;
                auto& g = static_cast<forms::Grid&>(*bp->control);
                if (g.MouseUp) dispatch(*bp, [&g, button, shift, x, y] { g.MouseUp(button, shift, x, y); });
            },
            Qt::QueuedConnection);
        break;
    }
    return false;
}

Binder* all(QWidget& view, forms::Form& model, forms::App& app) { return new Binder(view, model, app); }

Binder* binder_of(const QWidget* view) {
    for (const QWidget* w = view; w != nullptr; w = w->parentWidget()) {
        if (auto* b = w->findChild<Binder*>(QStringLiteral("tv_binder"), Qt::FindDirectChildrenOnly)) return b;
    }
    return nullptr;
}

}  // namespace tv::gui::bind

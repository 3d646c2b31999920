#include "gui/bind/binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/grid_table_model.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/twips.h"

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

int old_button(Qt::MouseButton b) {
    switch (b) {
        case Qt::LeftButton: return 1;
        case Qt::RightButton: return 2;
        case Qt::MiddleButton: return 4;
        default: return 0;
    }
}

int old_shift(Qt::KeyboardModifiers m) {
    int r = 0;
    if (m & Qt::ShiftModifier) r |= 1;
    if (m & Qt::ControlModifier) r |= 2;
    if (m & Qt::AltModifier) r |= 4;
    return r;
}

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

void Binder::bind(forms::Control& c) {
    auto owned = std::make_unique<Binding>();
    Binding& b = *owned;
    bindings_.push_back(std::move(owned));
    b.control = &c;
    const QString name = qs(c.name());
    QPointer<Binder> self(this);
    Binding* bp = &b;
    // Model to widget: at once, under the echo guard.
    auto on_change = [self, bp] {
        if (!self || !self->attached_) return;
        Guard g(self->pushing_);
        self->push(*bp);
    };

    switch (c.kind()) {
        case ControlKind::TextBox: {
            auto& box = static_cast<forms::TextBox&>(c);
            if (auto* le = find_named<QLineEdit>(*view_, name)) {
                b.target = le;
                b.push = [le, &box] {
                    const QString t = qs(box.text());
                    if (le->text() != t) le->setText(t);
                    le->setReadOnly(box.locked);
                };
                connect(le, &QLineEdit::textEdited, this, [this, bp, &box](const QString& t) {
                    if (pushing_ || !attached_) return;
                    const std::string text = t.toStdString();
                    dispatch(*bp, [&box, &text] { box.set_text(text); });
                });
            } else if (auto* pe = find_named<QPlainTextEdit>(*view_, name)) {
                b.target = pe;
                b.push = [pe, &box] {
                    const QString t = qs(box.text());
                    if (pe->toPlainText() != t) pe->setPlainText(t);
                    pe->setReadOnly(box.locked);
                };
                connect(pe, &QPlainTextEdit::textChanged, this, [this, bp, &box, pe] {
                    if (pushing_ || !attached_) return;
                    const std::string text = pe->toPlainText().toStdString();
                    dispatch(*bp, [&box, &text] { box.set_text(text); });
                });
            }
            break;
        }
        case ControlKind::Label: {
            auto& label = static_cast<forms::Label&>(c);
            if (auto* ql = find_named<QLabel>(*view_, name)) {
                b.target = ql;
                ql->setTextFormat(Qt::PlainText);
                ql->installEventFilter(this);
                b.push = [ql, &label] {
                    const QString t = qs(label.caption());
                    if (ql->text() != t) ql->setText(t);
                };
            }
            break;
        }
        case ControlKind::CheckBox: {
            auto& box = static_cast<forms::CheckBox&>(c);
            if (auto* cb = find_named<QCheckBox>(*view_, name)) {
                b.target = cb;
                b.push = [cb, &box] {
                    cb->setText(qs(box.caption()));
                    cb->setCheckState(box.value() == 1 ? Qt::Checked
                                      : box.value() == 2 ? Qt::PartiallyChecked
                                                         : Qt::Unchecked);
                };
                connect(cb, &QCheckBox::clicked, this, [this, bp, &box] {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&box] { box.user_click(); });
                });
            }
            break;
        }
        case ControlKind::OptionButton: {
            auto& option = static_cast<forms::OptionButton&>(c);
            if (auto* rb = find_named<QRadioButton>(*view_, name)) {
                b.target = rb;
                // The model clears the other options of the container.
                rb->setAutoExclusive(false);
                b.push = [rb, &option] {
                    rb->setText(qs(option.caption()));
                    rb->setChecked(option.value());
                };
                connect(rb, &QRadioButton::clicked, this, [this, bp, &option] {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&option] { option.user_click(); });
                });
            }
            break;
        }
        case ControlKind::CommandButton: {
            auto& button = static_cast<forms::CommandButton&>(c);
            if (auto* pb = find_named<QAbstractButton>(*view_, name)) {
                b.target = pb;
                b.push = [pb, &button] {
                    const QString t = qs(button.caption());
                    if (pb->text() != t) pb->setText(t);
                };
                connect(pb, &QAbstractButton::clicked, this, [this, bp, &button] {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&button] { button.press(); });
                });
            }
            break;
        }
        case ControlKind::ComboBox: {
            auto& combo = static_cast<forms::ComboBox&>(c);
            if (auto* cb = find_named<QComboBox>(*view_, name)) {
                b.target = cb;
                b.push = [cb, &combo] {
                    QStringList items;
                    for (const auto& i : combo.items()) items << qs(i);
                    bool same = cb->count() == items.size();
                    for (int i = 0; same && i < cb->count(); ++i) same = cb->itemText(i) == items[i];
                    if (!same) {
                        cb->clear();
                        cb->addItems(items);
                    }
                    if (cb->currentIndex() != combo.list_index()) cb->setCurrentIndex(combo.list_index());
                    if (cb->isEditable() && cb->currentText() != qs(combo.text())) cb->setEditText(qs(combo.text()));
                };
                connect(cb, &QComboBox::activated, this, [this, bp, &combo](int i) {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&combo, i] { combo.set_list_index(i); });
                });
                connect(cb, &QComboBox::editTextChanged, this, [this, bp, &combo, cb](const QString& t) {
                    if (pushing_ || !attached_ || !cb->isEditable()) return;
                    const std::string text = t.toStdString();
                    dispatch(*bp, [&combo, &text] {
                        if (combo.text() != text) combo.set_text(text);
                    });
                });
            }
            break;
        }
        case ControlKind::Frame: {
            auto& frame = static_cast<forms::Frame&>(c);
            if (auto* gb = find_named<QGroupBox>(*view_, name)) {
                b.target = gb;
                b.push = [gb, &frame] {
                    const QString t = qs(frame.caption());
                    if (gb->title() != t) gb->setTitle(t);
                };
            } else if (auto* w = find_named<QWidget>(*view_, name)) {
                b.target = w;  // a frame without a caption
            }
            break;
        }
        case ControlKind::Grid:
            if (auto* tv = find_named<QTableView>(*view_, name)) {
                b.target = tv;
                bind_grid(b);
            }
            break;
        case ControlKind::Slider: {
            auto& slider = static_cast<forms::Slider&>(c);
            if (auto* qs_ = find_named<QSlider>(*view_, name)) {
                b.target = qs_;
                b.push = [qs_, &slider] {
                    qs_->setRange(slider.min(), slider.max());
                    qs_->setValue(slider.value());
                };
                connect(qs_, &QSlider::valueChanged, this, [this, bp, &slider](int v) {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&slider, v] { slider.set_value(v); });
                });
            }
            break;
        }
        case ControlKind::HScrollBar: {
            auto& bar = static_cast<forms::HScrollBar&>(c);
            if (auto* sb = find_named<QScrollBar>(*view_, name)) {
                b.target = sb;
                b.push = [sb, &bar] {
                    sb->setInvertedAppearance(bar.min() > bar.max());
                    sb->setRange(std::min(bar.min(), bar.max()), std::max(bar.min(), bar.max()));
                    sb->setValue(bar.value());
                };
                // A drag of the thumb is Scroll; arrows, page clicks and keys are Change.
                connect(sb, &QScrollBar::valueChanged, this, [this, bp, &bar, sb](int v) {
                    if (pushing_ || !attached_) return;
                    const bool drag = sb->isSliderDown();
                    dispatch(*bp, [&bar, v, drag] {
                        if (drag)
                            bar.user_scroll(v);
                        else
                            bar.set_value(v);
                    });
                });
            }
            break;
        }
        case ControlKind::ProgressBar: {
            auto& bar = static_cast<forms::ProgressBar&>(c);
            if (auto* pb = find_named<QProgressBar>(*view_, name)) {
                b.target = pb;
                b.push = [pb, &bar] {
                    pb->setRange(0, 1000);
                    const double span = static_cast<double>(bar.max()) - bar.min();
                    const double f = span > 0 ? (static_cast<double>(bar.value()) - bar.min()) / span : 0.0;
                    pb->setValue(static_cast<int>(std::lround(std::clamp(f, 0.0, 1.0) * 1000)));
                };
            }
            break;
        }
        case ControlKind::Timer: {
            auto& timer = static_cast<forms::Timer&>(c);
            b.timer = new QTimer(this);
            QTimer* qt = b.timer;
            b.push = [qt, &timer] {
                qt->setInterval(timer.interval());
                const bool run = timer.enabled() && timer.interval() > 0;
                if (run && !qt->isActive()) qt->start();
                if (!run) qt->stop();
            };
            connect(qt, &QTimer::timeout, this, [this, bp, &timer] {
                if (!attached_) return;
                dispatch(*bp, [&timer] { timer.tick(); });
            });
            break;
        }
        case ControlKind::PictureBox:
            if (auto* pv = find_named<PictureView>(*view_, name)) {
                b.target = pv;
                bind_picture(b);
            }
            break;
        case ControlKind::Line:
        case ControlKind::Shape:
            for (const auto& o : bindings_)
                if (o->control == c.container()) b.on_picture = qobject_cast<PictureView*>(o->target.data());
            b.push = [bp] {
                if (bp->on_picture) bp->on_picture->update();
            };
            break;
        case ControlKind::Menu: {
            auto& menu = static_cast<forms::Menu&>(c);
            QAction* action = view_->findChild<QAction*>(name);
            if (action == nullptr) {
                if (auto* m = view_->findChild<QMenu*>(name)) action = m->menuAction();
            }
            if (action != nullptr) {
                b.target = action;
                b.push = [action, &menu] {
                    if (menu.separator()) {
                        action->setSeparator(true);
                    } else if (action->text() != qs(menu.caption())) {
                        action->setText(qs(menu.caption()));
                    }
                    action->setEnabled(menu.enabled());
                    action->setVisible(menu.visible());
                };
                connect(action, &QAction::triggered, this, [this, bp, &menu] {
                    if (pushing_ || !attached_) return;
                    dispatch(*bp, [&menu] { menu.choose(); });
                });
            }
            break;
        }
    }
    if (c.kind() == ControlKind::Grid)
        c.changed = [self, bp] {
            if (!self || !self->attached_) return;
            {
                Guard g(self->pushing_);
                self->push_common(*bp);
            }
            self->schedule(*bp);
        };
    else
        c.changed = on_change;
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
        dispatch(*bp, [&grid, &chosen] { grid.set_selected_rows(chosen); });
    });
    connect(tv->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, bp, &grid](const QModelIndex& now) {
                if (pushing_ || !attached_ || !now.isValid()) return;
                const int r = bp->table->grid_row(now.row());
                const int c = bp->table->grid_col(now.column());
                bp->shown_row = r;
                bp->shown_col = c;
                dispatch(*bp, [&grid, r, c] {
                    if (r >= 0) grid.set_row(r);
                    if (c >= 0) grid.set_col(c);
                });
            });
    tv->viewport()->installEventFilter(this);
}

void Binder::flush_grid(Binding& b) {
    b.dirty = false;
    auto& grid = static_cast<forms::Grid&>(*b.control);
    auto* tv = qobject_cast<QTableView*>(b.widget());
    if (tv == nullptr || b.table == nullptr) return;
    b.table->sync();
    if (b.widths_due) {
        b.widths_due = false;
        QHeaderView* h = tv->horizontalHeader();
        const double dpi = logical_dpi(tv);
        for (int tc = 0; tc < b.table->columnCount(); ++tc) {
            const int w = grid.col_width(b.table->grid_col(tc));
            if (w >= 0) h->resizeSection(tc, static_cast<int>(std::lround(twips_to_px(w, dpi))));
        }
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
            if (label.Click) dispatch(*b, [&label] { label.click(); });
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

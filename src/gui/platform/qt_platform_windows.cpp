// The windows' views on the screen: the main frame with its document area, the sub-windows,
// the windows standing alone and the modal waits.
#include "gui/platform/qt_platform.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <algorithm>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui/platform/view_registry.h"

namespace tv::gui {

struct QtPlatform::Shown {
    forms::Form* form = nullptr;
    forms::App* app = nullptr;
    QPointer<QWidget> view;
    QPointer<QWidget> window;  // the sub-window, the frame, or the view standing alone
    QPointer<QMdiSubWindow> sub;
    bool is_frame = false;
    bool modal = false;
    QEventLoop* loop = nullptr;
};

namespace {

QString qs(const std::string& s) { return QString::fromStdString(s); }

void detach_binders(QWidget* view) {
    if (view == nullptr) return;
    for (auto* b : view->findChildren<bind::Binder*>()) b->detach();
}

}  // namespace

QtPlatform::QtPlatform(const ViewRegistry& views, QObject* parent) : QObject(parent), views_(views) {}

QtPlatform::~QtPlatform() {
    // The windows may be gone already: only the widgets are dropped here.
    for (auto& s : shown_)
        if (s->view)
            for (auto* b : s->view->findChildren<bind::Binder*>()) b->abandon();
    for (auto& s : shown_)
        if (!s->is_frame && s->window) delete s->window.data();
    if (frame_) delete frame_.data();
    if (busy_) QGuiApplication::restoreOverrideCursor();
}

void QtPlatform::end_program() {
    ended_ = true;
    for (auto& s : shown_)
        if (s->loop) s->loop->quit();
    QCoreApplication::quit();
}

QMainWindow* QtPlatform::frame() const { return frame_.data(); }
QMdiArea* QtPlatform::mdi_area() const { return mdi_.data(); }

QtPlatform::Shown* QtPlatform::find(const forms::Form& form) const {
    for (const auto& s : shown_)
        if (s->form == &form) return s.get();
    return nullptr;
}

QtPlatform::Shown* QtPlatform::find_window(const QObject* window) const {
    if (window == nullptr) return nullptr;
    for (const auto& s : shown_)
        if (s->window == window) return s.get();
    return nullptr;
}

QWidget* QtPlatform::view_of(const forms::Form& form) const {
    const Shown* s = find(form);
    return s ? s->view.data() : nullptr;
}

QWidget* QtPlatform::window_of(const forms::Form& form) const {
    const Shown* s = find(form);
    return s ? s->window.data() : nullptr;
}

QtPlatform::Shown* QtPlatform::ensure_view(forms::Form& form, bool modal) {
    if (Shown* s = find(form); s != nullptr && s->window) return s;
    QWidget* view = views_.create(form, form.app());
    if (view == nullptr) return nullptr;
    if (Shown* old = find(form)) {  // its widgets went with the frame
        shown_.erase(std::find_if(shown_.begin(), shown_.end(), [old](const auto& p) { return p.get() == old; }));
    }
    auto owned = std::make_unique<Shown>();
    Shown& s = *owned;
    s.form = &form;
    s.app = &form.app();
    s.view = view;
    s.modal = modal;
    auto* main = qobject_cast<QMainWindow*>(view);
    auto* area = main ? qobject_cast<QMdiArea*>(main->centralWidget()) : nullptr;
    if (area != nullptr) {
        // The frame: a main window whose centre is the document area.
        s.is_frame = true;
        s.window = main;
        frame_ = main;
        mdi_ = area;
        connect(area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* sub) {
            if (sub == nullptr) return;
            QPointer<QMdiSubWindow> guarded(sub);
            // After the showing or closing that caused it has finished.
            QMetaObject::invokeMethod(
                this, [this, guarded] { if (guarded) sub_window_activated(guarded); }, Qt::QueuedConnection);
        });
        const QRect avail = main->screen() ? main->screen()->availableGeometry() : QRect(0, 0, 1280, 900);
        const QSize size = QSize(1320, 900).boundedTo(avail.size() * 0.94);
        main->resize(size);
        main->move(avail.center() - QPoint(size.width() / 2, size.height() / 2));
    } else if (modal || !mdi_) {
        // Alone on the screen: over the frame when there is one.
        view->setParent(frame_.data(), modal ? Qt::Dialog : Qt::Window);
        s.window = view;
        if (modal) {
            view->setWindowModality(Qt::ApplicationModal);
            auto* esc = new QShortcut(QKeySequence(Qt::Key_Escape), view);
            connect(esc, &QShortcut::activated, view, &QWidget::close);
        }
        view->adjustSize();
        const QRect over = frame_ ? frame_->frameGeometry()
                                  : (view->screen() ? view->screen()->availableGeometry() : QRect(0, 0, 1024, 768));
        view->move(over.center() - QPoint(view->width() / 2, view->height() / 2));
    } else {
        // A window taller or wider than the area scrolls inside its frame, so that no button is
        // out of reach on a small screen.
        auto* holder = new QScrollArea;
        holder->setObjectName(QStringLiteral("windowScroll"));
        holder->setFrameShape(QFrame::NoFrame);
        holder->setWidgetResizable(true);
        holder->setWidget(view);
        QMdiSubWindow* sub = mdi_->addSubWindow(holder);
        sub->setAttribute(Qt::WA_DeleteOnClose, false);
        if (frame_) sub->setWindowIcon(frame_->windowIcon());
        s.sub = sub;
        s.window = sub;
        place_child(s);
    }
    s.window->setWindowTitle(qs(form.caption()));
    s.window->installEventFilter(this);
    QPointer<QtPlatform> self(this);
    forms::Form* fp = &form;
    form.changed = [self, fp] {
        if (!self) return;
        if (Shown* sh = self->find(*fp)) self->sync_form(*sh);
    };
    shown_.push_back(std::move(owned));
    return &s;
}

void QtPlatform::place_child(Shown& s) {
    QMdiSubWindow* sub = s.sub;
    if (sub == nullptr || !mdi_) return;
    // The window's own size; its frame and title bar come on top.
    QSize size = sub->sizeHint();
    if (auto* holder = qobject_cast<QScrollArea*>(sub->widget()); holder != nullptr && s.view) {
        const QSize own = s.view->sizeHint().expandedTo(s.view->minimumSizeHint());
        size = own + (sub->sizeHint() - holder->sizeHint());
    }
    const QSize room = mdi_->viewport()->size();
    if (room.isValid() && !room.isEmpty()) size = size.boundedTo(room);
    sub->resize(size);
    // The window's place in twips from the frame's corner, kept inside the area.
    const int x = twips_to_px(s.form->left, sub), y = twips_to_px(s.form->top, sub);
    sub->move(std::clamp(x, 0, std::max(0, room.width() - size.width())),
              std::clamp(y, 0, std::max(0, room.height() - size.height())));
}

void QtPlatform::sync_form(Shown& s) {
    if (!s.window) return;
    const QString title = qs(s.form->caption());
    if (s.window->windowTitle() != title) s.window->setWindowTitle(title);
    if (s.form->visible()) {
        if (s.window->isHidden()) s.window->show();
    } else {
        if (!s.window->isHidden()) s.window->hide();
        if (s.loop) s.loop->quit();
    }
}

void QtPlatform::show_form(forms::Form& form, bool modal) {
    Shown* s = ensure_view(form, modal);
    if (s == nullptr) return;
    sync_form(*s);
    QWidget* w = s->window;
    if (s->sub) {
        if (form.maximised)
            s->sub->showMaximized();
        else
            s->sub->show();
        if (mdi_) mdi_->setActiveSubWindow(s->sub);
        s->view->setFocus();
    } else {
        w->show();
        w->raise();
        w->activateWindow();
    }
    if (!modal || s->loop != nullptr) return;
    // Waits here until the window is hidden or unloaded; the rest of the program repaints.
    QEventLoop loop;
    s->loop = &loop;
    loop.exec(QEventLoop::DialogExec);
    for (auto& other : shown_)
        if (other->loop == &loop) other->loop = nullptr;
}

void QtPlatform::hide_form(forms::Form& form) {
    Shown* s = find(form);
    if (s == nullptr) return;
    if (s->window) s->window->hide();
    if (s->loop) s->loop->quit();
}

void QtPlatform::unload_form(forms::Form& form) {
    Shown* s = find(form);
    if (s == nullptr) return;
    form.changed = nullptr;
    detach_binders(s->view);
    if (s->loop) s->loop->quit();
    if (QWidget* w = s->window) {
        w->removeEventFilter(this);
        w->hide();
        // Its own button may have asked for the unload: the widgets go once that is done.
        w->deleteLater();
    }
    if (s->is_frame) {
        frame_ = nullptr;
        mdi_ = nullptr;
    }
    shown_.erase(std::find_if(shown_.begin(), shown_.end(), [s](const auto& p) { return p.get() == s; }));
}

void QtPlatform::release_views() {
    for (auto& s : shown_) {
        s->form->changed = nullptr;
        detach_binders(s->view);
        if (s->loop) s->loop->quit();
    }
    for (auto& s : shown_)
        if (!s->is_frame && s->window) delete s->window.data();
    if (frame_) delete frame_.data();
    shown_.clear();
}

void QtPlatform::sub_window_activated(QMdiSubWindow* sub) {
    if (!mdi_ || mdi_->activeSubWindow() != sub) return;
    Shown* s = find_window(sub);
    if (s == nullptr || !s->form->visible()) return;
    forms::App* app = s->app;
    forms::Form* form = s->form;
    if (app->active() == form) return;
    app->run([app, form] { app->activate(*form); });
}

bool QtPlatform::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close || ended_) return QObject::eventFilter(watched, event);
    Shown* s = find_window(watched);
    if (s == nullptr) return QObject::eventFilter(watched, event);
    // Closing is an unload, which the window may refuse.
    event->ignore();
    forms::App* app = s->app;
    forms::Form* form = s->form;
    if (s->is_frame) {
        app->run([app, form] {
            if (app->is_loaded(*form)) app->unload(*form);
        });
    } else {
        // A window closed is a step of the work, kept as the others are.
        forms::Action close;
        close.kind = forms::ActionKind::Close;
        close.form = form->name();
        app->perform(*form, close);
    }
    return true;
}

}  // namespace tv::gui

#pragma once
// Generic binding of a window model to its view: each control of the model is kept in step
// with the widget whose objectName is the control's name, in both directions, and every user
// event reaches the model through the App's dispatcher. A view holds no program logic.
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <set>
#include <vector>

class QWidget;

#include "forms/journal.h"

namespace tv::forms {
class App;
class Control;
class Form;
}  // namespace tv::forms

namespace tv::gui::bind {

class Binder : public QObject {
    Q_OBJECT
public:
    /// Binds at once and brings every widget in step with the model. The binder becomes a
    /// child of `view`.
    Binder(QWidget& view, forms::Form& model, forms::App& app);
    ~Binder() override;
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;

    /// The window is going away: from now on the binder neither listens to it nor touches it.
    void detach();
    /// The window is gone already: stop without touching it.
    void abandon();
    bool attached() const { return attached_; }
    /// The bound window; null once detached.
    forms::Form* model() const { return attached_ ? model_ : nullptr; }

    /// The widget, action or menu bound to a control; null when none.
    QObject* target(const forms::Control& control) const;
    /// Controls that found no object of their name and kind (timers, lines and shapes need none).
    std::vector<const forms::Control*> unbound() const;

    /// Runs the queued table refreshes now.
    void flush();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Binding;
    struct Kinds;
    friend struct Kinds;

    void bind(forms::Control& control);
    void push(Binding& b);
    void push_common(Binding& b);
    void schedule(Binding& b);
    /// A user event: runs `handler` through the dispatcher, then shows the control's state
    /// again, since the widget may have moved on its own (a radio button unticked by a click).
    void dispatch(Binding& b, const std::function<void()>& handler);
    /// A user's action on the control: kept in the App's journal and performed as dispatch does.
    void perform(Binding& b, forms::Action action);
    Binding* binding_of(const QObject* target);

    void bind_grid(Binding& b);
    void flush_grid(Binding& b);
    void bind_picture(Binding& b);
    void copy_table(Binding& b);
    /// A caption on a button or menu item: shown again with its Alt mnemonic when it changed.
    void show_caption(QObject* target, const QString& now, const std::string& caption);

    QWidget* view_;
    forms::Form* model_;
    forms::App* app_;
    bool attached_ = true;
    int pushing_ = 0;  // the echo guard: widget signals while the model is shown are not user events
    bool flush_queued_ = false;
    std::vector<std::unique_ptr<Binding>> bindings_;
};

/// Binds every control of `model` to the object of `view` that bears its name.
Binder* all(QWidget& view, forms::Form& model, forms::App& app);

/// The binder of a view (or of a widget inside it), or null.
Binder* binder_of(const QWidget* view);

}  // namespace tv::gui::bind

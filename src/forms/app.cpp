#include "forms/app.h"

#include <algorithm>
#include <new>

#include "text/runtime_error.h"

namespace tv::forms {

App::~App() = default;

bool App::is_loaded(const Form& form) const {
    return std::find(order_.begin(), order_.end(), &form) != order_.end();
}

bool App::unload(Form& form) {
    if (!is_loaded(form)) return true;
    if (std::find(unloading_.begin(), unloading_.end(), &form) != unloading_.end()) return true;
    int cancel = 0;
    unloading_.push_back(&form);
    try {
        form.Form_Unload(cancel);
    } catch (...) {
        unloading_.erase(std::find(unloading_.begin(), unloading_.end(), &form));
        throw;
    }
    unloading_.erase(std::find(unloading_.begin(), unloading_.end(), &form));
    if (cancel != 0) return false;
    if (!is_loaded(form)) return true;  // its own handler unloaded it already
    form.set_visible_flag(false);
    platform_->unload_form(form);
    if (active_ == &form) active_ = nullptr;
    order_.erase(std::find(order_.begin(), order_.end(), &form));
    for (auto it = forms_.begin(); it != forms_.end(); ++it) {
        if (it->second.get() == &form) {
            unloaded_.push_back(std::move(it->second));
            forms_.erase(it);
            break;
        }
    }
    return true;
}

void App::show(Form& form, bool modal) {
    form.set_visible_flag(true);
    activate(form);
    platform_->show_form(form, modal);
}

void App::hide(Form& form) {
    form.set_visible_flag(false);
    if (active_ == &form) active_ = nullptr;
    platform_->hide_form(form);
}

void App::activate(Form& form) {
    if (active_ == &form) return;
    active_ = &form;
    form.Form_Activate();
}

void App::run(const std::function<void()>& handler) {
    ++depth_;
    try {
        handler();
    } catch (const text::FileError& e) {
        platform_->set_busy(false);
        platform_->report_file_error(e.number(), e.description(), e.path(), e.reason());
    } catch (const text::RuntimeError& e) {
        platform_->set_busy(false);
        platform_->report_runtime_error(e.number(), e.description());
    } catch (const std::bad_alloc&) {
        platform_->set_busy(false);
        platform_->report_runtime_error(7, text::error_description(7));
    } catch (const std::exception& e) {
        platform_->set_busy(false);
        platform_->report_runtime_error(51, e.what());
    }
    if (--depth_ == 0) unloaded_.clear();
}

void App::perform(Form& form, const Action& action) {
    const Control* c = form.find(action.control);
    if (journal_ != nullptr && (action.kind == ActionKind::Close || (c != nullptr && c->journaled)))
        journal_->add(Step{depth_, action});
    run([&form, &action] { forms::perform(form, action); });
}

Form* App::loaded_named(const std::string& name) const {
    for (Form* f : order_)
        if (f->name() == name) return f;
    return nullptr;
}

void App::end() {
    ended_ = true;
    platform_->end_program();
}

}  // namespace tv::forms

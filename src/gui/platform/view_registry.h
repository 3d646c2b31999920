#pragma once
// Which view shows which window: the window's name to a factory of its QWidget.
#include <functional>
#include <map>
#include <string>

#include "forms/app.h"
#include "forms/form.h"

class QWidget;

namespace tv::gui {

class ViewRegistry {
public:
    /// Creates the view of a window, without a parent; the platform places it.
    using Factory = std::function<QWidget*(forms::Form& form, forms::App& app)>;

    void add(const std::string& form_name, Factory factory) { factories_[form_name] = std::move(factory); }

    /// View class V over the window model M, constructed as V(M&, App&).
    template <class M, class V>
    void add(const std::string& form_name) {
        add(form_name, [](forms::Form& f, forms::App& a) -> QWidget* { return new V(dynamic_cast<M&>(f), a); });
    }

    bool has(const std::string& form_name) const { return factories_.count(form_name) != 0; }

    /// The window's view; null when it has none.
    QWidget* create(forms::Form& form, forms::App& app) const {
        if (auto it = factories_.find(form.name()); it != factories_.end()) return it->second(form, app);
        return nullptr;
    }

private:
    std::map<std::string, Factory> factories_;
};

}  // namespace tv::gui

#pragma once
// The running program: its platform and its loaded windows. Referring to a window loads it with
// its defaults, as the old program did; unloading runs Form_Unload and its chain.
#include <functional>
#include <string>
#include <memory>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "forms/journal.h"
#include "forms/platform.h"

namespace tv::forms {

class App {
public:
    explicit App(Platform& platform) : platform_(&platform) {}
    virtual ~App();
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    Platform& platform() const { return *platform_; }

    /// The window of type F, loaded (constructed, then Form_Load) on first reference.
    template <class F>
    F& form() {
        auto key = std::type_index(typeid(F));
        if (auto it = forms_.find(key); it != forms_.end()) return static_cast<F&>(*it->second);
        auto owned = std::make_unique<F>(*this);
        F& ref = *owned;
        forms_.emplace(key, std::move(owned));
        order_.push_back(&ref);
        ref.Form_Load();
        return ref;
    }
    template <class F>
    F* if_loaded() const {
        auto it = forms_.find(std::type_index(typeid(F)));
        return it == forms_.end() ? nullptr : static_cast<F*>(it->second.get());
    }
    template <class F>
    bool is_loaded() const {
        return if_loaded<F>() != nullptr;
    }
    /// Unloads F when it is loaded; false when its Form_Unload cancelled.
    template <class F>
    bool unload() {
        F* f = if_loaded<F>();
        return f ? unload(*f) : true;
    }
    bool unload(Form& form);
    bool is_loaded(const Form& form) const;
    /// Loaded windows in the order they were loaded.
    const std::vector<Form*>& loaded() const { return order_; }

    void show(Form& form, bool modal);
    void hide(Form& form);
    /// The window becomes the active one: Activate fires when it was not.
    void activate(Form& form);
    Form* active() const { return active_; }

    /// Runs one user event: a run-time error that the handler did not trap is reported as
    /// "Run-time error" and the program goes on with the state as far as it got.
    void run(const std::function<void()>& handler);
    /// A user's action on a window, as a view hands it on: kept in the journal (when one is
    /// set and the control is part of the work), then run as any user event.
    void perform(Form& form, const Action& action);
    void set_journal(Journal* journal) { journal_ = journal; }
    Journal* journal() const { return journal_; }
    /// The user events running now.
    int depth() const { return depth_; }
    /// A loaded window by its name; null when none.
    Form* loaded_named(const std::string& name) const;
    /// Exit: unloads nothing, asks nothing.
    void end();
    bool ended() const { return ended_; }

private:
    Platform* platform_;
    std::unordered_map<std::type_index, std::unique_ptr<Form>> forms_;
    std::vector<Form*> order_;
    // Windows unloaded while a handler of theirs may still be on the stack.
    std::vector<std::unique_ptr<Form>> unloaded_;
    Form* active_ = nullptr;
    // Windows whose Form_Unload is running: a nested unload of them is a no-op.
    std::vector<const Form*> unloading_;
    int depth_ = 0;
    bool ended_ = false;
    Journal* journal_ = nullptr;
};

}  // namespace tv::forms

#include "forms/form.h"

#include "forms/app.h"

namespace tv::forms {

Form::Form(App& app, std::string name, std::string caption, double width_twips, double height_twips)
    : width(width_twips), height(height_twips), app_(&app), name_(std::move(name)), caption_(std::move(caption)) {}

void Form::set_caption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    if (changed) changed();
}

void Form::show(bool modal) { app_->show(*this, modal); }
void Form::hide() { app_->hide(*this); }

void Form::set_visible_flag(bool v) {
    if (v == visible_) return;
    visible_ = v;
    if (changed) changed();
}

Control* Form::find(std::string_view name) const {
    for (const auto& c : controls_)
        if (c->name() == name) return c.get();
    return nullptr;
}

}  // namespace tv::forms

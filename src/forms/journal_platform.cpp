#include "forms/journal_platform.h"

#include <filesystem>

#include "forms/app.h"
#include "forms/form.h"

namespace tv::forms {

namespace {

const char* kind_name(AnswerKind k) {
    switch (k) {
        case AnswerKind::Message: return "message";
        case AnswerKind::Input: return "input";
        case AnswerKind::File: return "file dialog";
        case AnswerKind::Item: return "list pick";
    }
    return "";
}

}  // namespace

void JournalPlatform::keep(const Answer& answer) {
    if (!quiet) journal_->add(Step{0, answer});
}

JournalPlatform::Replayed JournalPlatform::replay(App& app, const std::vector<Step>& steps, ReplayFiles files) {
    app_ = &app;
    script_ = &steps;
    next_ = 0;
    files_ = std::move(files);
    done_ = {};
    while (next_ < steps.size() && !app.ended()) replay_level(std::get_if<Action>(&steps[next_].what) ? steps[next_].depth : 0);
    script_ = nullptr;
    app_ = nullptr;
    return std::move(done_);
}

void JournalPlatform::replay_level(int depth) {
    while (next_ < script_->size()) {
        const Step& step = (*script_)[next_];
        if (const auto* answer = std::get_if<Answer>(&step.what)) {
            if (app_->depth() > 0) return;  // a dialog of the step still running takes it
            done_.problems.push_back(std::string("A ") + kind_name(answer->kind) + " answer of step " +
                                std::to_string(next_ + 1) + " was not asked for.");
            ++next_;
            continue;
        }
        if (step.depth < depth) return;
        const Action& action = std::get<Action>(step.what);
        ++next_;
        Form* form = app_->loaded_named(action.form);
        if (form == nullptr || (action.kind != ActionKind::Close && form->find(action.control) == nullptr)) {
            done_.problems.push_back("Step " + std::to_string(next_) + ": " + action.form + "." + action.control +
                                " is not there.");
            continue;
        }
        app_->perform(*form, action);
        if (app_->ended()) return;
    }
}

const Answer* JournalPlatform::next_answer(AnswerKind kind, const std::string& asked) {
    if (next_ < script_->size()) {
        const Step& step = (*script_)[next_];
        const auto* answer = std::get_if<Answer>(&step.what);
        if (answer != nullptr && answer->kind == kind) {
            ++next_;
            return answer;
        }
    }
    done_.problems.push_back(std::string("The ") + kind_name(kind) + " \"" + asked + "\" has no answer kept.");
    return nullptr;
}

MsgResult JournalPlatform::message_box(const std::string& text, MsgButtons buttons, const std::string& title,
                                       MsgIcon icon) {
    return message_box_detailed(text, {}, buttons, title, icon);
}

// The particulars are not kept: a replay matches the message by its text alone.
MsgResult JournalPlatform::message_box_detailed(const std::string& text, const std::string& detail,
                                                MsgButtons buttons, const std::string& title, MsgIcon icon) {
    if (quiet) return buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel ? MsgResult::Yes : MsgResult::Ok;
    Answer a;
    a.kind = AnswerKind::Message;
    if (replaying()) {
        const Answer* kept = next_answer(AnswerKind::Message, text);
        a.result = kept ? kept->result : MsgResult::Ok;
    } else if (detail.empty()) {
        a.result = inner_->message_box(text, buttons, title, icon);
    } else {
        a.result = inner_->message_box_detailed(text, detail, buttons, title, icon);
    }
    keep(a);
    return a.result;
}

std::optional<std::string> JournalPlatform::input_box(const std::string& prompt, const std::string& title,
                                                      const std::string& default_text) {
    if (quiet) return std::nullopt;
    std::optional<std::string> got;
    if (replaying()) {
        const Answer* kept = next_answer(AnswerKind::Input, prompt);
        if (kept && !kept->cancelled) got = kept->text;
    } else {
        got = inner_->input_box(prompt, title, default_text);
    }
    Answer a;
    a.kind = AnswerKind::Input;
    a.cancelled = !got.has_value();
    a.text = got.value_or("");
    keep(a);
    return got;
}

std::optional<std::string> JournalPlatform::file_dialog(const FileDialogRequest& request) {
    if (quiet) return std::nullopt;
    Answer a;
    a.kind = AnswerKind::File;
    a.save = request.save;
    std::optional<std::string> got;
    if (replaying()) {
        const Answer* kept = next_answer(AnswerKind::File, request.title.empty() ? request.file_name : request.title);
        if (kept && !kept->cancelled) {
            a.text = kept->text;
            if (request.save) {
                // A replay writes nothing of the user's: the file goes to the scratch folder.
                got = (std::filesystem::path(files_.scratch_folder) /
                       std::filesystem::path(kept->text).filename()).string();
            } else if (files_.open) {
                got = files_.open(kept->text);
                if (got) a.text = *got;
            } else {
                got = kept->text;
            }
            if (got && *got != kept->text) done_.substituted.emplace_back(kept->text, *got);
        }
    } else {
        got = inner_->file_dialog(request);
        a.text = got.value_or("");
    }
    a.cancelled = !got.has_value();
    keep(a);
    return got;
}

std::optional<int> JournalPlatform::choose_item(const std::string& prompt, const std::string& title,
                                                const std::vector<std::string>& items, int preset) {
    if (quiet) return std::nullopt;
    std::optional<int> got;
    if (replaying()) {
        const Answer* kept = next_answer(AnswerKind::Item, prompt);
        if (kept && !kept->cancelled && kept->index >= 0 && kept->index < static_cast<int>(items.size()))
            got = kept->index;
    } else {
        got = inner_->choose_item(prompt, title, items, preset);
    }
    Answer a;
    a.kind = AnswerKind::Item;
    a.cancelled = !got.has_value();
    a.index = got.value_or(-1);
    keep(a);
    return got;
}

void JournalPlatform::set_clipboard_text(const std::string& text) {
    if (!replaying()) inner_->set_clipboard_text(text);
}

bool JournalPlatform::print(const Page& page, const std::string& printer) {
    return replaying() ? true : inner_->print(page, printer);
}

void JournalPlatform::do_events() {
    inner_->do_events();
    // What the user did while a long run let events through is done at the same point again.
    if (replaying() && app_ != nullptr) replay_level(app_->depth());
}

void JournalPlatform::show_form(Form& form, bool modal) {
    if (!replaying()) {
        inner_->show_form(form, modal);
        return;
    }
    // A modal window does not wait: the steps taken in it come next.
    inner_->show_form(form, false);
    if (modal && app_ != nullptr) replay_level(app_->depth());
}

void JournalPlatform::report_runtime_error(int number, const std::string& description) {
    if (!replaying() && !quiet) inner_->report_runtime_error(number, description);
}

void JournalPlatform::report_file_error(int number, const std::string& description, const std::string& path,
                                        const std::string& reason) {
    if (!replaying() && !quiet) inner_->report_file_error(number, description, path, reason);
}

}  // namespace tv::forms

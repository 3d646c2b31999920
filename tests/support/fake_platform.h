#pragma once
// A platform for tests: answers dialogs from queues and records every message box.
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "forms/platform.h"

namespace tv::test {

struct Printed {
    forms::Page page;
    std::string printer;
};

struct Message {
    std::string text;
    forms::MsgButtons buttons;
    std::string title;
    forms::MsgIcon icon;
};

/// Dialogs answered from queues, and a record of what was asked, over any platform.
template <class Base>
class Answering : public Base {
public:
    using Base::Base;

    // Answers, taken from the front; an empty queue answers Ok / Yes, cancels input and dialogs.
    std::deque<forms::MsgResult> message_answers;
    std::deque<std::optional<std::string>> input_answers;
    std::deque<std::optional<std::string>> file_answers;
    /// Answers of list picks, as indexes; an empty queue takes the preset item.
    std::deque<std::optional<int>> choice_answers;

    // What happened.
    std::vector<Message> messages;
    std::vector<std::string> prompts;
    std::vector<std::vector<std::string>> choices;
    std::vector<forms::FileDialogRequest> file_requests;
    std::vector<std::pair<int, std::string>> runtime_errors;

    forms::MsgResult message_box(const std::string& text, forms::MsgButtons buttons, const std::string& title,
                                 forms::MsgIcon icon) override {
        messages.push_back({text, buttons, title, icon});
        return next(message_answers, forms::unattended_answer(buttons));
    }
    std::optional<std::string> input_box(const std::string& prompt, const std::string&, const std::string&) override {
        prompts.push_back(prompt);
        return next(input_answers, std::optional<std::string>());
    }
    std::optional<std::string> file_dialog(const forms::FileDialogRequest& request) override {
        file_requests.push_back(request);
        return next(file_answers, std::optional<std::string>());
    }
    /// Records the prompt and the items (in `prompts` and `choices`).
    std::optional<int> choose_item(const std::string& prompt, const std::string&, const std::vector<std::string>& items,
                                   int preset) override {
        prompts.push_back(prompt);
        choices.push_back(items);
        return next(choice_answers, std::optional<int>(preset));
    }
    void report_runtime_error(int number, const std::string& description) override {
        runtime_errors.emplace_back(number, description);
    }

    /// The texts of the message boxes shown so far.
    std::vector<std::string> message_texts() const {
        std::vector<std::string> out;
        for (const auto& m : messages) out.push_back(m.text);
        return out;
    }

private:
    template <class T>
    static T next(std::deque<T>& answers, T otherwise) {
        if (answers.empty()) return otherwise;
        T a = answers.front();
        answers.pop_front();
        return a;
    }
};

class FakePlatform : public Answering<forms::Platform> {
public:
    std::string clipboard;
    std::vector<Printed> printed;
    /// The next PDF fails, as a broken stream would.
    bool pdf_fails = false;
    std::vector<std::string> printer_names;
    int do_events_calls = 0;
    bool busy = false;
    bool program_ended = false;
    std::vector<std::string> shown, hidden, unloaded;

    void set_clipboard_text(const std::string& text) override { clipboard = text; }
    std::vector<std::string> printers() override { return printer_names; }
    std::string current_printer() override { return printer_names.empty() ? std::string() : printer_names.front(); }
    bool print(const forms::Page& page, const std::string& printer) override;
    /// The PDF is a short stand-in text.
    bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) override;
    void set_busy(bool b) override { busy = b; }
    void do_events() override { ++do_events_calls; }
    void show_form(forms::Form& form, bool modal) override;
    void hide_form(forms::Form& form) override;
    void unload_form(forms::Form& form) override;
    void end_program() override { program_ended = true; }
};

/// The texts of a page in the order they are drawn; its lines come last.
std::vector<std::string> page_texts(const forms::Page& page);

/// Path of a file under ../shared/data, or empty when the data is not there.
std::string data_path(const std::string& relative);

}  // namespace tv::test

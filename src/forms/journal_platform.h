#pragma once
// A platform between the windows and the real one that keeps each dialog's answer in the
// journal, and that can do a journal's work again: its actions performed on the windows, its
// answers given instead of asking, nothing printed or copied, files saved into a scratch folder.
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/journal.h"
#include "forms/platform.h"

namespace tv::forms {

class App;

class JournalPlatform : public Platform {
public:
    JournalPlatform(Platform& inner, Journal& journal) : inner_(&inner), journal_(&journal) {}

    Platform& inner() const { return *inner_; }
    Journal& journal() const { return *journal_; }

    /// How a replay takes the files its answers name.
    struct ReplayFiles {
        /// The path to open for a recorded open dialog's answer; nullopt answers as cancelled.
        std::function<std::optional<std::string>(const std::string& recorded)> open;
        /// The folder that saved files go to instead of their recorded place.
        std::string scratch_folder;
    };
    struct Replayed {
        /// What did not fit: a window or control missing, a dialog the journal does not answer.
        std::vector<std::string> problems;
        /// Each file path answered in place of the recorded one: (recorded, used).
        std::vector<std::pair<std::string, std::string>> substituted;
    };
    /// Performs `steps` on the loaded windows of `app`, from the first.
    Replayed replay(App& app, const std::vector<Step>& steps, ReplayFiles files);
    bool replaying() const { return script_ != nullptr; }
    /// Every question gets its default (Yes, Ok, cancel) without being shown or kept: for
    /// closing the windows before an opened project takes their place.
    bool quiet = false;

    MsgResult message_box(const std::string& text, MsgButtons buttons, const std::string& title, MsgIcon icon) override;
    MsgResult message_box_detailed(const std::string& text, const std::string& detail, MsgButtons buttons,
                                   const std::string& title, MsgIcon icon) override;
    std::optional<std::string> input_box(const std::string& prompt, const std::string& title,
                                         const std::string& default_text) override;
    std::optional<std::string> file_dialog(const FileDialogRequest& request) override;
    std::optional<int> choose_item(const std::string& prompt, const std::string& title,
                                   const std::vector<std::string>& items, int preset) override;
    void set_clipboard_text(const std::string& text) override;
    std::vector<std::string> printers() override { return inner_->printers(); }
    std::string current_printer() override { return inner_->current_printer(); }
    bool print(const Page& page, const std::string& printer) override;
    bool render_pdf(const std::vector<Page>& pages, std::string& bytes, std::string& reason) override {
        return inner_->render_pdf(pages, bytes, reason);
    }
    double page_text_width(const std::string& text, const PageFont& font) override {
        return inner_->page_text_width(text, font);
    }
    void set_busy(bool busy) override { inner_->set_busy(busy); }
    void do_events() override;
    void show_form(Form& form, bool modal) override;
    void hide_form(Form& form) override { inner_->hide_form(form); }
    void unload_form(Form& form) override { inner_->unload_form(form); }
    void end_program() override { inner_->end_program(); }
    void action_goes_on() override { inner_->action_goes_on(); }
    void report_runtime_error(int number, const std::string& description) override;
    void report_file_error(int number, const std::string& description, const std::string& path,
                           const std::string& reason) override;
    double text_width_twips(const std::string& text, const std::string& font, double size) override {
        return inner_->text_width_twips(text, font, size);
    }
    double text_height_twips(const std::string& font, double size) override {
        return inner_->text_height_twips(font, size);
    }

private:
    /// Performs the actions of `depth` until one of a lower depth (or the end) comes.
    void replay_level(int depth);
    /// The next recorded answer when it is of `kind`; a missing one is listed.
    const Answer* next_answer(AnswerKind kind, const std::string& asked);
    void keep(const Answer& answer);

    Platform* inner_;
    Journal* journal_;
    App* app_ = nullptr;
    const std::vector<Step>* script_ = nullptr;
    std::size_t next_ = 0;
    ReplayFiles files_;
    Replayed done_;
};

}  // namespace tv::forms

#pragma once
// The one way out of the core: dialogs, clipboard, printers and PDF pages, the busy pointer,
// pending events and the showing of windows. QtPlatform, the CLI's BatchPlatform and the tests' FakePlatform
// implement it.
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::forms {

class Form;

enum class MsgButtons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgResult { Ok, Cancel, Abort, Retry, Ignore, Yes, No };

/// The answer of a run with nobody at the screen (the batch, the tests): the first button.
inline MsgResult unattended_answer(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::YesNo:
        case MsgButtons::YesNoCancel: return MsgResult::Yes;
        case MsgButtons::AbortRetryIgnore: return MsgResult::Abort;
        case MsgButtons::RetryCancel: return MsgResult::Retry;
        default: return MsgResult::Ok;
    }
}

struct FileDialogRequest {
    bool save = false;
    std::string filter;     // the old filter text, "Pushover File | *.txt" or "*.txt"
    std::string file_name;  // preset name, "*.txt"
    std::string title;
};

class Platform {
public:
    virtual ~Platform() = default;

    virtual MsgResult message_box(const std::string& text, MsgButtons buttons, const std::string& title,
                                  MsgIcon icon) = 0;
    /// The same message with its particulars under it (which file, what was wrong with it); a
    /// platform with no place for them shows the message alone.
    virtual MsgResult message_box_detailed(const std::string& text, const std::string& detail, MsgButtons buttons,
                                           const std::string& title, MsgIcon icon) {
        (void)detail;
        return message_box(text, buttons, title, icon);
    }
    /// InputBox: nullopt when cancelled (the old box then gave an empty text).
    virtual std::optional<std::string> input_box(const std::string& prompt, const std::string& title,
                                                 const std::string& default_text) = 0;
    /// Open or save dialog: the chosen path, or nullopt when cancelled.
    virtual std::optional<std::string> file_dialog(const FileDialogRequest& request) = 0;
    /// A pick from a list (a component, a load case, a column): the index of the item chosen, or
    /// nullopt when cancelled. Without a display the preset item is taken; none (-1) cancels.
    virtual std::optional<int> choose_item(const std::string& prompt, const std::string& title,
                                           const std::vector<std::string>& items, int preset);

    virtual void set_clipboard_text(const std::string& text) = 0;

    virtual std::vector<std::string> printers() = 0;
    virtual std::string current_printer() = 0;
    /// Prints `page` on the printer named (the default one when it is not known); false when
    /// nothing could be printed.
    virtual bool print(const Page& page, const std::string& printer) = 0;
    /// The pages as the bytes of one PDF file, in memory. False, with the reason, when the PDF
    /// could not be made whole.
    virtual bool render_pdf(const std::vector<Page>& pages, std::string& bytes, std::string& reason) = 0;
    /// The width in points of `text` set in `font`, for laying out a page.
    virtual double page_text_width(const std::string& text, const PageFont& font);

    virtual void set_busy(bool busy) = 0;
    /// Lets pending window events run (DoEvents).
    virtual void do_events() = 0;

    /// A window becomes visible; modal waits until it is hidden or unloaded.
    virtual void show_form(Form& form, bool modal) = 0;
    virtual void hide_form(Form& form) = 0;
    /// The window is unloaded: its view goes away.
    virtual void unload_form(Form& form) = 0;
    /// Exit: the program ends at once.
    virtual void end_program() = 0;
    /// The handler goes on past the message box it just showed (a trap that resumes), so that
    /// box is no failure of the action. Only a batch run needs to know.
    virtual void action_goes_on() {}

    /// A run-time error that nothing trapped: "Run-time error" with the description.
    virtual void report_runtime_error(int number, const std::string& description) = 0;
    /// The same for a file that could not be read or written; `path` is the name as given and
    /// `reason` the system's. By default it is shown as any run-time error.
    virtual void report_file_error(int number, const std::string& description, const std::string& path,
                                   const std::string& reason);

    /// Text metrics in twips for the pictures' fonts.
    virtual double text_width_twips(const std::string& text, const std::string& font, double size);
    virtual double text_height_twips(const std::string& font, double size);
};

}  // namespace tv::forms

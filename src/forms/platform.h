#pragma once
// The one way out of the core: dialogs, clipboard, printers, the busy pointer, pending events
// and the showing of windows. QtPlatform, the CLI's BatchPlatform and the tests' FakePlatform
// implement it.
#include <optional>
#include <string>
#include <vector>

namespace tv::forms {

class Form;
class PictureBox;

enum class MsgButtons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgResult { Ok, Cancel, Abort, Retry, Ignore, Yes, No };

struct FileDialogRequest {
    bool save = false;
    std::string filter;     // the old filter text, "Pushover File | *.txt" or "*.txt"
    std::string file_name;  // preset name, "*.txt"
    std::string title;
};

/// One printed page: a picture or the image of a window, then lines of text.
struct PrintJob {
    std::string printer;                // from the printers() list
    std::string title;                  // document name
    const Form* form_image = nullptr;   // the window's image (Form8)
    const PictureBox* picture = nullptr;  // a picture's drawing (Form6, Form10)
    std::string font = "Tahoma";
    std::string heading;                // printed above the lines, larger
    std::vector<std::string> lines;
    std::string pdf_path;               // not empty: the page goes to this PDF file instead
};

/// The name rule of "Save PDF...": ".pdf" is added when the name does not end in it (any case).
inline std::string pdf_file_name(std::string chosen) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    const std::string tail = ".pdf";
    bool has = chosen.size() >= tail.size();
    for (std::size_t i = 0; has && i < tail.size(); ++i) has = lower(chosen[chosen.size() - tail.size() + i]) == tail[i];
    return has ? chosen : chosen + tail;
}

class Platform {
public:
    virtual ~Platform() = default;

    virtual MsgResult message_box(const std::string& text, MsgButtons buttons, const std::string& title,
                                  MsgIcon icon) = 0;
    /// InputBox: nullopt when cancelled (the old box then gave an empty text).
    virtual std::optional<std::string> input_box(const std::string& prompt, const std::string& title,
                                                 const std::string& default_text) = 0;
    /// Open or save dialog: the chosen path, or nullopt when cancelled.
    virtual std::optional<std::string> file_dialog(const FileDialogRequest& request) = 0;

    virtual void set_clipboard_text(const std::string& text) = 0;

    virtual std::vector<std::string> printers() = 0;
    virtual std::string current_printer() = 0;
    /// Prints one page; false when nothing could be printed.
    virtual bool print(const PrintJob& job) = 0;

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

/// "Save PDF...": the page of `job` goes to a PDF file named in a save dialog, whether or not a
/// printer exists. A cancelled dialog writes nothing; a file that cannot be written is error 75.
inline void save_page_as_pdf(Platform& platform, PrintJob job) {
    FileDialogRequest request;
    request.save = true;
    request.filter = "PDF File | *.pdf";
    request.file_name = "*.pdf";
    request.title = "Save PDF";
    const std::optional<std::string> chosen = platform.file_dialog(request);
    if (!chosen || chosen->empty() || *chosen == request.file_name) return;
    job.pdf_path = pdf_file_name(*chosen);
    if (!platform.print(job)) platform.report_runtime_error(75, "Path/File access error");
}

}  // namespace tv::forms

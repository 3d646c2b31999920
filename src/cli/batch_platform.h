#pragma once
// The platform of the batch front end: message boxes go to standard error as "TITLE: TEXT",
// questions take their first button, input boxes and file dialogs are answered from queues
// that the command fills from its options; a pick from a list takes the item named (or numbered
// from 1), the preset item when none is named.
#include <deque>
#include <iosfwd>
#include <optional>
#include <string>

#include "forms/quiet_platform.h"

namespace tv::cli {

class BatchPlatform : public forms::QuietPlatform {
public:
    explicit BatchPlatform(std::ostream& err) : err_(err) {}

    std::deque<std::string> input_answers;
    std::deque<std::optional<std::string>> file_answers;
    std::deque<std::string> item_answers;
    std::string clipboard;

    /// A critical message box that stops the action was shown (a checked failure).
    bool failed = false;
    /// A run-time error that nothing trapped.
    std::optional<std::string> runtime_error;
    /// A file that could not be read or written: "NAME: the system's reason".
    std::optional<std::string> file_error;

    forms::MsgResult message_box(const std::string& text, forms::MsgButtons buttons, const std::string& title,
                                 forms::MsgIcon icon) override;
    /// The particulars go on the next line, indented.
    forms::MsgResult message_box_detailed(const std::string& text, const std::string& detail,
                                          forms::MsgButtons buttons, const std::string& title,
                                          forms::MsgIcon icon) override;
    std::optional<std::string> input_box(const std::string& prompt, const std::string& title,
                                         const std::string& default_text) override;
    std::optional<std::string> file_dialog(const forms::FileDialogRequest& request) override;
    /// An answer that names no item is a failure, told with the items there are.
    std::optional<int> choose_item(const std::string& prompt, const std::string& title,
                                   const std::vector<std::string>& items, int preset) override;
    void set_clipboard_text(const std::string& text) override { clipboard = text; }
    void action_goes_on() override { failed = false; }
    /// The pages as cairo paints them.
    bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) override;
    double page_text_width(const std::string& text, const forms::PageFont& font) override;
    void report_runtime_error(int number, const std::string& description) override;
    void report_file_error(int number, const std::string& description, const std::string& path,
                           const std::string& reason) override;

private:
    std::ostream& err_;
};

}  // namespace tv::cli

#include "cli/batch_platform.h"

#include <ostream>

#include "cli/cairo_page.h"

namespace tv::cli {

forms::MsgResult BatchPlatform::message_box(const std::string& text, forms::MsgButtons buttons,
                                            const std::string& title, forms::MsgIcon icon) {
    err_ << title << ": " << text << '\n';
    if (icon == forms::MsgIcon::Critical) failed = true;
    switch (buttons) {
        case forms::MsgButtons::YesNo:
        case forms::MsgButtons::YesNoCancel: return forms::MsgResult::Yes;
        case forms::MsgButtons::AbortRetryIgnore: return forms::MsgResult::Abort;
        case forms::MsgButtons::RetryCancel: return forms::MsgResult::Retry;
        default: return forms::MsgResult::Ok;
    }
}

std::optional<std::string> BatchPlatform::input_box(const std::string&, const std::string&, const std::string&) {
    if (input_answers.empty()) return std::nullopt;
    std::string a = input_answers.front();
    input_answers.pop_front();
    return a;
}

std::optional<std::string> BatchPlatform::file_dialog(const forms::FileDialogRequest&) {
    if (file_answers.empty()) return std::nullopt;
    auto a = file_answers.front();
    file_answers.pop_front();
    return a;
}

void BatchPlatform::report_runtime_error(int, const std::string& description) {
    if (!runtime_error) runtime_error = description;
}

void BatchPlatform::report_file_error(int, const std::string&, const std::string& path, const std::string& reason) {
    if (!file_error && !runtime_error) file_error = path + ": " + reason;
}

bool BatchPlatform::render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) {
    return cli::render_pdf(pages, bytes, reason);
}

double BatchPlatform::page_text_width(const std::string& text, const forms::PageFont& font) {
    return text_width(text, font);
}

}  // namespace tv::cli

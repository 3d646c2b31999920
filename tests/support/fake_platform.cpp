#include "support/fake_platform.h"

#include <filesystem>

#include "forms/form.h"

namespace tv::test {

forms::MsgResult FakePlatform::message_box(const std::string& text, forms::MsgButtons buttons,
                                           const std::string& title, forms::MsgIcon icon) {
    messages.push_back({text, buttons, title, icon});
    if (!message_answers.empty()) {
        auto a = message_answers.front();
        message_answers.pop_front();
        return a;
    }
    switch (buttons) {
        case forms::MsgButtons::YesNo:
        case forms::MsgButtons::YesNoCancel: return forms::MsgResult::Yes;
        case forms::MsgButtons::AbortRetryIgnore: return forms::MsgResult::Abort;
        case forms::MsgButtons::RetryCancel: return forms::MsgResult::Retry;
        default: return forms::MsgResult::Ok;
    }
}

std::optional<std::string> FakePlatform::input_box(const std::string& prompt, const std::string&,
                                                   const std::string&) {
    prompts.push_back(prompt);
    if (input_answers.empty()) return std::nullopt;
    auto a = input_answers.front();
    input_answers.pop_front();
    return a;
}

std::optional<int> FakePlatform::choose_item(const std::string& prompt, const std::string&,
                                             const std::vector<std::string>& items, int preset) {
    prompts.push_back(prompt);
    choices.push_back(items);
    if (choice_answers.empty()) return preset;
    auto a = choice_answers.front();
    choice_answers.pop_front();
    return a;
}

std::optional<std::string> FakePlatform::file_dialog(const forms::FileDialogRequest& request) {
    file_requests.push_back(request);
    if (file_answers.empty()) return std::nullopt;
    auto a = file_answers.front();
    file_answers.pop_front();
    return a;
}

bool FakePlatform::print(const forms::Page& page, const std::string& printer) {
    printed.push_back({page, printer});
    return true;
}

bool FakePlatform::render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) {
    if (pdf_fails) {
        pdf_fails = false;
        reason = "error while writing to output stream";
        return false;
    }
    pdfs.push_back(pages);
    bytes = "%PDF-fake " + std::to_string(pages.size()) + " page(s)\n";
    return true;
}

void FakePlatform::show_form(forms::Form& form, bool) { shown.push_back(form.name()); }
void FakePlatform::hide_form(forms::Form& form) { hidden.push_back(form.name()); }
void FakePlatform::unload_form(forms::Form& form) { unloaded.push_back(form.name()); }

std::vector<std::string> FakePlatform::message_texts() const {
    std::vector<std::string> out;
    for (const auto& m : messages) out.push_back(m.text);
    return out;
}

std::vector<std::string> page_texts(const forms::Page& page) {
    std::vector<std::string> out;
    for (const forms::PageOp& op : page.ops)
        if (op.kind == forms::PageOp::Kind::Text) out.push_back(op.text);
    return out;
}

std::string data_path(const std::string& relative) {
    std::filesystem::path p = std::filesystem::path(TV_DATA_DIR) / relative;
    return std::filesystem::exists(p) ? p.string() : std::string();
}

}  // namespace tv::test

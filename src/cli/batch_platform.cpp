#include "cli/batch_platform.h"

#include <algorithm>
#include <cctype>
#include <ostream>

#include "cli/cairo_page.h"

namespace tv::cli {

forms::MsgResult BatchPlatform::message_box(const std::string& text, forms::MsgButtons buttons,
                                            const std::string& title, forms::MsgIcon icon) {
    err_ << title << ": " << text << '\n';
    if (icon == forms::MsgIcon::Critical) failed = true;
    return forms::unattended_answer(buttons);
}

forms::MsgResult BatchPlatform::message_box_detailed(const std::string& text, const std::string& detail,
                                                     forms::MsgButtons buttons, const std::string& title,
                                                     forms::MsgIcon icon) {
    const forms::MsgResult result = message_box(text, buttons, title, icon);
    if (!detail.empty()) err_ << "  " << detail << '\n';
    return result;
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

namespace {

std::string upper(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return s;
}

}  // namespace

std::optional<int> BatchPlatform::choose_item(const std::string& prompt, const std::string& title,
                                              const std::vector<std::string>& items, int preset) {
    if (item_answers.empty()) return forms::Platform::choose_item(prompt, title, items, preset);
    const std::string a = item_answers.front();
    item_answers.pop_front();
    const int n = static_cast<int>(items.size());
    if (!a.empty() && a.size() < 6 && a.find_first_not_of("0123456789") == std::string::npos) {
        const int k = std::stoi(a);
        if (k >= 1 && k <= n) return k - 1;
    }
    // "L1" names "L1 (177°)": the name before its bracket will do.
    for (int k = 0; k < n; ++k) {
        const std::string& item = items[static_cast<std::size_t>(k)];
        if (upper(item) == upper(a) || upper(item.substr(0, item.find(" ("))) == upper(a)) return k;
    }
    err_ << title << ": " << prompt << " no item \"" << a << "\" among";
    for (int k = 0; k < n; ++k) err_ << (k ? ", " : " ") << k + 1 << " " << items[static_cast<std::size_t>(k)];
    err_ << '\n';
    failed = true;
    return std::nullopt;
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

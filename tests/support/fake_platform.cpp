#include "support/fake_platform.h"

#include <filesystem>

#include "forms/form.h"

namespace tv::test {

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
    bytes = "%PDF-fake " + std::to_string(pages.size()) + " page(s)\n";
    return true;
}

void FakePlatform::show_form(forms::Form& form, bool) { shown.push_back(form.name()); }
void FakePlatform::hide_form(forms::Form& form) { hidden.push_back(form.name()); }
void FakePlatform::unload_form(forms::Form& form) { unloaded.push_back(form.name()); }

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

#include "windows/printing/printing.h"

#include <algorithm>
#include <optional>

#include "compute/files/file_writer.h"
#include "forms/controls.h"
#include "forms/platform.h"

namespace tv::windows {

void fill_printer_list(forms::ComboBox& list, forms::Platform& platform) {
    list.clear();
    const std::vector<std::string> names = platform.printers();
    for (const std::string& n : names) list.add_item(n);
    const std::string current = platform.current_printer();
    // Showing the current name selects its entry; an empty list selects nothing.
    auto it = std::find(names.begin(), names.end(), current);
    if (it != names.end())
        list.set_list_index(static_cast<int>(it - names.begin()));
    else
        list.set_text(current);
}

void print_page(forms::Platform& platform, const forms::Page& page, const std::string& printer) {
    if (platform.printers().empty()) return;
    platform.print(page, printer);
}

std::string pdf_file_name(const std::string& chosen) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    const std::string tail = ".pdf";
    bool has = chosen.size() >= tail.size();
    for (std::size_t i = 0; has && i < tail.size(); ++i) has = lower(chosen[chosen.size() - tail.size() + i]) == tail[i];
    return has ? chosen : chosen + tail;
}

std::optional<std::string> ask_pdf_path(forms::Platform& platform, const std::string& title) {
    forms::FileDialogRequest request;
    request.save = true;
    request.filter = "PDF File | *.pdf";
    request.file_name = "*.pdf";
    request.title = title;
    const std::optional<std::string> chosen = platform.file_dialog(request);
    if (!chosen || chosen->empty() || *chosen == request.file_name) return std::nullopt;
    return pdf_file_name(*chosen);
}

void save_pdf_pages(forms::Platform& platform, const std::vector<forms::Page>& pages, const std::string& path) {
    std::string reason;
    if (!write_pdf_file(platform, pages, path, reason))
        platform.report_file_error(75, "Path/File access error", path, reason);
}

void save_page_as_pdf(forms::Platform& platform, const forms::Page& page) {
    if (const std::optional<std::string> path = ask_pdf_path(platform, "Save PDF")) save_pdf_pages(platform, {page}, *path);
}

bool write_pdf_file(forms::Platform& platform, const std::vector<forms::Page>& pages, const std::string& path,
                    std::string& reason) {
    std::string bytes;
    if (!platform.render_pdf(pages, bytes, reason)) return false;
    const compute::FileStatus written = compute::write_file(path, bytes);
    if (!written.ok()) reason = written.reason;
    return written.ok();
}

}  // namespace tv::windows

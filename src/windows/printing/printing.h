#pragma once
// The printing road of the windows: the printer list, Print, "Save PDF..." and the writing of
// a PDF file.
#include <optional>
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::forms {
class ComboBox;
class Platform;
}  // namespace tv::forms

namespace tv::windows {

/// Lists the system's printers in `list` and shows the current one.
void fill_printer_list(forms::ComboBox& list, forms::Platform& platform);

/// Print: `page` goes to the printer named; without any printer nothing happens.
void print_page(forms::Platform& platform, const forms::Page& page, const std::string& printer);

/// The name rule of "Save PDF...": ".pdf" is added when the name does not end in it (any case).
std::string pdf_file_name(const std::string& chosen);

/// The save dialog of a PDF file, captioned `title`: the name chosen with ".pdf" added, nothing
/// when cancelled.
std::optional<std::string> ask_pdf_path(forms::Platform& platform, const std::string& title);

/// Writes `pages` whole to `path`; a file that cannot be made or written is error 75.
void save_pdf_pages(forms::Platform& platform, const std::vector<forms::Page>& pages, const std::string& path);

/// "Save PDF...": `page` goes to a PDF file named in a save dialog, whether or not a printer
/// exists. A cancelled dialog writes nothing; a file that cannot be made or written is error 75.
void save_page_as_pdf(forms::Platform& platform, const forms::Page& page);

/// Renders `pages` into one PDF and writes it whole to `path`. False, with the reason, when
/// either fails; the file is then as it was.
bool write_pdf_file(forms::Platform& platform, const std::vector<forms::Page>& pages, const std::string& path,
                    std::string& reason);

}  // namespace tv::windows

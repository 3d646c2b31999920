#pragma once
// The printed pages painted by cairo: the batch front end's PDF files and its text widths.
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::cli {

/// The pages as one PDF file in memory. False, with cairo's reason, when the surface or its
/// stream failed; `bytes` is then untouched.
bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason);

/// The width in points of `text` set in `font`.
double text_width(const std::string& text, const forms::PageFont& font);

}  // namespace tv::cli

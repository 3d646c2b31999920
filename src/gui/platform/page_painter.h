#pragma once
// The printed page painted by Qt: on a printer, into a PDF in memory, or into an image.
#include <string>
#include <vector>

#include "forms/page.h"

class QPainter;

namespace tv::gui {

/// Paints `page` at `per_point` device units a point, from the device's top-left corner.
void paint_page(QPainter& p, const forms::Page& page, double per_point);

/// The pages as one PDF file in memory; false with the reason when the writer failed.
bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason);

/// The width in points of `text` set in `font`.
double page_text_width(const std::string& text, const forms::PageFont& font);

}  // namespace tv::gui

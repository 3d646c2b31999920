#pragma once
// The printed pages of the batch front end, written to a PDF file instead of a printer.
#include <string>
#include <vector>

#include "forms/platform.h"

namespace tv::cli {

/// Writes one A4 page per job: the job's picture (its recorded drawing, scaled to the page
/// width) or an image of its window (captions, boxes and their texts in the window's order),
/// then the heading and the lines in the job's font. The file is written beside the target and
/// renamed, so a failure leaves no half file. False with the reason in `error` on failure.
bool write_pdf(const std::string& path, const std::vector<forms::PrintJob>& pages, std::string& error);

}  // namespace tv::cli

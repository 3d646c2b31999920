#pragma once
// The printed pages of the batch front end, written to a PDF file instead of a printer.
#include <string>
#include <vector>

#include "forms/platform.h"

namespace tv::forms {
class Control;
class Form;
}  // namespace tv::forms

namespace tv::cli {

/// A control of a window's image, placed in points from the image's top-left corner.
struct PlacedControl {
    const forms::Control* control = nullptr;
    double x = 0, y = 0, w = 0, h = 0;
};

/// A frame of the image: a group box with its title (empty for a plain border).
struct PlacedFrame {
    std::string title;
    double x = 0, y = 0, w = 0, h = 0;
};

/// The window as the screen shows it, drawn without a display: its title bar, frames, captions,
/// boxes with their texts, check boxes with their ticks and buttons. Sizes in points.
struct WindowImage {
    double width = 0, height = 0;
    double title_height = 0;
    std::vector<PlacedFrame> frames;
    std::vector<PlacedControl> controls;
};

/// Lays out the visible captions, boxes, check boxes and buttons of `form`: Form8 in the
/// columns of its window (building, inputs, output, the buttons below), any other window as one
/// column in the order it holds its controls.
WindowImage layout_window_image(const forms::Form& form);

/// Writes one A4 page per job: the job's picture (its recorded drawing, scaled to the page
/// width) or the drawn image of its window, then the heading and the lines in the job's font.
/// The file is written beside the target and renamed, so a failure leaves no half file. False
/// with the reason in `error` on failure.
bool write_pdf(const std::string& path, const std::vector<forms::PrintJob>& pages, std::string& error);

/// The same page as a PNG image at `dpi`, written whole in the same way, for a person to look at.
bool write_page_png(const std::string& path, const forms::PrintJob& job, double dpi, std::string& error);

}  // namespace tv::cli

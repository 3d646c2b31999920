#pragma once
// A window drawn on a page as the screen shows it, from its controls: the title bar, frames,
// captions, boxes with their texts, check boxes with their ticks and buttons.
#include <vector>

#include "forms/page.h"

namespace tv::forms {
class Form;
class Platform;
}  // namespace tv::forms

namespace tv::windows {

/// A control of a row, by name; a text box or button gives its width in points.
struct LayoutItem {
    const char* name;
    double width = 0;
};
using LayoutRow = std::vector<LayoutItem>;
/// A row, or a plain bordered box of rows (a picture holding check boxes).
struct LayoutPart {
    LayoutRow row;
    std::vector<LayoutRow> boxed;
};
/// A group box: its title is the caption of the frame named, else the text itself. In a grid
/// the first control of each row stands in a column of its own.
struct LayoutGroup {
    const char* title;
    std::vector<LayoutPart> parts;
    bool grid = false;
};
struct LayoutColumn {
    std::vector<LayoutGroup> groups;
};
/// Where the controls of a window stand: columns of groups from the left, buttons below.
struct WindowLayout {
    std::vector<LayoutColumn> columns;
    LayoutRow buttons;       // from the left
    LayoutRow button_right;  // the main button, at the right
};

/// Draws the visible controls of `form` as `layout` places them, at (left, top) of the page and
/// shrunk to `room` points wide when wider; texts are measured by the platform. Gives the
/// height used.
double draw_window_image(forms::Page& page, const forms::Form& form, const WindowLayout& layout,
                         forms::Platform& platform, double left, double top, double room);

}  // namespace tv::windows

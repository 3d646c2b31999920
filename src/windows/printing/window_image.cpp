#include "windows/printing/window_image.h"

#include <algorithm>
#include <string>

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/platform.h"
#include "windows/printing/page_canvas.h"

namespace tv::windows {

namespace {

constexpr double kUiFont = 7.5;    // points, the window's own text
constexpr double kRow = 16;        // one row of controls
constexpr double kBoxHeight = 12;  // a text box or a button
constexpr double kTick = 8;        // the square of a check box
constexpr double kGap = 5;         // between the controls of a row
constexpr double kPad = 7;         // inside a frame
constexpr double kTitleBar = 16;
constexpr double kColumnGap = 8;

// The colours of a window on the screen.
constexpr int kFace = 0xF0F0F0;
constexpr int kTitleFace = 0xD6E0F0;
constexpr int kEdge = 0x737373;
constexpr int kFrameEdge = 0xA8A8A8;
constexpr int kBoxEdge = 0x808080;
constexpr int kButtonFace = 0xE0E0E0;
constexpr int kTickEdge = 0x595959;
constexpr int kWhite = 0xFFFFFF;
constexpr int kInk = 0x000000;
constexpr int kGreyInk = 0x8C8C8C;  // a disabled control's text

const forms::PageFont kFont{"Tahoma", kUiFont, false};

struct PlacedControl {
    const forms::Control* control = nullptr;
    double x = 0, y = 0, w = 0, h = 0;
};

struct PlacedFrame {
    std::string title;  // empty for a plain border
    double x = 0, y = 0, w = 0, h = 0;
};

// The window laid out in points from its top-left corner.
struct WindowImage {
    double width = 0, height = 0;
    std::vector<PlacedFrame> frames;
    std::vector<PlacedControl> controls;
};

bool shown(const forms::Control& c) {
    for (const forms::Control* k = &c; k; k = k->container())
        if (!k->visible()) return false;
    return true;
}

const std::string* caption_of(const forms::Control& c) {
    if (auto* l = dynamic_cast<const forms::Label*>(&c)) return &l->caption();
    if (auto* k = dynamic_cast<const forms::CheckBox*>(&c)) return &k->caption();
    if (auto* o = dynamic_cast<const forms::OptionButton*>(&c)) return &o->caption();
    if (auto* b = dynamic_cast<const forms::CommandButton*>(&c)) return &b->caption();
    if (auto* f = dynamic_cast<const forms::Frame*>(&c)) return &f->caption();
    return nullptr;
}

class Layouter {
public:
    Layouter(const forms::Form& form, forms::Platform& platform) : form_(form), platform_(platform) {}

    WindowImage lay_out(const WindowLayout& l);

private:
    // The room a control takes in its row; 0 when it is not drawn.
    double item_width(const LayoutItem& item) const;
    // The width of a row; `lead` is the width of a grid's first column (0: no grid).
    double row_width(const LayoutRow& row, double lead) const;
    void place_row(const LayoutRow& row, double rx, double ry, double lead);

    const forms::Form& form_;
    forms::Platform& platform_;
    WindowImage img_;
};

double Layouter::item_width(const LayoutItem& item) const {
    const forms::Control* c = form_.find(item.name);
    if (c == nullptr || !shown(*c)) return 0;
    if (item.width > 0) return item.width;
    const std::string* caption = caption_of(*c);
    if (caption == nullptr || (c->kind() == forms::ControlKind::Label && caption->empty())) return 0;
    const double text = platform_.page_text_width(*caption, kFont);
    switch (c->kind()) {
        case forms::ControlKind::CheckBox:
        case forms::ControlKind::OptionButton: return kTick + 3 + text;
        case forms::ControlKind::CommandButton: return text + 12;
        default: return text;
    }
}

double Layouter::row_width(const LayoutRow& row, double lead) const {
    double w = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double iw = item_width(row[i]);
        if (i == 0 && lead > 0)
            w += lead + kGap;
        else if (iw > 0)
            w += iw + kGap;
    }
    return w > 0 ? w - kGap : 0;
}

void Layouter::place_row(const LayoutRow& row, double rx, double ry, double lead) {
    double cx = rx;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double w = item_width(row[i]);
        if (w > 0) {
            const forms::Control* c = form_.find(row[i].name);
            const bool boxy = c->kind() == forms::ControlKind::TextBox || c->kind() == forms::ControlKind::ComboBox ||
                              c->kind() == forms::ControlKind::CommandButton;
            const double h = boxy ? kBoxHeight : kUiFont + 3;
            img_.controls.push_back({c, cx, ry + (kRow - h) / 2, w, h});
            cx += w + kGap;
        }
        if (i == 0 && lead > 0) cx = rx + lead + kGap;
    }
}

WindowImage Layouter::lay_out(const WindowLayout& l) {
    double x = kPad;
    double bottom = 0;
    const double top = kTitleBar + kPad;
    for (const LayoutColumn& column : l.columns) {
        // The column is as wide as its widest group.
        double inner = 0;
        std::vector<double> leads;
        for (const LayoutGroup& g : column.groups) {
            double lead = 0;
            if (g.grid)
                for (const LayoutPart& p : g.parts)
                    if (p.row.size() > 1) lead = std::max(lead, item_width(p.row.front()));
            leads.push_back(lead);
            for (const LayoutPart& p : g.parts) {
                inner = std::max(inner, row_width(p.row, lead));
                for (const LayoutRow& r : p.boxed) inner = std::max(inner, row_width(r, 0) + 2 * kPad);
            }
        }
        double y = top;
        for (std::size_t gi = 0; gi < column.groups.size(); ++gi) {
            const LayoutGroup& g = column.groups[gi];
            const forms::Control* frame = form_.find(g.title);
            const std::string* caption = frame ? caption_of(*frame) : nullptr;
            PlacedFrame gf{caption ? *caption : std::string(g.title), x, y, inner + 2 * kPad, 0};
            double gy = y + kPad + (gf.title.empty() ? 0 : 4);
            for (const LayoutPart& p : g.parts) {
                if (!p.row.empty()) {
                    // A row whose controls are all hidden or empty takes no room.
                    if (row_width(p.row, 0) == 0) continue;
                    place_row(p.row, x + kPad, gy, p.row.size() > 1 ? leads[gi] : 0);
                    gy += kRow;
                } else {
                    PlacedFrame bf{"", x + kPad, gy + 2, inner, 0};
                    double by = gy + 4;
                    for (const LayoutRow& r : p.boxed) {
                        place_row(r, x + 2 * kPad, by, 0);
                        by += kRow - 2;
                    }
                    bf.h = by - bf.y + 2;
                    img_.frames.push_back(bf);
                    gy = by + 6;
                }
            }
            gf.h = gy - y + kPad - 4;
            img_.frames.push_back(gf);
            y += gf.h + 8;
        }
        bottom = std::max(bottom, y);
        x += inner + 2 * kPad + kColumnGap;
    }
    img_.width = x - kColumnGap + kPad;
    // The buttons along the bottom: the others at the left, the main one at the right.
    const double left_w = row_width(l.buttons, 0), right_w = row_width(l.button_right, 0);
    img_.width = std::max(img_.width, left_w + right_w + 2 * kPad + (left_w > 0 && right_w > 0 ? 3 * kGap : 0));
    place_row(l.buttons, kPad, bottom, 0);
    place_row(l.button_right, img_.width - kPad - right_w, bottom, 0);
    img_.height = bottom + kRow + kPad;
    return img_;
}

void draw_control(PageCanvas& c, forms::Platform& platform, const PlacedControl& p) {
    const forms::Control& control = *p.control;
    const int ink = control.enabled() ? kInk : kGreyInk;
    const double text_top = p.y + (p.h - kUiFont - 1.5) / 2;
    switch (control.kind()) {
        case forms::ControlKind::TextBox:
        case forms::ControlKind::ComboBox: {
            c.rect(p.x, p.y, p.w, p.h, kWhite, kBoxEdge, 0.6);
            std::string value;
            if (auto* t = dynamic_cast<const forms::TextBox*>(&control)) value = t->text();
            if (auto* k = dynamic_cast<const forms::ComboBox*>(&control)) value = k->text();
            c.clip(p.x + 1, p.y, p.w - 2, p.h);
            c.text(p.x + 2.5, text_top, value, kFont, ink);
            c.unclip();
            break;
        }
        case forms::ControlKind::CommandButton: {
            c.rect(p.x, p.y, p.w, p.h, kButtonFace, kBoxEdge, 0.6);
            const std::string& caption = *caption_of(control);
            c.text(p.x + (p.w - platform.page_text_width(caption, kFont)) / 2, text_top, caption, kFont, ink);
            break;
        }
        case forms::ControlKind::CheckBox:
        case forms::ControlKind::OptionButton: {
            const double by = p.y + (p.h - kTick) / 2;
            c.rect(p.x, by, kTick, kTick, kWhite, kTickEdge, 0.6);
            const auto* k = dynamic_cast<const forms::CheckBox*>(&control);
            const auto* o = dynamic_cast<const forms::OptionButton*>(&control);
            if ((k && k->checked()) || (o && o->value())) {
                c.line(p.x + 1.8, by + kTick / 2, p.x + kTick * 0.42, by + kTick - 1.8, kInk, 1.2);
                c.line(p.x + kTick * 0.42, by + kTick - 1.8, p.x + kTick - 1.5, by + 1.5, kInk, 1.2);
            }
            c.text(p.x + kTick + 3, text_top, *caption_of(control), kFont, ink);
            break;
        }
        default: c.text(p.x, text_top, *caption_of(control), kFont, ink); break;
    }
}

}  // namespace

double draw_window_image(forms::Page& page, const forms::Form& form, const WindowLayout& layout,
                         forms::Platform& platform, double left, double top, double room) {
    const WindowImage img = Layouter(form, platform).lay_out(layout);
    const double scale = std::min(1.0, room / img.width);
    PageCanvas c(page, left, top, scale, scale);

    // The window and its title bar.
    c.rect(0, 0, img.width, img.height, kFace, kEdge, 0.6);
    c.rect(0, 0, img.width, kTitleBar, kTitleFace, kEdge, 0.6);
    c.text(6, (kTitleBar - kUiFont - 2) / 2, form.caption(), {"Tahoma", kUiFont + 0.5, true}, kInk);

    for (const PlacedFrame& f : img.frames) {
        c.rect(f.x, f.y, f.w, f.h, -1, kFrameEdge, 0.6);
        if (f.title.empty()) continue;
        // The title sits in a gap of the top border.
        c.rect(f.x + 6, f.y - 1, platform.page_text_width(f.title, kFont) + 4, 2, kFace, -1, 0);
        c.text(f.x + 8, f.y - kUiFont / 2 - 1.5, f.title, kFont, kInk);
    }
    for (const PlacedControl& p : img.controls) draw_control(c, platform, p);
    return img.height * scale;
}

}  // namespace tv::windows

#include "cli/pdf_report.h"

#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <cstdio>

#include "compute/files/file_writer.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace tv::cli {

namespace {

constexpr double kPageWidth = 595.28;  // A4 in points
constexpr double kPageHeight = 841.89;
constexpr double kMargin = 42;
constexpr double kFontSize = 10;
constexpr double kLineHeight = 14;

void set_colour(cairo_t* cr, int bgr) {
    cairo_set_source_rgb(cr, (bgr & 0xFF) / 255.0, ((bgr >> 8) & 0xFF) / 255.0, ((bgr >> 16) & 0xFF) / 255.0);
}

// Text placed as the pictures place it: the point is the top-left corner of the text.
void text_at(cairo_t* cr, double x, double y, const std::string& s) {
    cairo_font_extents_t fe;
    cairo_font_extents(cr, &fe);
    cairo_move_to(cr, x, y + fe.ascent);
    cairo_show_text(cr, s.c_str());
}

// The picture's drawing at (left, top), twips to points; returns the height used.
double draw_picture(cairo_t* cr, const forms::PictureBox& p, double left, double top) {
    const double wide = p.width() / 20.0;
    const double scale = std::min(1.0, (kPageWidth - 2 * kMargin) / std::max(wide, 1.0)) / 20.0;
    cairo_save(cr);
    cairo_translate(cr, left, top);
    cairo_rectangle(cr, 0, 0, p.width() * scale, p.height() * scale);
    cairo_set_source_rgb(cr, 0.6, 0.6, 0.6);
    cairo_set_line_width(cr, 0.5);
    cairo_stroke(cr);
    cairo_rectangle(cr, 0, 0, p.width() * scale, p.height() * scale);
    cairo_clip(cr);
    cairo_set_font_size(cr, p.font_size);
    for (const forms::DrawOp& op : p.ops()) {
        set_colour(cr, op.color == -1 ? p.fore_color : op.color);
        switch (op.kind) {
            case forms::DrawOp::Kind::Line:
                cairo_set_line_width(cr, 0.75 * op.width);
                cairo_move_to(cr, op.x1 * scale, op.y1 * scale);
                cairo_line_to(cr, op.x2 * scale, op.y2 * scale);
                cairo_stroke(cr);
                break;
            case forms::DrawOp::Kind::Point:
                cairo_arc(cr, op.x1 * scale, op.y1 * scale, 0.6 * op.width, 0, 6.283185307179586);
                cairo_fill(cr);
                break;
            case forms::DrawOp::Kind::Text: text_at(cr, op.x1 * scale, op.y1 * scale, op.text); break;
        }
    }
    cairo_restore(cr);
    return p.height() * scale;
}

bool shown(const forms::Control& c) {
    for (const forms::Control* k = &c; k; k = k->container())
        if (!k->visible()) return false;
    return true;
}

// --- The window's image ---------------------------------------------------------------------

constexpr double kUiFont = 7.5;     // points, the window's own text
constexpr double kRow = 16;         // one row of controls
constexpr double kBoxHeight = 12;   // a text box or a button
constexpr double kTick = 8;         // the square of a check box
constexpr double kGap = 5;          // between the controls of a row
constexpr double kPad = 7;          // inside a frame
constexpr double kTitleBar = 16;

// A row of the layout names its controls; a text box or button gives its width.
struct Item {
    const char* name;
    double width = 0;
};
using Row = std::vector<Item>;
// A part of a group: a row, or a plain bordered box of rows (a picture holding check boxes).
struct Part {
    Row row;
    std::vector<Row> boxed;
};
// A group box: its title is the caption of the frame named, else the text itself.
struct Group {
    const char* title;
    std::vector<Part> parts;
    bool grid = false;  // the first control of each row in a column of its own
};
struct Column {
    std::vector<Group> groups;
};
struct Layout {
    std::vector<Column> columns;
    Row buttons;        // along the bottom, from the left
    Row button_right;   // the main button, at the right
};

// Form8 as its window stands: the building and its tables, the inputs, the output, the buttons.
Layout form8_layout() {
    auto part = [](Row r) { return Part{std::move(r), {}}; };
    auto box = [](std::vector<Row> rows) { return Part{{}, std::move(rows)}; };
    Layout l;
    l.columns.push_back(Column{{
        Group{"Building",
              {part({{"lblStories"}, {"Text1", 30}}), box({{{"Check1"}}, {{"Check2"}}, {{"Check3"}}}),
               part({{"lblC0"}, {"Text12", 44}}), box({{{"Check11"}}, {{"Check12"}}, {{"Check13"}}, {{"Check14"}}}),
               part({{"lblCm"}, {"Text11", 44}}), box({{{"Check4"}}, {{"Check5"}}, {{"Check6"}}})}},
        Group{"fraSoil", {part({{"Check7"}, {"Check8"}, {"Check9"}})}},
    }});
    l.columns.push_back(Column{{Group{"Inputs",
                                      {part({{"lblTe"}, {"Text7", 48}, {"lblTeUnit"}}),
                                       part({{"lblSa"}, {"Text2", 48}, {"Command3", 30}}),
                                       part({{"lblTs"}, {"Text8", 48}, {"lblTsUnit"}}),
                                       part({{"lblW"}, {"Text10", 48}, {"lblWUnit"}}),
                                       part({{"lblDy"}, {"Text16", 48}, {"lblDyUnit"}}),
                                       part({{"lblVy"}, {"Text17", 48}, {"lblVyUnit"}}),
                                       part({{"lblLimit"}, {"Text18", 48}, {"lblLimitUnit"}}),
                                       part({{"lblAlphaE"}, {"Text15", 48}, {"Check10"}})},
                                      true}}});
    l.columns.push_back(Column{{Group{"Frame1",
                                      {part({{"lblC0Out"}, {"Text3", 44}}), part({{"lblC1"}, {"Text4", 44}}),
                                       part({{"lblC2"}, {"Text5", 44}}),
                                       part({{"lblC3"}, {"Text6", 44}, {"Check15"}}),
                                       part({{"lblRu"}, {"Text13", 44}}), part({{"lblRmax"}, {"Text14", 44}}),
                                       part({{"lblAlpha"}, {"Label18"}}), part({{"Label17"}}),
                                       part({{"lblTarget"}, {"Text9", 44}, {"lblTargetUnit"}})},
                                      true}}});
    l.buttons = {{"Command2", 62}, {"print", 62}, {"cmdSavePdf", 62}};
    l.button_right = {{"Command1", 62}};
    return l;
}

// Any other window: one column, its controls in the order it holds them.
Layout plain_layout(const forms::Form& form) {
    Layout l;
    Group g{"", {}, false};
    for (const auto& c : form.controls()) {
        switch (c->kind()) {
            case forms::ControlKind::Label:
            case forms::ControlKind::CheckBox:
            case forms::ControlKind::OptionButton: g.parts.push_back(Part{{{c->name().c_str()}}, {}}); break;
            case forms::ControlKind::TextBox:
            case forms::ControlKind::ComboBox: g.parts.push_back(Part{{{c->name().c_str(), 90}}, {}}); break;
            case forms::ControlKind::CommandButton: l.buttons.push_back({c->name().c_str(), 62}); break;
            default: break;
        }
    }
    l.columns.push_back(Column{{std::move(g)}});
    return l;
}

// Measures texts in the window's font.
class Measure {
public:
    Measure() : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1)), cr_(cairo_create(surface_)) {
        cairo_select_font_face(cr_, "Tahoma", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cr_, kUiFont);
    }
    ~Measure() {
        cairo_destroy(cr_);
        cairo_surface_destroy(surface_);
    }
    double width(const std::string& s) {
        cairo_text_extents_t e;
        cairo_text_extents(cr_, s.c_str(), &e);
        return e.x_advance;
    }

private:
    cairo_surface_t* surface_;
    cairo_t* cr_;
};

const std::string* caption_of(const forms::Control& c) {
    if (auto* l = dynamic_cast<const forms::Label*>(&c)) return &l->caption();
    if (auto* k = dynamic_cast<const forms::CheckBox*>(&c)) return &k->caption();
    if (auto* o = dynamic_cast<const forms::OptionButton*>(&c)) return &o->caption();
    if (auto* b = dynamic_cast<const forms::CommandButton*>(&c)) return &b->caption();
    if (auto* f = dynamic_cast<const forms::Frame*>(&c)) return &f->caption();
    return nullptr;
}

// The room a control takes in its row; 0 when it is not drawn.
double item_width(const forms::Form& form, const Item& item, Measure& m) {
    const forms::Control* c = form.find(item.name);
    if (c == nullptr || !shown(*c)) return 0;
    if (item.width > 0) return item.width;
    const std::string* caption = caption_of(*c);
    if (caption == nullptr || (c->kind() == forms::ControlKind::Label && caption->empty())) return 0;
    const double text = m.width(*caption);
    switch (c->kind()) {
        case forms::ControlKind::CheckBox:
        case forms::ControlKind::OptionButton: return kTick + 3 + text;
        case forms::ControlKind::CommandButton: return text + 12;
        default: return text;
    }
}

}  // namespace

WindowImage layout_window_image(const forms::Form& form) {
    const Layout l = form.name() == "Form8" ? form8_layout() : plain_layout(form);
    Measure m;
    WindowImage img;
    img.title_height = kTitleBar;
    const double column_gap = 8;
    double x = kPad;
    double bottom = 0;
    const double top = kTitleBar + kPad;

    // A row at (rx, ry); `lead` is the width of the grid's first column (0: no grid).
    auto place_row = [&](const Row& row, double rx, double ry, double lead) {
        double cx = rx;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const double w = item_width(form, row[i], m);
            if (w > 0) {
                const forms::Control* c = form.find(row[i].name);
                const bool boxy = c->kind() == forms::ControlKind::TextBox || c->kind() == forms::ControlKind::ComboBox ||
                                  c->kind() == forms::ControlKind::CommandButton;
                const double h = boxy ? kBoxHeight : kUiFont + 3;
                img.controls.push_back({c, cx, ry + (kRow - h) / 2, w, h});
                cx += w + kGap;
            }
            if (i == 0 && lead > 0) cx = rx + lead + kGap;
        }
        return cx - rx - kGap;
    };
    auto row_width = [&](const Row& row, double lead) {
        double w = 0;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const double iw = item_width(form, row[i], m);
            if (i == 0 && lead > 0)
                w += lead + kGap;
            else if (iw > 0)
                w += iw + kGap;
        }
        return w > 0 ? w - kGap : 0;
    };

    for (const Column& column : l.columns) {
        // The column is as wide as its widest group.
        double inner = 0;
        std::vector<double> leads;
        for (const Group& g : column.groups) {
            double lead = 0;
            if (g.grid)
                for (const Part& p : g.parts)
                    if (!p.row.empty() && p.row.size() > 1) lead = std::max(lead, item_width(form, p.row.front(), m));
            leads.push_back(lead);
            for (const Part& p : g.parts) {
                inner = std::max(inner, row_width(p.row, lead));
                for (const Row& r : p.boxed) inner = std::max(inner, row_width(r, 0) + 2 * kPad);
            }
        }
        double y = top;
        for (std::size_t gi = 0; gi < column.groups.size(); ++gi) {
            const Group& g = column.groups[gi];
            const forms::Control* frame = form.find(g.title);
            const std::string* caption = frame ? caption_of(*frame) : nullptr;
            PlacedFrame gf{caption ? *caption : std::string(g.title), x, y, inner + 2 * kPad, 0};
            double gy = y + kPad + (gf.title.empty() ? 0 : 4);
            for (const Part& p : g.parts) {
                if (!p.row.empty()) {
                    // A row whose controls are all hidden or empty takes no room.
                    if (row_width(p.row, 0) == 0) continue;
                    place_row(p.row, x + kPad, gy, p.row.size() > 1 ? leads[gi] : 0);
                    gy += kRow;
                } else {
                    PlacedFrame bf{"", x + kPad, gy + 2, inner, 0};
                    double by = gy + 4;
                    for (const Row& r : p.boxed) {
                        place_row(r, x + 2 * kPad, by, 0);
                        by += kRow - 2;
                    }
                    bf.h = by - bf.y + 2;
                    img.frames.push_back(bf);
                    gy = by + 6;
                }
            }
            gf.h = gy - y + kPad - 4;
            img.frames.push_back(gf);
            y += gf.h + 8;
        }
        bottom = std::max(bottom, y);
        x += inner + 2 * kPad + column_gap;
    }
    img.width = x - column_gap + kPad;
    // The buttons along the bottom: the others at the left, the main one at the right.
    const double left_w = row_width(l.buttons, 0), right_w = row_width(l.button_right, 0);
    img.width = std::max(img.width, left_w + right_w + 2 * kPad + (left_w > 0 && right_w > 0 ? 3 * kGap : 0));
    place_row(l.buttons, kPad, bottom, 0);
    place_row(l.button_right, img.width - kPad - right_w, bottom, 0);
    img.height = bottom + kRow + kPad;
    return img;
}

namespace {

// Draws the window's image at (left, top), scaled to fit `room` points wide; gives its height.
double draw_window(cairo_t* cr, const forms::Form& form, double left, double top, double room) {
    const WindowImage img = layout_window_image(form);
    const double scale = std::min(1.0, room / img.width);
    cairo_save(cr);
    cairo_translate(cr, left, top);
    cairo_scale(cr, scale, scale);
    cairo_select_font_face(cr, "Tahoma", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, kUiFont);
    cairo_set_line_width(cr, 0.6);

    // The window and its title bar.
    cairo_rectangle(cr, 0, 0, img.width, img.height);
    cairo_set_source_rgb(cr, 0.94, 0.94, 0.94);
    cairo_fill_preserve(cr);
    cairo_set_source_rgb(cr, 0.45, 0.45, 0.45);
    cairo_stroke(cr);
    cairo_rectangle(cr, 0, 0, img.width, img.title_height);
    cairo_set_source_rgb(cr, 0.84, 0.88, 0.94);
    cairo_fill_preserve(cr);
    cairo_set_source_rgb(cr, 0.45, 0.45, 0.45);
    cairo_stroke(cr);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_select_font_face(cr, "Tahoma", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(cr, kUiFont + 0.5);
    text_at(cr, 6, (img.title_height - kUiFont - 2) / 2, form.caption());
    cairo_select_font_face(cr, "Tahoma", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, kUiFont);

    for (const PlacedFrame& f : img.frames) {
        cairo_set_source_rgb(cr, 0.66, 0.66, 0.66);
        cairo_rectangle(cr, f.x, f.y, f.w, f.h);
        cairo_stroke(cr);
        if (f.title.empty()) continue;
        // The title sits in a gap of the top border.
        cairo_text_extents_t e;
        cairo_text_extents(cr, f.title.c_str(), &e);
        cairo_rectangle(cr, f.x + 6, f.y - 1, e.x_advance + 4, 2);
        cairo_set_source_rgb(cr, 0.94, 0.94, 0.94);
        cairo_fill(cr);
        cairo_set_source_rgb(cr, 0, 0, 0);
        text_at(cr, f.x + 8, f.y - kUiFont / 2 - 1.5, f.title);
    }

    for (const PlacedControl& p : img.controls) {
        const forms::Control& c = *p.control;
        const double grey = c.enabled() ? 0.0 : 0.55;
        const double text_top = p.y + (p.h - kUiFont - 1.5) / 2;
        switch (c.kind()) {
            case forms::ControlKind::TextBox:
            case forms::ControlKind::ComboBox: {
                cairo_rectangle(cr, p.x, p.y, p.w, p.h);
                cairo_set_source_rgb(cr, 1, 1, 1);
                cairo_fill_preserve(cr);
                cairo_set_source_rgb(cr, 0.5, 0.5, 0.5);
                cairo_stroke(cr);
                std::string value;
                if (auto* t = dynamic_cast<const forms::TextBox*>(&c)) value = t->text();
                if (auto* k = dynamic_cast<const forms::ComboBox*>(&c)) value = k->text();
                cairo_save(cr);
                cairo_rectangle(cr, p.x + 1, p.y, p.w - 2, p.h);
                cairo_clip(cr);
                cairo_set_source_rgb(cr, grey, grey, grey);
                text_at(cr, p.x + 2.5, text_top, value);
                cairo_restore(cr);
                break;
            }
            case forms::ControlKind::CommandButton: {
                cairo_rectangle(cr, p.x, p.y, p.w, p.h);
                cairo_set_source_rgb(cr, 0.88, 0.88, 0.88);
                cairo_fill_preserve(cr);
                cairo_set_source_rgb(cr, 0.5, 0.5, 0.5);
                cairo_stroke(cr);
                const std::string& caption = *caption_of(c);
                cairo_text_extents_t e;
                cairo_text_extents(cr, caption.c_str(), &e);
                cairo_set_source_rgb(cr, grey, grey, grey);
                text_at(cr, p.x + (p.w - e.x_advance) / 2, text_top, caption);
                break;
            }
            case forms::ControlKind::CheckBox:
            case forms::ControlKind::OptionButton: {
                const double by = p.y + (p.h - kTick) / 2;
                cairo_rectangle(cr, p.x, by, kTick, kTick);
                cairo_set_source_rgb(cr, 1, 1, 1);
                cairo_fill_preserve(cr);
                cairo_set_source_rgb(cr, 0.35, 0.35, 0.35);
                cairo_stroke(cr);
                const auto* k = dynamic_cast<const forms::CheckBox*>(&c);
                const auto* o = dynamic_cast<const forms::OptionButton*>(&c);
                if ((k && k->checked()) || (o && o->value())) {
                    cairo_set_line_width(cr, 1.2);
                    cairo_set_source_rgb(cr, 0, 0, 0);
                    cairo_move_to(cr, p.x + 1.8, by + kTick / 2);
                    cairo_line_to(cr, p.x + kTick * 0.42, by + kTick - 1.8);
                    cairo_line_to(cr, p.x + kTick - 1.5, by + 1.5);
                    cairo_stroke(cr);
                    cairo_set_line_width(cr, 0.6);
                }
                cairo_set_source_rgb(cr, grey, grey, grey);
                text_at(cr, p.x + kTick + 3, text_top, *caption_of(c));
                break;
            }
            default:
                cairo_set_source_rgb(cr, grey, grey, grey);
                text_at(cr, p.x, text_top, *caption_of(c));
                break;
        }
    }
    cairo_restore(cr);
    return img.height * scale;
}

}  // namespace

namespace {

// One page of a job, from the top-left corner of an A4 page in points.
void draw_page(cairo_t* cr, const forms::PrintJob& job) {
    double y = kMargin;
    cairo_set_source_rgb(cr, 0, 0, 0);
    if (job.form_image) y += draw_window(cr, *job.form_image, kMargin, y, kPageWidth - 2 * kMargin) + kLineHeight;
    if (job.picture) {
        cairo_select_font_face(cr, job.font.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        y += draw_picture(cr, *job.picture, kMargin, y) + kLineHeight;
    }
    cairo_set_source_rgb(cr, 0, 0, 0);
    if (!job.heading.empty()) {
        cairo_select_font_face(cr, job.font.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
        cairo_set_font_size(cr, kFontSize + 2);
        text_at(cr, kMargin, y, job.heading);
        y += 1.5 * kLineHeight;
    }
    cairo_select_font_face(cr, job.font.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, kFontSize);
    for (const std::string& line : job.lines) {
        text_at(cr, kMargin, y, line);
        y += kLineHeight;
    }
}

// cairo writes into memory; the file is written whole once the surface finished well.
cairo_status_t append_bytes(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

bool finish(cairo_surface_t* surface, std::string& bytes, const std::string& path, std::string& error, bool png) {
    cairo_status_t status = cairo_surface_status(surface);
    if (png && status == CAIRO_STATUS_SUCCESS) status = cairo_surface_write_to_png_stream(surface, append_bytes, &bytes);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        error = cairo_status_to_string(status);
        return false;
    }
    const compute::FileStatus written = compute::write_file(path, bytes);
    if (!written.ok()) error = written.reason;
    return written.ok();
}

}  // namespace

bool write_pdf(const std::string& path, const std::vector<forms::PrintJob>& pages, std::string& error) {
    std::string bytes;
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(append_bytes, &bytes, kPageWidth, kPageHeight);
    cairo_t* cr = cairo_create(surface);
    for (const forms::PrintJob& job : pages) {
        draw_page(cr, job);
        cairo_show_page(cr);
    }
    cairo_destroy(cr);
    return finish(surface, bytes, path, error, false);
}

bool write_page_png(const std::string& path, const forms::PrintJob& job, double dpi, std::string& error) {
    std::string bytes;
    const double scale = dpi / 72.0;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(kPageWidth * scale),
                                                          static_cast<int>(kPageHeight * scale));
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    cairo_scale(cr, scale, scale);
    draw_page(cr, job);
    cairo_destroy(cr);
    return finish(surface, bytes, path, error, true);
}

}  // namespace tv::cli

#include "cli/pdf_report.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

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

// A caption that names a unit ("cm", "Sec", "(user Unit)") stays on the line of its box.
bool is_unit(const std::string& caption) {
    if (caption.find_first_of(":=") != std::string::npos) return false;
    const char c = caption.empty() ? 'A' : caption.front();
    return (c >= 'a' && c <= 'z') || c == '(' || caption.rfind("Sec", 0) == 0;
}

// Caption labels are named lbl...; other labels show values and follow their caption.
bool starts_line(const forms::Label& l) { return l.name().rfind("lbl", 0) == 0 && !is_unit(l.caption()); }

// The window as lines: captions with the box they name on one line, frames as headings, check
// boxes with their state, in the order the window holds its controls.
std::vector<std::string> window_lines(const forms::Form& form) {
    std::vector<std::string> out;
    std::string pending;
    bool after_box = false;
    auto flush = [&] {
        if (!pending.empty()) out.push_back(pending);
        pending.clear();
        after_box = false;
    };
    auto add = [&](const std::string& s) { pending += pending.empty() ? s : " " + s; };
    for (const auto& owned : form.controls()) {
        const forms::Control& c = *owned;
        if (!shown(c)) continue;
        if (auto* l = dynamic_cast<const forms::Label*>(&c)) {
            if (l->caption().empty()) continue;
            if (starts_line(*l) || (after_box && !is_unit(l->caption()))) flush();
            add(l->caption());
        } else if (auto* t = dynamic_cast<const forms::TextBox*>(&c)) {
            if (after_box) flush();
            add("[" + t->text() + "]");
            after_box = true;
        } else if (auto* k = dynamic_cast<const forms::CheckBox*>(&c)) {
            flush();
            out.push_back(std::string(k->checked() ? "[x] " : "[ ] ") + k->caption());
        } else if (auto* f = dynamic_cast<const forms::Frame*>(&c)) {
            flush();
            out.push_back("");
            out.push_back(f->caption());
        }
    }
    flush();
    return out;
}

}  // namespace

bool write_pdf(const std::string& path, const std::vector<forms::PrintJob>& pages, std::string& error) {
    const std::filesystem::path target(path);
    const std::filesystem::path temp =
        target.parent_path() / ("." + target.filename().string() + ".tmp" + std::to_string(::getpid()));
    cairo_surface_t* surface = cairo_pdf_surface_create(temp.c_str(), kPageWidth, kPageHeight);
    cairo_t* cr = cairo_create(surface);
    for (const forms::PrintJob& job : pages) {
        double y = kMargin;
        cairo_select_font_face(cr, job.font.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
        cairo_set_font_size(cr, kFontSize + 2);
        cairo_set_source_rgb(cr, 0, 0, 0);
        if (job.form_image) {
            text_at(cr, kMargin, y, job.form_image->caption());
            y += 2 * kLineHeight;
            cairo_select_font_face(cr, job.font.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
            cairo_set_font_size(cr, kFontSize);
            for (const std::string& line : window_lines(*job.form_image)) {
                text_at(cr, kMargin, y, line);
                y += kLineHeight;
            }
        }
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
        cairo_show_page(cr);
    }
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    const cairo_status_t status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    std::error_code ec;
    if (status != CAIRO_STATUS_SUCCESS) {
        error = cairo_status_to_string(status);
        std::filesystem::remove(temp, ec);
        return false;
    }
    std::filesystem::rename(temp, target, ec);
    if (ec) {
        error = ec.message();
        std::filesystem::remove(temp, ec);
        return false;
    }
    return true;
}

}  // namespace tv::cli

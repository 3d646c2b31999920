#include "cli/cairo_page.h"

#include <cairo-pdf.h>
#include <cairo.h>

#include <memory>
#include <new>

namespace tv::cli {

namespace {

void set_colour(cairo_t* cr, int rgb) {
    cairo_set_source_rgb(cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0);
}

void set_font(cairo_t* cr, const forms::PageFont& font) {
    cairo_select_font_face(cr, font.family.c_str(), CAIRO_FONT_SLANT_NORMAL,
                           font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, font.size);
}

void paint_page(cairo_t* cr, const forms::Page& page) {
    forms::PageRect clip;
    cairo_save(cr);
    for (const forms::PageOp& op : page.ops) {
        if (!(op.clip == clip)) {
            cairo_restore(cr);
            cairo_save(cr);
            if (!op.clip.empty()) {
                cairo_rectangle(cr, op.clip.x, op.clip.y, op.clip.w, op.clip.h);
                cairo_clip(cr);
            }
            clip = op.clip;
        }
        switch (op.kind) {
            case forms::PageOp::Kind::Line:
                if (op.colour < 0) break;
                set_colour(cr, op.colour);
                cairo_set_line_width(cr, op.width);
                cairo_move_to(cr, op.x1, op.y1);
                cairo_line_to(cr, op.x2, op.y2);
                cairo_stroke(cr);
                break;
            case forms::PageOp::Kind::Rect:
                cairo_rectangle(cr, op.x1, op.y1, op.x2 - op.x1, op.y2 - op.y1);
                if (op.fill >= 0) {
                    set_colour(cr, op.fill);
                    cairo_fill_preserve(cr);
                }
                if (op.colour >= 0 && op.width > 0) {
                    set_colour(cr, op.colour);
                    cairo_set_line_width(cr, op.width);
                    cairo_stroke_preserve(cr);
                }
                cairo_new_path(cr);
                break;
            case forms::PageOp::Kind::Dot:
                if (op.colour < 0) break;
                set_colour(cr, op.colour);
                cairo_arc(cr, op.x1, op.y1, op.width, 0, 6.283185307179586);
                cairo_fill(cr);
                break;
            case forms::PageOp::Kind::Text: {
                if (op.colour < 0) break;
                set_colour(cr, op.colour);
                set_font(cr, op.font);
                // The operation gives the top-left corner; cairo sets text on its base line.
                cairo_font_extents_t fe;
                cairo_font_extents(cr, &fe);
                cairo_move_to(cr, op.x1, op.y1 + fe.ascent);
                cairo_show_text(cr, op.text.c_str());
                break;
            }
        }
    }
    cairo_restore(cr);
}

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
    try {
        static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) {
    const forms::Page blank;
    const forms::Page& first = pages.empty() ? blank : pages.front();
    std::string out;
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(append, &out, first.width, first.height);
    if (!first.title.empty()) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, first.title.c_str());
    cairo_t* cr = cairo_create(surface);
    for (const forms::Page& page : pages) {
        cairo_pdf_surface_set_size(surface, page.width, page.height);
        paint_page(cr, page);
        cairo_show_page(cr);
    }
    cairo_status_t status = cairo_status(cr);
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        reason = cairo_status_to_string(status);
        return false;
    }
    bytes = std::move(out);
    return true;
}

double text_width(const std::string& text, const forms::PageFont& font) {
    // One context for every measurement of the run, with the unhinted widths of a PDF.
    struct Measure {
        cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
        cairo_t* cr = cairo_create(surface);
        Measure() {
            cairo_font_options_t* options = cairo_font_options_create();
            cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
            cairo_set_font_options(cr, options);
            cairo_font_options_destroy(options);
        }
        ~Measure() {
            cairo_destroy(cr);
            cairo_surface_destroy(surface);
        }
    };
    static Measure m;
    set_font(m.cr, font);
    cairo_text_extents_t e;
    cairo_text_extents(m.cr, text.c_str(), &e);
    return e.x_advance;
}

}  // namespace tv::cli

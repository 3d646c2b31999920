#include "cli/cairo_page.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <cstdlib>
#include <ctime>
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

// A text holding Hebrew or Arabic letters: pango shapes it and sets it right to left. Other
// texts keep cairo's own setting, as the printed pages of the windows always had it.
bool needs_shaping(const std::string& text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const auto b = static_cast<unsigned char>(text[i]);
        // UTF-8 leads 0xD6..0xDF start U+0580..U+07FF; 0xEF 0xAC..0xBB starts U+FB00..U+FEFF.
        if ((b >= 0xD6 && b <= 0xDF) || (b == 0xEF && static_cast<unsigned char>(text[i + 1]) >= 0xAC))
            return true;
    }
    return false;
}

PangoLayout* shaped_layout(cairo_t* cr, const std::string& text, const forms::PageFont& font) {
    PangoLayout* layout = pango_cairo_create_layout(cr);
    PangoFontDescription* d = pango_font_description_new();
    pango_font_description_set_family(d, font.family.c_str());
    pango_font_description_set_weight(d, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(d, font.size * PANGO_SCALE);
    pango_layout_set_font_description(layout, d);
    pango_font_description_free(d);
    pango_layout_set_text(layout, text.c_str(), static_cast<int>(text.size()));
    return layout;
}

double shaped_width(cairo_t* cr, const std::string& text, const forms::PageFont& font) {
    PangoLayout* layout = shaped_layout(cr, text, font);
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    g_object_unref(layout);
    return static_cast<double>(logical.width) / PANGO_SCALE;
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
            case forms::PageOp::Kind::Polyline:
                if (op.colour < 0 || op.points.size() < 4) break;
                set_colour(cr, op.colour);
                cairo_set_line_width(cr, op.width);
                cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
                cairo_move_to(cr, op.points[0], op.points[1]);
                for (std::size_t i = 2; i + 1 < op.points.size(); i += 2) cairo_line_to(cr, op.points[i], op.points[i + 1]);
                cairo_stroke(cr);
                cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
                break;
            case forms::PageOp::Kind::Text: {
                if (op.colour < 0) break;
                set_colour(cr, op.colour);
                if (needs_shaping(op.text)) {
                    PangoLayout* layout = shaped_layout(cr, op.text, op.font);
                    cairo_move_to(cr, op.x1, op.y1);
                    pango_cairo_show_layout(cr, layout);
                    g_object_unref(layout);
                    break;
                }
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
    // A reproducible build of a document: its date from SOURCE_DATE_EPOCH when that is set.
    if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH")) {
        const std::time_t t = static_cast<std::time_t>(std::strtoll(epoch, nullptr, 10));
        std::tm utc{};
        char date[32];
        if (gmtime_r(&t, &utc) && std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%SZ", &utc) > 0) {
            cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATE_DATE, date);
            cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_MOD_DATE, date);
        }
    }
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
    if (needs_shaping(text)) return shaped_width(m.cr, text, font);
    set_font(m.cr, font);
    cairo_text_extents_t e;
    cairo_text_extents(m.cr, text.c_str(), &e);
    return e.x_advance;
}

}  // namespace tv::cli

#include "forms/platform.h"

namespace tv::forms {

// Without a display: an average glyph of the usual 8-point fonts, 1/1440 inch units.
double Platform::text_width_twips(const std::string& text, const std::string&, double size) {
    return static_cast<double>(text.size()) * size * 10.9;
}

double Platform::text_height_twips(const std::string&, double size) { return size * 23.5; }

// The same average glyph, in points.
double Platform::page_text_width(const std::string& text, const PageFont& font) {
    return static_cast<double>(text.size()) * font.size * 0.545;
}

std::optional<int> Platform::choose_item(const std::string&, const std::string&, const std::vector<std::string>& items,
                                         int preset) {
    if (preset < 0 || preset >= static_cast<int>(items.size())) return std::nullopt;
    return preset;
}

void Platform::report_file_error(int number, const std::string& description, const std::string&,
                                 const std::string&) {
    report_runtime_error(number, description);
}

}  // namespace tv::forms

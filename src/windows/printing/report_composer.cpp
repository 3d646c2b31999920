#include "windows/printing/report_composer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sstream>

#include "windows/printing/page_canvas.h"

namespace tv::windows {

namespace {

constexpr double kMargin = 56;  // about 20 mm
constexpr double kFooter = 28;
constexpr double kBody = 9.5;
constexpr double kLine = 13.5;
constexpr double kNameColumn = 190;
constexpr int kGrey = 0x808080;
constexpr int kLightGrey = 0xDDDDDD;
// A family with Latin, Greek and Arabic letters, installed with the program's fonts.
const char* const kFamily = "DejaVu Sans";

forms::PageFont font(double size, bool bold = false) { return {kFamily, size, bold}; }

// An axis label: no trailing zeros, no exponent below ten million.
std::string tick_label(double v) {
    char s[32];
    std::snprintf(s, sizeof s, "%.7g", std::fabs(v) < 1e-12 ? 0.0 : v);
    return s;
}

// Round steps of 1, 2 or 5 times a power of ten, about five to a range.
double tick_step(double range) {
    if (!(range > 0) || !std::isfinite(range)) return 1;
    const double raw = range / 5;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    const double f = raw / power;
    return (f < 1.5 ? 1 : f < 3.5 ? 2 : f < 7.5 ? 5 : 10) * power;
}

struct Axis {
    double lo = 0, hi = 1, step = 1;
};

// The axis over the values, holding 0, widened to whole steps.
Axis axis_over(double lo, double hi) {
    lo = std::min(lo, 0.0);
    hi = std::max(hi, 0.0);
    if (hi - lo <= 0) hi = lo + 1;
    Axis a;
    a.step = tick_step(hi - lo);
    a.lo = std::floor(lo / a.step + 1e-9) * a.step;
    a.hi = std::ceil(hi / a.step - 1e-9) * a.step;
    return a;
}

}  // namespace

ReportComposer::ReportComposer(Paper paper, ReportHead head,
                               std::function<double(const std::string&, const forms::PageFont&)> text_width)
    : head_(std::move(head)), width_of_(std::move(text_width)) {
    page_width_ = paper == Paper::letter ? 612 : 595.28;
    page_height_ = paper == Paper::letter ? 792 : 841.89;
    new_page();
    // The title block: a frame with the road, the subject, the date and the program.
    PageCanvas(page(), 0, 0, 1, 1).rect(kMargin, y_, page_width_ - 2 * kMargin, 74, 0xF2F2F2, kGrey, 0.75);
    text(kMargin + 10, y_ + 9, head_.title, font(16, true));
    text(kMargin + 10, y_ + 32, head_.subject, font(10));
    const std::string made = "Date: " + head_.date + "      Tremorvault " + head_.version;
    text(kMargin + 10, y_ + 52, made, font(9), 0x404040);
    y_ += 90;
}

void ReportComposer::new_page() {
    forms::Page& p = pages_.emplace_back();
    p.title = head_.title;
    p.width = page_width_;
    p.height = page_height_;
    y_ = kMargin;
}

void ReportComposer::room(double height) {
    if (y_ + height > page_height_ - kMargin - kFooter) new_page();
}

void ReportComposer::text(double x, double y, const std::string& s, const forms::PageFont& f, int colour) {
    PageCanvas(page(), 0, 0, 1, 1).text(x, y, s, f, colour);
}

void ReportComposer::line(double x1, double y1, double x2, double y2, int colour, double width) {
    PageCanvas(page(), 0, 0, 1, 1).line(x1, y1, x2, y2, colour, width);
}

void ReportComposer::heading(const std::string& s) {
    room(3 * kLine + 20);
    y_ += 8;
    text(kMargin, y_, s, font(12, true));
    y_ += 17;
    line(kMargin, y_, page_width_ - kMargin, y_, kGrey, 0.5);
    y_ += 5;
}

void ReportComposer::value(const std::string& name, const std::string& v, const std::string& unit) {
    room(kLine);
    text(kMargin + 6, y_, name, font(kBody));
    // A value too long for its column goes on over as many lines as it needs.
    const double room_x = page_width_ - kMargin - (kMargin + kNameColumn);
    std::istringstream words(v);
    std::string word, current;
    while (words >> word) {
        const std::string longer = current.empty() ? word : current + " " + word;
        if (!current.empty() && width_of_(longer, font(kBody, true)) > room_x) {
            text(kMargin + kNameColumn, y_, current, font(kBody, true));
            y_ += kLine;
            room(kLine);
            current = word;
        } else {
            current = longer;
        }
    }
    text(kMargin + kNameColumn, y_, current, font(kBody, true));
    if (!unit.empty()) text(kMargin + kNameColumn + width_of_(current, font(kBody, true)) + 5, y_, unit, font(kBody));
    y_ += kLine;
}

void ReportComposer::paragraph(const std::string& s) {
    const double w = page_width_ - 2 * kMargin - 6;
    std::istringstream words(s);
    std::string word, current;
    auto flush = [&] {
        room(kLine);
        text(kMargin + 6, y_, current, font(kBody));
        y_ += kLine;
        current.clear();
    };
    while (words >> word) {
        const std::string longer = current.empty() ? word : current + " " + word;
        if (!current.empty() && width_of_(longer, font(kBody)) > w) {
            flush();
            current = word;
        } else {
            current = longer;
        }
    }
    if (!current.empty()) flush();
}

void ReportComposer::formula(const std::string& words, const std::string& symbols) {
    room(2 * kLine);
    text(kMargin + 6, y_, words, font(kBody));
    y_ += kLine;
    // Each case of a formula, after ";  ", on a line of its own.
    std::size_t from = 0;
    while (true) {
        const std::size_t end = symbols.find(";  ", from);
        room(kLine);
        text(kMargin + 24, y_, symbols.substr(from, end == std::string::npos ? end : end - from), font(kBody, true),
             0x203060);
        y_ += kLine;
        if (end == std::string::npos) break;
        from = end + 3;
    }
    y_ += 2;
}

void ReportComposer::table(const std::vector<std::vector<std::string>>& rows) {
    std::size_t columns = 0;
    for (const auto& r : rows) columns = std::max(columns, r.size());
    if (columns == 0) return;
    const double w = page_width_ - 2 * kMargin;
    // The first column, the names, is half as wide again as the others; the last of four or
    // more, the notes, twice as wide.
    auto weight = [&](std::size_t c) { return c == 0 ? 1.5 : c + 1 == columns && columns >= 4 ? 2.0 : 1.0; };
    double weights = 0;
    for (std::size_t c = 0; c < columns; ++c) weights += weight(c);
    const double unit = w / weights;
    const double size = columns > 4 ? 7.5 : kBody;
    auto x_of = [&](std::size_t c) {
        double x = kMargin;
        for (std::size_t i = 0; i < c; ++i) x += weight(i) * unit;
        return x;
    };
    // The heading row never stands alone at the foot of a page.
    room(std::min<double>(3, static_cast<double>(rows.size())) * kLine);
    for (std::size_t r = 0; r < rows.size(); ++r) {
        room(kLine);
        if (r == 0) PageCanvas(page(), 0, 0, 1, 1).rect(kMargin, y_ - 2, w, kLine, 0xE8E8E8, -1, 0);
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            std::string cell = rows[r][c];
            const double room_x = weight(c) * unit - 4;
            // A cell too long for its column is cut with an ellipsis.
            while (cell.size() > 1 && width_of_(cell, font(size, r == 0)) > room_x) {
                cell.pop_back();
                while (!cell.empty() && (static_cast<unsigned char>(cell.back()) & 0xC0) == 0x80) cell.pop_back();
                if (!cell.empty() && static_cast<unsigned char>(cell.back()) >= 0xC0) cell.pop_back();
                if (width_of_(cell + "...", font(size, r == 0)) <= room_x) {
                    cell += "...";
                    break;
                }
            }
            text(x_of(c) + 2, y_, cell, font(size, r == 0));
        }
        y_ += kLine;
        line(kMargin, y_ - 2, kMargin + w, y_ - 2, kLightGrey, 0.4);
    }
    y_ += 4;
}

void ReportComposer::plot(const ReportPlot& plot) {
    double xlo = 0, xhi = 0, ylo = 0, yhi = 0;
    bool any = false;
    for (const PlotSeries& s : plot.series)
        for (std::size_t i = 0; i < std::min(s.x.size(), s.y.size()); ++i) {
            if (!std::isfinite(s.x[i]) || !std::isfinite(s.y[i])) continue;
            xlo = std::min(xlo, s.x[i]);
            xhi = std::max(xhi, s.x[i]);
            ylo = std::min(ylo, s.y[i]);
            yhi = std::max(yhi, s.y[i]);
            any = true;
        }
    if (!any) return;
    if (plot.x_limit > 0) xhi = plot.x_limit;
    const double height = 215;
    room(height + 48);
    y_ += 4;
    text(kMargin, y_, plot.title, font(10, true));
    y_ += 16;
    text(kMargin, y_, plot.y_title, font(7.5));
    y_ += 13;
    const double left = kMargin + 44, right = page_width_ - kMargin - 6;
    const double top = y_, bottom = y_ + height;
    const Axis ax = axis_over(xlo, xhi), ay = axis_over(ylo, yhi);
    auto px = [&](double x) { return left + (x - ax.lo) / (ax.hi - ax.lo) * (right - left); };
    auto py = [&](double y) { return bottom - (y - ay.lo) / (ay.hi - ay.lo) * (bottom - top); };
    const forms::PageFont small = font(7.5);
    for (double v = ax.lo; v <= ax.hi + ax.step / 2; v += ax.step) {
        line(px(v), top, px(v), bottom, kLightGrey, 0.4);
        const std::string l = tick_label(v);
        text(px(v) - width_of_(l, small) / 2, bottom + 3, l, small);
    }
    for (double v = ay.lo; v <= ay.hi + ay.step / 2; v += ay.step) {
        line(left, py(v), right, py(v), kLightGrey, 0.4);
        const std::string l = tick_label(v);
        text(left - 4 - width_of_(l, small), py(v) - 4.5, l, small);
    }
    if (ay.lo < 0) line(left, py(0), right, py(0), kGrey, 0.6);
    PageCanvas canvas(page(), 0, 0, 1, 1);
    canvas.rect(left, top, right - left, bottom - top, -1, 0, 0.6);
    // The curves show only inside the frame.
    canvas.clip(left, top, right - left, bottom - top);
    for (const PlotSeries& s : plot.series) {
        std::vector<double> corners;
        for (std::size_t i = 0; i < std::min(s.x.size(), s.y.size()); ++i) {
            if (!std::isfinite(s.x[i]) || !std::isfinite(s.y[i])) continue;
            if (s.dots) {
                canvas.dot(px(s.x[i]), py(s.y[i]), 2.2, s.colour);
            } else {
                corners.push_back(px(s.x[i]));
                corners.push_back(py(s.y[i]));
            }
        }
        if (corners.size() >= 4) canvas.polyline(corners, s.colour, 0.8);
    }
    canvas.unclip();
    // The legend, in the upper right corner, on white.
    double widest = 0;
    for (const PlotSeries& s : plot.series) widest = std::max(widest, width_of_(s.name, small));
    const double lx = right - widest - 34, ly = top + 6;
    canvas.rect(lx - 4, ly - 3, right - lx, 3 + 11 * static_cast<double>(plot.series.size()), 0xFFFFFF, kGrey, 0.4);
    double row = ly;
    for (const PlotSeries& s : plot.series) {
        line(lx, row + 4.5, lx + 18, row + 4.5, s.colour, s.dots ? 2.5 : 1.2);
        text(lx + 24, row, s.name, small);
        row += 11;
    }
    y_ = bottom + 14;
    text((left + right - width_of_(plot.x_title, small)) / 2, y_, plot.x_title, small);
    y_ += 16;
}

std::vector<forms::Page> ReportComposer::finish() {
    const std::size_t n = pages_.size();
    for (std::size_t i = 0; i < n; ++i) {
        forms::Page& p = pages_[i];
        const std::string foot = head_.title + "  \xC2\xB7  page " + std::to_string(i + 1) + " of " + std::to_string(n);
        PageCanvas(p, 0, 0, 1, 1).text(p.width - kMargin - width_of_(foot, font(8)), p.height - kMargin, foot, font(8), kGrey);
    }
    return std::move(pages_);
}

std::string report_date() {
    std::time_t t = std::time(nullptr);
    if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH")) t = static_cast<std::time_t>(std::strtoll(epoch, nullptr, 10));
    std::tm utc{};
    char s[16] = "";
    if (gmtime_r(&t, &utc)) std::strftime(s, sizeof s, "%Y-%m-%d", &utc);
    return s;
}

}  // namespace tv::windows

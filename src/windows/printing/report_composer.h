#pragma once
// The engineering report of a road: a title block, headed sections of values with their units,
// formulas, and plots drawn as vectors, flowed over as many pages as they need.
#include <functional>
#include <string>
#include <vector>

#include "forms/page.h"

namespace tv::windows {

using forms::Paper;

/// What the title block shows.
struct ReportHead {
    std::string title;    // the road, e.g. "Coefficient Method Report"
    std::string subject;  // the project, or the input files when there is none
    std::string date;     // YYYY-MM-DD
    std::string version;  // the program's
};

/// One curve of a plot: corners joined by lines, or dots alone.
struct PlotSeries {
    std::string name;
    int colour = 0;  // 0xRRGGBB
    std::vector<double> x, y;
    bool dots = false;
};

struct ReportPlot {
    std::string title;
    std::string x_title, y_title;  // with their units
    std::vector<PlotSeries> series;
    /// The abscissa ends here when above 0; what lies beyond is cut off.
    double x_limit = 0;
};

class ReportComposer {
public:
    /// `text_width` measures a text in points in a page font.
    ReportComposer(Paper paper, ReportHead head,
                   std::function<double(const std::string&, const forms::PageFont&)> text_width);

    void heading(const std::string& text);
    /// A row of a table of values: the name, the value as its box shows it, the unit.
    void value(const std::string& name, const std::string& value, const std::string& unit = "");
    /// Text flowed over as many lines as the width needs.
    void paragraph(const std::string& text);
    /// A formula: what it gives in words, then the symbols, each case after ";  " on its own line.
    void formula(const std::string& words, const std::string& symbols);
    /// A table of texts with a bold heading row; columns share the width.
    void table(const std::vector<std::vector<std::string>>& rows);
    /// A framed plot with its axes, grid, labels and legend; a plot without any point is left out.
    void plot(const ReportPlot& plot);

    /// The pages, each with the footer "title · page n of N".
    std::vector<forms::Page> finish();

private:
    forms::Page& page() { return pages_.back(); }
    void new_page();
    /// Starts a new page when fewer than `height` points are left.
    void room(double height);
    void text(double x, double y, const std::string& s, const forms::PageFont& font, int colour = 0);
    void line(double x1, double y1, double x2, double y2, int colour, double width);

    ReportHead head_;
    std::function<double(const std::string&, const forms::PageFont&)> width_of_;
    double page_width_, page_height_;
    double y_ = 0;
    std::vector<forms::Page> pages_;
};

/// The report's date: SOURCE_DATE_EPOCH when set (reproducible documents), else today, UTC.
std::string report_date();

}  // namespace tv::windows

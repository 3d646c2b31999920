#pragma once
// The chart card of every curve window's view: the plot with its strips, the scroll bar under the
// plot's viewport and the scale slider, on one white card; and what the screen lays over a plot
// so that it reads at a glance: axis titles, a legend, gridlines.
#include <QColor>
#include <QString>
#include <vector>

class QScrollBar;
class QSpacerItem;
class QWidget;

namespace tv::forms {
class PictureBox;
}
namespace tv::windows {
class Chart;
}

namespace tv::gui {

/// Lines the scroll bar up under the plot's viewport (`indent` is the spacer left of it), sets
/// its page to one viewport, and makes the card white like the plot. The strips' labels stand
/// centred on their ticks and the plot takes gridlines at them.
void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, const windows::Chart& chart);

/// The strips and plot of a chart drawn by a window of its own: labels centred on the ticks of
/// `below` and `left` (either may be null), gridlines at them on `plot`.
void mark_axes(QWidget& card, const char* plot, const char* below,
               const forms::PictureBox* below_model, const char* left, const forms::PictureBox* left_model);

/// One curve of a legend: its name and the colour of its line (0xBBGGRR).
struct LegendEntry {
    QString text;
    int colour;
};

/// Axis titles with units in the corners of the plot's viewport (`viewport`, a picture of the
/// card): `y_title` top left, `x_title` bottom right; a legend top right when several curves
/// share the plot. They let the mouse through to the plot.
void add_chart_titles(QWidget& card, const char* viewport, const QString& x_title, const QString& y_title,
                      const std::vector<LegendEntry>& legend = {});

}  // namespace tv::gui

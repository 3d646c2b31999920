#pragma once
// The chart card of every curve window's view: the plot with its strips, the scroll bar under the
// plot's viewport and the scale slider, on one white card; and what the screen lays over a plot
// so that it reads at a glance: axis titles, a legend, gridlines.
#include <QColor>
#include <QPointF>
#include <QString>
#include <functional>
#include <vector>

#include "windows/chart/chart_data.h"

class QScrollBar;
class QSpacerItem;
class QWidget;

namespace tv::forms {
class App;
class PictureBox;
}
namespace tv::windows {
class Chart;
}

namespace tv::gui {

class PictureView;

/// Lines the scroll bar up under the plot's viewport (`indent` is the spacer left of it), sets
/// its page to one viewport, and makes the card white like the plot. The strips' labels stand
/// centred on their ticks and the plot takes gridlines at them; the chart's axis titles and
/// legend go over it. The chart fills the room the window gives it; the wheel zooms its X
/// scale, a drag pans, a double-click goes back to 1X; the card has the chart's context menu,
/// whose Save Data saves what `data` gives (the chart's own curves when empty).
void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, windows::Chart& chart,
                    forms::App& app, std::function<std::vector<windows::DataColumn>()> data = {});

/// The pictures of a chart that grow with its container: the frame (a viewport or the plot
/// itself) with its view's name, the plot inside a viewport, the strips below and left.
struct GrowingChart {
    const forms::PictureBox& frame;
    const char* frame_name;
    const char* plot_name;  // null when the frame is the plot
    const char* below_name;
    const char* left_name;
};

/// The chart in `container` (a picture of the card) takes the room the window gives the card;
/// `scroll`, when there is one, stays as wide as the frame.
void let_chart_grow(QWidget& card, PictureView& container, const GrowingChart& chart, QScrollBar* scroll = nullptr);

/// A plot its window draws at one scale zooms on the screen alone: the wheel along X about the
/// pointer, a drag pans, a double-click goes back; `below`, the strip under it, follows.
void let_plot_zoom(PictureView& plot, PictureView* below);

/// A plot whose window zooms its own drawing: whole wheel notches (up: in) go to `zoom` with the
/// pointer's place, a double-click to `reset`; a drag reaches the model as the plot's mouse.
void let_model_zoom(QWidget& plot, std::function<void(int steps, QPointF at)> zoom, std::function<void()> reset);

/// The context menu of a chart: "Copy Image" and "Save Image..." (PNG or SVG) of `picture`,
/// "Save Data..." of what `data` gives (greyed while it gives nothing, and always without `data`).
void add_chart_menu(QWidget& card, QWidget& picture, std::function<std::vector<windows::DataColumn>()> data,
                    forms::App& app);

/// The picture as a PNG, or as an SVG when `svg`.
QByteArray chart_image(QWidget& picture, bool svg);

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
/// New texts for the titles add_chart_titles put there.
void set_chart_titles(QWidget& card, const char* viewport, const QString& x_title, const QString& y_title);

}  // namespace tv::gui

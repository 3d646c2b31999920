#pragma once
// The chart card shared by the curve windows of this area: a white panel whose scroll bar stands
// exactly under the plot's viewport.
class QScrollBar;
class QSpacerItem;
class QWidget;

namespace tv::windows {
class Chart;
}

namespace tv::gui {

/// Lines `scroll` up under the chart's viewport (indented by the value strip) and gives it one
/// step per 100 twips of plot; paints `panel` as a white card.
void fit_chart_panel(const windows::Chart& chart, QWidget& panel, QSpacerItem& indent, QScrollBar& scroll);

}  // namespace tv::gui

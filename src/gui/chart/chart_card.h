#pragma once
// The chart card of every curve window's view: the plot with its strips, the scroll bar under the
// plot's viewport and the scale slider, on one white card.
class QScrollBar;
class QSpacerItem;
class QWidget;

namespace tv::windows {
class Chart;
}

namespace tv::gui {

/// Lines the scroll bar up under the plot's viewport (`indent` is the spacer left of it), sets
/// its page to one viewport, and makes the card white like the plot.
void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, const windows::Chart& chart);

}  // namespace tv::gui

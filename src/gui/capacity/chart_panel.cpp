#include "gui/capacity/chart_panel.h"

#include <QScrollBar>
#include <QSizePolicy>
#include <QSpacerItem>
#include <QWidget>

#include "gui/platform/twips.h"
#include "windows/chart/chart.h"

namespace tv::gui {

void fit_chart_panel(const windows::Chart& chart, QWidget& panel, QSpacerItem& indent, QScrollBar& scroll) {
    indent.changeSize(twips_to_px(chart.picNemodar1.left(), &panel), 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
    scroll.setFixedWidth(twips_to_px(chart.picNemodar1.width(), &panel));
    // A page is one viewport, so the thumb shows how much of the plot is seen.
    scroll.setPageStep(static_cast<int>(chart.picNemodar1.width() / 100));
    panel.setBackgroundRole(QPalette::Base);
    panel.setAutoFillBackground(true);
}

}  // namespace tv::gui

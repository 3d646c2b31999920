#include "gui/chart/chart_card.h"

#include <QScrollBar>
#include <QSpacerItem>
#include <QWidget>

#include "gui/bind/old_units.h"
#include "windows/chart/chart.h"

namespace tv::gui {

void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, const windows::Chart& chart) {
    indent.changeSize(twips_to_px(chart.picNemodar1.left(), &card), 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
    scroll.setFixedWidth(twips_to_px(chart.picNemodar1.width(), &card));
    // One step is 100 twips of plot: a page is one viewport, and the thumb shows how much is seen.
    scroll.setPageStep(static_cast<int>(chart.picNemodar1.width() / 100));
    card.setBackgroundRole(QPalette::Base);
    card.setAutoFillBackground(true);
}

}  // namespace tv::gui

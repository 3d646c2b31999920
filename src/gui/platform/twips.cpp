#include "gui/platform/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace tv::gui {

double logical_dpi(const QWidget* w) {
    if (w != nullptr) return w->logicalDpiX();
    if (const QScreen* s = QGuiApplication::primaryScreen()) return s->logicalDotsPerInchX();
    return 96.0;
}

int twips_to_px(double twips, const QWidget* w) {
    return static_cast<int>(std::lround(twips_to_px(twips, logical_dpi(w))));
}

}  // namespace tv::gui

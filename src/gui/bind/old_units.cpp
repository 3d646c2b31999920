#include "gui/bind/old_units.h"

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

int old_button(Qt::MouseButtons buttons) {
    int r = 0;
    if (buttons & Qt::LeftButton) r |= 1;
    if (buttons & Qt::RightButton) r |= 2;
    if (buttons & Qt::MiddleButton) r |= 4;
    return r;
}

int old_shift(Qt::KeyboardModifiers keys) {
    int r = 0;
    if (keys & Qt::ShiftModifier) r |= 1;
    if (keys & Qt::ControlModifier) r |= 2;
    if (keys & Qt::AltModifier) r |= 4;
    return r;
}

}  // namespace tv::gui

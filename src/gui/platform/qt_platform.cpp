// The platform's own state and measures; its dialogs, printing and hosting of the windows'
// views have files of their own.
#include "gui/platform/qt_platform.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QCursor>
#include <QEventLoop>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>

#include "gui/bind/old_units.h"

namespace tv::gui {

namespace {

QString qs(const std::string& s) { return QString::fromStdString(s); }

QFont metrics_font(const std::string& family, double size) {
    QFont f;
    f.setFamilies({qs(family), QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"), QStringLiteral("Sans Serif")});
    f.setPointSizeF(size > 0 ? size : 8.25);
    return f;
}

}  // namespace

void QtPlatform::set_clipboard_text(const std::string& text) { QGuiApplication::clipboard()->setText(qs(text)); }

void QtPlatform::set_busy(bool busy) {
    // The pointer is a state, not a stack: the hourglass twice is still one hourglass.
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtPlatform::do_events() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

double QtPlatform::text_width_twips(const std::string& text, const std::string& font, double size) {
    const QFontMetricsF fm(metrics_font(font, size));
    return px_to_twips(fm.horizontalAdvance(qs(text)), logical_dpi());
}

double QtPlatform::text_height_twips(const std::string& font, double size) {
    const QFontMetricsF fm(metrics_font(font, size));
    return px_to_twips(fm.height(), logical_dpi());
}

}  // namespace tv::gui

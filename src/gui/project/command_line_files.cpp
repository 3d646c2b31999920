#include "gui/project/command_line_files.h"

#include <QAction>
#include <QMainWindow>

#include "gui/platform/qt_platform.h"

namespace tv::gui {

void open_command_line_files(QtPlatform& platform, const QStringList& paths) {
    for (const QString& path : paths) {
        // The frame's menu entry, so that the road runs exactly as the user's click would.
        QAction* open = platform.frame() ? platform.frame()->findChild<QAction*>(QStringLiteral("menu_open")) : nullptr;
        if (open == nullptr || platform.program_ended()) return;
        platform.answer_next_open(path.toStdString());
        open->trigger();
        const bool unused = platform.open_answer_pending();
        platform.answer_next_open(std::nullopt);
        if (unused) return;
    }
}

}  // namespace tv::gui

#pragma once
// Files named on the desktop program's command line, as a file manager passes them on a
// double-click or "Open With".
#include <QStringList>

namespace tv::gui {

class QtPlatform;

/// Each file goes the Open/Add Record road of the main frame in turn (the X file of a record,
/// then its Y file), with the prompts asked as usual and the file dialog answered by the file.
/// When a road ends before its dialog (a prompt cancelled, no record left), the rest are dropped.
void open_command_line_files(QtPlatform& platform, const QStringList& paths);

}  // namespace tv::gui

#pragma once
// The old dialogs' filter text ("Pushover File | *.txt", "*.txt") as a Qt name filter.
#include <QString>
#include <string>

namespace tv::gui {

/// "Pushover File | *.txt" -> "Pushover File (*.txt)"; "*.txt" -> "Text files (*.txt)";
/// pairs "a|*.x|b|*.y" become "a (*.x);;b (*.y)"; patterns joined by ';' become one list.
/// An empty filter gives an empty text.
QString qt_name_filter(const std::string& old_filter);

/// A plain name to preselect in a dialog; empty for a wildcard preset such as "*.txt".
QString preset_file_name(const std::string& preset);

/// The filter a dialog offers: the converted filter (or one made from a wildcard preset), then
/// "All files (*)".
QString dialog_filter(const std::string& old_filter, const std::string& preset);

}  // namespace tv::gui

#pragma once
// The program's icon, drawn rather than stored, so it is sharp at every size.
#include <QIcon>

namespace tv::gui {

QIcon app_icon();

}  // namespace tv::gui

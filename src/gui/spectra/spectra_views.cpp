#include "gui/views.h"

namespace tv::gui {

// The windows of this area use the plain view until they have their own.
void register_spectra_views(ViewRegistry&) {}

}  // namespace tv::gui

#include "windows/program.h"

#include "text/rounding.h"

namespace tv::windows {

void showChildWindow(Window& form, bool maximised) {
    forms::Platform& p = form.platform();
    p.set_busy(true);
    p.do_events();
    form.set_visible_flag(false);
    p.do_events();
    if (!maximised) {
        form.top = static_cast<double>(text::int_div(kMainFrameHeight - 1000 - form.height, 2));
        form.left = static_cast<double>(text::int_div(kMainFrameWidth - 3800 - form.width, 2));
    }
    form.maximised = maximised;
    form.show();
    p.set_busy(false);
}

}  // namespace tv::windows

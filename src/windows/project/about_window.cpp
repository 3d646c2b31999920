#include "windows/project/about_window.h"

namespace tv::windows {

std::string version_text() {
    return std::to_string(TV_VERSION_MAJOR) + "." + std::to_string(TV_VERSION_MINOR) + "." +
           std::to_string(TV_VERSION_PATCH);
}

xhelp::xhelp(forms::App& app) : Window(app, "xhelp", "About", 5400, 3000) {
    cmdOK.Click = [this] { program().unload(*this); };
}

void xhelp::Form_Load() { lblVersion.set_caption("Version : " + version_text()); }

}  // namespace tv::windows

#pragma once
// The About window: the program's name and version.
#include "windows/program.h"

namespace tv::windows {

class xhelp : public Window {
public:
    explicit xhelp(forms::App& app);
    forms::Label& lblTitle = label("lblTitle", "Tremorvault");
    forms::Label& lblPurpose = label("lblPurpose", "Seismic assessment of buildings: ground motion, "
                                                   "coefficient method, capacity spectrum method.");
    forms::Label& lblVersion = label("lblVersion", "Version :");
    forms::CommandButton& cmdOK = button("cmdOK", "OK");
    void Form_Load() override;
};

/// The version as major.minor.revision.
std::string version_text();

}  // namespace tv::windows

#pragma once
// Form14 ("Inputs"): opens the next record file with a first line of its own.
#include "windows/program.h"

namespace tv::windows {

class Form14 : public Window {
public:
    explicit Form14(forms::App& app);
    forms::TextBox& Xfline = text_box("Xfline", "");
    forms::CommandButton& Command1 = button("Command1", "Open");
    void Command1_Click();
};

}  // namespace tv::windows

#pragma once
// Form7: the note of Form8, a fixed picture that explains the choices of the coefficient
// tables and the inputs that come from Form6.
#include "windows/program.h"

namespace tv::windows {

class Form7 : public Window {
public:
    explicit Form7(forms::App& app);

    forms::PictureBox& Picture1 = picture("Picture1", 6600, 4300);
    forms::CommandButton& Command1 = button("Command1", "OK !");

    /// OK !: closes the note.
    void Command1_Click();

private:
    void draw_note();
};

}  // namespace tv::windows

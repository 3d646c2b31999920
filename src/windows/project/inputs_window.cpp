#include "windows/project/inputs_window.h"

#include "text/number_text.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::windows {

Form14::Form14(forms::App& app) : Window(app, "Form14", "Inputs", 4200, 1800) {
    Command1.Click = [this] { Command1_Click(); };
}

// The opening routine from the file dialog on, with this window's own first line and no reset
// on cancel.
void Form14::Command1_Click() {
    ProjectState& s = state();
    std::string name = open_txt_dialog(platform());
    if (name == "*.txt") return;
    s.fileName = name;
    if (s.componentLetter != "X" || s.currentRecord != 1) {
        Form1& f = program().form<Form1>();
        f.fileLoaded = 0;
        f.Form_Activate();
    } else {
        program().unload<Form1>();
        Form1& f = program().form<Form1>();
        f.fileLoaded = 0;
        showChildWindow(f, false);
    }
    program().form<Form1>().Xfline.set_text(text::to_text(text::val(Xfline.text())));
}

}  // namespace tv::windows

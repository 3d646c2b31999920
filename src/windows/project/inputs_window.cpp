#include "windows/project/inputs_window.h"

#include "text/number_text.h"
#include "windows/project/main_frame_window.h"

namespace tv::windows {

Form14::Form14(forms::App& app) : Window(app, "Form14", "Inputs", 4200, 1800) {
    Command1.Click = [this] { Command1_Click(); };
}

// The opening routine from the file dialog on, with this window's own first line and no reset
// on cancel.
void Form14::Command1_Click() { open_record_file(program(), text::val(Xfline.text()), false); }

}  // namespace tv::windows

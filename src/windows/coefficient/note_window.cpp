#include "windows/coefficient/note_window.h"

namespace tv::windows {

Form7::Form7(forms::App& app) : Window(app, "Form7", "Note", 6900, 5300) {
    Command1.Click = [this] { Command1_Click(); };
    draw_note();
}

void Form7::Command1_Click() { app().unload(*this); }

// The note is drawn once; it is the same every time the window opens.
void Form7::draw_note() {
    const char* lines[] = {
        "Target displacement by the coefficient method",
        "",
        "C0: stories and the column chosen (shear building with a uniform",
        "    or a triangular load, or any other building).",
        "Cm: 1 for one or two stories, else 0.9, 0.9, 0.8 or 1 by the system.",
        "Soil: a = 130 (I), 90 (II), 60 (III, IV) in C1.",
        "Te, dy, Vy, alpha-e and the limit d come from \"Calculate T-Effective\".",
        "Sa in g at Te: typed, or from \"Cal\".",
        "",
        "d = C0 C1 C2 Sa g Te^2 / (4 pi^2), g = 981 cm/s^2",
        "Rmax = max(d, limit) / dy  (+ |alpha-e|^-h / 4 when used)",
    };
    const double left = 200, top = 200, pitch = 300;
    Picture1.line(100, 100, Picture1.width() - 100, 100);
    double y = top;
    for (const char* line : lines) {
        Picture1.set_current_x(left);
        Picture1.set_current_y(y);
        Picture1.print(line);
        y += pitch;
    }
    Picture1.line(100, y + 100, Picture1.width() - 100, y + 100);
}

}  // namespace tv::windows

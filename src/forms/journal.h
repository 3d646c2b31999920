#pragma once
// The user's work as a list of steps: what was done on which control of which window, and what
// each dialog answered, so that the same work can be done again on fresh windows.
#include <cstddef>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "forms/platform.h"

namespace tv::forms {

class Form;

enum class ActionKind {
    Text,    // a text box typed into (or a combo's line)
    Tick,    // a check box clicked
    Option,  // an option clicked
    Press,   // a button pressed
    Pick,    // a list entry chosen (value: its index)
    Rows,    // table rows selected
    Cell,    // a table's current cell (value: row, col)
    Slide,   // a slider moved (value)
    Scroll,  // a scroll bar's arrows or keys (value)
    Drag,    // a scroll bar's thumb dragged (value)
    Label,   // a label clicked
    Menu,    // a menu entry chosen
    Close    // the window closed (no control)
};

struct Action {
    ActionKind kind = ActionKind::Press;
    std::string form;
    std::string control;
    std::string text;
    int value = 0;
    int col = 0;
    std::vector<int> rows;
};

enum class AnswerKind { Message, Input, File, Item };

struct Answer {
    AnswerKind kind = AnswerKind::Message;
    bool cancelled = false;
    MsgResult result = MsgResult::Ok;
    std::string text;   // the input's text, the file's path
    bool save = false;  // a save dialog's answer: a file written, not read
    int index = 0;      // the item chosen
};

/// One step of the work; depth counts the user events still running when it came (a step
/// inside a modal window, or during a long run's pending events).
struct Step {
    int depth = 0;
    std::variant<Action, Answer> what;
};

/// Does on the control what the view does for the user. False when the form has no control of
/// that name and kind.
bool perform(Form& form, const Action& action);

class Journal {
public:
    const std::vector<Step>& steps() const { return steps_; }
    void add(Step step);
    /// Starts again from nothing (a new or opened project).
    void clear();
    void replace(std::vector<Step> steps);

    /// Steps are kept only while recording.
    bool recording = true;
    /// Unsaved work: steps came since the last mark_saved.
    bool modified() const { return modified_; }
    void mark_saved();
    /// Work that no file holds yet (restored from a recovery file).
    void mark_modified();
    /// Called after each step kept, for the title bar's mark.
    std::function<void()> changed;

private:
    std::vector<Step> steps_;
    bool modified_ = false;
};

}  // namespace tv::forms

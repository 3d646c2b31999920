#pragma once
// Helpers of the view tests: screenshots, letting queued work run, a platform that answers
// dialogs from queues while the views are real.
#include <gtest/gtest.h>

#include <QWidget>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "gui/platform/qt_platform.h"
#include "gui/platform/view_registry.h"

namespace tv::test {

/// <build>/gui-screenshots, created on first use.
std::string shots_dir();
/// Saves the widget's image under shots_dir() as <name>.png and gives the path.
std::string save_shot(QWidget& widget, const std::string& name);
/// Lets queued refreshes, layouts and paints run.
void settle();

/// QtPlatform with every dialog answered from a queue (empty queue: cancel, Ok, Yes).
class ScriptedPlatform : public gui::QtPlatform {
public:
    using gui::QtPlatform::QtPlatform;

    std::deque<std::optional<std::string>> inputs;
    std::deque<std::optional<std::string>> files;
    std::vector<std::string> prompts;
    std::vector<std::string> messages;
    std::vector<std::pair<int, std::string>> runtime_errors;

    forms::MsgResult message_box(const std::string& text, forms::MsgButtons buttons, const std::string&,
                                 forms::MsgIcon) override {
        messages.push_back(text);
        return buttons == forms::MsgButtons::YesNo || buttons == forms::MsgButtons::YesNoCancel
                   ? forms::MsgResult::Yes
                   : forms::MsgResult::Ok;
    }
    std::optional<std::string> input_box(const std::string& prompt, const std::string&, const std::string&) override {
        prompts.push_back(prompt);
        if (inputs.empty()) return std::nullopt;
        auto a = inputs.front();
        inputs.pop_front();
        return a;
    }
    std::optional<std::string> file_dialog(const forms::FileDialogRequest&) override {
        if (files.empty()) return std::nullopt;
        auto a = files.front();
        files.pop_front();
        return a;
    }
    void report_runtime_error(int number, const std::string& description) override {
        runtime_errors.emplace_back(number, description);
    }
};

}  // namespace tv::test

#pragma once
// A platform without a screen: nothing is shown or printed, every question is cancelled with
// Ok, and run-time errors go nowhere. Front ends without a display override what they answer.
#include <optional>
#include <string>
#include <vector>

#include "forms/platform.h"

namespace tv::forms {

class QuietPlatform : public Platform {
public:
    MsgResult message_box(const std::string&, MsgButtons, const std::string&, MsgIcon) override { return MsgResult::Ok; }
    std::optional<std::string> input_box(const std::string&, const std::string&, const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::string> file_dialog(const FileDialogRequest&) override { return std::nullopt; }
    void set_clipboard_text(const std::string&) override {}
    std::vector<std::string> printers() override { return {}; }
    std::string current_printer() override { return {}; }
    bool print(const Page&, const std::string&) override { return false; }
    bool render_pdf(const std::vector<Page>&, std::string&, std::string&) override { return false; }
    void set_busy(bool) override {}
    void do_events() override {}
    void show_form(Form&, bool) override {}
    void hide_form(Form&) override {}
    void unload_form(Form&) override {}
    void end_program() override {}
    void report_runtime_error(int, const std::string&) override {}
};

}  // namespace tv::forms

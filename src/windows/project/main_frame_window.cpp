#include "windows/project/main_frame_window.h"

#include <filesystem>

#include "text/number_text.h"
#include "text/rounding.h"
#include "windows/capacity/capacity_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/files/work_files.h"
#include "windows/printing/printing.h"
#include "windows/project/about_window.h"
#include "windows/project/record_file.h"
#include "windows/project/record_input_window.h"

namespace tv::windows {

using text::to_text;
using text::val;

frmMain::frmMain(forms::App& app) : Window(app, "frmMain", "Tremorvault", kMainFrameWidth, kMainFrameHeight) {
    menu_open.Click = [this] { menu_open_Click(); };
    menu_exit.Click = [this] { menu_exit_Click(); };
    help.Click = [this] { help_Click(); };
    // The two methods need no record.
    PUSHOVER.Click = [this] { program().form<Form6>().show(); };
    menu_adrs.Click = [this] { program().form<Form9>().show(); };
    // Keeping, opening and leaving are no steps of the work a project holds.
    for (forms::Menu* m : {&menu_exit, &menu_open_project, &menu_save_project, &menu_save_project_as, &menu_recent_projects,
                          &menu_report_ground, &menu_report_coefficient, &menu_report_capacity})
        m->journaled = false;
    menu_report_ground.Click = [this] {
        save_report([this](const ReportRequest& r) { return ground_motion_report(program(), r); });
    };
    menu_report_coefficient.Click = [this] {
        save_report([this](const ReportRequest& r) { return coefficient_report(program(), r); });
    };
    menu_report_capacity.Click = [this] {
        save_report([this](const ReportRequest& r) { return capacity_report(program(), r); });
    };
    update_report_menu();
}

void frmMain::update_report_menu() {
    menu_report_ground.set_enabled(ground_motion_has_results(program()));
    menu_report_coefficient.set_enabled(coefficient_has_results(program()));
    menu_report_capacity.set_enabled(capacity_has_results(program()));
}

void frmMain::save_report(const std::function<std::vector<forms::Page>(const ReportRequest&)>& compose) {
    forms::Platform& p = platform();
    const forms::MsgResult paper = p.message_box("Set the report on A4 paper?\n(No: US Letter)",
                                                 forms::MsgButtons::YesNoCancel, "Report", forms::MsgIcon::Question);
    if (paper == forms::MsgResult::Cancel) return;
    const std::optional<std::string> path = ask_pdf_path(p, "Save Report");
    if (!path) return;
    ReportRequest r;
    r.paper = paper == forms::MsgResult::No ? Paper::letter : Paper::a4;
    r.record_files = recordFiles;
    r.project = projectName;
    save_pdf_pages(p, compose(r), *path);
}

frmMain& start(Program& program) {
    ProjectState& s = program.state;
    s.recordCount = 0;
    s.componentLetter = std::string("X");  // not the bare literal: GCC 12 warns on it here (-Wrestrict)
    std::error_code ec;
    std::string here = std::filesystem::current_path(ec).string();
    s.workDir = here;
    s.startDir = here;
    frmMain& frame = program.form<frmMain>();
    frame.show();
    return frame;
}

void frmMain::menu_open_Click() {
    ProjectState& s = state();
    if (s.recordCount == 0) {
        std::string count = platform().input_box("Number of Both Components ?  (Earthquakes)", "Input", "").value_or("");
        s.recordCount = text::to_int32(val(count));
        s.currentRecord = 1;
        std::string first = platform().input_box("Data's First Line ?", "Input", "").value_or("");
        s.dataFirstLine = val(first);
        recordCountNumber = s.recordCount;
        if (s.recordCount == 0) return;
    }
    if (s.recordCount >= 4 || s.currentRecord > s.recordCount) {
        s.recordCount = 0;
        return;
    }
    open_record_file(program(), s.dataFirstLine, true);
}

void open_record_file(Program& program, double first_line, bool reset_on_cancel) {
    ProjectState& s = program.state;
    std::string name = open_record_dialog(
        program.platform(), "Record " + std::to_string(s.currentRecord) + ": " + s.componentLetter + " component");
    if (name == "*.txt") {
        if (reset_on_cancel) s.recordCount = 0;
        return;
    }
    // Read before anything changes: a refused file or a cancelled pick leaves the project as it was.
    std::optional<OpenedRecord> file = open_record(program.platform(), resolve_in_workdir(s, name), name, s.componentLetter);
    if (!file) return;
    s.fileName = name;
    frmMain& frame = program.form<frmMain>();
    if (s.componentLetter == "X" && s.currentRecord == 1) frame.recordFiles.clear();
    frame.recordFiles.push_back(name);
    if (s.componentLetter != "X" || s.currentRecord != 1) {
        Form1& f = program.form<Form1>();
        f.fileLoaded = 0;
        f.opened = std::move(file);
        f.Form_Activate();
    } else {
        program.unload<Form1>();
        Form1& f = program.form<Form1>();
        f.fileLoaded = 0;
        f.opened = std::move(file);
        showChildWindow(f, false);
    }
    const std::int32_t fileFirst = s.recordFileFirstLine(s.currentRecord);
    program.form<Form1>().Xfline.set_text(fileFirst != 0 ? to_text(fileFirst) : to_text(first_line));
}

void frmMain::menu_exit_Click() { program().end(); }

void frmMain::help_Click() { program().form<xhelp>().show(true); }

void frmMain::Form_Unload(int&) { program().end(); }

}  // namespace tv::windows

#pragma once
// The main frame: the menu from which the three jobs start, and the opening of record files.
#include <functional>
#include <string>
#include <vector>

#include "windows/road_reports.h"
#include "windows/program.h"

namespace tv::windows {

class frmMain : public Window {
public:
    explicit frmMain(forms::App& app);

    forms::Menu& menu_file = menu("menu_file", "Project");
    forms::Menu& menu_open = menu("menu_open", "Open/Add Record", &menu_file);
    forms::Menu& sp2 = menu("sp2", "-", &menu_file);
    forms::Menu& PUSHOVER = menu("PUSHOVER", "Coefficient Method", &menu_file);
    forms::Menu& sep = menu("sep", "-", &menu_file);
    forms::Menu& menu_adrs = menu("menu_adrs", "Capacity Spec Method", &menu_file);
    forms::Menu& sp6 = menu("sp6", "-", &menu_file);
    forms::Menu& menu_exit = menu("menu_exit", "Exit", &menu_file);
    forms::Menu& menu_report = menu("menu_report", "&Report");
    forms::Menu& menu_report_ground = menu("menu_report_ground", "&Ground Motion Report...", &menu_report);
    forms::Menu& menu_report_coefficient =
        menu("menu_report_coefficient", "&Coefficient Method Report...", &menu_report);
    forms::Menu& menu_report_capacity = menu("menu_report_capacity", "Capacity &Spectrum Report...", &menu_report);
    forms::Menu& help = menu("help", "About");
    // The project's own entries; the desktop front end gives them their work.
    forms::Menu& menu_open_project = menu("menu_open_project", "Open &Project...", &menu_file);
    forms::Menu& menu_save_project = menu("menu_save_project", "&Save Project", &menu_file);
    forms::Menu& menu_save_project_as = menu("menu_save_project_as", "Save Project &As...", &menu_file);
    forms::Menu& menu_recent_projects = menu("menu_recent_projects", "Recent Pro&jects", &menu_file);
    forms::Menu& sp7 = menu("sp7", "-", &menu_file);

    /// recordCount kept as a number by the opening routine.
    double recordCountNumber = 0;
    /// The record files opened since the first record's X file, in order, for the report.
    std::vector<std::string> recordFiles;
    /// The open project's name for the reports' title block; "" before the first save.
    std::string projectName;

    /// The opening routine: asks the count and first line once, then opens the next file.
    void menu_open_Click();
    void menu_exit_Click();
    void help_Click();
    void Form_Unload(int& cancel) override;
    /// Each report entry is enabled while its road has results (as the Report menu opens).
    void update_report_menu();
    /// A report entry: the paper asked, a file named in a save dialog, the report written whole.
    void save_report(const std::function<std::vector<forms::Page>(const ReportRequest&)>& compose);
};

/// Sub Main: resets the project state, takes the current folder and shows the main frame.
frmMain& start(Program& program);

/// From the file dialog on: opens the next record file into Form1, whose first line becomes
/// `first_line`. Cancel resets the count when `reset_on_cancel` (the menu) and not otherwise.
void open_record_file(Program& program, double first_line, bool reset_on_cancel);

}  // namespace tv::windows

// tremorvault-cli project: a saved project's work done again, and its windows checked against
// the results the file keeps.
#include <iostream>

#include "cli/batch_platform.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "compute/files/file_reader.h"
#include "forms/journal_platform.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/project_file.h"

namespace tv::cli {

namespace {

const char* kProjectUsage =
    "usage: tremorvault-cli project [OPTIONS] FILE.tvproj\n"
    "Opens a project as the desktop program does: its work is done again on fresh windows and\n"
    "every box and table is compared with the results the file keeps. Prints each input file\n"
    "that moved or changed and each result that differs; exit status 1 when there is any.\n"
    "options:\n"
    "  --inputs DIR   take the input files, by name, from DIR first (may be given again)\n"
    "  --save OUT     write the project again as it now stands, to OUT\n";

}  // namespace

int run_project(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::vector<std::string> folders, files;
    std::string save_to;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            out << kProjectUsage;
            return kDone;
        }
        if ((a == "--inputs" || a == "--save") && i + 1 < args.size()) {
            (a == "--inputs" ? folders.emplace_back() : save_to) = args[++i];
        } else if (!a.empty() && a[0] == '-') {
            err << "tremorvault-cli project: unknown option '" << a << "'\n" << kProjectUsage;
            return kUsage;
        } else {
            files.push_back(a);
        }
    }
    if (files.size() != 1) {
        err << "tremorvault-cli project: give one project file\n" << kProjectUsage;
        return kUsage;
    }
    if (const compute::FileStatus there = compute::check_input_file(files.front()); !there.ok()) {
        err << "tremorvault-cli: " << files.front() << ": " << there.reason << '\n';
        return kFailed;
    }
    windows::ProjectRead read = windows::read_project(files.front());
    if (!read.content) {
        err << "tremorvault-cli: " << read.error << '\n';
        return kFailed;
    }
    BatchPlatform batch(err);
    forms::Journal journal;
    forms::JournalPlatform platform(batch, journal);
    windows::Program program(platform);
    program.set_journal(&journal);
    program.run([&program] { windows::start(program); });
    const windows::ProjectOpened opened =
        windows::open_project(program, platform, *read.content, files.front(), nullptr, folders);
    std::string shown;
    for (const forms::Form* f : program.loaded()) shown += (shown.empty() ? "" : ", ") + f->name();
    out << "windows: " << shown << '\n';
    out << (opened.clean() ? std::string("no differences\n") : opened.message());
    if (!save_to.empty()) {
        const compute::FileStatus saved = windows::save_project(program, journal, save_to);
        if (!saved.ok()) {
            err << "tremorvault-cli: " << saved.path << ": " << saved.reason << '\n';
            return kFailed;
        }
    }
    return opened.clean() ? kDone : kFailed;
}

}  // namespace tv::cli

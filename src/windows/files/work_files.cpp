#include "windows/files/work_files.h"

#include <algorithm>
#include <filesystem>

#include "compute/files/text_file.h"
#include "text/format.h"
#include "text/runtime_error.h"

namespace tv::windows {

std::string open_txt_dialog(forms::Platform& platform, const std::string& caption) {
    forms::FileDialogRequest req;
    req.title = caption;
    req.file_name = "*.txt";
    return platform.file_dialog(req).value_or("*.txt");
}

std::string open_record_dialog(forms::Platform& platform, const std::string& caption) {
    forms::FileDialogRequest req;
    req.title = caption;
    // Names as the networks and databases give them; the layout is told from the content.
    req.filter =
        "Records | *.txt;*.AT2;*.at2;*.VT2;*.DT2;*.V1;*.V2;*.v2;*.V2c;*.v2c;*.ASC;*.asc;*.smc;*.EW;*.NS;*.UD;*.EW1;"
        "*.NS1;*.UD1;*.EW2;*.NS2;*.UD2;*.csv;*.dat";
    req.file_name = "*.txt";
    return platform.file_dialog(req).value_or("*.txt");
}

std::string save_txt_dialog(forms::Platform& platform, const std::string& caption) {
    forms::FileDialogRequest req;
    req.title = caption;
    req.save = true;
    req.filter = "*.txt";
    req.file_name = "*.txt";
    std::string name = platform.file_dialog(req).value_or("*.txt");
    return name == "*.txt" ? name : text::with_txt_extension(name);
}

void write_export(const ProjectState& state, const std::string& name, const std::vector<std::string>& lines,
                  const std::vector<std::string>& notes) {
    std::vector<std::string> all(notes);
    all.insert(all.end(), lines.begin(), lines.end());
    compute::TextFile written = compute::write_text_file(resolve_in_workdir(state, name), all);
    if (!written.ok()) throw text::FileError(written.error, written.description, name, written.reason);
}

std::vector<std::string> processing_notes(const ProjectState& state, long first, long last) {
    std::vector<std::string> notes;
    for (long k = std::max(first, 1L); k <= std::min(last, 3L); ++k)
        if (!state.recordProcessing(k).empty())
            notes.push_back("Record " + std::to_string(k) + " processed: " + state.recordProcessing(k));
    return notes;
}

std::string resolve_in_workdir(const ProjectState& state, const std::string& name) {
    std::filesystem::path p(name);
    if (p.is_absolute() || state.workDir.empty()) return name;
    return (std::filesystem::path(state.workDir) / p).string();
}

}  // namespace tv::windows

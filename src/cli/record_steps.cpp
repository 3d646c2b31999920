#include "cli/record_steps.h"

#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::cli {

const std::vector<std::string> kRecordOptions{"first-line", "last-line", "dt", "scale", "max-value"};

const char* const kRecordUsage =
    "record options:\n"
    "  --first-line TEXT        answer to \"Data's First Line ?\" (default 1)\n"
    "  --last-line T1[,T2,T3]   last line of each record (default: the file's last line)\n"
    "  --dt T1[,T2,T3]          time step of each record, seconds (default 0.005 for the first)\n"
    "  --scale T1[,T2,T3]       scaling factor of each record (default 1.0 for the first)\n"
    "  --max-value T1[,T2,T3]   peak value wanted for each record (default: as read)\n"
    "An item is put into the box as it is, an empty one (\"--scale ,2\") as an empty text. A record\n"
    "past the end of the list keeps its box as the window leaves it: --dt and --scale hold the\n"
    "record before's value, --last-line and --max-value what the reader wrote.\n";

namespace {

// The k-th text of a per-record list, empty or not; a shorter list leaves the box as it is.
std::optional<std::string> nth(const ParsedOptions& o, const std::string& name, std::size_t k) {
    auto v = o.get(name);
    if (!v) return std::nullopt;
    auto items = split_list(*v);
    if (k < items.size()) return items[k];
    return std::nullopt;
}

}  // namespace

void run_record_steps(Session& s, const ParsedOptions& o, const std::vector<std::string>& files, bool next_at_last,
                      bool print_peaks) {
    for (const auto& f : files) require_readable(s, f);
    const std::size_t records = files.size() / 2;
    auto& frame = s.program.form<windows::frmMain>();
    s.platform.input_answers = {std::to_string(records), o.get("first-line").value_or("1")};
    if (print_peaks) s.print("records", std::to_string(records));
    for (std::size_t k = 0; k < records; ++k) {
        for (std::size_t c = 0; c < 2; ++c) {
            s.platform.file_answers.push_back(files[2 * k + c]);
            s.step([&] { frame.menu_open.choose(); });
        }
        auto& f1 = s.program.form<windows::Form1>();
        s.step([&] {
            if (auto v = nth(o, "last-line", k)) f1.xeline.set_text(*v);
            if (auto v = nth(o, "dt", k))
                f1.xstep.set_text(*v);
            else if (k == 0)
                f1.xstep.set_text("0.005");
            if (auto v = nth(o, "scale", k)) f1.xscale.set_text(*v);
            if (auto v = nth(o, "max-value", k)) f1.xvalue.set_text(*v);
        });
        s.step([&] { f1.Option3.user_click(); });
        s.step([&] { f1.Command2.press(); });
        if (print_peaks) {
            s.print("peak X " + std::to_string(k + 1), f1.Text1.text());
            s.print("peak Y " + std::to_string(k + 1), f1.Text2.text());
        }
        if (next_at_last || k + 1 < records) s.step([&] { f1.xnext.press(); });
    }
}

}  // namespace tv::cli

#include "cli/record_steps.h"

#include "windows/project/main_frame_window.h"
#include "windows/project_state.h"
#include "windows/project/record_input_window.h"

namespace tv::cli {

const std::vector<std::string> kRecordOptions{"first-line", "last-line", "dt", "scale", "max-value", "components"};

const char* const kRecordUsage =
    "record options:\n"
    "  --first-line TEXT        answer to \"Data's First Line ?\" (default 1); a file of a known\n"
    "                           layout sets its own, which a given --first-line replaces\n"
    "  --last-line T1[,T2,T3]   last line of each record (default: the file's last line)\n"
    "  --dt T1[,T2,T3]          time step of each record, seconds (default: the file's own step, or\n"
    "                           the DT its header lines declare, else 0.005 for the first)\n"
    "  --scale T1[,T2,T3]       scaling factor of each record (default 1.0 for the first)\n"
    "  --max-value T1[,T2,T3]   peak value wanted for each record (default: as read)\n"
    "  --components X,Y         each record is one file holding several components (BHRC, COSMOS,\n"
    "                           ...): X and Y by name as the file gives it (L1, \"T3 (267°)\") or\n"
    "                           by number from 1\n"
    "Records are read as they come: one sample per line with header lines, or PEER .AT2, BHRC\n"
    "VOL1DS, K-NET and KiK-net ASCII, ESM ASCII, CDMG .V2, COSMOS V2, USGS SMC, time and value\n"
    "columns, told from the content; samples are taken in g.\n"
    "An item is put into the box as it is, an empty one (\"--scale ,2\") as an empty text. A record\n"
    "past the end of the list keeps its box as the window leaves it: --dt and --scale hold the\n"
    "record before's value (--dt: unless its X file declares another step), --last-line and\n"
    "--max-value what the reader wrote.\n";

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

std::size_t files_per_record(const ParsedOptions& o) { return o.get("components") ? 1 : 2; }

std::optional<std::string> record_files_problem(const ParsedOptions& o, std::size_t max_records) {
    const std::size_t n = o.files.size();
    if (auto v = o.get("components")) {
        if (split_list(*v).size() != 2) return "--components takes two items, X and Y";
        if (n == 0 || n > max_records)
            return max_records == 1 ? "give one record, a file holding several components"
                                    : "give one to three records, a file holding several components each";
        return std::nullopt;
    }
    if (n == 0 || n % 2 != 0 || n > 2 * max_records)
        return max_records == 1 ? "give one record, an X and a Y file"
                                : "give one to three records, an X and a Y file each";
    return std::nullopt;
}

void run_record_steps(Session& s, const ParsedOptions& o, const std::vector<std::string>& files, bool next_at_last,
                      bool print_peaks, const std::function<void(std::size_t)>& shown) {
    for (const auto& f : files) require_readable(s, f);
    const std::size_t per_record = files_per_record(o);
    const std::size_t records = files.size() / per_record;
    std::vector<std::string> picks;
    if (auto v = o.get("components")) picks = split_list(*v);
    auto& frame = s.program.form<windows::frmMain>();
    s.platform.input_answers = {std::to_string(records), o.get("first-line").value_or("1")};
    if (print_peaks) s.print("records", std::to_string(records));
    windows::ProjectState& state = s.program.state;
    for (std::size_t k = 0; k < records; ++k) {
        state.stepTyped = nth(o, "dt", k).has_value();
        s.platform.item_answers.assign(picks.begin(), picks.end());
        for (std::size_t c = 0; c < per_record; ++c) {
            const std::string& file = files[per_record * k + c];
            s.platform.file_answers.push_back(file);
            s.step([&] { frame.menu_open.choose(); });
            // A file holding several components fills both tables; one that does not leaves Y empty.
            const bool both = state.componentLetter == "Z";
            if (c == 0 && both != (per_record == 1)) {
                s.err << "tremorvault-cli: " << file
                      << (both ? ": the file holds several components: pick X and Y with --components\n"
                               : ": --components needs a file holding several components\n");
                throw Exit{kFailed};
            }
        }
        auto& f1 = s.program.form<windows::Form1>();
        s.step([&] {
            if (state.recordFileFirstLine(static_cast<long>(k + 1)) != 0)
                if (auto v = o.get("first-line")) f1.Xfline.set_text(*v);
            if (auto v = nth(o, "last-line", k)) f1.xeline.set_text(*v);
            if (auto v = nth(o, "dt", k)) f1.xstep.set_text(*v);
            if (auto v = nth(o, "scale", k)) f1.xscale.set_text(*v);
            if (auto v = nth(o, "max-value", k)) f1.xvalue.set_text(*v);
        });
        s.step([&] { f1.Option3.user_click(); });
        s.step([&] { f1.Command2.press(); });
        if (print_peaks) {
            s.print("peak X " + std::to_string(k + 1), f1.Text1.text());
            s.print("peak Y " + std::to_string(k + 1), f1.Text2.text());
        }
        if (shown) shown(k + 1);
        if (next_at_last || k + 1 < records) s.step([&] { f1.xnext.press(); });
    }
}

}  // namespace tv::cli

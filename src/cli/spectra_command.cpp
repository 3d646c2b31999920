// tremorvault-cli spectra: the ground-motion road on the record windows.
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/session.h"
#include "text/number_text.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/record_input_window.h"

namespace tv::cli {

namespace {

const char* kSpectraUsage =
    "usage: tremorvault-cli spectra [OPTIONS] X1 Y1 [X2 Y2 [X3 Y3]]\n"
    "  --first-line TEXT        answer to \"Data's First Line ?\" (default 1)\n"
    "  --last-line T1[,T2,T3]   last line of each record (default: the file's last line)\n"
    "  --dt T1[,T2,T3]          time step of each record, seconds (default 0.005)\n"
    "  --scale T1[,T2,T3]       scaling factor of each record (default 1.0)\n"
    "  --max-value T1[,T2,T3]   peak value wanted for each record (default: as read)\n"
    "A list item left empty (\"--scale ,2\") leaves that record's box as it is.\n";

// The k-th text of a per-record list; an empty item or a shorter list leaves the box as it is.
std::optional<std::string> nth(const ParsedOptions& o, const std::string& name, std::size_t k) {
    auto v = o.get(name);
    if (!v) return std::nullopt;
    auto items = split_list(*v);
    if (k < items.size() && !items[k].empty()) return items[k];
    return std::nullopt;
}

}  // namespace

int run_spectra(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec spec{{"first-line", "last-line", "dt", "scale", "max-value"}, {}};
    ParsedOptions o;
    try {
        o = parse_options(args, spec);
    } catch (const UsageError& e) {
        err << "tremorvault-cli spectra: " << e.what() << '\n' << kSpectraUsage;
        return kUsage;
    }
    if (o.help) {
        out << kSpectraUsage;
        return kDone;
    }
    if (o.files.empty() || o.files.size() % 2 != 0 || o.files.size() > 6) {
        err << "tremorvault-cli spectra: give one to three records, an X and a Y file each\n" << kSpectraUsage;
        return kUsage;
    }
    Session s(out, err);
    try {
        for (const auto& f : o.files) require_readable(s, f);
        const std::size_t records = o.files.size() / 2;
        auto& frame = s.program.form<windows::frmMain>();
        s.platform.input_answers = {std::to_string(records), o.get("first-line").value_or("1")};
        s.print("records", std::to_string(records));
        for (std::size_t k = 0; k < records; ++k) {
            for (int c = 0; c < 2; ++c) {
                s.platform.file_answers.push_back(o.files[2 * k + static_cast<std::size_t>(c)]);
                s.step([&] { frame.menu_open.choose(); });
            }
            auto& f1 = s.program.form<windows::Form1>();
            s.step([&] {
                if (auto v = nth(o, "last-line", k)) f1.xeline.set_text(*v);
                if (auto v = nth(o, "dt", k)) f1.xstep.set_text(*v);
                else if (k == 0) f1.xstep.set_text("0.005");
                if (auto v = nth(o, "scale", k)) f1.xscale.set_text(*v);
                if (auto v = nth(o, "max-value", k)) f1.xvalue.set_text(*v);
            });
            s.step([&] { f1.Option3.user_click(); });
            s.step([&] { f1.Command2.press(); });
            s.print("peak X " + std::to_string(k + 1), f1.Text1.text());
            s.print("peak Y " + std::to_string(k + 1), f1.Text2.text());
            s.step([&] { f1.xnext.press(); });
        }
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli

// tremorvault-cli fourier: one record through the Fourier window.
#include <ostream>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/processing_option.h"
#include "cli/record_steps.h"
#include "cli/session.h"
#include "windows/fourier/fourier_window.h"
#include "windows/project/record_input_window.h"

namespace tv::cli {

namespace {

const char* kFourierUsage =
    "usage: tremorvault-cli fourier [OPTIONS] X Y\n"
    "       tremorvault-cli fourier [OPTIONS] --components X,Y FILE\n"
    "  --omega-lim TEXT         highest omega, rad/s (required)\n"
    "  --delta-omega TEXT       omega step, rad/s (default 0.05)\n"
    "  --picks TEXT             pick this many omegas (\"No. Omega=\", then Find Omega)\n"
    "  --omega-step TEXT        least distance between picks, rad/s (default 0)\n"
    "  --history-time TEXT      length of the rebuilt history, s (default: the record's)\n"
    "  --history-dt TEXT        step of the rebuilt history, s (default 0.05)\n"
    "  --export-fft FILE        write omega and amplitude\n"
    "  --export-history FILE    rebuild the history (Accel) and write it\n"
    "processing of the record before its transform (the exports name it in their first lines):\n";

}  // namespace

int run_fourier(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    OptionSpec known{{"omega-lim", "delta-omega", "picks", "omega-step", "history-time", "history-dt", "export-fft",
                     "export-history"},
                    {kZeroPhaseFlag}};
    known.with_value.insert(kRecordOptions.begin(), kRecordOptions.end());
    known.with_value.insert(kProcessingOptions.begin(), kProcessingOptions.end());
    const std::string usage = std::string(kFourierUsage) + kProcessingUsage + kRecordUsage;
    ParsedOptions o;
    if (auto done = parse_command(args, known, "fourier", usage, o, out, err)) return *done;
    if (auto problem = record_files_problem(o, 1)) return usage_error(err, "fourier", *problem, usage);
    if (!o.get("omega-lim")) return usage_error(err, "fourier", "--omega-lim is required", usage);
    compute::ProcessingOptions processing;
    if (auto why = processing_from(o, processing)) return usage_error(err, "fourier", *why, usage);
    Session s(out, err);
    try {
        run_record_steps(s, o, o.files, false, false, [&](std::size_t k) {
            if (processing.active()) apply_processing(s, o, processing, k);
        });
        auto& f1 = s.program.form<windows::Form1>();
        s.step([&] { f1.Command1.press(); });
        auto& f12 = s.program.form<windows::Form12>();
        s.step([&] {
            f12.Text1.set_text(*o.get("omega-lim"));
            if (auto v = o.get("delta-omega")) f12.Text2.set_text(*v);
        });
        s.step([&] { f12.Command1.press(); });
        s.print("peak omega", f12.Text3.text());
        s.print("peak amplitude", f12.Text4.text());
        s.print("period", f12.Label11.caption());
        if (auto picks = o.get("picks")) {
            s.step([&] { f12.Check1.user_click(); });
            s.step([&] {
                f12.Text8.set_text(*picks);
                if (auto v = o.get("omega-step")) f12.Text9.set_text(*v);
            });
            s.step([&] { f12.Command5.press(); });
            for (int r = 1; r < f12.Grid3.rows(); ++r)
                s.print("pick " + std::to_string(r), f12.Grid3.text(r, 3) + " " + f12.Grid3.text(r, 2));
        }
        if (auto file = o.get("export-history")) {
            s.step([&] {
                if (auto v = o.get("history-time")) f12.Text5.set_text(*v);
                if (auto v = o.get("history-dt")) f12.Text6.set_text(*v);
            });
            s.step([&] { f12.Command3.press(); });
            s.platform.file_answers.push_back(*file);
            s.step([&] { f12.Command4.press(); });
        }
        if (auto file = o.get("export-fft")) {
            s.platform.file_answers.push_back(*file);
            s.step([&] { f12.Command9.press(); });
        }
    } catch (const Exit& e) {
        return e.status;
    }
    return kDone;
}

}  // namespace tv::cli

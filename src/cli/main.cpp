// tremorvault-cli: the jobs of Tremorvault in batch, on the same window models.
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/session.h"
#include "windows/project/about_window.h"

namespace {

const char* kUsage =
    "usage: tremorvault-cli COMMAND [OPTIONS] FILES...\n"
    "commands:\n"
    "  spectra      records, design spectrum, response spectra, comparison and scale factor\n"
    "  fourier      direct Fourier sum of a record, picked omegas, rebuilt history\n"
    "  coefficient  pushover curve, bilinear idealisation, target displacement, R factor\n"
    "  capacity     capacity spectrum method: performance point\n"
    "  nsp          nonlinear static procedures side by side on one pushover curve\n"
    "  measures     intensity, duration and period measures of records, with optional processing\n"
    "  project      a saved project's work done again and checked against its kept results\n"
    "options: --help (also after a command), --version\n";

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        std::cerr << kUsage;
        return tv::cli::kUsage;
    }
    const std::string command = args.front();
    std::vector<std::string> rest(args.begin() + 1, args.end());
    if (command == "--help" || command == "-h" || command == "help") {
        std::cout << kUsage;
        return tv::cli::kDone;
    }
    if (command == "--version") {
        std::cout << "tremorvault-cli " << tv::windows::version_text() << '\n';
        return tv::cli::kDone;
    }
    if (command == "spectra") return tv::cli::run_spectra(rest, std::cout, std::cerr);
    if (command == "coefficient") return tv::cli::run_coefficient(rest, std::cout, std::cerr);
    if (command == "capacity") return tv::cli::run_capacity(rest, std::cout, std::cerr);
    if (command == "nsp") return tv::cli::run_nsp(rest, std::cout, std::cerr);
    if (command == "measures") return tv::cli::run_measures(rest, std::cout, std::cerr);
    if (command == "fourier") return tv::cli::run_fourier(rest, std::cout, std::cerr);
    if (command == "project") return tv::cli::run_project(rest, std::cout, std::cerr);
    std::cerr << "tremorvault-cli: unknown command '" << command << "'\n" << kUsage;
    return tv::cli::kUsage;
}

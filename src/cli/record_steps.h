#pragma once
// The record steps that the spectra and fourier commands share: the menu's Open/Add Record for
// each file, the record window's boxes, Show Diagram, and Next.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "cli/session.h"

namespace tv::cli {

/// The options of the record window, for a command's option list.
extern const std::vector<std::string> kRecordOptions;
/// Their lines of the usage text.
extern const char* const kRecordUsage;

/// Files per record: 2 (X and Y), or 1 with --components (a file holding both).
std::size_t files_per_record(const ParsedOptions& o);

/// What is wrong with the files and --components for one to `max_records` records, if anything.
std::optional<std::string> record_files_problem(const ParsedOptions& o, std::size_t max_records);

/// Opens the records of `files` (X and Y of each, or one file of several components each) and shows each one; with `print_peaks` prints
/// `records`, then `peak X k` and `peak Y k`. `shown(k)` runs after record k's Show Diagram.
/// Next is pressed after every record but, when `next_at_last` is false, the last.
void run_record_steps(Session& s, const ParsedOptions& o, const std::vector<std::string>& files, bool next_at_last,
                      bool print_peaks = true, const std::function<void(std::size_t)>& shown = {});

}  // namespace tv::cli

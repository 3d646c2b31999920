#pragma once
// The record steps that the spectra and fourier commands share: the menu's Open/Add Record for
// each file, the record window's boxes, Show Diagram, and Next.
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

/// Opens the records of `files` (X and Y of each) and shows each one; with `print_peaks` prints
/// `records`, then `peak X k` and `peak Y k`. Next is pressed after every record but, when
/// `next_at_last` is false, the last.
void run_record_steps(Session& s, const ParsedOptions& o, const std::vector<std::string>& files, bool next_at_last,
                      bool print_peaks = true);

}  // namespace tv::cli

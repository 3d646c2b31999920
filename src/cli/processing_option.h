#pragma once
// The processing options that measures, spectra and fourier share: a baseline correction and a
// Butterworth filter of each record, off unless asked for.
#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "cli/session.h"
#include "compute/measures/record_processing.h"

namespace tv::cli {

/// The options with a value, for a command's option list; "zero-phase" is a flag.
extern const std::vector<std::string> kProcessingOptions;
extern const char* const kZeroPhaseFlag;
/// Their lines of the usage text.
extern const char* const kProcessingUsage;

/// The processing the options ask for into `out`; what is wrong with them otherwise.
std::optional<std::string> processing_from(const ParsedOptions& o, compute::ProcessingOptions& out);

/// After record `record`'s Show Diagram: the measures window applies `p` as the options give it
/// and "processing K" is printed; a refusal prints the window's message and ends the run with 1.
void apply_processing(Session& s, const ParsedOptions& o, const compute::ProcessingOptions& p, std::size_t record);

}  // namespace tv::cli

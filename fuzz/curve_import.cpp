#include "compute/import/curve_import.h"
#include "fuzz_input.h"

// The size chooses the curve kind and whether to shift it, so that real files seed as they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tv::compute::CurveImportOptions options;
    options.shift_to_origin = (size & 2) != 0;
    const auto kind = (size & 1) ? tv::compute::CurveKind::spectral : tv::compute::CurveKind::pushover;
    const auto read = tv::compute::import_curve_text(std::string(tv::fuzz::as_text(data, size)), "fuzz.txt", kind, options);
    if (read.error) (void)read.error->message();
    return 0;
}

#include "compute/capacity/demand_spectrum.h"
#include "compute/files/text_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto lines = tv::compute::split_lines(std::string(tv::fuzz::as_text(data, size)));
    tv::text::DoubleArray periods, sa;
    tv::fuzz::answers([&] { tv::compute::read_period_sa_lines(lines, periods, sa); });
    return 0;
}

#include "compute/capacity/capacity_reader.h"
#include "compute/files/text_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto lines = tv::compute::split_lines(std::string(tv::fuzz::as_text(data, size)));
    tv::fuzz::answers([&] { (void)tv::compute::parse_capacity_lines(lines); });
    return 0;
}

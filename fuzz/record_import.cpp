#include "compute/import/record_import.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto read = tv::compute::parse_record(tv::fuzz::as_text(data, size), "fuzz.txt");
    if (read.error) (void)read.error->message();
    return 0;
}

#include "compute/coefficient/pushover_workbook_reader.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tv::fuzz::answers([&] { (void)tv::compute::read_pushover_xlsx_bytes(tv::fuzz::as_text(data, size), "fuzz.xlsx"); });
    return 0;
}

#include "compute/files/text_file.h"
#include "fuzz_input.h"
#include "text/number_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const std::string& line : tv::compute::split_lines(std::string(tv::fuzz::as_text(data, size))))
        tv::fuzz::answers([&] { (void)tv::text::val(line); });
    return 0;
}

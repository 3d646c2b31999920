#include "fuzz_input.h"
#include "windows/project/project_format.h"

// A project file is refused with a message or read whole; nothing else may come out of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    (void)tv::windows::parse_project(std::string(tv::fuzz::as_text(data, size)), "p.tvproj");
    return 0;
}

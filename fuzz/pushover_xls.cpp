// The helper program's work, done in the fuzzer's process: FreeXL opens the bytes (through a
// file in memory, as it reads paths only) and the answer is taken apart as the program does;
// the answer parser also gets the raw bytes.
#include <sys/mman.h>
#include <unistd.h>

#include "compute/coefficient/xls_cells.h"
#include "fuzz_input.h"

namespace {

void read_answer(const std::string& answer) {
    const auto cells = tv::compute::XlsCells::parse(answer);
    if (!cells) return;
    tv::fuzz::answers([&] {
        cells->check_opened();
        for (long row = 1; row <= cells->last_row() && row <= 64; ++row)
            for (int column = 1; column <= 3; ++column) (void)cells->text(row, column);
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int fd = memfd_create("fuzz.xls", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(fd);
    if (fd < 0 || ftruncate(fd, 0) != 0 || pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)) return 0;
    read_answer(tv::compute::xls_cells_answer(path));
    read_answer(tv::compute::xls_cells_answer(path, 8, 64));
    read_answer(std::string(tv::fuzz::as_text(data, size)));
    return 0;
}

// The .xls road as the program takes it: FreeXL reads the file in the helper program (whose own
// faults, such as FreeXL's overread on xls_freexl_overread.xls, end in an unreadable workbook),
// and the helper's answer is taken apart in this process; that parser also gets the raw bytes.
#include <sys/mman.h>
#include <cstdlib>
#include <unistd.h>

#include "compute/coefficient/pushover_workbook_reader.h"
#include "compute/coefficient/xls_cells.h"
#include "fuzz_input.h"

// The helper is built with the sanitizers too, and FreeXL's known overreads stop it there: it
// must stop at once, without the second a symbolized report takes, and quietly.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    setenv("ASAN_OPTIONS", "symbolize=0:detect_leaks=0", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A file in memory, seen by the helper through this process's descriptor table.
    static const int fd = memfd_create("fuzz.xls", 0);
    static const std::string path = "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(fd);
    if (fd < 0 || ftruncate(fd, 0) != 0 || pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)) return 0;
    (void)tv::compute::read_pushover_xls(path);
    (void)tv::compute::read_workbook_cells(path, 8, 64);
    if (const auto cells = tv::compute::XlsCells::parse(std::string(tv::fuzz::as_text(data, size))))
        tv::fuzz::answers([&] {
            cells->check_opened();
            for (long row = 1; row <= cells->last_row() && row <= 64; ++row)
                for (int column = 1; column <= 3; ++column) (void)cells->text(row, column);
        });
    return 0;
}

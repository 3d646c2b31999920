// A package's bytes as they come (an input that starts as a zip does), or, for any other input,
// a package made of it: the text up to the first \x01 is the worksheet's <sheetData>, the texts
// between later ones are shared strings. The parts' checksums stop mutated packages before their
// XML is read; the made packages take the fuzzer into the sheet reader.
#include <sys/mman.h>
#include <unistd.h>

#include <vector>

#include "compute/coefficient/pushover_workbook_reader.h"
#include "fuzz_input.h"
#include "support/workbooks.h"

namespace {

std::string package_of(std::string_view text) {
    static const int fd = memfd_create("fuzz.xlsx", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(fd);
    std::vector<std::string> shared;
    const std::size_t cut = text.find('\x01');
    const std::string sheet(text.substr(0, cut));
    for (std::size_t from = cut; from != std::string_view::npos;) {
        const std::size_t next = text.find('\x01', from + 1);
        shared.emplace_back(text.substr(from + 1, next == std::string_view::npos ? next : next - from - 1));
        from = next;
    }
    tv::test::write_zip(path, tv::test::xlsx_parts(sheet, shared));
    std::string bytes(static_cast<std::size_t>(lseek(fd, 0, SEEK_END)), '\0');
    if (pread(fd, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) return {};
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = tv::fuzz::as_text(data, size);
    const std::string made = input.substr(0, 2) == "PK" ? std::string() : package_of(input);
    tv::fuzz::answers(
        [&] { (void)tv::compute::read_pushover_xlsx_bytes(made.empty() ? input : made, "fuzz.xlsx"); });
    return 0;
}

// tremorvault-xls-reader PATH [COLUMNS ROWS]: reads the pushover table of an .xls workbook through FreeXL and
// writes its cells on standard output for the program that started it. Kept apart so that a
// damaged file can at worst stop this process, within the limits set here.
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <string>

#include "compute/coefficient/xls_cells.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TV_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define TV_SANITIZED 1
#endif
#endif

namespace {

void limit(int resource, rlim_t value) {
    rlimit r{value, value};
    setrlimit(resource, &r);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) return 2;
    int columns = 0;
    long rows = 0;
    if (argc == 4) {
        try {
            columns = std::stoi(argv[2]);
            rows = std::stol(argv[3]);
        } catch (const std::exception&) {
            return 2;
        }
    }
    limit(RLIMIT_CPU, 10);
    limit(RLIMIT_FSIZE, 0);
#ifndef TV_SANITIZED
    // The sanitizers reserve far more address space than they use: no memory limit under them.
    limit(RLIMIT_AS, rlim_t{1} << 30);
#endif
    const std::string answer = tv::compute::xls_cells_answer(argv[1], columns, rows);
    std::string_view rest = answer;
    while (!rest.empty()) {
        const ssize_t put = write(STDOUT_FILENO, rest.data(), rest.size());
        if (put < 0) {
            if (errno == EINTR) continue;
            return 1;
        }
        rest.remove_prefix(static_cast<std::size_t>(put));
    }
    return 0;
}

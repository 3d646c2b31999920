// Writes the seeds no real file gives: a small .xls pushover table (nothing at hand writes that
// format), into DIR/pushover_xls/.
#include <filesystem>
#include <iostream>

#include "support/files.h"
#include "support/workbooks.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_seeds DIR\n";
        return 2;
    }
    const std::filesystem::path xls = std::filesystem::path(argv[1]) / "pushover_xls";
    std::filesystem::create_directories(xls);
    tv::test::spill(xls / "table.xls",
                    tv::test::xls_bytes({{0, 0, std::string("Step")}, {0, 1, std::string("Displacement")},
                                         {0, 2, std::string("Base Force")}, {1, 0, 0.0}, {1, 1, 0.0}, {1, 2, 0.0},
                                         {2, 0, 1.0}, {2, 1, 1.5}, {2, 2, 7368.5}, {3, 0, 2.0},
                                         {3, 1, std::string("n/a")}, {3, 2, true}}));
    return 0;
}

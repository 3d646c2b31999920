// Writes the seeds no real file gives, into DIR/TARGET/: a small .xls pushover table (nothing
// at hand writes that format), and a worksheet's XML for the xlsx target to package.
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
    const std::filesystem::path xlsx = std::filesystem::path(argv[1]) / "pushover_xlsx";
    std::filesystem::create_directories(xlsx);
    tv::test::spill(xlsx / "sheet.txt",
                    "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"inlineStr\"><is><t>D</t></is></c>"
                    "</row><row r=\"2\"><c r=\"A2\"><v>0</v></c><c r=\"B2\"><v>0</v></c><c r=\"C2\"><v>0</v></c>"
                    "</row><row r=\"3\"><c r=\"A3\"><v>1</v></c><c r=\"B3\" t=\"e\"><v>#N/A</v></c>"
                    "<c r=\"C3\" t=\"b\"><v>1</v></c></row>\x01Step");
    return 0;
}

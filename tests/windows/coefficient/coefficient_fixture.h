#pragma once
// A fresh program over a fake platform, with Form6 opened from the menu and pushover files
// written to a temporary folder.
#include <gtest/gtest.h>
#include <unistd.h>
#include <zip.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/fake_platform.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::test {

/// The softening curve worked by hand in the scan's tests, in kg and cm: the target is step 5
/// at (8, 3300); Ki = 1500, A = 21550, and the scan stops at K = 1435.
inline const char* kSofteningListing =
    "Pushover curve, case PUSH\n"
    "Step  Displacement  BaseForce  Hinges\n"
    " 0  0  0  0\n"
    " 1  1  1500  0\n"
    " 2  2  2600  0\n"
    " 3  3  3000  0\n"
    " 4  5  3200  0\n"
    " 5  8  3300  0\n";

class CoefficientTest : public ::testing::Test {
protected:
    CoefficientTest() : program(platform) {
        dir = std::filesystem::temp_directory_path() /
              ("tv_coefficient_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        windows::start(program);
        program.state.workDir = dir.string();
        platform.printer_names = {"Office Laser", "PDF Printer"};
        program.run([&] { program.form<windows::frmMain>().PUSHOVER.choose(); });
    }
    ~CoefficientTest() override { std::filesystem::remove_all(dir); }

    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(dir / name, std::ios::binary) << content;
        return (dir / name).string();
    }

    /// A one-sheet workbook: headings in row 1, then one row per (step, displacement, force).
    std::string write_xlsx(const std::string& name, const std::vector<std::vector<std::string>>& rows) {
        const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
        const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
        const std::string pkg = "http://schemas.openxmlformats.org/package/2006/relationships";
        std::string data = "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c>"
                           "<c r=\"C1\" t=\"s\"><v>2</v></c></row>";
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string r = std::to_string(i + 2);
            data += "<row r=\"" + r + "\">";
            for (std::size_t c = 0; c < rows[i].size(); ++c)
                data += "<c r=\"" + std::string(1, static_cast<char>('A' + c)) + r + "\"><v>" + rows[i][c] + "</v></c>";
            data += "</row>";
        }
        const std::vector<std::pair<std::string, std::string>> parts = {
            {"[Content_Types].xml",
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Types "
             "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
             "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
             "<Default Extension=\"xml\" ContentType=\"application/xml\"/></Types>"},
            {"_rels/.rels", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships xmlns=\"" + pkg +
                                "\"><Relationship Id=\"rId1\" Type=\"" + rel +
                                "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>"},
            {"xl/workbook.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><workbook xmlns=\"" + main +
                                    "\" xmlns:r=\"" + rel +
                                    "\"><sheets><sheet name=\"Sheet1\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>"},
            {"xl/_rels/workbook.xml.rels",
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships xmlns=\"" + pkg + "\"><Relationship Id=\"rId1\" Type=\"" +
                 rel + "/worksheet\" Target=\"worksheets/sheet1.xml\"/><Relationship Id=\"rId2\" Type=\"" + rel +
                 "/sharedStrings\" Target=\"sharedStrings.xml\"/></Relationships>"},
            {"xl/worksheets/sheet1.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet xmlns=\"" + main +
                                             "\"><sheetData>" + data + "</sheetData></worksheet>"},
            {"xl/sharedStrings.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sst xmlns=\"" + main +
                                         "\"><si><t>Step</t></si><si><t>Displacement</t></si>"
                                         "<si><t>Base Force</t></si></sst>"},
        };
        const std::string path = (dir / name).string();
        zipFile zf = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
        EXPECT_NE(zf, nullptr);
        for (const auto& [part, content] : parts) {
            zip_fileinfo info{};
            zipOpenNewFileInZip64(zf, part.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                  Z_DEFAULT_COMPRESSION, 0);
            zipWriteInFileInZip(zf, content.data(), static_cast<unsigned>(content.size()));
            zipCloseFileInZip(zf);
        }
        zipClose(zf, nullptr);
        return path;
    }

    /// A listing of the curve's points, numbered from 0, with a fourth column.
    std::string write_listing(const std::string& name, const std::vector<std::pair<double, double>>& points) {
        std::ostringstream s;
        s.precision(17);
        s << "Step Displacement BaseForce Extra\n";
        for (std::size_t i = 0; i < points.size(); ++i)
            s << ' ' << i << ' ' << points[i].first << ' ' << points[i].second << " x\n";
        return write(name, s.str());
    }

    windows::Form6& f6() { return program.form<windows::Form6>(); }
    windows::Form8& f8() { return program.form<windows::Form8>(); }

    /// Types the path into Text1 and presses Start, as a user does.
    void start_listing(const std::string& path) {
        program.run([&] { f6().Text1.set_text(path); });
        program.run([&] { f6().Command2.press(); });
    }
    void press(forms::CommandButton& b) { program.run([&] { b.press(); }); }
    void type(forms::TextBox& box, const std::string& text) { program.run([&] { box.set_text(text); }); }
    void click(forms::CheckBox& box) { program.run([&] { box.user_click(); }); }

    /// The curve read, the last step selected and the yield point found by the scan.
    void solve_softening() {
        start_listing(write("curve.txt", kSofteningListing));
        press(f6().Command3);
    }

    FakePlatform platform;
    windows::Program program;
    std::filesystem::path dir;
};

}  // namespace tv::test

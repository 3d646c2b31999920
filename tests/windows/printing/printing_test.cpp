// The printed page as composed for every front end, and the road of a PDF to its file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "forms/app.h"
#include "forms/form.h"
#include "support/fake_platform.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/printing.h"

namespace tv::test {
namespace {

class Sheet : public forms::Form {
public:
    explicit Sheet(forms::App& app) : forms::Form(app, "Sheet", "Sheet") {
        plot.line(0, 0, 2000, 1000, 0x0000FF);
        plot.set_current_x(100);
        plot.set_current_y(200);
        plot.print("0.5");
    }
    forms::PictureBox& plot = picture("plot", 4000, 1000);
};

class PrintingTest : public ::testing::Test {
protected:
    PrintingTest() : app(platform) {
        dir = std::filesystem::temp_directory_path() / ("tv_printing_" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir);
    }
    ~PrintingTest() override { std::filesystem::remove_all(dir); }

    forms::Page page() {
        windows::PageContent content;
        content.title = "Sheet";
        content.picture = &app.form<Sheet>().plot;
        content.heading = "Diagram & Result";
        content.lines = {"SRA= 0.4676", "SRV= 0.5893"};
        return windows::compose_page(content, platform);
    }
    std::string read(const std::filesystem::path& p) {
        std::ifstream in(p, std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }

    FakePlatform platform;
    forms::App app;
    std::filesystem::path dir;
};

TEST_F(PrintingTest, ThePictureStandsAtItsSizeThenTheHeadingAndTheLines) {
    const forms::Page p = page();
    // 4000 x 1000 twips: 200 x 50 points at the margin, its drawing kept inside.
    const forms::PageRect area{42, 42, 200, 50};
    const forms::PageOp* line = nullptr;
    for (const forms::PageOp& op : p.ops)
        if (op.kind == forms::PageOp::Kind::Line) line = &op;
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->clip, area);
    EXPECT_DOUBLE_EQ(line->x2, 42 + 100.0);
    EXPECT_DOUBLE_EQ(line->y2, 42 + 50.0);
    EXPECT_EQ(line->colour, 0xFF0000);  // the picture's 0xBBGGRR red

    std::vector<const forms::PageOp*> texts;
    for (const forms::PageOp& op : p.ops)
        if (op.kind == forms::PageOp::Kind::Text) texts.push_back(&op);
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0]->text, "0.5");
    EXPECT_DOUBLE_EQ(texts[0]->y1, 42 + 10.0);
    EXPECT_EQ(texts[0]->clip, area);
    // A line's room below the picture; the heading bold and larger, then 14 points a line.
    EXPECT_DOUBLE_EQ(texts[1]->y1, 42 + 50 + 14.0);
    EXPECT_TRUE(texts[1]->font.bold);
    EXPECT_EQ(texts[1]->font.size, 12);
    EXPECT_TRUE(texts[1]->clip.empty());
    EXPECT_DOUBLE_EQ(texts[2]->y1, texts[1]->y1 + 21);
    EXPECT_DOUBLE_EQ(texts[3]->y1, texts[2]->y1 + 14);
    EXPECT_EQ(texts[3]->font.size, 10);
    EXPECT_DOUBLE_EQ(texts[3]->x1, 42);
}

TEST_F(PrintingTest, AWindowsImageComesFirstWithThePictureBelowIt) {
    windows::PageContent content;
    content.window = &app.form<Sheet>();
    content.picture = &app.form<Sheet>().plot;
    const forms::Page p = windows::compose_page(content, platform);
    ASSERT_FALSE(p.ops.empty());
    const forms::PageRect picture = p.ops.back().clip;
    EXPECT_EQ(picture.w, 200);
    EXPECT_GT(picture.y, 42 + 14);  // below the image and a line's room
}

TEST_F(PrintingTest, APdfThatCannotBeMadeLeavesTheFileAsItWas) {
    std::ofstream(dir / "report.pdf", std::ios::binary) << "earlier";
    platform.pdf_fails = true;
    platform.file_answers.push_back((dir / "report").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(read(dir / "report.pdf"), "earlier");
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0], (std::pair<int, std::string>{75, "Path/File access error"}));

    // Made whole, the file is replaced and nothing is left beside it.
    platform.file_answers.push_back((dir / "report.pdf").string());
    windows::save_page_as_pdf(platform, page());
    EXPECT_EQ(read(dir / "report.pdf").rfind("%PDF", 0), 0u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 1);
    EXPECT_EQ(platform.runtime_errors.size(), 1u);
}

TEST_F(PrintingTest, AFileThatCannotBeWrittenIsError75) {
    platform.file_answers.push_back((dir / "missing" / "report").string());
    windows::save_page_as_pdf(platform, page());
    ASSERT_EQ(platform.runtime_errors.size(), 1u);
    EXPECT_EQ(platform.runtime_errors[0].first, 75);
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
}

}  // namespace
}  // namespace tv::test

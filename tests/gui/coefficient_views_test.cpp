// The views of the coefficient method: Form6 "Calculate T-Effective", its note Form7 and Form8
// "Calculate Target Displacement". Every control has a widget of its kind, the worked curve is
// fitted and handed on through the widgets, and screenshots go under <build>/gui-screenshots.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>
#include <unistd.h>

#include "gui/bind/binder.h"
#include "gui/bind/mnemonics.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/page_painter.h"
#include "gui/platform/view_registry.h"
#include "gui/views.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"
#include "support/files.h"
#include "windows/coefficient/note_window.h"
#include "windows/coefficient/nsp_window.h"
#include "windows/coefficient/pushover_window.h"
#include "windows/coefficient/target_displacement_window.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

namespace tv::gui {
namespace {

using forms::ControlKind;

// The softening curve worked by hand in the window's tests, in kg and cm: the scan stops at
// K = 1435, so the yield point is (1.99, 2855.7214) and Te = 1.022 with Ti = 1.
const char* kSofteningListing =
    "Pushover curve, case PUSH\n"
    "Step  Displacement  BaseForce  Hinges\n"
    " 0  0  0  0\n"
    " 1  1  1500  0\n"
    " 2  2  2600  0\n"
    " 3  3  3000  0\n"
    " 4  5  3200  0\n"
    " 5  8  3300  0\n";

using test::expect_all_bound;
using test::inside;

class CoefficientViewsTest : public test::MultiViewTest {
protected:
    CoefficientViewsTest() { platform.printer_names = {"Office Laser", "PDF Printer"}; }
    ~CoefficientViewsTest() override { opened.clear(); }

    std::string write(const std::string& name, const std::string& content) { return scratch.write(name, content); }

    /// The worked curve read by Start and its yield point found by Auto Yeld Point, all through
    /// the widgets of Form6's view.
    QWidget& fitted_form6() {
        QWidget& w = open<windows::Form6>();
        type_into(w, "Text1", QString::fromStdString(write("curve.txt", kSofteningListing)));
        click(w, "Command2");
        click(w, "Command3");
        return w;
    }

    test::TempDir scratch;
};

TEST_F(CoefficientViewsTest, EachWindowHasItsOwnViewThatFits) {
    for (const char* name : {"Form6", "Form7", "Form8"}) EXPECT_TRUE(views.has(name)) << name;
    QWidget& v6 = open<windows::Form6>();
    EXPECT_STREQ(v6.metaObject()->className(), "tv::gui::PushoverView");
    EXPECT_EQ(v6.windowTitle(), "Calculate T-Effective");
    QWidget& v7 = open<windows::Form7>();
    EXPECT_STREQ(v7.metaObject()->className(), "tv::gui::NoteView");
    QWidget& v8 = open<windows::Form8>();
    EXPECT_STREQ(v8.metaObject()->className(), "tv::gui::TargetDisplacementView");
    for (QWidget* v : {&v6, &v7, &v8}) test::expect_fits_work_area(*v);
}

TEST_F(CoefficientViewsTest, TEffectiveWindowAtLoad) {
    windows::Form6& f6 = program.form<windows::Form6>();
    QWidget& w = open<windows::Form6>();
    expect_all_bound(w, f6);
    // The diagram and its strips stand inside the printed area, at the model's size.
    auto& area = child<PictureView>(w, "Picture1");
    for (const char* part : {"picDiagram", "xBar", "yBar"}) {
        auto& p = child<PictureView>(w, part);
        EXPECT_EQ(p.parentWidget(), &area) << part;
        EXPECT_TRUE(inside(p, area)) << part;
    }
    EXPECT_EQ(area.width(), twips_to_px(f6.Picture1.width(), &area));
    EXPECT_EQ(area.height(), twips_to_px(f6.Picture1.height(), &area));
    // Hidden at load: the sample sheet, the progress bar and the staging picture.
    EXPECT_TRUE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_TRUE(child<QProgressBar>(w, "ProgressBar1").isHidden());
    EXPECT_TRUE(child<PictureView>(w, "pic1").isHidden());
    EXPECT_FALSE(child<QPushButton>(w, "Command5").isEnabled());
    EXPECT_FALSE(child<QPushButton>(w, "Command8").isEnabled());
    EXPECT_EQ(child<QLineEdit>(w, "txtZarib").text(), "0.6");

    // "Excel table" toggles the sample sheet, and Text4 with it.
    click(w, "Command7");
    EXPECT_FALSE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_FALSE(child<QLineEdit>(w, "Text4").isEnabled());
    EXPECT_TRUE(inside(child<PictureView>(w, "Picture2"), child<QGroupBox>(w, "Frame2")));
    test::save_shot(w, "Form6_sample_sheet");
    click(w, "Command7");
    EXPECT_TRUE(child<QGroupBox>(w, "Frame2").isHidden());
    EXPECT_TRUE(child<QLineEdit>(w, "Text4").isEnabled());
    test::save_shot(w, "Form6_empty");
}

TEST_F(CoefficientViewsTest, TargetDisplacementAfterCalculate) {
    fitted_form6();
    windows::Form8& f8 = program.form<windows::Form8>();
    QWidget& v6 = *opened.front();
    click(v6, "Command5");  // the results go over to Form8
    QWidget& w = open<windows::Form8>();
    expect_all_bound(w, f8);
    EXPECT_EQ(child<QLineEdit>(w, "Text16").text().toStdString(), f8.Text16.text());
    EXPECT_TRUE(child<QCheckBox>(w, "Check9").isChecked());
    // The choices of the coefficient tables stand in their pictures, each wholly seen.
    const std::pair<const char*, std::vector<const char*>> tables[] = {
        {"Picture2", {"Check1", "Check2", "Check3"}},
        {"Picture4", {"Check11", "Check12", "Check13", "Check14"}},
        {"Picture3", {"Check4", "Check5", "Check6"}},
    };
    for (const auto& [picture, boxes] : tables) {
        auto& p = child<PictureView>(w, picture);
        for (const char* box : boxes) {
            auto& b = child<QCheckBox>(w, box);
            EXPECT_TRUE(p.isAncestorOf(&b)) << box;
            EXPECT_TRUE(inside(b, p)) << box << " is cut off in " << picture;
        }
    }

    // Typing reaches the model, whose answers come back into the widgets.
    type_into(w, "Text1", "3");
    EXPECT_EQ(child<QLineEdit>(w, "Text12").text().toStdString(), f8.Text12.text());
    EXPECT_FALSE(f8.Text12.text().empty());
    type_into(w, "Text10", "10000");
    type_into(w, "Text2", "0.5");
    click(w, "Command1");
    EXPECT_TRUE(platform.messages.empty());
    for (forms::TextBox* box : {&f8.Text9, &f8.Text14, &f8.Text13}) {
        EXPECT_FALSE(box->text().empty()) << box->name();
        EXPECT_EQ(child<QLineEdit>(w, box->name().c_str()).text().toStdString(), box->text());
    }
    EXPECT_TRUE(child<PictureView>(w, "pic1").isHidden());
    EXPECT_EQ(child<QGroupBox>(w, "Frame1").title(), "Output");
    EXPECT_EQ(child<QGroupBox>(w, "fraSoil").title(), "Soil");
    test::save_shot(w, "Form8_calculated");

    // A click on the box that stands on leaves it on; another box of the group takes over.
    QTest::mouseClick(&child<QCheckBox>(w, "Check9"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(child<QCheckBox>(w, "Check9").isChecked());
    QTest::mouseClick(&child<QCheckBox>(w, "Check7"), Qt::LeftButton);
    test::settle();
    EXPECT_TRUE(child<QCheckBox>(w, "Check7").isChecked());
    EXPECT_FALSE(child<QCheckBox>(w, "Check9").isChecked());
}

TEST_F(CoefficientViewsTest, TheMethodsSideBySideOpenFromTheFittedCurve) {
    fitted_form6();
    QWidget& v6 = *opened.front();
    click(v6, "cmdNsp");
    windows::NspWindow& model = program.form<windows::NspWindow>();
    EXPECT_TRUE(model.visible());
    QWidget& w = open<windows::NspWindow>();
    EXPECT_STREQ(w.metaObject()->className(), "tv::gui::NspView");
    expect_all_bound(w, model);
    test::expect_fits_work_area(w);
    EXPECT_EQ(child<QLineEdit>(w, "txtTe").text().toStdString(), model.txtTe.text());
    // Form8 is not open: the weight is typed here, and the table fills.
    type_into(w, "txtW", "10000");
    click(w, "cmdCalculate");
    // A value's cell shows its number and, under the pointer, its clause.
    const QAbstractItemModel& table = *child<QTableView>(w, "grdMethods").model();
    const forms::Grid& g = model.grdMethods;
    int row = 1;
    while (row < g.rows() && g.cell_tool_tip(row, 2).empty()) ++row;
    ASSERT_LT(row, g.rows());
    const QModelIndex cell = table.index(row - 1, 2);
    EXPECT_EQ(table.data(cell).toString().toStdString(), g.text(row, 2));
    EXPECT_EQ(table.data(cell, Qt::ToolTipRole).toString().toStdString(), g.cell_tool_tip(row, 2));
    test::save_shot(w, "frmNsp");
}

TEST_F(CoefficientViewsTest, TheNote) {
    windows::Form7& f7 = program.form<windows::Form7>();
    QWidget& w = open<windows::Form7>();
    expect_all_bound(w, f7);
    auto& picture = child<PictureView>(w, "Picture1");
    EXPECT_EQ(picture.width(), twips_to_px(f7.Picture1.width(), &picture));
    EXPECT_EQ(bind::plain_caption(child<QPushButton>(w, "Command1").text()), "OK !");
    EXPECT_TRUE(child<QPushButton>(w, "Command1").isDefault());
    test::save_shot(w, "Form7");
}

// On the real platform, from the main frame's menu.
class CoefficientRun : public test::RealPlatformTest {
protected:
    ~CoefficientRun() override {
        if (!listing.empty()) std::filesystem::remove(listing);
    }

    /// The listing typed into Form6's view, read by Start and its yield point found.
    void fit_listing(const windows::Form6& f6) {
        QLineEdit* path = in<QLineEdit>(f6, "Text1");
        ASSERT_NE(path, nullptr);
        path->setFocus();
        QTest::keyClicks(path, QString::fromStdString(listing));
        QTest::mouseClick(in<QPushButton>(f6, "Command2"), Qt::LeftButton);
        test::settle();
        QTest::mouseClick(in<QPushButton>(f6, "Command3"), Qt::LeftButton);
        test::settle();
    }

    std::string listing;
};

// A page as the printer gets it, painted into an A4 image at 96 dpi by the printer's routine.
constexpr double kPx = 96.0 / 72.0;
QImage page_image(const forms::Page& page) {
    QImage image(794, 1123, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::white);
    QPainter p(&image);
    paint_page(p, page, kPx);
    p.end();
    return image;
}

/// The share of pixels of a region that are not white.
double inked(const QImage& image, const QRect& region) {
    long n = 0, total = 0;
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x, ++total)
            if (image.pixel(x, y) != qRgb(255, 255, 255)) ++n;
    return total ? double(n) / double(total) : 0;
}

std::string file_head(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::string head(5, '\0');
    in.read(head.data(), 5);
    return head;
}

TEST_F(CoefficientRun, SavePdfWritesThePrintedPagesWithoutAPrinter) {
    const std::filesystem::path out =
        std::filesystem::temp_directory_path() / ("tv_coefficient_pdf_" + std::to_string(::getpid()));
    std::filesystem::create_directories(out);
    program.run([this] { windows::start(program); });
    platform.frame()->resize(1400, 960);
    platform.frame()->findChild<QAction*>("PUSHOVER")->trigger();
    test::settle();
    windows::Form6& f6 = program.form<windows::Form6>();
    listing = (out / "curve.txt").string();
    std::ofstream(listing, std::ios::binary) << kSofteningListing;
    ASSERT_NO_FATAL_FAILURE(fit_listing(f6));
    ASSERT_EQ(in<QLabel>(f6, "txtTEF")->text(), "1.022");

    // Form6: the name gets ".pdf"; the file is whole and nothing else is left beside it.
    QPushButton* save6 = in<QPushButton>(f6, "cmdSavePdf");
    ASSERT_NE(save6, nullptr);
    EXPECT_EQ(bind::plain_caption(save6->text()), "Save PDF...");
    platform.files.push_back((out / "pushover_page").string());
    QTest::mouseClick(save6, Qt::LeftButton);
    test::settle();
    EXPECT_EQ(file_head(out / "pushover_page.pdf"), "%PDF-");
    EXPECT_GT(std::filesystem::file_size(out / "pushover_page.pdf"), 1000u);
    // A cancelled dialog writes nothing.
    QTest::mouseClick(save6, Qt::LeftButton);
    test::settle();

    // The page itself, as a picture to look at: the diagram at the margin, then the final results.
    const QImage page6 = page_image(f6.report_page());
    EXPECT_TRUE(test::save_image(page6, "Form6_printed_page"));
    const int margin = int(42 * kPx);
    const int diagram = int(f6.pic1.height() / 20 * std::min(1.0, 511.28 / (f6.pic1.width() / 20)) * kPx);
    EXPECT_GT(inked(page6, QRect(margin, margin, 794 - 2 * margin, diagram)), 0.002);
    EXPECT_GT(inked(page6, QRect(margin, margin + diagram + 10, 400, 110)), 0.002);  // the six result lines
    const int end = margin + diagram + int(7 * 14 * kPx);
    EXPECT_EQ(inked(page6, QRect(0, end, 794, 1123 - end)), 0.0);  // nothing below

    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(out)) {
        (void)e;
        ++files;
    }
    EXPECT_EQ(files, 2);  // the listing and the page
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.runtime_errors.empty());
    std::filesystem::remove_all(out);
    listing.clear();
}

}  // namespace
}  // namespace tv::gui

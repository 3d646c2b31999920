#include "gui/platform/qt_platform.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QInputDialog>
#include <QTimer>
#include <QVBoxLayout>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/binder.h"
#include "gui/platform/view_registry.h"
#include "gui_fixture.h"
#include "windows/printing/page_composer.h"
#include "windows/printing/report_composer.h"
#include "compute/files/file_writer.h"

namespace tv::gui {
namespace {

using forms::MsgButtons;
using forms::MsgIcon;
using forms::MsgResult;

class PageForm : public forms::Form {
public:
    explicit PageForm(forms::App& app) : forms::Form(app, "PageForm", "Page", 4000, 2000) {
        pic1.scale(0, 1, 10, -1);
        for (int i = 0; i < 10; ++i) pic1.line(i, (i % 2) ? 0.8 : -0.8, i + 1, (i % 2) ? -0.8 : 0.8, 0x0000FF);
        pic1.line(0, 0, 10, 0);
    }
    forms::PictureBox& pic1 = picture("pic1", 6000, 3000);
    forms::Label& Label1 = label("Label1", "Final Results");
    int unloads = 0;
    int cancel_next = 0;
    void Form_Unload(int& cancel) override {
        ++unloads;
        cancel = cancel_next;
    }
};

// A window with a view of its own, shown without a frame.
class PageView : public QWidget {
public:
    PageView(PageForm& model, forms::App& app) {
        auto* l = new QVBoxLayout(this);
        auto* label = new QLabel(this);
        label->setObjectName("Label1");
        l->addWidget(label);
        bind::all(*this, model, app);
    }
};

// The platform, with a view for PageForm.
class QtPlatformTest : public ::testing::Test {
protected:
    QtPlatformTest() : platform(views), app(platform) { views.add<PageForm, PageView>("PageForm"); }
    ~QtPlatformTest() override { platform.release_views(); }
    ViewRegistry views;
    QtPlatform platform;
    forms::App app;
};

TEST(QtPlatformBoxes, MessageBoxesKeepTitleButtonsAndIconAndAnswerTheOldResults) {
    auto box = QtPlatform::make_message_box("enter File y", MsgButtons::Ok, "Error", MsgIcon::Critical);
    EXPECT_EQ(box->windowTitle(), "Error");
    EXPECT_EQ(box->text(), "enter File y");
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_EQ(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));

    auto question = QtPlatform::make_message_box("Save?", MsgButtons::YesNoCancel, "", MsgIcon::Question);
    // No title given: none shown, not the program's name.
    EXPECT_EQ(question->windowTitle(), "");
    EXPECT_EQ(question->icon(), QMessageBox::Question);
    EXPECT_EQ(question->standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);

    auto warn = QtPlatform::make_message_box("x", MsgButtons::AbortRetryIgnore, "t", MsgIcon::Exclamation);
    EXPECT_EQ(warn->icon(), QMessageBox::Warning);
    EXPECT_EQ(warn->standardButtons(), QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore);

    auto error = QtPlatform::make_runtime_error_box(11, "Division by zero");
    EXPECT_EQ(error->windowTitle(), "Run-time error");
    EXPECT_EQ(error->text(), "Division by zero");
    EXPECT_EQ(error->icon(), QMessageBox::Critical);
    // The answers map to the old results.
    EXPECT_EQ(QtPlatform::result_of(QMessageBox::Yes), MsgResult::Yes);
    EXPECT_EQ(QtPlatform::result_of(QMessageBox::No), MsgResult::No);
    EXPECT_EQ(QtPlatform::result_of(QMessageBox::Retry), MsgResult::Retry);
    EXPECT_EQ(QtPlatform::result_of(QMessageBox::Ok), MsgResult::Ok);
}

TEST_F(QtPlatformTest, MessageBoxRunsAndReturnsTheButtonPressed) {
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(platform.message_box("Overwrite?", MsgButtons::YesNo, "Save", MsgIcon::Question), MsgResult::No);
}

TEST_F(QtPlatformTest, PickListOffersTheItemsWithThePresetChosen) {
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->comboBoxItems(), (QStringList{"L1 (177°)", "V2", "T3 (267°)"}));
        EXPECT_EQ(dialog->textValue(), "T3 (267°)");
        dialog->setTextValue("V2");
        dialog->accept();
    });
    EXPECT_EQ(platform.choose_item("Component for X:", "Components", {"L1 (177°)", "V2", "T3 (267°)"}, 2), 1);
}

TEST_F(QtPlatformTest, BusyPointerIsAStateNotAStack) {
    platform.set_busy(true);
    platform.set_busy(true);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    platform.set_busy(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(QtPlatformTest, Clipboard) {
    platform.set_clipboard_text("T\tSa\r\n0.1\t2.5");
    if (QGuiApplication::clipboard()->text().isEmpty()) GTEST_SKIP() << "no clipboard on this platform";
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "T\tSa\r\n0.1\t2.5");
}

// The window pages and the desktop's report (polylines and Persian text) through Qt give one
// sound PDF, a page for each, with every font embedded.
TEST_F(QtPlatformTest, PagesBecomeOneSoundPdfWithEmbeddedFonts) {
    windows::ReportComposer c(windows::Paper::letter, {"Ground Motion Report", "a.txt", "2026-11-26", "1.0"},
                              [&](const std::string& t, const forms::PageFont& f) { return platform.page_text_width(t, f); });
    c.value("Combination of the components", "\u0646\u0634\u0631\u064a\u0647 360");
    c.plot({"Spectra", "Period (s)", "Sa (g)", {{"Average", 0x1F5FBF, {0, 1, 2}, {0.5, 1.2, 0.4}, false}}});
    std::vector<forms::Page> pages = c.finish();
    windows::PageContent content;
    content.title = "Pushover";
    content.picture = &app.form<PageForm>().pic1;
    content.heading = "Final Results";
    content.lines = {"Pushover Area :  12.5", "K-Effective : 3.1"};
    const forms::Page page = windows::compose_page(content, platform);
    pages.insert(pages.end(), {page, page});
    std::string pdf, reason;
    ASSERT_TRUE(platform.render_pdf(pages, pdf, reason)) << reason;
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    std::size_t count = 0;
    for (std::size_t at = pdf.find("/Type /Page"); at != std::string::npos; at = pdf.find("/Type /Page", at + 1))
        count += pdf.compare(at, 12, "/Type /Pages") != 0;
    EXPECT_EQ(count, pages.size());
    const std::string path = QDir::temp().filePath("tv_qt_report.pdf").toStdString();
    ASSERT_TRUE(compute::write_file(path, pdf).ok());
    EXPECT_EQ(std::system(("qpdf --check '" + path + "' >/dev/null").c_str()), 0);
    // Column "emb" of every font is "yes".
    EXPECT_EQ(std::system(("pdffonts '" + path + "' | tail -n +3 | awk '$(NF-4) != \"yes\" {exit 1}'").c_str()), 0);
    std::remove(path.c_str());
}

TEST_F(QtPlatformTest, CaptionAndVisibilityFollowTheModel) {
    PageForm& form = app.form<PageForm>();
    form.show();
    QWidget* window = platform.window_of(form);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), "Page");
    form.set_caption("Page 2");
    EXPECT_EQ(window->windowTitle(), "Page 2");
    form.hide();
    EXPECT_FALSE(window->isVisible());
    form.show();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(platform.window_of(form), window);  // the same view again
}

TEST_F(QtPlatformTest, ClosingIsAnUnloadTheWindowMayRefuse) {
    PageForm& form = app.form<PageForm>();
    form.show();
    QPointer<QWidget> window = platform.window_of(form);
    form.cancel_next = 1;
    window->close();
    EXPECT_EQ(form.unloads, 1);
    EXPECT_TRUE(app.is_loaded<PageForm>());
    EXPECT_TRUE(window->isVisible());
    form.cancel_next = 0;
    window->close();
    EXPECT_FALSE(app.is_loaded<PageForm>());
    test::settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

TEST_F(QtPlatformTest, ModalShowWaitsUntilTheWindowGoes) {
    PageForm& form = app.form<PageForm>();
    bool waited = false;
    QTimer::singleShot(20, [&] {
        waited = true;
        app.run([&] { app.unload(form); });
    });
    form.show(true);
    EXPECT_TRUE(waited);
    EXPECT_FALSE(app.is_loaded<PageForm>());
}

TEST_F(QtPlatformTest, WindowWithoutAViewIsIgnored) {
    class Bare : public forms::Form {
    public:
        explicit Bare(forms::App& a) : forms::Form(a, "Bare", "Bare") {}
    };
    Bare& bare = app.form<Bare>();
    bare.show(true);  // nothing to wait for
    EXPECT_EQ(platform.view_of(bare), nullptr);
}

}  // namespace
}  // namespace tv::gui

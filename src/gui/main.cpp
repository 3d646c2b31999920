// Sub Main of the desktop program: the platform, the program, the project state reset and the
// main frame shown; then the windows' events until Exit.
#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>
#include <QTimer>
#include <memory>

#include "gui/platform/qt_platform.h"
#include "gui/platform/view_registry.h"
#include "gui/project/app_icon.h"
#include "forms/journal_platform.h"
#include "gui/project/command_line_files.h"
#include "gui/project/project_keeper.h"
#include "gui/views.h"
#include "windows/program.h"
#include "windows/project/about_window.h"
#include "windows/project/main_frame_window.h"

int main(int argc, char** argv) {
    // Fractional scale factors as the screen asks, so that text and charts stay sharp.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tremorvault"));
    QApplication::setApplicationVersion(QString::fromStdString(tv::windows::version_text()));
    // Ties the windows to the installed desktop entry (its icon in the task bar).
    QGuiApplication::setDesktopFileName(QStringLiteral(TV_APP_ID));
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(fusion);
    QApplication::setWindowIcon(tv::gui::app_icon());

    QCommandLineParser command_line;
    command_line.setApplicationDescription(QStringLiteral(
        "Tremorvault, seismic assessment of buildings: earthquake records and their spectra, the\n"
        "coefficient method and the capacity spectrum method."));
    command_line.addHelpOption();
    command_line.addVersionOption();
    command_line.addPositionalArgument(
        QStringLiteral("files"),
        QStringLiteral("Record files opened by Project > Open/Add Record in turn: the X file of a record, then its Y file."),
        QStringLiteral("[FILE...]"));
    command_line.process(qapp);
    const QStringList files = command_line.positionalArguments();

    tv::gui::ViewRegistry views;
    tv::gui::register_views(views);
    tv::gui::QtPlatform platform(views);
    int status = 0;
    {
        // The user's steps and the dialogs' answers are kept, for the project files.
        tv::forms::Journal journal;
        tv::forms::JournalPlatform journaled(platform, journal);
        tv::windows::Program program(journaled);
        program.set_journal(&journal);
        std::unique_ptr<tv::gui::ProjectKeeper> keeper;
        program.run([&program] { tv::windows::start(program); });
        // Without its frame the program has nothing to show: the error was reported already.
        if (platform.frame() == nullptr) {
            status = 1;
        } else if (!program.ended()) {
            keeper = std::make_unique<tv::gui::ProjectKeeper>(platform, journaled, program);
            // Once the frame stands on the screen, so that the prompts stand over it.
            QTimer::singleShot(0, &platform, [&platform, &files, k = keeper.get()] {
                k->offer_recovery();
                if (!files.isEmpty()) tv::gui::open_command_line_files(platform, files);
            });
            status = QApplication::exec();
            keeper->clean_exit();
        }
        platform.release_views();
    }
    return status;
}

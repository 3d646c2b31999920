// Sub Main of the desktop program: the platform, the program, the project state reset and the
// main frame shown; then the windows' events until Exit.
#include <QApplication>
#include <QStyleFactory>

#include "gui/platform/qt_platform.h"
#include "gui/platform/view_registry.h"
#include "gui/project/app_icon.h"
#include "gui/views.h"
#include "windows/program.h"
#include "windows/project/main_frame_window.h"

int main(int argc, char** argv) {
    // Fractional scale factors as the screen asks, so that text and charts stay sharp.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication qapp(argc, argv);
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(fusion);
    QApplication::setWindowIcon(tv::gui::app_icon());

    tv::gui::ViewRegistry views;
    tv::gui::register_views(views);
    tv::gui::QtPlatform platform(views);
    int status = 0;
    {
        tv::windows::Program program(platform);
        program.run([&program] { tv::windows::start(program); });
        // Without its frame the program has nothing to show: the error was reported already.
        if (platform.frame() == nullptr)
            status = 1;
        else if (!program.ended())
            status = QApplication::exec();
        platform.release_views();
    }
    return status;
}

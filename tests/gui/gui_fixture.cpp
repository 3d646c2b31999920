#include "gui_fixture.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QPixmap>
#include <QStyleFactory>

namespace tv::test {

std::string shots_dir() {
    const QString dir = QStringLiteral(TV_BINARY_DIR "/gui-screenshots");
    QDir().mkpath(dir);
    return dir.toStdString();
}

std::string save_shot(QWidget& widget, const std::string& name) {
    settle();
    const std::string path = shots_dir() + "/" + name + ".png";
    widget.grab().save(QString::fromStdString(path));
    return path;
}

void settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

}  // namespace tv::test

int main(int argc, char** argv) {
    // Tests never open windows on a desktop unless asked to.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(fusion);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

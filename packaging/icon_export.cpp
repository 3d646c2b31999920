// Writes the program's icon as a desktop installs it: a scalable SVG and PNGs at the usual
// sizes, each drawn by the routine that draws the icon in the program's windows.
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <cstdio>

#include "gui/project/app_icon.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: tremorvault-icons OUTPUT_DIR ICON_NAME\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    const QString name = QString::fromLocal8Bit(argv[2]);
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter p(&image);
            tv::gui::paint_app_icon(p, size);
        }
        const QString dir = QStringLiteral("%1x%1/apps").arg(size);
        const QString path = out.filePath(dir + QLatin1Char('/') + name + QStringLiteral(".png"));
        if (!out.mkpath(dir) || !image.save(path, "PNG")) {
            std::fprintf(stderr, "tremorvault-icons: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    const int size = 256;
    const QString path = out.filePath(QStringLiteral("scalable/apps/") + name + QStringLiteral(".svg"));
    out.mkpath(QStringLiteral("scalable/apps"));
    QSvgGenerator svg;
    svg.setFileName(path);
    svg.setSize(QSize(size, size));
    svg.setViewBox(QRect(0, 0, size, size));
    svg.setTitle(QStringLiteral("Tremorvault"));
    QPainter p;
    if (!p.begin(&svg)) {
        std::fprintf(stderr, "tremorvault-icons: cannot write %s\n", qPrintable(path));
        return 1;
    }
    tv::gui::paint_app_icon(p, size);
    return p.end() ? 0 : 1;
}

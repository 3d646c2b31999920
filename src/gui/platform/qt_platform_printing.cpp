// The system's printers and the pages printed or made into PDF files.
#include "gui/platform/qt_platform.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "gui/platform/page_painter.h"

namespace tv::gui {

std::vector<std::string> QtPlatform::printers() {
    std::vector<std::string> out;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) out.push_back(name.toStdString());
    return out;
}

std::string QtPlatform::current_printer() { return QPrinterInfo::defaultPrinterName().toStdString(); }

bool QtPlatform::print(const forms::Page& page, const std::string& printer_name) {
    QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(printer_name));
    if (info.isNull()) info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) return false;
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(page.title));
    // The page places everything itself, from the paper's corner.
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(QSizeF(page.width, page.height), QPageSize::Point));
    printer.setPageMargins(QMarginsF());
    QPainter p;
    if (!p.begin(&printer)) return false;
    paint_page(p, page, printer.resolution() / 72.0);
    return p.end();
}

bool QtPlatform::render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) {
    return gui::render_pdf(pages, bytes, reason);
}

double QtPlatform::page_text_width(const std::string& text, const forms::PageFont& font) {
    return gui::page_text_width(text, font);
}

}  // namespace tv::gui

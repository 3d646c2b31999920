#include "gui/platform/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>
#include <QShortcut>
#include <QTemporaryFile>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "compute/files/file_writer.h"
#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/binder.h"
#include "gui/platform/file_filter.h"
#include "gui/platform/page_painter.h"
#include "gui/platform/twips.h"
#include "gui/platform/view_registry.h"

namespace tv::gui {

struct QtPlatform::Shown {
    forms::Form* form = nullptr;
    forms::App* app = nullptr;
    QPointer<QWidget> view;
    QPointer<QWidget> window;  // the sub-window, the frame, or the view standing alone
    QPointer<QMdiSubWindow> sub;
    bool is_frame = false;
    bool modal = false;
    QEventLoop* loop = nullptr;
};

namespace {

QString qs(const std::string& s) { return QString::fromStdString(s); }

QFont metrics_font(const std::string& family, double size) {
    QFont f;
    f.setFamilies({qs(family), QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans"), QStringLiteral("Sans Serif")});
    f.setPointSizeF(size > 0 ? size : 8.25);
    return f;
}

void detach_binders(QWidget* view) {
    if (view == nullptr) return;
    for (auto* b : view->findChildren<bind::Binder*>()) b->detach();
}

}  // namespace

QtPlatform::QtPlatform(const ViewRegistry& views, QObject* parent) : QObject(parent), views_(views) {}

QtPlatform::~QtPlatform() {
    // The windows may be gone already: only the widgets are dropped here.
    for (auto& s : shown_)
        if (s->view)
            for (auto* b : s->view->findChildren<bind::Binder*>()) b->abandon();
    for (auto& s : shown_)
        if (!s->is_frame && s->window) delete s->window.data();
    if (frame_) delete frame_.data();
    if (busy_) QGuiApplication::restoreOverrideCursor();
}

// ---- dialogs ---------------------------------------------------------------------------------

std::unique_ptr<QMessageBox> QtPlatform::make_message_box(const std::string& text, forms::MsgButtons buttons,
                                                          const std::string& title, forms::MsgIcon icon,
                                                          QWidget* parent) {
    QMessageBox::Icon qicon = QMessageBox::NoIcon;
    switch (icon) {
        case forms::MsgIcon::None: qicon = QMessageBox::NoIcon; break;
        case forms::MsgIcon::Critical: qicon = QMessageBox::Critical; break;
        case forms::MsgIcon::Question: qicon = QMessageBox::Question; break;
        case forms::MsgIcon::Exclamation: qicon = QMessageBox::Warning; break;
        case forms::MsgIcon::Information: qicon = QMessageBox::Information; break;
    }
    QMessageBox::StandardButtons qbuttons;
    switch (buttons) {
        case forms::MsgButtons::Ok: qbuttons = QMessageBox::Ok; break;
        case forms::MsgButtons::OkCancel: qbuttons = QMessageBox::Ok | QMessageBox::Cancel; break;
        case forms::MsgButtons::AbortRetryIgnore:
            qbuttons = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
            break;
        case forms::MsgButtons::YesNoCancel: qbuttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
        case forms::MsgButtons::YesNo: qbuttons = QMessageBox::Yes | QMessageBox::No; break;
        case forms::MsgButtons::RetryCancel: qbuttons = QMessageBox::Retry | QMessageBox::Cancel; break;
    }
    // The title is the program's own: an empty one stays empty.
    auto box = std::make_unique<QMessageBox>(qicon, qs(title), qs(text), qbuttons, parent);
    box->setTextFormat(Qt::PlainText);
    // A Persian text reads from the right: the box lays out its text and button that way too.
    if (qs(text).isRightToLeft()) box->setLayoutDirection(Qt::RightToLeft);
    return box;
}

forms::MsgResult QtPlatform::result_of(int standard_button) {
    switch (standard_button) {
        case QMessageBox::Ok: return forms::MsgResult::Ok;
        case QMessageBox::Cancel: return forms::MsgResult::Cancel;
        case QMessageBox::Abort: return forms::MsgResult::Abort;
        case QMessageBox::Retry: return forms::MsgResult::Retry;
        case QMessageBox::Ignore: return forms::MsgResult::Ignore;
        case QMessageBox::Yes: return forms::MsgResult::Yes;
        case QMessageBox::No: return forms::MsgResult::No;
        default: return forms::MsgResult::Cancel;
    }
}

forms::MsgResult QtPlatform::message_box(const std::string& text, forms::MsgButtons buttons, const std::string& title,
                                         forms::MsgIcon icon) {
    auto box = make_message_box(text, buttons, title, icon, dialog_parent());
    box->exec();
    const auto clicked = box->standardButton(box->clickedButton());
    if (clicked != QMessageBox::NoButton) return result_of(clicked);
    return buttons == forms::MsgButtons::Ok ? forms::MsgResult::Ok : forms::MsgResult::Cancel;
}

std::optional<std::string> QtPlatform::input_box(const std::string& prompt, const std::string& title,
                                                 const std::string& default_text) {
    QInputDialog dialog(dialog_parent());
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(qs(title));
    dialog.setLabelText(qs(prompt));
    dialog.setTextValue(qs(default_text));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue().toStdString();
}

std::optional<std::string> QtPlatform::file_dialog(const forms::FileDialogRequest& request) {
    const QString filter = dialog_filter(request.filter, request.file_name);
    // The next dialog opens where the last one was left.
    QString start = last_dir_.isEmpty() ? QDir::currentPath() : last_dir_;
    const QString preset = preset_file_name(request.file_name);
    if (!preset.isEmpty()) start = QDir(start).filePath(preset);
    QString chosen;
    if (request.save) {
        const QString caption = request.title.empty() ? QStringLiteral("Save As") : qs(request.title);
        chosen = QFileDialog::getSaveFileName(dialog_parent(), caption, start, filter);
    } else {
        const QString caption = request.title.empty() ? QStringLiteral("Open") : qs(request.title);
        chosen = QFileDialog::getOpenFileName(dialog_parent(), caption, start, filter);
    }
    if (chosen.isEmpty()) return std::nullopt;
    last_dir_ = QFileInfo(chosen).absolutePath();
    return QDir::toNativeSeparators(chosen).toStdString();
}

std::unique_ptr<QMessageBox> QtPlatform::make_runtime_error_box(int number, const std::string& description,
                                                                QWidget* parent) {
    (void)number;
    auto box = std::make_unique<QMessageBox>(QMessageBox::Critical, QStringLiteral("Run-time error"), qs(description),
                                             QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    return box;
}

void QtPlatform::report_runtime_error(int number, const std::string& description) {
    auto box = make_runtime_error_box(number, description, dialog_parent());
    box->exec();
}

QWidget* QtPlatform::dialog_parent() const {
    if (QWidget* w = QApplication::activeModalWidget()) return w;
    if (QWidget* w = QApplication::activeWindow()) return w;
    return frame_.data();
}

// ---- clipboard, printers, pointer, events ----------------------------------------------------

void QtPlatform::set_clipboard_text(const std::string& text) { QGuiApplication::clipboard()->setText(qs(text)); }

std::vector<std::string> QtPlatform::printers() {
    std::vector<std::string> out;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) out.push_back(name.toStdString());
    return out;
}

std::string QtPlatform::current_printer() { return QPrinterInfo::defaultPrinterName().toStdString(); }

bool QtPlatform::print(const forms::PrintJob& job) {
    QPrinter printer(QPrinter::HighResolution);
    // A PDF is made in a private temporary file, then written whole by the one file writer.
    QTemporaryFile pdf_temp;
    if (!job.pdf_path.empty()) {
        if (!pdf_temp.open()) return false;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdf_temp.fileName());
    } else {
        QPrinterInfo info = QPrinterInfo::printerInfo(qs(job.printer));
        if (info.isNull()) info = QPrinterInfo::defaultPrinter();
        if (info.isNull()) return false;
        printer.setPrinterName(info.printerName());
    }
    printer.setDocName(qs(job.title));
    QPixmap image;
    if (job.form_image != nullptr) {
        if (QWidget* v = view_of(*job.form_image)) image = v->grab();
    }
    QPainter p;
    if (!p.begin(&printer)) return false;
    const QRectF area = printer.pageLayout().paintRectPixels(printer.resolution()).translated(
        -printer.pageLayout().paintRectPixels(printer.resolution()).topLeft());
    paint_page(p, area, job, image.isNull() ? nullptr : &image);
    const bool done = p.end();
    if (job.pdf_path.empty() || !done) return done;
    pdf_temp.seek(0);
    const QByteArray bytes = pdf_temp.readAll();
    return compute::write_file(job.pdf_path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))
        .ok();
}

void QtPlatform::set_busy(bool busy) {
    // The pointer is a state, not a stack: the hourglass twice is still one hourglass.
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtPlatform::do_events() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

void QtPlatform::end_program() {
    ended_ = true;
    for (auto& s : shown_)
        if (s->loop) s->loop->quit();
    QCoreApplication::quit();
}

double QtPlatform::text_width_twips(const std::string& text, const std::string& font, double size) {
    const QFontMetricsF fm(metrics_font(font, size));
    return px_to_twips(fm.horizontalAdvance(qs(text)), logical_dpi());
}

double QtPlatform::text_height_twips(const std::string& font, double size) {
    const QFontMetricsF fm(metrics_font(font, size));
    return px_to_twips(fm.height(), logical_dpi());
}

// ---- windows ---------------------------------------------------------------------------------

QMainWindow* QtPlatform::frame() const { return frame_.data(); }
QMdiArea* QtPlatform::mdi_area() const { return mdi_.data(); }

QtPlatform::Shown* QtPlatform::find(const forms::Form& form) const {
    for (const auto& s : shown_)
        if (s->form == &form) return s.get();
    return nullptr;
}

QtPlatform::Shown* QtPlatform::find_window(const QObject* window) const {
    if (window == nullptr) return nullptr;
    for (const auto& s : shown_)
        if (s->window == window) return s.get();
    return nullptr;
}

QWidget* QtPlatform::view_of(const forms::Form& form) const {
    const Shown* s = find(form);
    return s ? s->view.data() : nullptr;
}

QWidget* QtPlatform::window_of(const forms::Form& form) const {
    const Shown* s = find(form);
    return s ? s->window.data() : nullptr;
}

QtPlatform::Shown* QtPlatform::ensure_view(forms::Form& form, bool modal) {
    if (Shown* s = find(form); s != nullptr && s->window) return s;
    QWidget* view = views_.create(form, form.app());
    if (view == nullptr) return nullptr;
    if (Shown* old = find(form)) {  // its widgets went with the frame
        shown_.erase(std::find_if(shown_.begin(), shown_.end(), [old](const auto& p) { return p.get() == old; }));
    }
    auto owned = std::make_unique<Shown>();
    Shown& s = *owned;
    s.form = &form;
    s.app = &form.app();
    s.view = view;
    s.modal = modal;
    auto* main = qobject_cast<QMainWindow*>(view);
    auto* area = main ? qobject_cast<QMdiArea*>(main->centralWidget()) : nullptr;
    if (area != nullptr) {
        // The frame: a main window whose centre is the document area.
        s.is_frame = true;
        s.window = main;
        frame_ = main;
        mdi_ = area;
        connect(area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* sub) {
            if (sub == nullptr) return;
            QPointer<QMdiSubWindow> guarded(sub);
            // After the showing or closing that caused it has finished.
            QMetaObject::invokeMethod(
                this, [this, guarded] { if (guarded) sub_window_activated(guarded); }, Qt::QueuedConnection);
        });
        const QRect avail = main->screen() ? main->screen()->availableGeometry() : QRect(0, 0, 1280, 900);
        const QSize size = QSize(1320, 900).boundedTo(avail.size() * 0.94);
        main->resize(size);
        main->move(avail.center() - QPoint(size.width() / 2, size.height() / 2));
    } else if (modal || !mdi_) {
        // Alone on the screen: over the frame when there is one.
        view->setParent(frame_.data(), modal ? Qt::Dialog : Qt::Window);
        s.window = view;
        if (modal) {
            view->setWindowModality(Qt::ApplicationModal);
            auto* esc = new QShortcut(QKeySequence(Qt::Key_Escape), view);
            connect(esc, &QShortcut::activated, view, &QWidget::close);
        }
        view->adjustSize();
        const QRect over = frame_ ? frame_->frameGeometry()
                                  : (view->screen() ? view->screen()->availableGeometry() : QRect(0, 0, 1024, 768));
        view->move(over.center() - QPoint(view->width() / 2, view->height() / 2));
    } else {
        QMdiSubWindow* sub = mdi_->addSubWindow(view);
        sub->setAttribute(Qt::WA_DeleteOnClose, false);
        if (frame_) sub->setWindowIcon(frame_->windowIcon());
        s.sub = sub;
        s.window = sub;
        place_child(s);
    }
    s.window->setWindowTitle(qs(form.caption()));
    s.window->installEventFilter(this);
    QPointer<QtPlatform> self(this);
    forms::Form* fp = &form;
    form.changed = [self, fp] {
        if (!self) return;
        if (Shown* sh = self->find(*fp)) self->sync_form(*sh);
    };
    shown_.push_back(std::move(owned));
    return &s;
}

void QtPlatform::place_child(Shown& s) {
    QMdiSubWindow* sub = s.sub;
    if (sub == nullptr || !mdi_) return;
    sub->adjustSize();
    const QSize room = mdi_->viewport()->size();
    QSize size = sub->size();
    if (room.isValid() && !room.isEmpty()) size = size.boundedTo(room);
    sub->resize(size);
    // The window's place in twips from the frame's corner, kept inside the area.
    const int x = twips_to_px(s.form->left, sub), y = twips_to_px(s.form->top, sub);
    sub->move(std::clamp(x, 0, std::max(0, room.width() - size.width())),
              std::clamp(y, 0, std::max(0, room.height() - size.height())));
}

void QtPlatform::sync_form(Shown& s) {
    if (!s.window) return;
    const QString title = qs(s.form->caption());
    if (s.window->windowTitle() != title) s.window->setWindowTitle(title);
    if (s.form->visible()) {
        if (s.window->isHidden()) s.window->show();
    } else {
        if (!s.window->isHidden()) s.window->hide();
        if (s.loop) s.loop->quit();
    }
}

void QtPlatform::show_form(forms::Form& form, bool modal) {
    Shown* s = ensure_view(form, modal);
    if (s == nullptr) return;
    sync_form(*s);
    QWidget* w = s->window;
    if (s->sub) {
        if (form.maximised)
            s->sub->showMaximized();
        else
            s->sub->show();
        if (mdi_) mdi_->setActiveSubWindow(s->sub);
        s->view->setFocus();
    } else {
        w->show();
        w->raise();
        w->activateWindow();
    }
    if (!modal || s->loop != nullptr) return;
    // Waits here until the window is hidden or unloaded; the rest of the program repaints.
    QEventLoop loop;
    s->loop = &loop;
    loop.exec(QEventLoop::DialogExec);
    for (auto& other : shown_)
        if (other->loop == &loop) other->loop = nullptr;
}

void QtPlatform::hide_form(forms::Form& form) {
    Shown* s = find(form);
    if (s == nullptr) return;
    if (s->window) s->window->hide();
    if (s->loop) s->loop->quit();
}

void QtPlatform::unload_form(forms::Form& form) {
    Shown* s = find(form);
    if (s == nullptr) return;
    form.changed = nullptr;
    detach_binders(s->view);
    if (s->loop) s->loop->quit();
    if (QWidget* w = s->window) {
        w->removeEventFilter(this);
        w->hide();
        // Its own button may have asked for the unload: the widgets go once that is done.
        w->deleteLater();
    }
    if (s->is_frame) {
        frame_ = nullptr;
        mdi_ = nullptr;
    }
    shown_.erase(std::find_if(shown_.begin(), shown_.end(), [s](const auto& p) { return p.get() == s; }));
}

void QtPlatform::release_views() {
    for (auto& s : shown_) {
        s->form->changed = nullptr;
        detach_binders(s->view);
        if (s->loop) s->loop->quit();
    }
    for (auto& s : shown_)
        if (!s->is_frame && s->window) delete s->window.data();
    if (frame_) delete frame_.data();
    shown_.clear();
}

void QtPlatform::sub_window_activated(QMdiSubWindow* sub) {
    if (!mdi_ || mdi_->activeSubWindow() != sub) return;
    Shown* s = find_window(sub);
    if (s == nullptr || !s->form->visible()) return;
    forms::App* app = s->app;
    forms::Form* form = s->form;
    if (app->active() == form) return;
    app->run([app, form] { app->activate(*form); });
}

bool QtPlatform::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close || ended_) return QObject::eventFilter(watched, event);
    Shown* s = find_window(watched);
    if (s == nullptr) return QObject::eventFilter(watched, event);
    // Closing is an unload, which the window may refuse.
    event->ignore();
    forms::App* app = s->app;
    forms::Form* form = s->form;
    app->run([app, form] {
        if (app->is_loaded(*form)) app->unload(*form);
    });
    return true;
}

}  // namespace tv::gui

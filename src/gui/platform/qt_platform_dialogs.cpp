// The message, input and file dialogs of the desktop program.
#include "gui/platform/qt_platform.h"

#include <utility>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>

#include "gui/platform/file_filter.h"

namespace tv::gui {

namespace {

QString qs(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

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

// Through message_box, so that whatever stands in for the box (a test's answers) stands in here too.
forms::MsgResult QtPlatform::message_box_detailed(const std::string& text, const std::string& detail,
                                                  forms::MsgButtons buttons, const std::string& title,
                                                  forms::MsgIcon icon) {
    message_detail_ = detail;
    const forms::MsgResult result = message_box(text, buttons, title, icon);
    message_detail_.clear();
    return result;
}

forms::MsgResult QtPlatform::message_box(const std::string& text, forms::MsgButtons buttons, const std::string& title,
                                         forms::MsgIcon icon) {
    auto box = make_message_box(text, buttons, title, icon, dialog_parent());
    if (!message_detail_.empty()) box->setInformativeText(qs(std::exchange(message_detail_, {})));
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

std::optional<int> QtPlatform::choose_item(const std::string& prompt, const std::string& title,
                                           const std::vector<std::string>& items, int preset) {
    QStringList names;
    for (const std::string& item : items) names << qs(item);
    QInputDialog dialog(dialog_parent());
    dialog.setObjectName(QStringLiteral("choose_item"));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setComboBoxItems(names);
    dialog.setComboBoxEditable(false);
    dialog.setWindowTitle(qs(title));
    dialog.setLabelText(qs(prompt));
    if (preset >= 0 && preset < names.size()) dialog.setTextValue(names[preset]);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const qsizetype chosen = names.indexOf(dialog.textValue());
    if (chosen < 0) return std::nullopt;
    return static_cast<int>(chosen);
}

std::optional<std::string> QtPlatform::file_dialog(const forms::FileDialogRequest& request) {
    if (!request.save && next_open_) {
        const QFileInfo given(qs(*next_open_));
        next_open_.reset();
        last_dir_ = given.absolutePath();
        return QDir::toNativeSeparators(given.absoluteFilePath()).toStdString();
    }
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

}  // namespace tv::gui

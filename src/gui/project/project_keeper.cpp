#include "gui/project/project_keeper.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>

#include "forms/journal_platform.h"
#include "gui/platform/qt_platform.h"
#include "windows/project/main_frame_window.h"
#include "windows/project/project_file.h"

namespace tv::gui {

namespace {

const QString kRecentKey = QStringLiteral("projects/recent");
const QString kFilter = QStringLiteral("Tremorvault project (*.tvproj)");

QString qs(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

ProjectKeeper::ProjectKeeper(QtPlatform& screen, forms::JournalPlatform& platform, windows::Program& program)
    : QObject(&screen), screen_(&screen), platform_(&platform), program_(&program),
      frame_(&program.form<windows::frmMain>()) {
    frame_->menu_save_project.Click = [this] { save(); };
    frame_->menu_save_project_as.Click = [this] { save_as(); };
    frame_->menu_open_project.Click = [this] { open(); };
    auto exit = frame_->menu_exit.Click;
    frame_->menu_exit.Click = [this, exit] {
        if (may_discard() && exit) exit();
    };
    if (QMainWindow* w = screen_->frame()) {
        w->installEventFilter(this);
        if (auto* recent = w->findChild<QMenu*>(QStringLiteral("menu_recent_projects")))
            connect(recent, &QMenu::aboutToShow, this, &ProjectKeeper::fill_recent);
    }
    platform_->journal().changed = [this] {
        if (QMainWindow* w = screen_->frame()) w->setWindowModified(platform_->journal().modified());
    };
    connect(&autosave_timer_, &QTimer::timeout, this, &ProjectKeeper::autosave);
    show_title();
}

ProjectKeeper::~ProjectKeeper() { platform_->journal().changed = nullptr; }

QString ProjectKeeper::recovery_path() const {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery.tvproj");
}

void ProjectKeeper::show_title() {
    // Before the first save the frame keeps its own caption; the mark shows all the same.
    const QString title = path_.isEmpty() ? QStringLiteral("Tremorvault[*]")
                                          : QFileInfo(path_).completeBaseName() + QStringLiteral("[*] - Tremorvault");
    frame_->projectName = path_.isEmpty() ? std::string() : QFileInfo(path_).completeBaseName().toStdString();
    frame_->set_caption(title.toStdString());
    if (QMainWindow* w = screen_->frame()) w->setWindowModified(platform_->journal().modified());
}

bool ProjectKeeper::write(const QString& path) {
    const compute::FileStatus done = windows::save_project(*program_, platform_->journal(), path.toStdString());
    if (!done.ok()) {
        QMessageBox::warning(screen_->frame(), tr("Save Project"),
                             tr("The project could not be saved.\n%1\n%2").arg(qs(done.description), qs(done.reason)));
        return false;
    }
    return true;
}

bool ProjectKeeper::save() {
    if (path_.isEmpty()) return save_as();
    if (!write(path_)) return false;
    platform_->journal().mark_saved();
    remember(path_);
    show_title();
    return true;
}

bool ProjectKeeper::save_as() {
    QString path = QFileDialog::getSaveFileName(screen_->frame(), tr("Save Project As"), path_, kFilter);
    if (path.isEmpty()) return false;
    if (!path.endsWith(QStringLiteral(".tvproj"), Qt::CaseInsensitive)) path += QStringLiteral(".tvproj");
    if (!write(path)) return false;
    path_ = path;
    platform_->journal().mark_saved();
    remember(path_);
    show_title();
    return true;
}

bool ProjectKeeper::may_discard() {
    if (!platform_->journal().modified()) return true;
    QMessageBox box(QMessageBox::Question, tr("Tremorvault"),
                    tr("The project has unsaved changes. Save them before closing?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, screen_->frame());
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save: return save();
        case QMessageBox::Discard: return true;
        default: return false;
    }
}

void ProjectKeeper::open() {
    const QString dir = path_.isEmpty() ? QString() : QFileInfo(path_).absolutePath();
    const QString path = QFileDialog::getOpenFileName(screen_->frame(), tr("Open Project"), dir, kFilter);
    if (!path.isEmpty()) open_path(path);
}

void ProjectKeeper::open_path(const QString& path) {
    // Read and checked whole before anything of the current work is touched.
    windows::ProjectRead read = windows::read_project(path.toStdString());
    if (!read.content) {
        QMessageBox::warning(screen_->frame(), tr("Open Project"), qs(read.error));
        return;
    }
    if (!may_discard()) return;
    remember(path);
    // The work is done again once the menu's own event is over, as from a fresh start.
    auto content = std::make_shared<windows::ProjectContent>(std::move(*read.content));
    QTimer::singleShot(0, this, [this, content, path] {
        auto locate = [this](const std::string& missing) -> std::optional<std::string> {
            const QString to = QFileDialog::getOpenFileName(
                screen_->frame(), tr("Where is %1 now?").arg(QFileInfo(qs(missing)).fileName()), QString(),
                tr("%1;;All files (*)").arg(QFileInfo(qs(missing)).fileName()));
            if (to.isEmpty()) return std::nullopt;
            return to.toStdString();
        };
        const windows::ProjectOpened opened =
            windows::open_project(*program_, *platform_, *content, path.toStdString(), locate);
        path_ = path;
        autosaved_steps_ = platform_->journal().steps().size();
        show_title();
        if (!opened.clean())
            QMessageBox::warning(screen_->frame(), tr("Open Project"),
                                 tr("%1 was opened, with these differences:\n\n%2").arg(QFileInfo(path).fileName(),
                                                                                         qs(opened.message())));
    });
}

QStringList ProjectKeeper::recent() { return QSettings().value(kRecentKey).toStringList(); }

void ProjectKeeper::remember(const QString& path) {
    QStringList list = recent();
    const QString full = QFileInfo(path).absoluteFilePath();
    list.removeAll(full);
    list.prepend(full);
    while (list.size() > kRecentCount) list.removeLast();
    QSettings().setValue(kRecentKey, list);
}

void ProjectKeeper::fill_recent() {
    auto* menu = qobject_cast<QMenu*>(sender());
    if (menu == nullptr) return;
    menu->clear();
    const QStringList list = recent();
    if (list.isEmpty()) menu->addAction(tr("(none)"))->setEnabled(false);
    for (int i = 0; i < list.size(); ++i) {
        const QString path = list[i];
        QAction* a = menu->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName()));
        a->setToolTip(path);
        connect(a, &QAction::triggered, this, [this, path] {
            if (!QFileInfo(path).isFile()) {
                QStringList kept = recent();
                kept.removeAll(path);
                QSettings().setValue(kRecentKey, kept);
                QMessageBox::information(screen_->frame(), tr("Recent Projects"),
                                         tr("%1 is no longer there; it is taken off the list.").arg(path));
                return;
            }
            open_path(path);
        });
    }
}

void ProjectKeeper::autosave() {
    const forms::Journal& journal = platform_->journal();
    // Not in the middle of a step: its results would not match the steps kept.
    if (program_->depth() > 0 || platform_->replaying()) return;
    if (!journal.modified() || journal.steps().size() == autosaved_steps_) return;
    QDir().mkpath(QFileInfo(recovery_path()).absolutePath());
    const compute::FileStatus done = windows::save_project(*program_, journal, recovery_path().toStdString());
    if (done.ok()) autosaved_steps_ = journal.steps().size();
}

void ProjectKeeper::offer_recovery() {
    QDir().mkpath(QFileInfo(recovery_path()).absolutePath());
    // One program at a time keeps the recovery file: a second one neither offers nor writes it.
    recovery_lock_ = std::make_unique<QLockFile>(recovery_path() + QStringLiteral(".lock"));
    recovery_lock_->setStaleLockTime(0);
    if (!recovery_lock_->tryLock(0)) {
        recovery_lock_.reset();
        return;
    }
    if (QFileInfo(recovery_path()).isFile()) {
        const auto answer = QMessageBox::question(
            screen_->frame(), tr("Tremorvault"),
            tr("Tremorvault did not close properly last time. Restore the work it kept?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        if (answer == QMessageBox::Yes) {
            windows::ProjectRead read = windows::read_project(recovery_path().toStdString());
            if (!read.content) {
                QMessageBox::warning(screen_->frame(), tr("Tremorvault"), qs(read.error));
            } else {
                const windows::ProjectOpened opened =
                    windows::open_project(*program_, *platform_, *read.content, recovery_path().toStdString(), nullptr);
                if (!opened.clean()) QMessageBox::warning(screen_->frame(), tr("Tremorvault"), qs(opened.message()));
                // Restored work is unsaved work until the user saves it somewhere.
                platform_->journal().mark_modified();
            }
        }
        QFile::remove(recovery_path());
    }
    autosave_timer_.start(kAutosaveMs);
}

void ProjectKeeper::clean_exit() {
    autosave_timer_.stop();
    if (recovery_lock_) QFile::remove(recovery_path());
}

bool ProjectKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && watched == screen_->frame() && !screen_->program_ended() && !may_discard()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tv::gui

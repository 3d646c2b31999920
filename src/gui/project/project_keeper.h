#pragma once
// Projects on the desktop: the Project menu's Save, Save As, Open and Recent entries, the title
// bar's name and unsaved mark, the question before unsaved work is closed, and the autosave
// to a recovery file that the next start offers to restore.
#include <QLockFile>
#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>

namespace tv::forms {
class JournalPlatform;
}
namespace tv::windows {
class Program;
class frmMain;
}  // namespace tv::windows

namespace tv::gui {

class QtPlatform;

class ProjectKeeper : public QObject {
    Q_OBJECT
public:
    /// Takes the main frame's project entries; call once the frame stands.
    ProjectKeeper(QtPlatform& screen, forms::JournalPlatform& platform, windows::Program& program);
    ~ProjectKeeper() override;

    /// Offers the recovery file a crash left behind, then starts the autosave.
    void offer_recovery();
    /// The program closes on its own terms: the recovery file goes.
    void clean_exit();

    bool save();
    bool save_as();
    void open();
    void open_path(const QString& path);
    /// Unsaved work may go: false when the user keeps it (Cancel, or a save that failed).
    bool may_discard();

    static QStringList recent();
    static constexpr int kRecentCount = 8;
    static constexpr int kAutosaveMs = 3 * 60 * 1000;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool write(const QString& path);
    void autosave();
    void show_title();
    void remember(const QString& path);
    void fill_recent();
    QString recovery_path() const;

    QtPlatform* screen_;
    forms::JournalPlatform* platform_;
    windows::Program* program_;
    windows::frmMain* frame_;
    QString path_;
    QTimer autosave_timer_;
    std::size_t autosaved_steps_ = 0;
    std::unique_ptr<QLockFile> recovery_lock_;
};

}  // namespace tv::gui

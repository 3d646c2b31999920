#pragma once
// The platform of the desktop program: Qt dialogs, clipboard, printers, the busy pointer, and
// the windows' views in the main frame's multiple-document area. Its dialogs, printing and
// window hosting each have a file of their own.
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/platform.h"

class QEvent;
class QMainWindow;
class QMdiArea;
class QMdiSubWindow;
class QMessageBox;
class QWidget;

namespace tv::forms {
class App;
}

namespace tv::gui {

class ViewRegistry;

class QtPlatform : public QObject, public forms::Platform {
    Q_OBJECT
public:
    explicit QtPlatform(const ViewRegistry& views, QObject* parent = nullptr);
    ~QtPlatform() override;

    forms::MsgResult message_box(const std::string& text, forms::MsgButtons buttons, const std::string& title,
                                 forms::MsgIcon icon) override;
    forms::MsgResult message_box_detailed(const std::string& text, const std::string& detail,
                                          forms::MsgButtons buttons, const std::string& title,
                                          forms::MsgIcon icon) override;
    std::optional<std::string> input_box(const std::string& prompt, const std::string& title,
                                         const std::string& default_text) override;
    std::optional<std::string> file_dialog(const forms::FileDialogRequest& request) override;
    std::optional<int> choose_item(const std::string& prompt, const std::string& title,
                                   const std::vector<std::string>& items, int preset) override;
    void set_clipboard_text(const std::string& text) override;
    std::vector<std::string> printers() override;
    std::string current_printer() override;
    bool print(const forms::Page& page, const std::string& printer) override;
    bool render_pdf(const std::vector<forms::Page>& pages, std::string& bytes, std::string& reason) override;
    double page_text_width(const std::string& text, const forms::PageFont& font) override;
    void set_busy(bool busy) override;
    void do_events() override;
    void show_form(forms::Form& form, bool modal) override;
    void hide_form(forms::Form& form) override;
    void unload_form(forms::Form& form) override;
    void end_program() override;
    void report_runtime_error(int number, const std::string& description) override;
    double text_width_twips(const std::string& text, const std::string& font, double size) override;
    double text_height_twips(const std::string& font, double size) override;

    /// The main frame and its document area, once the frame's window is shown.
    QMainWindow* frame() const;
    QMdiArea* mdi_area() const;
    /// The view of a window shown (or hidden) now; null when it has none.
    QWidget* view_of(const forms::Form& form) const;
    /// What holds the view on the screen: its sub-window, or the view itself when it stands alone.
    QWidget* window_of(const forms::Form& form) const;
    bool busy() const { return busy_; }
    bool program_ended() const { return ended_; }

    /// Views go before the windows they show: call before the App is destroyed.
    void release_views();

    /// The next open dialog is not shown: `path` is its answer, as for a file named on the
    /// command line. Cleared once used; nullopt clears it unused.
    void answer_next_open(std::optional<std::string> path) { next_open_ = std::move(path); }
    bool open_answer_pending() const { return next_open_.has_value(); }

    /// The box message_box shows, built but not run.
    static std::unique_ptr<QMessageBox> make_message_box(const std::string& text, forms::MsgButtons buttons,
                                                         const std::string& title, forms::MsgIcon icon,
                                                         QWidget* parent = nullptr);
    /// The answer of a QMessageBox::StandardButton.
    static forms::MsgResult result_of(int standard_button);
    /// The box report_runtime_error shows, built but not run.
    static std::unique_ptr<QMessageBox> make_runtime_error_box(int number, const std::string& description,
                                                               QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The window a dialog stands over: the active window, else the frame.
    QWidget* dialog_parent() const;

private:
    struct Shown;
    Shown* find(const forms::Form& form) const;
    Shown* find_window(const QObject* window) const;
    Shown* ensure_view(forms::Form& form, bool modal);
    void place_child(Shown& s);
    void sync_form(Shown& s);
    void sub_window_activated(QMdiSubWindow* sub);

    const ViewRegistry& views_;
    std::vector<std::unique_ptr<Shown>> shown_;
    QPointer<QMainWindow> frame_;
    QPointer<QMdiArea> mdi_;
    bool busy_ = false;
    bool ended_ = false;
    QString last_dir_;
    std::optional<std::string> next_open_;
    std::string message_detail_;
};

}  // namespace tv::gui

#include "gui/fourier/fourier_view.h"

#include <QApplication>

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/fourier/fourier_window.h"

namespace tv::gui {

namespace {

// Holds the keyboard while it is shown: Tab does not lead past it to the boxes underneath.
class Cover : public QWidget {
public:
    using QWidget::QWidget;

protected:
    bool focusNextPrevChild(bool) override { return true; }
};

}  // namespace

FourierView::FourierView(windows::Form12& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);
    // The peak's period is a result like the boxes beside it: white, not greyed.
    ui_.Label11->setBackgroundRole(QPalette::Base);
    ui_.Label11->setAutoFillBackground(true);
    cover_ = new Cover(this);
    cover_->setObjectName("busyCover");
    cover_->setFocusPolicy(Qt::StrongFocus);
    cover_->hide();
    // The model may outlive the view: the hook only acts while the view is there.
    QPointer<FourierView> self(this);
    model.looping_changed = [self](bool on) {
        if (self) self->cover(on);
    };
    bind::all(*this, model, app);
}

void FourierView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    cover_->setGeometry(rect());
}

void FourierView::cover(bool on) {
    if (on) {
        QWidget* f = QApplication::focusWidget();
        focus_before_ = f != nullptr && isAncestorOf(f) && f != cover_ ? f : nullptr;
        cover_->setGeometry(rect());
        cover_->raise();
        cover_->show();
        cover_->setFocus(Qt::OtherFocusReason);
    } else {
        cover_->hide();
        if (focus_before_) focus_before_->setFocus(Qt::OtherFocusReason);
        focus_before_ = nullptr;
    }
}

}  // namespace tv::gui

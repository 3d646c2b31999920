#include "gui/chart/chart_card.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSpacerItem>
#include <QWidget>

#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "windows/chart/chart.h"

namespace tv::gui {

void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, const windows::Chart& chart) {
    indent.changeSize(twips_to_px(chart.picNemodar1.left(), &card), 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
    scroll.setFixedWidth(twips_to_px(chart.picNemodar1.width(), &card));
    // One step is 100 twips of plot: a page is one viewport, and the thumb shows how much is seen.
    scroll.setPageStep(static_cast<int>(chart.picNemodar1.width() / 100));
    card.setBackgroundRole(QPalette::Base);
    card.setAutoFillBackground(true);
    mark_axes(card, "picNemodar", "PicxSxale", &chart.PicxSxale, "PicySxale", &chart.PicySxale);
}

void mark_axes(QWidget& card, const char* plot, const char* below,
               const forms::PictureBox* below_model, const char* left, const forms::PictureBox* left_model) {
    if (auto* v = card.findChild<PictureView*>(below); v != nullptr && below_model != nullptr)
        v->set_axis_strip(AxisStrip::Below);
    if (auto* v = card.findChild<PictureView*>(left); v != nullptr && left_model != nullptr)
        v->set_axis_strip(AxisStrip::Left);
    if (auto* v = card.findChild<PictureView*>(plot)) v->set_grid(PlotGrid{below_model, left_model});
}

namespace {

// Keeps the titles in their corners as the viewport grows.
class ChartTitles : public QObject {
public:
    ChartTitles(QWidget& viewport, QLabel* x, QLabel* y, QLabel* legend)
        : QObject(&viewport), viewport_(viewport), x_(x), y_(y), legend_(legend) {
        viewport.installEventFilter(this);
        place();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &viewport_ && (event->type() == QEvent::Resize || event->type() == QEvent::Show)) place();
        return QObject::eventFilter(watched, event);
    }

private:
    void place() {
        const int w = viewport_.width(), h = viewport_.height();
        for (QLabel* l : {x_, y_, legend_}) {
            if (l == nullptr) continue;
            l->adjustSize();
            l->raise();
        }
        if (y_ != nullptr) y_->move(2, 2);
        if (x_ != nullptr) x_->move(std::max(0, w - x_->width() - 2), std::max(0, h - x_->height() - 2));
        if (legend_ != nullptr) legend_->move(std::max(0, w - legend_->width() - 2), 2);
    }

    QWidget& viewport_;
    QLabel* x_;
    QLabel* y_;
    QLabel* legend_;
};

QLabel* overlay_label(QWidget& viewport, const QString& text, const char* name) {
    auto* l = new QLabel(text, &viewport);
    l->setObjectName(QString::fromLatin1(name));
    l->setAttribute(Qt::WA_TransparentForMouseEvents);
    l->setTextFormat(Qt::RichText);
    l->setStyleSheet(QStringLiteral("QLabel { background: rgba(255, 255, 255, 220); color: #303336;"
                                    " border: 1px solid #d0d4d9; padding: 1px 4px; }"));
    return l;
}

}  // namespace

void add_chart_titles(QWidget& card, const char* viewport, const QString& x_title, const QString& y_title,
                      const std::vector<LegendEntry>& legend) {
    auto* v = card.findChild<QWidget*>(viewport);
    if (v == nullptr) return;
    QLabel* x = x_title.isEmpty() ? nullptr : overlay_label(*v, x_title.toHtmlEscaped(), "xAxisTitle");
    QLabel* y = y_title.isEmpty() ? nullptr : overlay_label(*v, y_title.toHtmlEscaped(), "yAxisTitle");
    QLabel* key = nullptr;
    if (legend.size() > 1) {
        QStringList rows;
        for (const LegendEntry& e : legend) {
            const QColor c = readable_on_white(old_colour(e.colour));
            rows << QStringLiteral("<span style=\"color:%1\">&#9644;&#9644;</span>&nbsp;%2")
                        .arg(c.name(), e.text.toHtmlEscaped());
        }
        key = overlay_label(*v, rows.join(QStringLiteral("<br>")), "chartLegend");
    }
    new ChartTitles(*v, x, y, key);
}

}  // namespace tv::gui

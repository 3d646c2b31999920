#include "gui/chart/chart_card.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QBuffer>
#include <QClipboard>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSpacerItem>
#include <QSvgGenerator>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

#include "forms/app.h"
#include "gui/bind/binder.h"
#include "gui/bind/old_units.h"
#include "gui/bind/picture_view.h"
#include "windows/chart/chart.h"

namespace tv::gui {

namespace {

// Runs a user's action on the window's model while the window is there.
void run_on_model(QWidget& w, forms::App& app, const std::function<void()>& action) {
    bind::Binder* b = bind::binder_of(&w);
    if (b == nullptr || b->model() == nullptr) return;
    app.run(action);
}

// A chart takes the room of its container: the frame (the plot's viewport, or the plot) and the
// strips beside it are drawn wider and taller, texts at their size; the rest of the container
// (the strips' own width and height) stays as it is.
class ChartGrowth : public QObject {
public:
    ChartGrowth(PictureView& container, const GrowingChart& chart, QScrollBar* scroll)
        : QObject(&container), container_(container), chart_(chart), scroll_(scroll) {
        container.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &container_ && event->type() == QEvent::Resize) grow();
        return QObject::eventFilter(watched, event);
    }

private:
    PictureView* view(const char* name) const {
        if (name == nullptr) return nullptr;
        // A chart drawn whole on one picture is its own frame.
        if (container_.objectName() == QLatin1String(name)) return &container_;
        return container_.findChild<PictureView*>(QString::fromLatin1(name));
    }

    void grow() {
        const forms::PictureBox* whole = container_.picture();
        if (whole == nullptr) return;
        const forms::PictureBox& frame = chart_.frame;
        // In whole pixels, so that a chart at its own size is drawn at 1 exactly.
        const int fixed_w = twips_to_px(whole->width() - frame.width(), &container_);
        const int fixed_h = twips_to_px(whole->height() - frame.height(), &container_);
        const int frame_w = twips_to_px(frame.width(), &container_);
        const int frame_h = twips_to_px(frame.height(), &container_);
        if (frame_w <= 0 || frame_h <= 0) return;
        const double sx = std::max(1.0, static_cast<double>(container_.width() - fixed_w) / frame_w);
        const double sy = std::max(1.0, static_cast<double>(container_.height() - fixed_h) / frame_h);
        const QPointF at(frame.left(), frame.top());
        if (auto* v = view(chart_.frame_name)) v->set_stretch({sx, sy}, {sx, sy}, at);
        if (auto* v = view(chart_.plot_name)) v->set_stretch({sx, sy}, {sx, sy});
        if (auto* v = view(chart_.below_name)) v->set_stretch({sx, 1}, {1, sy}, at);
        if (auto* v = view(chart_.left_name)) v->set_stretch({1, sy}, {1, sy}, at);
        if (scroll_ != nullptr) scroll_->setFixedWidth(twips_to_px(frame.width() * sx, &container_));
    }

    PictureView& container_;
    GrowingChart chart_;
    QScrollBar* scroll_;
};

// Every box layout on the way down to the widget gives its item the stretch, and the widgets
// on the way may grow.
void stretch_towards(QLayout* layout, QWidget& w) {
    auto* box = qobject_cast<QBoxLayout*>(layout);
    for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        QWidget* on_way = item->widget() != nullptr && item->widget()->isAncestorOf(&w) ? item->widget() : nullptr;
        if (item->widget() != &w && on_way == nullptr && !layout_holds(item->layout(), &w)) continue;
        if (box != nullptr) box->setStretch(i, 1);
        if (on_way != nullptr) {
            on_way->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
            stretch_towards(on_way->layout(), w);
        } else {
            stretch_towards(item->layout(), w);
        }
        return;
    }
}

// The gestures over a plot: whole notches of the wheel, a drag with the left button and a
// double-click. The mouse goes on to the plot's own handlers as before.
class PlotGestures : public QObject {
public:
    explicit PlotGestures(QWidget& plot) : QObject(&plot), plot_(plot) { plot.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != &plot_) return QObject::eventFilter(watched, event);
        switch (event->type()) {
            case QEvent::Wheel: {
                auto* we = static_cast<QWheelEvent*>(event);
                wheel_ += we->angleDelta().y();
                const int steps = wheel_ / 120;
                wheel_ %= 120;
                if (steps != 0) zoom(steps, we->position());
                return true;
            }
            case QEvent::MouseButtonPress: {
                auto* me = static_cast<QMouseEvent*>(event);
                dragging_ = me->button() == Qt::LeftButton;
                if (dragging_) drag_from(me->position());
                break;
            }
            case QEvent::MouseMove: {
                auto* me = static_cast<QMouseEvent*>(event);
                if (dragging_ && (me->buttons() & Qt::LeftButton)) drag_to(me->position());
                break;
            }
            case QEvent::MouseButtonRelease:
                dragging_ = false;
                break;
            case QEvent::MouseButtonDblClick:
                reset();
                return true;
            case QEvent::Resize:
                resized();
                break;
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

protected:
    virtual void zoom(int steps, QPointF at) = 0;
    virtual void drag_from(QPointF at) = 0;
    virtual void drag_to(QPointF at) = 0;
    virtual void reset() = 0;
    virtual void resized() {}

private:
    QWidget& plot_;
    int wheel_ = 0;
    bool dragging_ = false;
};

// The wheel zooms the plot's X scale about the pointer, a drag pans, a double-click goes back to
// 1X: all through the chart's slider and scroll bar.
class ChartMouse : public PlotGestures {
public:
    ChartMouse(PictureView& plot, QWidget& viewport, windows::Chart& chart, forms::App& app)
        : PlotGestures(plot), plot_(plot), viewport_(viewport), chart_(chart), app_(app) {}

protected:
    void zoom(int steps, QPointF at) override {
        const double x = twips_at(at);
        run_on_model(plot_, app_, [this, steps, x] { chart_.zoom(steps, x); });
    }
    void drag_from(QPointF at) override { drag_from_ = twips_at(at); }
    void drag_to(QPointF at) override {
        // Whole scroll steps of 100 twips; the rest waits for the next move.
        const double dx = twips_at(at) - drag_from_;
        const double moved = 100.0 * std::trunc(dx / 100.0);
        if (moved == 0) return;
        drag_from_ += moved;
        run_on_model(plot_, app_, [this, moved] { chart_.pan(moved); });
    }
    void reset() override { run_on_model(plot_, app_, [this] { chart_.reset_view(); }); }

private:
    // The pointer in twips of the viewport, which stays put while the plot slides under it.
    double twips_at(QPointF plot_pos) const {
        const QPointF at = plot_.mapTo(&viewport_, plot_pos);
        return px_to_twips(at.x() / plot_.stretch().width(), logical_dpi(&plot_));
    }

    PictureView& plot_;
    QWidget& viewport_;
    windows::Chart& chart_;
    forms::App& app_;
    double drag_from_ = 0;
};

// A plot drawn by its window at one scale zooms along X on the screen alone, 1X to 10X as the
// scale sliders go, about the pointer; a drag pans it; a double-click goes back to 1X. The model,
// its texts and its pages stay as they are. The strip below follows.
class PlotZoom : public PlotGestures {
public:
    PlotZoom(PictureView& plot, PictureView* below) : PlotGestures(plot), plot_(plot), below_(below) {}

protected:
    void zoom(int steps, QPointF at) override {
        // The point under the pointer stays there.
        const double x = at.x(), w = plot_.width();
        const double content = (x + shift_ * w) / zoom_;
        zoom_ = std::clamp(zoom_ + steps, 1, kMostZoom);
        shift_ = w > 0 ? (content * zoom_ - x) / w : 0;
        apply();
    }
    void drag_from(QPointF at) override { drag_from_ = at.x(); }
    void drag_to(QPointF at) override {
        if (plot_.width() <= 0) return;
        shift_ -= (at.x() - drag_from_) / plot_.width();
        drag_from_ = at.x();
        apply();
    }
    void reset() override {
        zoom_ = 1;
        shift_ = 0;
        apply();
    }
    void resized() override { apply(); }

private:
    static constexpr int kMostZoom = 10;

    // The shift is kept as a share of the plot's width, so that it holds as the window grows.
    void apply() {
        shift_ = std::clamp(shift_, 0.0, static_cast<double>(zoom_ - 1));
        const double w = plot_.width();
        plot_.set_x_zoom(zoom_, shift_ * w);
        // The strip's corner may stand left of the plot's: its own shift keeps the two in line.
        if (below_ != nullptr) below_->set_x_zoom(zoom_, shift_ * w + (plot_.x() - below_->x()) * (zoom_ - 1));
    }

    PictureView& plot_;
    PictureView* below_;
    int zoom_ = 1;
    double shift_ = 0;
    double drag_from_ = 0;
};

// The gestures handed to the window's model: it zooms and pans its own drawing.
class ModelGestures : public PlotGestures {
public:
    ModelGestures(QWidget& plot, std::function<void(int, QPointF)> zoom, std::function<void()> reset)
        : PlotGestures(plot), zoom_(std::move(zoom)), reset_(std::move(reset)) {}

protected:
    void zoom(int steps, QPointF at) override { zoom_(steps, at); }
    // The model reads the drag from the plot's own mouse events.
    void drag_from(QPointF) override {}
    void drag_to(QPointF) override {}
    void reset() override { reset_(); }

private:
    std::function<void(int, QPointF)> zoom_;
    std::function<void()> reset_;
};

}  // namespace

void fit_chart_card(QWidget& card, QSpacerItem& indent, QScrollBar& scroll, windows::Chart& chart,
                    forms::App& app, std::function<std::vector<windows::DataColumn>()> data) {
    indent.changeSize(twips_to_px(chart.picNemodar1.left(), &card), 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
    scroll.setFixedWidth(twips_to_px(chart.picNemodar1.width(), &card));
    // One step is 100 twips of plot: a page is one viewport, and the thumb shows how much is seen.
    scroll.setPageStep(static_cast<int>(chart.picNemodar1.width() / 100));
    card.setBackgroundRole(QPalette::Base);
    card.setAutoFillBackground(true);
    mark_axes(card, "picNemodar", "PicxSxale", &chart.PicxSxale, "PicySxale", &chart.PicySxale);
    const auto& o = chart.options();
    if (!o.x_title.empty() || !o.y_title.empty()) {
        std::vector<LegendEntry> legend;
        for (const auto& [colour, name] : o.curve_names) legend.push_back({QString::fromStdString(name), colour});
        add_chart_titles(card, "picNemodar1", QString::fromStdString(o.x_title), QString::fromStdString(o.y_title),
                         legend);
    }
    auto* container = card.findChild<PictureView*>(QStringLiteral("picContainer"));
    if (container == nullptr) return;
    let_chart_grow(card, *container,
                   {chart.picNemodar1, "picNemodar1", "picNemodar", "PicxSxale", "PicySxale"}, &scroll);
    auto* plot = card.findChild<PictureView*>(QStringLiteral("picNemodar"));
    auto* viewport = card.findChild<QWidget*>(QStringLiteral("picNemodar1"));
    if (plot != nullptr && viewport != nullptr) new ChartMouse(*plot, *viewport, chart, app);
    if (!data) data = [&chart] { return chart.drawn_data(); };
    add_chart_menu(card, *container, std::move(data), app);
}

void let_chart_grow(QWidget& card, PictureView& container, const GrowingChart& chart, QScrollBar* scroll) {
    container.set_grows(true);
    QSizePolicy grows(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grows.setHorizontalStretch(card.sizePolicy().horizontalStretch());
    grows.setVerticalStretch(card.sizePolicy().verticalStretch());
    card.setSizePolicy(grows);
    stretch_towards(card.layout(), container);
    new ChartGrowth(container, chart, scroll);
}

void let_plot_zoom(PictureView& plot, PictureView* below) { new PlotZoom(plot, below); }

void let_model_zoom(QWidget& plot, std::function<void(int steps, QPointF at)> zoom, std::function<void()> reset) {
    new ModelGestures(plot, std::move(zoom), std::move(reset));
}

QByteArray chart_image(QWidget& picture, bool svg) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (svg) {
        QSvgGenerator gen;
        gen.setOutputDevice(&buffer);
        gen.setSize(picture.size());
        gen.setViewBox(QRect(QPoint(0, 0), picture.size()));
        gen.setTitle(picture.window()->windowTitle());
        QPainter p(&gen);
        picture.render(&p);
    } else {
        picture.grab().save(&buffer, "PNG");
    }
    return bytes;
}

void add_chart_menu(QWidget& card, QWidget& picture, std::function<std::vector<windows::DataColumn>()> data,
                    forms::App& app) {
    // Save Data is greyed while the chart draws nothing it can give.
    card.setContextMenuPolicy(Qt::CustomContextMenu);
    auto* copy = new QAction(QStringLiteral("&Copy Image"), &card);
    copy->setObjectName(QStringLiteral("copyChartImage"));
    copy->setToolTip(QStringLiteral("Copy the chart to the clipboard as a picture"));
    QObject::connect(copy, &QAction::triggered, &card,
                     [&picture] { QApplication::clipboard()->setPixmap(picture.grab()); });
    auto* image = new QAction(QStringLiteral("Save &Image..."), &card);
    image->setObjectName(QStringLiteral("saveChartImage"));
    image->setToolTip(QStringLiteral("Save the chart as a PNG or SVG picture"));
    QObject::connect(image, &QAction::triggered, &card, [&card, &picture, &app] {
        run_on_model(card, app, [&picture, &app] {
            auto path = windows::ask_save_path(app.platform(), "PNG Image | *.png | SVG Image | *.svg", ".png",
                                               "Save Image");
            if (!path) return;
            const bool svg = QString::fromStdString(*path).endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive);
            const QByteArray bytes = chart_image(picture, svg);
            windows::write_out(app.platform(), *path, bytes.toStdString());
        });
    });
    auto* save = new QAction(QStringLiteral("Save &Data..."), &card);
    save->setObjectName(QStringLiteral("saveChartData"));
    save->setToolTip(QStringLiteral("Save the numbers the chart draws as a CSV file, with their units"));
    QObject::connect(save, &QAction::triggered, &card, [&card, &app, data] {
        run_on_model(card, app, [&app, &data] { windows::save_chart_data(app.platform(), data()); });
    });
    card.addAction(copy);
    card.addAction(image);
    card.addAction(save);
    QObject::connect(&card, &QWidget::customContextMenuRequested, &card, [&card, save, data](const QPoint& at) {
        bind::Binder* b = bind::binder_of(&card);
        save->setEnabled(b != nullptr && b->model() != nullptr && data && !data().empty());
        QMenu::exec(card.actions(), card.mapToGlobal(at), nullptr, &card);
    });
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
        setObjectName(QStringLiteral("chartTitles"));
        viewport.installEventFilter(this);
        place();
    }

    void set_texts(const QString& x, const QString& y) {
        if (x_ != nullptr) x_->setText(x.toHtmlEscaped());
        if (y_ != nullptr) y_->setText(y.toHtmlEscaped());
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

namespace tv::gui {

void set_chart_titles(QWidget& card, const char* viewport, const QString& x_title, const QString& y_title) {
    auto* v = card.findChild<QWidget*>(viewport);
    if (v == nullptr) return;
    if (auto* t = v->findChild<QObject*>(QStringLiteral("chartTitles"), Qt::FindDirectChildrenOnly))
        static_cast<ChartTitles*>(t)->set_texts(x_title, y_title);
}

}  // namespace tv::gui

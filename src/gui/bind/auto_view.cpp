#include "gui/bind/auto_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QVBoxLayout>
#include <map>

#include "forms/app.h"
#include "forms/form.h"
#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"
#include "gui/platform/twips.h"

namespace tv::gui {

namespace {

using forms::ControlKind;

// One container's widgets: small controls flow in a grid, tables side by side, pictures below.
struct Panel {
    QWidget* widget = nullptr;
    QGridLayout* small = nullptr;
    QHBoxLayout* tables = nullptr;
    QVBoxLayout* big = nullptr;
    int used = 0;
    QLabel* pending = nullptr;  // a label waiting for the field it names
};

// Two slots a row, each a caption and its field or one control across both.
constexpr int kSlots = 2;

Panel make_panel(QWidget* w) {
    Panel p;
    p.widget = w;
    auto* outer = new QVBoxLayout(w);
    p.small = new QGridLayout;
    p.small->setHorizontalSpacing(10);
    p.tables = new QHBoxLayout;
    p.big = new QVBoxLayout;
    outer->addLayout(p.small);
    outer->addLayout(p.tables, 1);
    outer->addLayout(p.big);
    return p;
}

void place(Panel& p, QWidget* caption, QWidget* field) {
    const int row = p.used / kSlots, col = 2 * (p.used % kSlots);
    if (caption != nullptr) {
        p.small->addWidget(caption, row, col, Qt::AlignRight | Qt::AlignVCenter);
        p.small->addWidget(field, row, col + 1);
    } else {
        p.small->addWidget(field, row, col, 1, 2);
    }
    ++p.used;
}

void flush_pending(Panel& p) {
    if (p.pending == nullptr) return;
    place(p, nullptr, p.pending);
    p.pending = nullptr;
}

bool is_field(ControlKind k) {
    return k == ControlKind::TextBox || k == ControlKind::ComboBox || k == ControlKind::Slider ||
           k == ControlKind::ProgressBar || k == ControlKind::HScrollBar;
}

void add_small(Panel& p, const forms::Control& c, QWidget* w) {
    if (c.kind() == ControlKind::Label) {
        flush_pending(p);
        p.pending = static_cast<QLabel*>(w);
        return;
    }
    if (is_field(c.kind()) && p.pending != nullptr) {
        place(p, p.pending, w);
        p.pending = nullptr;
        return;
    }
    flush_pending(p);
    place(p, nullptr, w);
}

QWidget* make_widget(const forms::Control& c, QWidget* parent) {
    const QString name = QString::fromStdString(c.name());
    QWidget* w = nullptr;
    switch (c.kind()) {
        case ControlKind::TextBox: w = new QLineEdit(parent); break;
        case ControlKind::Label: w = new QLabel(parent); break;
        case ControlKind::CheckBox: w = new QCheckBox(parent); break;
        case ControlKind::OptionButton: w = new QRadioButton(parent); break;
        case ControlKind::CommandButton: w = new QPushButton(parent); break;
        case ControlKind::ComboBox: w = new QComboBox(parent); break;
        case ControlKind::Frame: w = new QGroupBox(parent); break;
        case ControlKind::Grid: {
            auto* t = new QTableView(parent);
            t->setAlternatingRowColors(true);
            t->horizontalHeader()->setStretchLastSection(true);
            t->setMinimumSize(260, 140);
            w = t;
            break;
        }
        case ControlKind::Slider: w = new QSlider(Qt::Horizontal, parent); break;
        case ControlKind::HScrollBar: w = new QScrollBar(Qt::Horizontal, parent); break;
        case ControlKind::ProgressBar: w = new QProgressBar(parent); break;
        case ControlKind::PictureBox: w = new PictureView(parent); break;
        default: return nullptr;  // timers, lines, shapes and menus need no widget here
    }
    w->setObjectName(name);
    w->setToolTip(name);
    return w;
}

// The window's own size from its model, so that the sub-window opens large enough.
class AutoView : public QWidget {
public:
    explicit AutoView(QSize hint) : hint_(hint) {}
    QSize sizeHint() const override { return hint_; }

private:
    QSize hint_;
};

}  // namespace

QWidget* make_auto_view(forms::Form& form, forms::App& app) {
    const QSize model_size(twips_to_px(form.width), twips_to_px(form.height));
    auto* view = new AutoView(model_size.expandedTo(QSize(760, 520)));
    auto* root = new QVBoxLayout(view);
    root->setContentsMargins(0, 0, 0, 0);
    auto* scroll = new QScrollArea(view);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    root->addWidget(scroll);
    auto* body = new QWidget;
    scroll->setWidget(body);

    std::map<const forms::Control*, Panel> panels;
    panels[nullptr] = make_panel(body);
    std::map<const forms::Control*, QWidget*> widgets;

    for (const auto& owned : form.controls()) {
        const forms::Control& c = *owned;
        const forms::Control* in = c.container();
        // Pictures inside pictures are placed by the model's geometry.
        if (in != nullptr && in->kind() == ControlKind::PictureBox) {
            if (auto it = widgets.find(in); it != widgets.end()) {
                if (QWidget* w = make_widget(c, it->second)) widgets[&c] = w;
            }
            continue;
        }
        auto pit = panels.find(in);
        Panel& panel = pit != panels.end() ? pit->second : panels[nullptr];
        QWidget* w = make_widget(c, panel.widget);
        if (w == nullptr) continue;
        widgets[&c] = w;
        switch (c.kind()) {
            case ControlKind::Grid: panel.tables->addWidget(w); break;
            case ControlKind::PictureBox: {
                auto* row = new QHBoxLayout;
                row->addWidget(w);
                row->addStretch(1);
                panel.big->addLayout(row);
                break;
            }
            case ControlKind::Frame:
                panels[&c] = make_panel(w);
                panel.big->addWidget(w);
                break;
            default: add_small(panel, c, w);
        }
    }
    for (auto& [control, panel] : panels) flush_pending(panel);
    bind::all(*view, form, app);
    return view;
}

}  // namespace tv::gui

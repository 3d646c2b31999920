#include "gui_fixture.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTableView>

#include "gui/bind/binder.h"
#include "gui/bind/picture_view.h"

namespace tv::test {

using forms::ControlKind;

std::string save_shot(QWidget& widget, const std::string& name) {
    settle();
    QDir().mkpath(QStringLiteral(TV_BINARY_DIR "/gui-screenshots"));
    const std::string path = TV_BINARY_DIR "/gui-screenshots/" + name + ".png";
    widget.grab().save(QString::fromStdString(path));
    return path;
}

void settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

namespace {

// Whether the object bound to a control is of the control's kind.
bool right_kind(const forms::Control& c, QObject* o) {
    switch (c.kind()) {
        case ControlKind::TextBox: return qobject_cast<QLineEdit*>(o) || qobject_cast<QPlainTextEdit*>(o);
        case ControlKind::Label: return qobject_cast<QLabel*>(o);
        case ControlKind::CheckBox: return qobject_cast<QCheckBox*>(o);
        case ControlKind::OptionButton: return qobject_cast<QRadioButton*>(o);
        case ControlKind::CommandButton: return qobject_cast<QAbstractButton*>(o);
        case ControlKind::ComboBox: return qobject_cast<QComboBox*>(o);
        case ControlKind::Frame: return qobject_cast<QGroupBox*>(o);
        case ControlKind::Grid: return qobject_cast<QTableView*>(o);
        case ControlKind::Slider: return qobject_cast<QSlider*>(o);
        case ControlKind::HScrollBar: return qobject_cast<QScrollBar*>(o);
        case ControlKind::ProgressBar: return qobject_cast<QProgressBar*>(o);
        case ControlKind::PictureBox: return qobject_cast<gui::PictureView*>(o);
        case ControlKind::Menu: return qobject_cast<QAction*>(o);
        case ControlKind::Timer:
        case ControlKind::Line:
        case ControlKind::Shape: return true;
    }
    return false;
}

}  // namespace

void expect_all_bound(const QWidget& view, const forms::Form& model) {
    gui::bind::Binder* b = gui::bind::binder_of(&view);
    ASSERT_NE(b, nullptr);
    for (const auto& c : model.controls()) {
        const auto kind = c->kind();
        if (kind == ControlKind::Timer) continue;
        if (kind == ControlKind::Line || kind == ControlKind::Shape) {
            ASSERT_NE(c->container(), nullptr) << c->name();
            EXPECT_NE(qobject_cast<gui::PictureView*>(b->target(*c->container())), nullptr) << c->name();
            continue;
        }
        QObject* o = b->target(*c);
        ASSERT_NE(o, nullptr) << model.name() << ": no widget named " << c->name();
        EXPECT_TRUE(right_kind(*c, o)) << model.name() << ": " << c->name() << " is a "
                                       << o->metaObject()->className();
        // A hidden control has a hidden widget; the others can be seen.
        if (auto* w = qobject_cast<QWidget*>(o)) {
            EXPECT_NE(w->isHidden(), c->visible()) << model.name() << ": " << c->name();
        }
    }
    EXPECT_TRUE(b->unbound().empty());
}

void tick(QAbstractButton* box) {
    ASSERT_NE(box, nullptr);
    QStyleOptionButton option;
    option.initFrom(box);
    const auto element =
        qobject_cast<QRadioButton*>(box) ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    const QRect indicator = box->style()->subElementRect(element, &option, box);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, indicator.center());
}

void expect_labels_inside_strips(const QWidget& view) {
    int labels = 0;
    for (const auto* strip : view.findChildren<gui::PictureView*>()) {
        // A chart its window draws whole, labels and all, keeps them inside itself.
        const bool whole_chart = strip->findChild<QAction*>("saveChartData", Qt::FindDirectChildrenOnly) != nullptr;
        if (strip->axis_strip() == gui::AxisStrip::None && !whole_chart) continue;
        const QRectF room(QPointF(0, 0), QSizeF(strip->size()));
        for (const QRectF& box : strip->text_boxes()) {
            if (!box.intersects(room)) continue;  // a label of a tick out of sight
            ++labels;
            EXPECT_TRUE(room.contains(box)) << strip->objectName().toStdString() << ": label at " << box.x() << ", "
                                            << box.y() << " in " << room.width() << " x " << room.height();
        }
    }
    EXPECT_GT(labels, 0);
}

void expect_tables_whole(const QWidget& view) {
    for (const auto* table : view.findChildren<QTableView*>()) {
        if (table->isHidden() || table->model() == nullptr) continue;
        const QHeaderView* h = table->horizontalHeader();
        const QFontMetrics fm = table->fontMetrics();
        for (int c = 0; c < table->model()->columnCount(); ++c) {
            if (h->isSectionHidden(c) || h->sectionSize(c) == 0) continue;
            const std::string where = table->objectName().toStdString() + " column " + std::to_string(c);
            EXPECT_GE(h->sectionSize(c), h->sectionSizeHint(c)) << where;
            for (int r = 0; r < table->model()->rowCount(); ++r) {
                const QString t = table->model()->index(r, c).data().toString();
                bool number = false;
                t.trimmed().toDouble(&number);
                if (!number) continue;
                EXPECT_GT(h->sectionSize(c), fm.horizontalAdvance(t))
                    << where << " row " << r << ": " << t.toStdString();
            }
        }
    }
}

void ViewTest::expect_chart_takes_spare_room() {
    QWidget* view = opened.back().get();
    const QSize own = view->sizeHint();
    EXPECT_LE(own.width(), 1200);
    EXPECT_LE(own.height(), 780);
    view->resize(own);
    settle();
    auto* card = find<QWidget>("chartPanel");
    ASSERT_NE(card, nullptr);
    auto* chart = find<QWidget>("picContainer");
    ASSERT_NE(chart, nullptr);
    const QSize before = card->size(), chart_before = chart->size();
    view->resize(own + QSize(200, 120));
    settle();
    EXPECT_EQ(card->size(), before + QSize(200, 120));
    EXPECT_EQ(chart->size(), chart_before + QSize(200, 120));
}

}  // namespace tv::test

int main(int argc, char** argv) {
    // Tests never open windows on a desktop unless asked to.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(fusion);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

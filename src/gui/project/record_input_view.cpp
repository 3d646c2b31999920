#include "gui/project/record_input_view.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QLabel>
#include <QTableView>

#include "gui/bind/binder.h"
#include "gui/chart/chart_card.h"
#include "windows/project/record_input_window.h"

namespace tv::gui {

namespace {

// A word over a table while it has no rows: drawn on the view, never a cell of the model.
class EmptyTableHint : public QLabel {
public:
    EmptyTableHint(QTableView& table, const QString& hint) : QLabel(hint, table.viewport()), table_(table) {
        setObjectName(QStringLiteral("empty_hint"));
        setAlignment(Qt::AlignCenter);
        setWordWrap(true);
        setMargin(12);
        setEnabled(false);  // the greyed text of a placeholder
        setAttribute(Qt::WA_TransparentForMouseEvents);
        table.viewport()->installEventFilter(this);
        QAbstractItemModel* m = table.model();
        connect(m, &QAbstractItemModel::modelReset, this, &EmptyTableHint::follow);
        connect(m, &QAbstractItemModel::layoutChanged, this, &EmptyTableHint::follow);
        connect(m, &QAbstractItemModel::rowsInserted, this, &EmptyTableHint::follow);
        connect(m, &QAbstractItemModel::rowsRemoved, this, &EmptyTableHint::follow);
        follow();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) setGeometry(table_.viewport()->rect());
        return QLabel::eventFilter(watched, event);
    }

private:
    void follow() {
        setGeometry(table_.viewport()->rect());
        setVisible(table_.model()->rowCount() == 0);
    }
    QTableView& table_;
};

}  // namespace

RecordInputView::RecordInputView(windows::Form1& model, forms::App& app, QWidget* parent) : QWidget(parent) {
    ui_.setupUi(this);
    fit_chart_card(*ui_.chartPanel, *ui_.scrollIndent, *ui_.HScroll1, model.chart, app);
    bind::all(*this, model, app);
    for (QTableView* y : {ui_.Grid2, ui_.grid4, ui_.grid6})
        new EmptyTableHint(*y, tr("No Y file yet: choose Project > Open/Add Record to open the Y component."));
}

}  // namespace tv::gui

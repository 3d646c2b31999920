#include "gui/bind/grid_table_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QSignalSpy>

#include "forms/app.h"
#include "forms/form.h"
#include "gui_fixture.h"
#include "support/fake_platform.h"

namespace tv::gui {
namespace {

class TableForm : public forms::Form {
public:
    explicit TableForm(forms::App& app) : forms::Form(app, "TableForm", "Table") {}
    forms::Grid& G = grid("G", 4, 2);
};

// Collects what QAbstractItemModelTester reports.
std::vector<QString>* g_messages = nullptr;
void collect(QtMsgType, const QMessageLogContext&, const QString& msg) {
    if (g_messages != nullptr) g_messages->push_back(msg);
}

class GridTableModelTest : public ::testing::Test {
protected:
    GridTableModelTest() : app(platform), form(app.form<TableForm>()), grid(form.G) {
        grid.set_text(0, 0, "Acceleration");
        grid.set_text(0, 1, "Acceleration with Scale");
        for (int r = 1; r < 4; ++r) {
            grid.set_text(r, 0, "a" + std::to_string(r));
            grid.set_text(r, 1, "b" + std::to_string(r));
        }
    }
    test::FakePlatform platform;
    forms::App app;
    TableForm& form;
    forms::Grid& grid;
};

TEST_F(GridTableModelTest, RowZeroIsTheHeaderAndRowsKeepTheirNumbers) {
    GridTableModel m(grid);
    EXPECT_EQ(m.rowCount(), 3);
    EXPECT_EQ(m.columnCount(), 2);
    EXPECT_EQ(m.headerData(0, Qt::Horizontal).toString(), "Acceleration");
    EXPECT_EQ(m.headerData(1, Qt::Horizontal).toString(), "Acceleration with Scale");
    EXPECT_EQ(m.data(m.index(0, 0)).toString(), "a1");
    EXPECT_EQ(m.data(m.index(2, 1)).toString(), "b3");
    // The vertical header names the grid row, which is the line of the file.
    EXPECT_EQ(m.headerData(0, Qt::Vertical).toInt(), 1);
}

TEST_F(GridTableModelTest, HiddenRowsAndColumnsAreLeftOut) {
    grid.set_row_hidden(2, true);
    grid.set_col_hidden(0, true);
    GridTableModel m(grid);
    ASSERT_EQ(m.rowCount(), 2);
    ASSERT_EQ(m.columnCount(), 1);
    EXPECT_EQ(m.data(m.index(1, 0)).toString(), "b3");
    EXPECT_EQ(m.headerData(1, Qt::Vertical).toInt(), 3);
    EXPECT_EQ(m.grid_row(1), 3);
    EXPECT_EQ(m.table_row(2), -1);
    EXPECT_EQ(m.table_row(3), 1);
    EXPECT_EQ(m.table_col(1), 0);
}

TEST_F(GridTableModelTest, NoHeaderRowWhenTheGridHasNoFixedRow) {
    grid.set_fixed_rows(0);
    GridTableModel m(grid);
    EXPECT_EQ(m.rowCount(), 4);
    EXPECT_EQ(m.data(m.index(0, 0)).toString(), "Acceleration");
    EXPECT_EQ(m.headerData(1, Qt::Horizontal).toInt(), 1);
}

TEST_F(GridTableModelTest, AlignmentCodesAndCellColours) {
    grid.set_col_alignment(0, 4);
    grid.set_col_alignment(1, 7);
    grid.set_cell_back_color(1, 1, 0x0000FF);
    GridTableModel m(grid);
    EXPECT_EQ(m.data(m.index(0, 0), Qt::TextAlignmentRole).toInt(), int(Qt::AlignHCenter | Qt::AlignVCenter));
    EXPECT_EQ(m.data(m.index(0, 1), Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    // 0xBBGGRR: 0x0000FF is red.
    EXPECT_EQ(m.data(m.index(0, 1), Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0));
    EXPECT_FALSE(m.data(m.index(0, 0), Qt::BackgroundRole).isValid());
    // Black would not read on the saturated red: its text is white.
    EXPECT_EQ(m.data(m.index(0, 1), Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
    EXPECT_FALSE(m.data(m.index(0, 0), Qt::ForegroundRole).isValid());
    // General alignment: numbers right, words left.
    EXPECT_EQ(grid_alignment(9, true), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(grid_alignment(9, false), Qt::AlignLeft | Qt::AlignVCenter);
    EXPECT_EQ(grid_alignment(1, true), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(GridTableModelTest, StructureChangesOnlyInSync) {
    GridTableModel m(grid);
    QSignalSpy resets(&m, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&m, &QAbstractItemModel::dataChanged);
    grid.set_rows(10);
    // Until the view is told, it sees the table it knew; the gone or new cells read as nothing.
    EXPECT_EQ(m.rowCount(), 3);
    m.sync();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(m.rowCount(), 9);
    grid.set_text(5, 1, "x");
    m.sync();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m.data(m.index(4, 1)).toString(), "x");
    grid.set_rows(2);
    EXPECT_FALSE(m.data(m.index(4, 1)).isValid());
    m.sync();
    EXPECT_EQ(m.rowCount(), 1);
}

TEST_F(GridTableModelTest, PassesTheItemModelTester) {
    std::vector<QString> messages;
    g_messages = &messages;
    QtMessageHandler old = qInstallMessageHandler(collect);
    {
        GridTableModel m(grid);
        QAbstractItemModelTester tester(&m, QAbstractItemModelTester::FailureReportingMode::Warning);
        grid.set_rows(50);
        for (int r = 1; r < 50; ++r) grid.set_text(r, 0, std::to_string(r * 0.01));
        m.sync();
        for (int r = 10; r < 20; ++r) grid.set_row_hidden(r, true);
        m.sync();
        grid.set_cols(3);
        grid.set_col_hidden(1, true);
        m.sync();
        grid.set_text(3, 2, "z");
        m.sync();
        grid.set_rows(1);
        m.sync();
        EXPECT_EQ(m.rowCount(), 0);
        grid.set_rows(0);
        m.sync();
        m.detach();
        EXPECT_EQ(m.rowCount(), 0);
    }
    qInstallMessageHandler(old);
    g_messages = nullptr;
    for (const QString& msg : messages) EXPECT_FALSE(msg.contains("FAIL")) << msg.toStdString();
}

}  // namespace
}  // namespace tv::gui

#pragma once
// A forms::Grid seen as a Qt table: row 0 of the grid is the header, hidden rows and columns
// are left out. The structure the view sees changes only in sync(), inside a model reset, so
// that the grid may change many times between two looks of the view.
#include <QAbstractTableModel>
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

class QFontMetrics;

namespace tv::forms {
class Grid;
}

namespace tv::gui {

class GridTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit GridTableModel(const forms::Grid& grid, QObject* parent = nullptr);

    /// The grid goes away: the table becomes empty and never reads it again.
    void detach();

    /// Brings the table in step with the grid: a reset when rows, columns or hidden flags
    /// changed, else one dataChanged over every cell.
    void sync();

    /// Grid row (column) shown at a table row (column), and back; -1 when not shown.
    int grid_row(int table_row) const;
    int grid_col(int table_col) const;
    int table_row(int grid_row) const;
    int table_col(int grid_col) const;
    /// The first grid row that holds data (1 when row 0 is the header).
    int first_data_row() const { return header_rows_; }

    /// Width in pixels of the widest number in a table column, headings and words left out.
    int widest_text(int table_col, const QFontMetrics& cells) const;
    /// Headings' tooltips, for what a heading has no room for (its unit): the text for a
    /// heading, or empty for the heading's own text.
    void set_heading_tips(std::function<QString(const QString& heading)> tips) { heading_tips_ = std::move(tips); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void rebuild();
    bool structure_changed() const;

    const forms::Grid* grid_;
    std::uint64_t revision_ = 0;
    int grid_rows_ = 0, grid_cols_ = 0;
    int header_rows_ = 1;
    std::vector<int> rows_;      // grid rows shown, in order
    std::vector<int> cols_;      // grid columns shown
    std::vector<int> row_at_;    // grid row -> table row or -1
    std::vector<int> col_at_;
    std::function<QString(const QString&)> heading_tips_;
};

/// Qt alignment of the old alignment codes (0..8 by column of three, 9 general).
Qt::Alignment grid_alignment(int code, bool number);

}  // namespace tv::gui

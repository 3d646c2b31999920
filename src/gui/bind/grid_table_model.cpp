#include "gui/bind/grid_table_model.h"

#include <QBrush>
#include <QColor>
#include <QFontMetrics>
#include <algorithm>
#include <cctype>

#include "forms/grid.h"
#include "gui/bind/old_units.h"

namespace tv::gui {

Qt::Alignment grid_alignment(int code, bool number) {
    // Left, centre and right by threes: top, centre, bottom within each.
    Qt::Alignment h;
    switch (code) {
        case 0: case 1: case 2: h = Qt::AlignLeft; break;
        case 3: case 4: case 5: h = Qt::AlignHCenter; break;
        case 6: case 7: case 8: h = Qt::AlignRight; break;
        default: h = number ? Qt::AlignRight : Qt::AlignLeft; break;
    }
    return h | Qt::AlignVCenter;
}

namespace {

// A number and nothing else: digits, a sign, a point, an exponent, blanks.
bool is_number(const std::string& s) {
    bool digit = false;
    for (char ch : s) {
        if (std::isdigit(static_cast<unsigned char>(ch))) digit = true;
        else if (ch != '-' && ch != '+' && ch != '.' && ch != 'E' && ch != 'e' && ch != ' ') return false;
    }
    return digit;
}

bool looks_numeric(const std::string& s) {
    std::size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) ++i;
    return i < s.size() && (std::isdigit(static_cast<unsigned char>(s[i])) || s[i] == '.');
}

}  // namespace

GridTableModel::GridTableModel(const forms::Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(&grid) {
    rebuild();
}

void GridTableModel::detach() {
    beginResetModel();
    grid_ = nullptr;
    rows_.clear();
    cols_.clear();
    row_at_.clear();
    col_at_.clear();
    grid_rows_ = grid_cols_ = 0;
    endResetModel();
}

bool GridTableModel::structure_changed() const {
    return grid_->layout_revision() != revision_ || grid_->rows() != grid_rows_ || grid_->cols() != grid_cols_ ||
           (grid_->fixed_rows() > 0 ? 1 : 0) != header_rows_;
}

void GridTableModel::rebuild() {
    rows_.clear();
    cols_.clear();
    if (grid_ == nullptr) return;
    revision_ = grid_->layout_revision();
    grid_rows_ = grid_->rows();
    grid_cols_ = grid_->cols();
    header_rows_ = grid_->fixed_rows() > 0 ? 1 : 0;
    row_at_.assign(static_cast<std::size_t>(grid_rows_), -1);
    col_at_.assign(static_cast<std::size_t>(grid_cols_), -1);
    for (int r = header_rows_; r < grid_rows_; ++r) {
        if (grid_->row_hidden(r)) continue;
        row_at_[static_cast<std::size_t>(r)] = static_cast<int>(rows_.size());
        rows_.push_back(r);
    }
    for (int c = 0; c < grid_cols_; ++c) {
        if (grid_->col_hidden(c)) continue;
        col_at_[static_cast<std::size_t>(c)] = static_cast<int>(cols_.size());
        cols_.push_back(c);
    }
}

void GridTableModel::sync() {
    if (grid_ == nullptr) return;
    if (structure_changed()) {
        beginResetModel();
        rebuild();
        endResetModel();
        return;
    }
    if (!cols_.empty()) emit headerDataChanged(Qt::Horizontal, 0, static_cast<int>(cols_.size()) - 1);
    if (!rows_.empty() && !cols_.empty())
        emit dataChanged(index(0, 0), index(static_cast<int>(rows_.size()) - 1, static_cast<int>(cols_.size()) - 1));
}

int GridTableModel::grid_row(int table_row) const {
    return table_row >= 0 && table_row < static_cast<int>(rows_.size()) ? rows_[static_cast<std::size_t>(table_row)] : -1;
}
int GridTableModel::grid_col(int table_col) const {
    return table_col >= 0 && table_col < static_cast<int>(cols_.size()) ? cols_[static_cast<std::size_t>(table_col)] : -1;
}
int GridTableModel::table_row(int grid_row) const {
    return grid_row >= 0 && grid_row < static_cast<int>(row_at_.size()) ? row_at_[static_cast<std::size_t>(grid_row)] : -1;
}
int GridTableModel::table_col(int grid_col) const {
    return grid_col >= 0 && grid_col < static_cast<int>(col_at_.size()) ? col_at_[static_cast<std::size_t>(grid_col)] : -1;
}

int GridTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(cols_.size());
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
    if (grid_ == nullptr || !index.isValid()) return {};
    const int r = grid_row(index.row()), c = grid_col(index.column());
    // The grid may have shrunk since the last sync: what is gone reads as nothing.
    if (r < 0 || c < 0 || r >= grid_->rows() || c >= grid_->cols()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(grid_->text(r, c));
        case Qt::ToolTipRole: {
            const std::string tip = grid_->cell_tool_tip(r, c);
            return QString::fromStdString(tip.empty() ? grid_->text(r, c) : tip);
        }
        case Qt::TextAlignmentRole:
            return static_cast<int>(grid_alignment(grid_->col_alignment(c), looks_numeric(grid_->text(r, c))));
        case Qt::BackgroundRole: {
            const int colour = grid_->cell_back_color(r, c);
            if (colour < 0) return {};
            return QBrush(old_colour(colour));
        }
        case Qt::ForegroundRole: {
            // Black on a saturated blue or red cannot be read: such cells take white text.
            const int colour = grid_->cell_back_color(r, c);
            if (colour < 0) return {};
            const QColor back = old_colour(colour);
            if (0.299 * back.redF() + 0.587 * back.greenF() + 0.114 * back.blueF() >= 0.5) return {};
            return QBrush(Qt::white);
        }
        default:
            return {};
    }
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (grid_ == nullptr) return {};
    if (orientation == Qt::Vertical) {
        const int r = grid_row(section);
        if (r < 0) return {};
        if (role == Qt::DisplayRole) return r;
        if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }
    const int c = grid_col(section);
    if (c < 0 || c >= grid_->cols()) return {};
    if (role == Qt::DisplayRole) {
        if (header_rows_ == 0 || grid_->rows() == 0) return c;
        return QString::fromStdString(grid_->text(0, c));
    }
    if (role == Qt::ToolTipRole) {
        if (header_rows_ == 0 || grid_->rows() == 0) return {};
        const QString heading = QString::fromStdString(grid_->text(0, c));
        const QString tip = heading_tips_ ? heading_tips_(heading) : QString();
        return tip.isEmpty() ? heading : tip;
    }
    return {};
}

int GridTableModel::widest_text(int table_col, const QFontMetrics& cells) const {
    const int c = grid_col(table_col);
    if (grid_ == nullptr || c < 0 || c >= grid_->cols()) return 0;
    // Only numbers count: a cut number is misread, while a line of words (a record file's
    // heading) may run on under its neighbour as it always did, whole in its tooltip. The
    // longest numbers are the widest near enough (digits share one width): only those within
    // two characters of the longest are measured.
    std::size_t longest = 0;
    for (int r : rows_)
        if (r < grid_->rows() && is_number(grid_->text(r, c))) longest = std::max(longest, grid_->text(r, c).size());
    int widest = 0;
    for (int r : rows_) {
        if (r >= grid_->rows()) continue;
        const std::string& t = grid_->text(r, c);
        if (t.size() + 2 >= longest && is_number(t))
            widest = std::max(widest, cells.horizontalAdvance(QString::fromStdString(t)));
    }
    return widest;
}

Qt::ItemFlags GridTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

}  // namespace tv::gui

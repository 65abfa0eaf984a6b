#pragma once
// Grids of many rows of game text (the market's player lists, the scout
// history): one model over the rows as the logic made them, behind a sort
// proxy, so a list of fifty thousand players costs one vector, not a widget
// per cell.
#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin::ui {

struct RowsColumn {
    std::string_view head;
    int width = 0;  // twips; 0 hides the column
    bool right = false;
};

class RowsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    // The game's bytes of a cell, for sorting and reading back.
    static constexpr int GameTextRole = Qt::UserRole;

    RowsModel(std::vector<RowsColumn> columns, QObject* parent = nullptr);

    void setRows(std::vector<std::vector<std::string>> rows);
    const std::vector<std::string>& row(int r) const { return rows_[size_t(r)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<RowsColumn> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// A view of a RowsModel: one whole row selected at a time, the hidden
// columns hidden, a click on a head sorting by that column and a second
// click on it flipping the order. Cells sort as the texts they show, so
// the figures padded on the left sort as numbers.
class RowsTable : public QTableView {
    Q_OBJECT
public:
    RowsTable(const QString& objectName, std::vector<RowsColumn> columns, QWidget* parent = nullptr);

    RowsModel* rowsModel() const { return model_; }
    // Replaces the rows; the sort stays as the manager left it.
    void setRows(std::vector<std::vector<std::string>> rows);
    // Sorts by a column, ascending, as if its head had been clicked once.
    void sortByColumnAscending(int column);
    // The cells of the current row in column order; empty when none.
    std::vector<std::string> currentCells() const;
    // Makes the row holding `text` in `column` current; false when none does.
    bool selectRowWithText(int column, std::string_view text);

signals:
    // A row was clicked or made current by the keyboard.
    void rowChosen();

private:
    RowsModel* model_;
    QSortFilterProxyModel* proxy_;
};

}  // namespace kestrin::ui

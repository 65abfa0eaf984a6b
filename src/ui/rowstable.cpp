#include "ui/rowstable.h"

#include <QHeaderView>
#include <algorithm>

#include "core/text.h"
#include "ui/look.h"
#include "ui/qtext.h"

namespace kestrin::ui {

namespace {

// The game measures widths in twips, fifteen to a pixel on the screens it
// was drawn for; this font needs a little more room than that one did.
constexpr int kTwipsPerPixel = 12;

}  // namespace

RowsModel::RowsModel(std::vector<RowsColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void RowsModel::setRows(std::vector<std::vector<std::string>> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int RowsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int RowsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(columns_.size()); }

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const std::vector<std::string>& cells = rows_[size_t(index.row())];
    const size_t c = size_t(index.column());
    static const std::string empty;
    const std::string& cell = c < cells.size() ? cells[c] : empty;
    switch (role) {
    case Qt::DisplayRole:
        // Figures are padded with blanks to sort as text; the column's
        // alignment shows them without the blanks.
        return qs(trimView(cell));
    case GameTextRole:
        // Borrowed bytes: the proxy compares them at once and keeps nothing.
        return QByteArray::fromRawData(cell.data(), qsizetype(cell.size()));
    case Qt::TextAlignmentRole:
        return columns_[c].right ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= int(columns_.size())) return {};
    if (role == Qt::DisplayRole) return qs(columns_[size_t(section)].head);
    if (role == Qt::TextAlignmentRole && columns_[size_t(section)].right) return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

RowsTable::RowsTable(const QString& objectName, std::vector<RowsColumn> columns, QWidget* parent)
    : QTableView(parent), model_(new RowsModel(columns, this)), proxy_(new QSortFilterProxyModel(this)) {
    setObjectName(objectName);
    proxy_->setSourceModel(model_);
    proxy_->setSortRole(RowsModel::GameTextRole);
    setModel(proxy_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setWordWrap(false);
    verticalHeader()->setVisible(false);
    verticalHeader()->setDefaultSectionSize(20);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(false);
    setFont(fixedFont());
    for (int c = 0; c < int(columns.size()); ++c) {
        if (columns[size_t(c)].width == 0) {
            setColumnHidden(c, true);
        } else {
            // Never narrower than its head with the sort arrow beside it.
            const int head = horizontalHeader()->fontMetrics().horizontalAdvance(qs(columns[size_t(c)].head)) + 30;
            setColumnWidth(c, std::max(head, columns[size_t(c)].width / kTwipsPerPixel + 14));
        }
    }
    // A click on a head sorts; the same head again flips the order.
    // Rows come in the order the logic gives until a head is clicked.
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    horizontalHeader()->setSortIndicatorShown(true);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { emit rowChosen(); });
}

void RowsTable::setRows(std::vector<std::vector<std::string>> rows) {
    model_->setRows(std::move(rows));
    clearSelection();
}

void RowsTable::sortByColumnAscending(int column) { sortByColumn(column, Qt::AscendingOrder); }

std::vector<std::string> RowsTable::currentCells() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty()) return {};
    return model_->row(proxy_->mapToSource(rows.first()).row());
}

bool RowsTable::selectRowWithText(int column, std::string_view text) {
    for (int r = 0; r < proxy_->rowCount(); ++r) {
        const QModelIndex index = proxy_->index(r, column);
        const std::vector<std::string>& cells = model_->row(proxy_->mapToSource(index).row());
        if (size_t(column) < cells.size() && cells[size_t(column)] == text) {
            setCurrentIndex(index);
            selectRow(r);
            return true;
        }
    }
    return false;
}

}  // namespace kestrin::ui

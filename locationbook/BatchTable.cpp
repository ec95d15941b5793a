#include "BatchTable.h"

#include <algorithm>
#include <numeric>

BatchTable::BatchTable(QObject* parent) : QAbstractTableModel(parent), selection(this) {
    const QStringList initial = initialBatchHeaderText().split(QLatin1Char('\t'));
    for (int column = 0; column < batchColumnCount && column < initial.size(); ++column)
        headers[static_cast<std::size_t>(column)] = initial[column];
    const auto forget = [this] { selectionKnown = false; };
    connect(&selection, &QItemSelectionModel::selectionChanged, this, [this, forget] {
        forget();
        if (onChange)
            onChange();
    });
    connect(this, &QAbstractItemModel::modelReset, this, forget);
    connect(this, &QAbstractItemModel::layoutChanged, this, forget);
}

int BatchTable::locationRowAt(int displayRow) const {
    return validRow(displayRow) ? displayOrder[static_cast<std::size_t>(displayRow)] : -1;
}

int BatchTable::displayRowOf(int locationRow) const {
    return validRow(locationRow) ? displayRowOfLocation[static_cast<std::size_t>(locationRow)] : -1;
}

QString BatchTable::headerAt(int column) const {
    return column >= 0 && column < batchColumnCount ? headers[static_cast<std::size_t>(column)]
                                                    : QString();
}

void BatchTable::setHeaderAt(int column, const QString& text) {
    if (column < 0 || column >= batchColumnCount)
        return;
    headers[static_cast<std::size_t>(column)] = text;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void BatchTable::showLocations(const std::vector<VertexRef>& locations,
                               const BatchCellFormat& cellFormat) {
    beginResetModel();
    records = locations;
    format = cellFormat;
    ticks.resize(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        ticks[i] = records[i] && records[i]->checked;
    displayOrder.resize(records.size());
    std::iota(displayOrder.begin(), displayOrder.end(), 0);
    displayRowOfLocation = displayOrder;
    endResetModel();
}

int BatchTable::lastRowIndex() const {
    return static_cast<int>(records.size()) - 1;
}

QString BatchTable::cellValueAt(int row, int column) const {
    if (!validRow(row))
        return QString();
    if (column == sortingColumn)
        return sortingTexts[static_cast<std::size_t>(row)];
    const VertexRef& v = records[static_cast<std::size_t>(row)];
    return v ? batchCellText(*v, static_cast<std::size_t>(row), column, format) : QString();
}

bool BatchTable::cellCheckBoxValueAt(int row, int column) const {
    return column == 0 && validRow(row) && ticks[static_cast<std::size_t>(row)];
}

void BatchTable::refreshSelectedRows() const {
    if (selectionKnown)
        return;
    selectedRows.assign(records.size(), 0);
    selectedCount = 0;
    for (const QItemSelectionRange& range : selection.selection()) {
        for (int displayRow = range.top(); displayRow <= range.bottom(); ++displayRow) {
            const int row = locationRowAt(displayRow);
            if (row >= 0 && !selectedRows[static_cast<std::size_t>(row)]) {
                selectedRows[static_cast<std::size_t>(row)] = 1;
                ++selectedCount;
            }
        }
    }
    selectionKnown = true;
}

bool BatchTable::selected(int row) const {
    refreshSelectedRows();
    return validRow(row) && selectedRows[static_cast<std::size_t>(row)];
}

int BatchTable::selectedRowCount() const {
    refreshSelectedRows();
    return selectedCount;
}

void BatchTable::setSelectedRows(const std::vector<int>& rows) {
    std::vector<int> shown;
    shown.reserve(rows.size());
    for (int row : rows)
        if (validRow(row))
            shown.push_back(displayRowOf(row));
    std::sort(shown.begin(), shown.end());
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    // One range per run of neighbouring rows: selecting 100,000 rows one by one would merge
    // ranges for ever.
    QItemSelection wanted;
    const int lastColumn = batchColumnCount - 1;
    for (std::size_t i = 0; i < shown.size();) {
        std::size_t j = i;
        while (j + 1 < shown.size() && shown[j + 1] == shown[j] + 1)
            ++j;
        wanted.append(QItemSelectionRange(index(shown[i], 0), index(shown[j], lastColumn)));
        i = j + 1;
    }
    selection.select(wanted, QItemSelectionModel::ClearAndSelect);
}

void BatchTable::setSelectedRowIndex(int row) {
    if (!validRow(row)) {
        selection.clearSelection();
        return;
    }
    const QModelIndex cell = index(displayRowOf(row), 0);
    selection.setCurrentIndex(cell,
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<int> BatchTable::rowsInDisplayOrder() const {
    return displayOrder;
}

int BatchTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(records.size());
}

int BatchTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : batchColumnCount;
}

QVariant BatchTable::data(const QModelIndex& index, int role) const {
    const int row = locationRowAt(index.row());
    if (row < 0)
        return QVariant();
    // The tip shows the whole text where a narrow column cuts it off.
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return cellValueAt(row, index.column());
    if (role == Qt::CheckStateRole && index.column() == 0)
        return ticks[static_cast<std::size_t>(row)] ? Qt::Checked : Qt::Unchecked;
    return QVariant();
}

bool BatchTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    const int row = locationRowAt(index.row());
    if (row < 0 || role != Qt::CheckStateRole || index.column() != 0)
        return false;
    ticks[static_cast<std::size_t>(row)] = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    if (onCellAction)
        onCellAction(row, 0);
    return true;
}

Qt::ItemFlags BatchTable::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.column() == 0)
        f |= Qt::ItemIsUserCheckable;
    return f;
}

QVariant BatchTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return headerAt(section);
}

void BatchTable::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= batchColumnCount || records.empty())
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> beforeOrder = displayOrder;

    // Each text of the column is made once; the comparisons then read it back.
    sortingTexts.clear();
    sortingTexts.reserve(records.size());
    for (int row = 0; row < static_cast<int>(records.size()); ++row)
        sortingTexts.push_back(cellValueAt(row, column));
    sortingColumn = column;
    const bool ascending = order == Qt::AscendingOrder;
    std::stable_sort(displayOrder.begin(), displayOrder.end(), [&](int row1, int row2) {
        std::int64_t result = 0;
        if (!onCompareRows || !onCompareRows(row1, row2, column, result))
            result = QString::compare(sortingTexts[static_cast<std::size_t>(row1)],
                                      sortingTexts[static_cast<std::size_t>(row2)]);
        return ascending ? result < 0 : result > 0;
    });
    sortingColumn = -1;
    sortingTexts = std::vector<QString>();

    for (std::size_t displayRow = 0; displayRow < displayOrder.size(); ++displayRow)
        displayRowOfLocation[static_cast<std::size_t>(displayOrder[displayRow])] =
            static_cast<int>(displayRow);
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before) {
        const int row = beforeOrder[static_cast<std::size_t>(old.row())];
        after.append(index(displayRowOf(row), old.column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

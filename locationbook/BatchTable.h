#pragma once
// The table of recorded locations as a model: one row per record of the list, cell texts made
// on demand from the record and the format fixed at the last rebuild, so that a rebuild of
// 100,000 rows copies pointers, not texts, and only the rows on screen are ever written.
//
// A row is known by its place in the list of locations at the last rebuild (its "location
// row"), whatever place a sort by a header has given it on screen (its "display row"). The
// window's events and the BatchListboxView operations speak of location rows only, so a click
// on a sorted row reaches the right record; the view underneath sees display rows.
//
// The tick boxes of column 0 and the selection belong to the table, as in any list control:
// they are written from the records at each rebuild and read back by the window's events.

#include "BatchCellText.h"
#include "ControlViews.h"
#include "coordinates/Vertex.h"

#include <QAbstractTableModel>
#include <QItemSelectionModel>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

class BatchTable : public QAbstractTableModel, public BatchListboxView {
    Q_OBJECT
public:
    explicit BatchTable(QObject* parent = nullptr);

    // --- Hooks to the window's events (set by whoever builds the window) -------------------
    // A tick box was clicked: location row and column.
    std::function<void(int row, int column)> onCellAction;
    // The selection changed.
    std::function<void()> onChange;
    // Sorting by a header asks this for each pair of location rows; false leaves the pair to
    // the table's own comparison of the texts. result < 0: row1 before row2 (ascending).
    std::function<bool(int row1, int row2, int column, std::int64_t& result)> onCompareRows;

    QItemSelectionModel* selectionModel() { return &selection; }
    // Location row of a display row, and back; -1 outside the table.
    int locationRowAt(int displayRow) const;
    int displayRowOf(int locationRow) const;

    // --- BatchListboxView ----------------------------------------------------------------------
    QString headerAt(int column) const override;
    void setHeaderAt(int column, const QString& text) override;
    void showLocations(const std::vector<VertexRef>& locations,
                       const BatchCellFormat& format) override;
    int lastRowIndex() const override;
    QString cellValueAt(int row, int column) const override;
    bool cellCheckBoxValueAt(int row, int column) const override;
    bool selected(int row) const override;
    void setSelectedRows(const std::vector<int>& rows) override;
    int selectedRowCount() const override;
    void setSelectedRowIndex(int row) override;
    std::vector<int> rowsInDisplayOrder() const override;

    // --- QAbstractTableModel -------------------------------------------------------------------
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    bool validRow(int row) const { return row >= 0 && row < static_cast<int>(records.size()); }
    void refreshSelectedRows() const;

    std::array<QString, batchColumnCount> headers;
    std::vector<VertexRef> records; // the list as it was at the last rebuild
    BatchCellFormat format;
    std::vector<char> ticks;       // tick box of column 0, by location row
    std::vector<int> displayOrder; // location row of each display row
    std::vector<int> displayRowOfLocation;
    QItemSelectionModel selection;

    // Selection by location row, read from the selection model when first asked after a change.
    mutable std::vector<char> selectedRows;
    mutable int selectedCount = 0;
    mutable bool selectionKnown = false;

    // While sorting: the texts of the column being sorted, by location row, made once each.
    int sortingColumn = -1;
    std::vector<QString> sortingTexts;
};

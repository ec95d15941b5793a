// The table of recorded locations: its rows are rebuilt from the list and the settings, and its
// events bring a row to the details form, keep the ticks and the selection, and sort.

#include "Window1.h"

#include "RowStripes.h"

#include "coordinates/PlainNumberText.h"

namespace {

// Restores a flag to the value it had when the scope began, whatever the callers held.
class FlagRestorer {
public:
    explicit FlagRestorer(bool& restored) : flag(restored), saved(restored) {}
    ~FlagRestorer() { flag = saved; }
    FlagRestorer(const FlagRestorer&) = delete;
    FlagRestorer& operator=(const FlagRestorer&) = delete;

private:
    bool& flag;
    bool saved;
};

} // namespace

void Window1::fillBatchTable() {
    const FlagRestorer restore(suppressUpdate);
    suppressUpdate = true;
    const bool latFirst = latitudeFirst();
    for (int column = 2; column <= 5; ++column)
        c.BatchListbox->setHeaderAt(column, batchHeaderText(column, latFirst));
    c.BatchListbox->showLocations(locations, BatchCellFormat::from(*this, latFirst, numberLocale));
    std::vector<int> selectedRows;
    for (std::size_t i = 0; i < locations.size(); ++i)
        if (locations[i]->selected)
            selectedRows.push_back(static_cast<int>(i));
    c.BatchListbox->setSelectedRows(selectedRows);
}

bool Window1::isLocationRow(std::int64_t row) const {
    return row >= 0 && row < static_cast<std::int64_t>(locations.size());
}

bool Window1::BatchListbox_CellClick(std::int64_t row, std::int64_t column, std::int64_t x,
                                     std::int64_t y) {
    (void)column, (void)x, (void)y;
    if (suppressUpdate || !isLocationRow(row))
        return false;
    if (!promptToRecordIfUnsaved())
        return false;
    // Recording may have changed the list (a new location is appended, never inserted), so the
    // row is checked again before it is read.
    if (!isLocationRow(row))
        return false;
    selectedLoc = row;
    const Vertex& picked = *locations[static_cast<std::size_t>(row)];
    theLocation = cloneLocation(picked);
    FillDetailsForm();
    if (showMap)
        LoadMap(picked.lat, picked.lon);
    return false;
}

void Window1::BatchListbox_CellAction(std::int64_t row, std::int64_t column) {
    (void)column;
    if (suppressUpdate || !isLocationRow(row))
        return;
    locations[static_cast<std::size_t>(row)]->checked =
        c.BatchListbox->cellCheckBoxValueAt(static_cast<int>(row), 0);
}

void Window1::BatchListbox_Change() {
    if (suppressUpdate)
        return;
    const int last = c.BatchListbox->lastRowIndex();
    for (int row = 0; row <= last && isLocationRow(row); ++row)
        locations[static_cast<std::size_t>(row)]->selected = c.BatchListbox->selected(row);
    if (c.BatchListbox->selectedRowCount() == 0) {
        selectedLoc = -1;
        makeNewEntry();
    }
}

bool Window1::BatchListbox_CompareRows(std::int64_t row1, std::int64_t row2, std::int64_t column,
                                       std::int64_t& result) {
    // The decimal degrees of the second pair and the first DMS column sort as text.
    if (column == 3 || column == 4)
        return false;
    const int c1 = static_cast<int>(row1), c2 = static_cast<int>(row2);
    const int col = static_cast<int>(column);
    const double first = Val(c.BatchListbox->cellValueAt(c1, col), numberLocale);
    const double second = Val(c.BatchListbox->cellValueAt(c2, col), numberLocale);
    result = second > first ? -1 : (first > second ? 1 : 0);
    return true;
}

bool Window1::BatchListbox_CellBackgroundPaint(GraphicsView& g, std::int64_t row,
                                               std::int64_t column) {
    (void)column;
    return paintRowStripes(g, row, c.appearance->isDarkMode());
}

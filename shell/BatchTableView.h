#pragma once
// The table of recorded locations on page 1: a table view of the core's BatchTable model with
// the look and events of the window's list control. A press on a cell reaches the window's
// click event before the view selects the row; the cell backgrounds are painted by the
// window's paint event (the stripes); a click on a header sorts by the window's comparison.

#include <QStyledItemDelegate>
#include <QTableView>

#include <functional>

class BatchTable;
class GraphicsView;

class BatchTableView : public QTableView {
    Q_OBJECT
public:
    // The window's events, by location row (click) or by row on screen (paint).
    struct Events {
        std::function<bool(int row, int column, int x, int y)> cellClick;
        std::function<bool(GraphicsView& g, int row, int column)> cellBackgroundPaint;
    };

    BatchTableView(BatchTable* table, Events windowEvents, QWidget* parent = nullptr);

    BatchTable* table() const { return batchTable; }
    // Sorts as a click on the header of that column does: ascending first, then each further
    // click on the same header turns the order round.
    void sortByHeaderClick(int column);

protected:
    void mousePressEvent(QMouseEvent* press) override;
    void showEvent(QShowEvent* event) override;

private:
    void applyColumnWidths();

    BatchTable* batchTable;
    Events events;
    bool widthsApplied = false;
};

// Paints each cell's background through the window's paint event, then a vertical grid line,
// then the cell's own content.
class BatchCellDelegate : public QStyledItemDelegate {
public:
    BatchCellDelegate(std::function<bool(GraphicsView&, int, int)> backgroundPaint, QObject* parent)
        : QStyledItemDelegate(parent), paintEvent(std::move(backgroundPaint)) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    std::function<bool(GraphicsView&, int, int)> paintEvent;
};

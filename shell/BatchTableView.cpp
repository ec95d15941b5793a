#include "BatchTableView.h"

#include "locationbook/BatchTable.h"
#include "locationbook/ControlViews.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

namespace {

// Colour word 0xAARRGGBB, AA the transparency (0x00 opaque), to a Qt colour.
QColor fromColourWord(std::uint32_t word) {
    return QColor(int((word >> 16) & 0xFF), int((word >> 8) & 0xFF), int(word & 0xFF),
                  255 - int(word >> 24));
}

std::uint32_t toColourWord(const QColor& colour) {
    return (std::uint32_t(255 - colour.alpha()) << 24) | (std::uint32_t(colour.red()) << 16) |
           (std::uint32_t(colour.green()) << 8) | std::uint32_t(colour.blue());
}

// A painter limited to one cell, in the cell's own coordinates.
class CellGraphics : public GraphicsView {
public:
    CellGraphics(QPainter* cellPainter, const QRect& area, const QColor& initial)
        : painter(cellPainter), cell(area), colour(toColourWord(initial)) {}
    std::uint32_t foreColor() const override { return colour; }
    void setForeColor(std::uint32_t word) override { colour = word; }
    int width() const override { return cell.width(); }
    int height() const override { return cell.height(); }
    void fillRectangle(int x, int y, int w, int h) override {
        painter->fillRect(QRect(cell.x() + x, cell.y() + y, w, h), fromColourWord(colour));
    }

private:
    QPainter* painter;
    QRect cell;
    std::uint32_t colour;
};

// Shares of the table's width per column: the number column narrow, the rest alike.
constexpr double columnShares[] = {0.08, 0.115, 0.115, 0.115, 0.115, 0.115, 0.115, 0.115, 0.115};

} // namespace

void BatchCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    painter->save();
    // The painter comes with the table's own background colour, so a fill that keeps it
    // (the odd rows in a dark appearance) leaves the cell as the theme draws it.
    CellGraphics g(painter, option.rect, option.palette.color(QPalette::Base));
    if (paintEvent)
        paintEvent(g, index.row(), index.column());
    painter->setPen(option.palette.color(QPalette::Mid));
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->restore();
    QStyledItemDelegate::paint(painter, option, index);
}

BatchTableView::BatchTableView(BatchTable* table, Events windowEvents, QWidget* parent)
    : QTableView(parent), batchTable(table), events(std::move(windowEvents)) {
    setModel(table);
    setSelectionModel(table->selectionModel());
    setItemDelegate(new BatchCellDelegate(this->events.cellBackgroundPaint, this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setShowGrid(false);
    setWordWrap(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->hide();
    // Rows of one height: the view then never measures the rows it doesn't show.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView* header = horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    // The header turns its own indicator on a click (ascending first, then each further click
    // on the same header the other way round); the rows follow the indicator.
    connect(header, &QHeaderView::sortIndicatorChanged, this,
            [this](int column, Qt::SortOrder order) { batchTable->sort(column, order); });
    // A rebuild shows the rows in the order of the list again: no sort is in force.
    connect(table, &QAbstractItemModel::modelReset, this,
            [header] { header->setSortIndicator(-1, Qt::AscendingOrder); });
    // The window brings a row into view by making it the current one.
    connect(table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid())
                    scrollTo(current);
            });
}

void BatchTableView::sortByHeaderClick(int column) {
    QHeaderView* header = horizontalHeader();
    const bool again = header->sortIndicatorSection() == column;
    const Qt::SortOrder order = again && header->sortIndicatorOrder() == Qt::AscendingOrder
                                    ? Qt::DescendingOrder
                                    : Qt::AscendingOrder;
    header->setSortIndicator(column, order);
}

void BatchTableView::mousePressEvent(QMouseEvent* press) {
    if (events.cellClick) {
        const QModelIndex cell = indexAt(press->pos());
        const int row = cell.isValid() ? batchTable->locationRowAt(cell.row()) : -1;
        const QPoint inCell =
            cell.isValid() ? press->pos() - visualRect(cell).topLeft() : press->pos();
        if (events.cellClick(row, cell.isValid() ? cell.column() : -1, inCell.x(), inCell.y()))
            return;
    }
    QTableView::mousePressEvent(press);
}

void BatchTableView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (!widthsApplied)
        applyColumnWidths();
}

void BatchTableView::applyColumnWidths() {
    const int width = viewport()->width();
    if (width <= 0)
        return;
    for (int column = 0; column < int(std::size(columnShares)); ++column)
        setColumnWidth(column, int(width * columnShares[column]));
    widthsApplied = true;
}

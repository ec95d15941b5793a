#pragma once
// The import window's preview table (Listbox1) as a model over the scanned text: one row per
// line of the text, column 0 its line number, columns 1 to fieldCount its fields, and a last
// column that stays empty. The text is kept once, as UTF-8 lines end to end, and a cell's text
// is cut from its line when a view or the import asks for it: a million lines cost their bytes
// and one offset each, not a row of widgets or a string per cell.

#include <QAbstractTableModel>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class ImportPreview : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ImportPreview(QObject* parent = nullptr);

    // --- Filling (the scan's second pass) ------------------------------------------------------
    // Empties the table and gives it its columns: 1 with no fields, else fieldCount + 2. The
    // sizes, when known, spare the store its regrowth.
    void beginFill(char delimiter, int fieldCount, std::int64_t expectedBytes = 0,
                   std::int64_t expectedLines = 0);
    // Adds a row holding this line (UTF-8, without its line end).
    void addLine(std::string_view line);
    void endFill();
    // Empties the table and gives its memory back.
    void clear();

    // --- What the import window's controller reads and sets ------------------------------------
    int lastRowIndex() const { return static_cast<int>(starts.size()) - 1; }
    // Column 0 the line number; a field trimmed; "" past the line's fields or the table.
    QString cellValueAt(int row, int column) const;
    // The fields of one row, trimmed, UTF-8, columns 1 to fieldCount at indexes 0 to
    // fieldCount - 1 (empty where the line has no such field).
    void rowFields(int row, std::vector<std::string_view>& fields) const;
    int fieldCount() const { return fields; }
    // "80,80,80": the widths of the first columns (pixels); the last column takes the rest.
    // Set while filling: a view takes them when the fill ends.
    QString columnWidths() const { return widths; }
    void setColumnWidths(const QString& widthsText) { widths = widthsText; }

    // --- QAbstractTableModel -------------------------------------------------------------------
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::string_view line(int row) const;

    std::string text; // every line's bytes, end to end
    std::vector<std::uint64_t>
        starts; // where each line begins in text; it ends where the next begins
    char delim = 0;
    int fields = 0;
    int columns = 1;
    QString widths;
};

#pragma once
// The saved-locations file, which Save writes and geoquill-convert writes too: UTF-8 without a
// byte-order mark, a header line of seven names (longitude first, whatever the order of the
// rows), then one line for each row: the texts of the table's columns 1 to 8 (label, the two
// decimal degrees, the two DMS, easting, northing, zone), joined by tabs. Each line ends in LF,
// the last one too. Nothing is quoted: a tab in a label goes into the line as it is.

#include "locationbook/BatchCellText.h"

#include <QString>

#include <cstddef>

namespace SavedLocationsFile {

constexpr int firstColumn = 1; // the label
constexpr int lastColumn = 8;  // the UTM zone

// The header line with its line end.
QString headerLine();

// Appends one line with its line end; appendCell(out, column) appends the text of that column.
template <class AppendCell> void appendLine(QString& out, AppendCell&& appendCell) {
    for (int column = firstColumn; column <= lastColumn; ++column) {
        if (column > firstColumn)
            out += QLatin1Char('\t');
        appendCell(out, column);
    }
    out += QLatin1Char('\n');
}

// The line of the record at place index (from 0) of the list, as the table shows it.
void appendLine(QString& out, const Vertex& v, std::size_t index, const BatchCellFormat& format);

} // namespace SavedLocationsFile

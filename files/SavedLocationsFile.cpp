#include "SavedLocationsFile.h"

#include <QStringList>

QString SavedLocationsFile::headerLine() {
    const QStringList header = {
        QStringLiteral("Longitude (DD)"),   QStringLiteral("Latitude (DD)"),
        QStringLiteral("Longitude (DMS)"),  QStringLiteral("Latitude (DMS)"),
        QStringLiteral("UTM Eastings (m)"), QStringLiteral("UTM Northings (m)"),
        QStringLiteral("UTM Zone")};
    return header.join(QLatin1Char('\t')) + QLatin1Char('\n');
}

void SavedLocationsFile::appendLine(QString& out, const Vertex& v, std::size_t index,
                                    const BatchCellFormat& format) {
    appendLine(out, [&](QString& line, int column) {
        appendBatchCellText(line, v, index, column, format);
    });
}

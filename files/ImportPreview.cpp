#include "ImportPreview.h"

#include "DelimitedLine.h"

#include <limits>

namespace {

// A cell shows at most this many characters: a 50 MB line is kept whole for the import, but no
// view can show it, and measuring it for every paint would stall the window.
constexpr int shownCharacters = 2000;

} // namespace

ImportPreview::ImportPreview(QObject* parent) : QAbstractTableModel(parent) {}

void ImportPreview::beginFill(char delimiter, int fieldCount, std::int64_t expectedBytes,
                              std::int64_t expectedLines) {
    beginResetModel();
    text.clear();
    text.shrink_to_fit();
    starts.clear();
    starts.shrink_to_fit();
    if (expectedBytes > 0)
        text.reserve(static_cast<std::size_t>(expectedBytes));
    if (expectedLines > 0)
        starts.reserve(static_cast<std::size_t>(expectedLines));
    delim = delimiter;
    fields = fieldCount;
    columns = fieldCount == 0 ? 1 : fieldCount + 2;
}

void ImportPreview::addLine(std::string_view line) {
    // A model counts its rows in int; a text of more lines than that could not be shown.
    if (starts.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max() - 1))
        return;
    starts.push_back(text.size());
    text.append(line.data(), line.size());
}

void ImportPreview::endFill() {
    endResetModel();
}

void ImportPreview::clear() {
    beginFill(0, 0);
    endFill();
}

std::string_view ImportPreview::line(int row) const {
    const auto r = static_cast<std::size_t>(row);
    const std::uint64_t begin = starts[r];
    const std::uint64_t end = r + 1 < starts.size() ? starts[r + 1] : text.size();
    return std::string_view(text.data() + begin, static_cast<std::size_t>(end - begin));
}

void ImportPreview::rowFields(int row, std::vector<std::string_view>& out) const {
    DelimitedLine::fieldsOf(row < 0 || row > lastRowIndex() ? std::string_view() : line(row), delim,
                            static_cast<std::size_t>(fields), out);
}

QString ImportPreview::cellValueAt(int row, int column) const {
    if (row < 0 || row > lastRowIndex() || column < 0)
        return QString();
    if (column == 0)
        return QString::number(row + 1);
    if (column > fields)
        return QString();
    std::string_view cell;
    DelimitedLine::forEachField(line(row), delim, static_cast<std::size_t>(column),
                                [&](std::size_t i, std::string_view field) {
                                    if (static_cast<int>(i) == column - 1)
                                        cell = field;
                                });
    // Blanks beyond ASCII (a no-break space from a spreadsheet) are trimmed too.
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size())).trimmed();
}

int ImportPreview::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(starts.size());
}

int ImportPreview::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant ImportPreview::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return QVariant();
    QString cell = cellValueAt(index.row(), index.column());
    if (cell.size() > shownCharacters) {
        cell.truncate(shownCharacters);
        cell.append(QChar(0x2026));
    }
    if (role == Qt::ToolTipRole && cell.isEmpty())
        return QVariant();
    return cell;
}

QVariant ImportPreview::headerData(int section, Qt::Orientation orientation, int role) const {
    (void)section;
    // The columns have no heading text: the pop-up menus name them by number.
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return QString();
    return QVariant();
}

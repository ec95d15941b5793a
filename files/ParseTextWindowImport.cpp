// OK in the import window: the user's choice of columns turns the preview's rows into locations
// of the main window.

#include "ImportMessages.h"
#include "ParseTextWindow.h"
#include "coordinates/MessageBox.h"
#include "coordinates/NumberText.h"
#include "coordinates/generalModule.h"
#include "locationbook/Window1.h"
#include "map/MapView.h"

#include <QStringList>

#include <limits>

namespace {

// Shows each text once per import: a file whose every line has a zone the builder can't read
// gets its two messages once, not a million times.
class MessagesOnce : public MessageBox {
public:
    explicit MessagesOnce(MessageBox& shownBy) : target(shownBy) {}
    void show(const QString& text) override {
        if (shown.contains(text))
            return;
        shown << text;
        target.show(text);
    }

private:
    MessageBox& target;
    QStringList shown;
};

// The first line with data: a whole number of 1 or more; anything else counts as 1. A number
// past the end of the text takes no row.
std::int64_t firstLineNumber(const QString& text) {
    const QString digits = text.trimmed();
    if (digits.isEmpty())
        return 1;
    std::int64_t value = 0;
    for (const QChar ch : digits) {
        if (ch < QLatin1Char('0') || ch > QLatin1Char('9'))
            return 1;
        const int digit = ch.unicode() - '0';
        constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max();
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return value >= 1 ? value : 1;
}

QString cellText(std::string_view cell) {
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size())).trimmed();
}

// The number a cell's text reads as. Short ASCII cells, nearly every cell of a coordinates
// file, are read without making a string.
double cellNumber(std::string_view cell, const NumberLocale& locale) {
    constexpr std::size_t shortCell = 64;
    if (cell.size() <= shortCell) {
        char16_t wide[shortCell];
        bool ascii = true;
        for (std::size_t i = 0; i < cell.size() && ascii; ++i) {
            const auto byte = static_cast<unsigned char>(cell[i]);
            ascii = byte < 0x80;
            wide[i] = byte;
        }
        if (ascii)
            return ToDouble(QStringView(wide, static_cast<qsizetype>(cell.size())), locale);
    }
    return ToDouble(cellText(cell), locale);
}

} // namespace

void ParseTextWindow::PushButton1_Action() {
    if (c.PopupMenuLonEast->selectedRowIndex() < 1 || c.PopupMenuLatNorth->selectedRowIndex() < 1) {
        c.messageBox->show(
            QStringLiteral("You must specify the column for each type of coordinate"));
        return;
    }
    if (c.SegmentedButton1->selectedSegmentIndex() == 2 &&
        c.PopupMenuUTMZ->selectedRowIndex() < 1) {
        c.messageBox->show(QStringLiteral("UTM coordinates require a zone number! Please identify "
                                          "the column that has the zone number."));
        return;
    }
    if (!w) {
        close();
        return;
    }
    const std::int64_t firstRow = firstLineNumber(c.TextFieldFirstLine->text()) - 1;
    std::vector<VertexRef> built;
    // Cancel while loading: the list stays as it was and the user can choose again.
    if (!buildLocations(
            static_cast<int>(std::min<std::int64_t>(firstRow, std::numeric_limits<int>::max())),
            built))
        return;

    // The window closes now: its copy of the text makes way for the pins and the table.
    c.Listbox1->clear();
    if (!c.CheckBox1->value()) {
        if (w->mapview)
            w->mapview->removeAnnotations(w->Pins);
        w->Pins.clear();
        w->locations.clear();
        // No row of the new list is on show in the details form.
        w->selectedLoc = -1;
    }
    if (w->locations.empty()) {
        w->locations = std::move(built);
    } else {
        w->locations.reserve(w->locations.size() + built.size());
        for (VertexRef& v : built)
            w->locations.push_back(std::move(v));
    }
    w->makePinsFromLocations();
    w->fillBatchTable();
    close();
}

bool ParseTextWindow::buildLocations(int firstRow, std::vector<VertexRef>& built) {
    const ImportPreview& preview = *c.Listbox1;
    const int lastRow = preview.lastRowIndex();
    if (firstRow > lastRow)
        return true;
    const std::int64_t count = std::int64_t(lastRow) - firstRow + 1;
    built.reserve(static_cast<std::size_t>(count));
    const bool showingProgress = count > progressLines;
    if (showingProgress)
        c.progress->begin(ImportMessages::importing(), count);

    const int notation = c.SegmentedButton1->selectedSegmentIndex();
    const int lonColumn = c.PopupMenuLonEast->selectedRowIndex();
    const int latColumn = c.PopupMenuLatNorth->selectedRowIndex();
    const int zoneColumn = c.PopupMenuUTMZ->selectedRowIndex();
    const int labelColumn = c.PopupMenuLabel->selectedRowIndex();
    const NumberLocale& locale = w->numberLocale;
    MessagesOnce messages(*c.messageBox);
    std::vector<std::string_view> fields;
    const auto cell = [&fields](int column) {
        return column >= 1 && column <= static_cast<int>(fields.size())
                   ? fields[static_cast<std::size_t>(column - 1)]
                   : std::string_view();
    };

    for (int row = firstRow; row <= lastRow; ++row) {
        preview.rowFields(row, fields);
        VertexRef v;
        if (notation == 1)
            v = generalModule::vertexFromDMS(cellText(cell(lonColumn)), cellText(cell(latColumn)));
        else if (notation == 2)
            v = generalModule::vertexFromUTM(cellNumber(cell(lonColumn), locale),
                                             cellNumber(cell(latColumn), locale),
                                             cellText(cell(zoneColumn)), messages);
        else
            v = generalModule::vertexFromDD(cellNumber(cell(lonColumn), locale),
                                            cellNumber(cell(latColumn), locale));
        if (labelColumn >= 1)
            v->label = cellText(cell(labelColumn));
        // Imported locations count as recorded: there is nothing to prompt about.
        v->saved = true;
        built.push_back(std::move(v));
        const std::int64_t done = row - firstRow + 1;
        if (showingProgress && done % 4096 == 0 && !c.progress->advance(done)) {
            c.progress->end();
            built.clear();
            return false;
        }
    }
    if (showingProgress)
        c.progress->end();
    return true;
}

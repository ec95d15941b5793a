// OK in the import window: the user's choice of columns turns the preview's rows into locations
// of the main window.

#include "ImportMessages.h"
#include "ImportRowBuilder.h"
#include "ParseTextWindow.h"
#include "locationbook/Window1.h"
#include "map/MapView.h"

#include <limits>

void ParseTextWindow::PushButton1_Action() {
    ImportColumns columns;
    columns.notation = c.SegmentedButton1->selectedSegmentIndex();
    columns.lonEast = c.PopupMenuLonEast->selectedRowIndex();
    columns.latNorth = c.PopupMenuLatNorth->selectedRowIndex();
    columns.zone = c.PopupMenuUTMZ->selectedRowIndex();
    columns.label = c.PopupMenuLabel->selectedRowIndex();
    const QString missing = columns.missingColumnMessage();
    if (!missing.isEmpty()) {
        c.messageBox->show(missing);
        return;
    }
    if (!w) {
        close();
        return;
    }
    const std::int64_t firstRow = ImportColumns::firstLineNumber(c.TextFieldFirstLine->text()) - 1;
    std::vector<VertexRef> built;
    // Cancel while loading: the list stays as it was and the user can choose again.
    if (!buildLocations(
            columns,
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

bool ParseTextWindow::buildLocations(const ImportColumns& columns, int firstRow,
                                     std::vector<VertexRef>& built) {
    const ImportPreview& preview = *c.Listbox1;
    const int lastRow = preview.lastRowIndex();
    if (firstRow > lastRow)
        return true;
    const std::int64_t count = std::int64_t(lastRow) - firstRow + 1;
    built.reserve(static_cast<std::size_t>(count));
    const bool showingProgress = count > progressLines;
    if (showingProgress)
        c.progress->begin(ImportMessages::importing(), count);

    ImportRowBuilder builder(columns, w->numberLocale, *c.messageBox);
    std::vector<std::string_view> fields;
    for (int row = firstRow; row <= lastRow; ++row) {
        preview.rowFields(row, fields);
        built.push_back(builder.build(fields));
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

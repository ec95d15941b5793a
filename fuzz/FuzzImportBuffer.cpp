// The whole import of any file: File > Open on the bytes, the user's choice of notation, columns
// and first line taken from the first bytes, then OK. Whatever the file holds, every line from
// the first line on becomes one location, or the missing column is reported and nothing is
// added; no message is shown twice.

#include "FuzzInput.h"

#include "support/FakeWindow.h"

#include <QSet>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

std::string scratchPath;

const QString noColumn = QStringLiteral("You must specify the column for each type of coordinate");
const QString noZone = QStringLiteral("UTM coordinates require a zone number! Please identify the "
                                      "column that has the zone number.");

struct Choice {
    int notation = 0;                          // 0 DD, 1 DMS, 2 UTM
    int lon = 0, lat = 0, zone = 0, label = 0; // menu rows: 0 no column, i column i
    QString firstLine;
    std::int64_t firstLineNumber = 1; // what a person reads in firstLine
};

// Six bytes of choices; a column past the menu's end is taken modulo its length.
Choice takeChoice(const std::uint8_t*& data, std::size_t& size) {
    std::uint8_t b[6];
    takeChoiceBytes(data, size, b);
    Choice c;
    c.notation = b[0] % 3;
    c.lon = b[1];
    c.lat = b[2];
    c.zone = b[3];
    c.label = b[4];
    // Mostly small line numbers, sometimes a text that is no number at all or one past any file.
    switch (b[5] >> 5) {
    case 0:
        c.firstLine = QStringLiteral(" 2x");
        break;
    case 1:
        c.firstLine = QStringLiteral("99999999999999999999999");
        c.firstLineNumber = INT64_MAX;
        break;
    default:
        c.firstLineNumber = b[5] & 31;
        c.firstLine = QString::number(c.firstLineNumber);
        if (c.firstLineNumber == 0)
            c.firstLineNumber = 1;
        break;
    }
    return c;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    char name[] = "/tmp/geoquill-fuzz-import-XXXXXX";
    const int fd = mkstemp(name);
    if (fd < 0)
        std::abort();
    close(fd);
    scratchPath = name;
    std::atexit([] { std::remove(scratchPath.c_str()); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Choice choice = takeChoice(data, size);
    {
        std::FILE* f = std::fopen(scratchPath.c_str(), "wb");
        FUZZ_CHECK(f);
        FUZZ_CHECK(size == 0 || std::fwrite(data, 1, size, f) == size);
        FUZZ_CHECK(std::fclose(f) == 0);
    }

    FakeWindow win;
    FakeImportWindow& iw = win.importFile(QString::fromStdString(scratchPath));
    FUZZ_CHECK(!iw.closed);
    FUZZ_CHECK(iw.messageBox.shown.isEmpty() || iw.controller->fieldCount == 60);
    const int rows = iw.Listbox1.lastRowIndex() + 1;
    if (!startsWithUtf16Mark(data, size))
        FUZZ_CHECK(rows == countLines(data, size));
    const int menuRows = iw.PopupMenuLonEast.rowCount();
    FUZZ_CHECK(menuRows == iw.controller->fieldCount + 1);

    iw.pressSegment(choice.notation);
    iw.PopupMenuLonEast.selected = choice.lon % menuRows;
    iw.PopupMenuLatNorth.selected = choice.lat % menuRows;
    iw.PopupMenuUTMZ.selected = choice.zone % menuRows;
    iw.PopupMenuLabel.selected = choice.label % menuRows;
    iw.TextFieldFirstLine.value = choice.firstLine;
    const int shownBefore = iw.messageBox.shown.size();
    iw.controller->PushButton1_Action();

    const QStringList shown = iw.messageBox.shown.mid(shownBefore);
    FUZZ_CHECK(QSet<QString>(shown.begin(), shown.end()).size() == shown.size());
    const std::size_t added = win->locations.size();
    if (iw.PopupMenuLonEast.selected == 0 || iw.PopupMenuLatNorth.selected == 0) {
        FUZZ_CHECK(shown == QStringList{noColumn});
        FUZZ_CHECK(added == 0 && !iw.closed);
        return 0;
    }
    if (choice.notation == 2 && iw.PopupMenuUTMZ.selected == 0) {
        FUZZ_CHECK(shown == QStringList{noZone});
        FUZZ_CHECK(added == 0 && !iw.closed);
        return 0;
    }
    const std::int64_t expected =
        choice.firstLineNumber > rows ? 0 : rows - (choice.firstLineNumber - 1);
    FUZZ_CHECK(static_cast<std::int64_t>(added) == expected);
    FUZZ_CHECK(iw.closed);
    FUZZ_CHECK(static_cast<std::size_t>(win.BatchListbox.rowCount()) == added);
    return 0;
}

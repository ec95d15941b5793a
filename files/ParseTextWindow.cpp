// The import window's scan of the text and its preview, the notation buttons and Cancel.

#include "ParseTextWindow.h"

#include "DelimiterScan.h"
#include "ImportMessages.h"
#include "TextLineReader.h"
#include "coordinates/MessageBox.h"
#include "locationbook/RowStripes.h"
#include "locationbook/Window1.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace {

// Progress is shown and Cancel looked at once every so many lines.
constexpr std::int64_t progressStep = 4096;

} // namespace

ParseTextWindow::ParseTextWindow(const ParseTextWindowControls& controls) : c(controls) {}

ParseTextWindow::~ParseTextWindow() = default;

void ParseTextWindow::keepTemporaryFile(std::unique_ptr<QTemporaryFile> file) {
    temporaryFile = std::move(file);
}

void ParseTextWindow::Event_Open(const std::vector<DocWindowAndMenu::OpenWindow>& frontToBack) {
    w = DocWindowAndMenu::getFrontWindow(frontToBack);
    // There is nothing to append to in an empty list.
    const bool canAppend = w && !w->locations.empty();
    c.CheckBox1->setValue(canAppend);
    c.CheckBox1->setVisible(canAppend);
}

void ParseTextWindow::ParseTextFile(const QString& path) {
    if (!readText(path)) {
        close();
        return;
    }
    // Typing replaces the proposed first line.
    c.TextFieldFirstLine->setFocus();
    c.TextFieldFirstLine->selectAll();
}

bool ParseTextWindow::readText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        c.messageBox->show(ImportMessages::couldNotRead(path, file.errorString()));
        return false;
    }
    // Both readings go through this one open file, so a file removed or renamed between them is
    // still read whole.
    const std::int64_t size = file.size();
    bool showingProgress = false;
    const auto keepGoing = [&](std::int64_t lines, std::int64_t bytesDone) {
        if (!showingProgress && lines > progressLines) {
            c.progress->begin(ImportMessages::reading(path), 2 * size);
            showingProgress = true;
        }
        return !showingProgress || c.progress->advance(bytesDone);
    };
    const auto stop = [&](const QString& message) {
        if (showingProgress)
            c.progress->end();
        if (!message.isEmpty())
            c.messageBox->show(message);
        return false;
    };

    // First reading: the delimiter of the last line that has one, and the widest line.
    DelimiterScan scan;
    std::int64_t lines = 0;
    TextLineReader first(file, TextLineReader::Encoding::Sniff);
    std::string_view line;
    while (first.next(line)) {
        scan.addLine(line);
        if (++lines % progressStep == 0 && !keepGoing(lines, first.bytesRead()))
            return stop(QString());
    }
    if (first.failed())
        return stop(ImportMessages::couldNotRead(path, first.errorString()));

    if (scan.tooWide())
        c.messageBox->show(DelimiterScan::tooWideMessage());
    delim = scan.delimiter();
    fieldCount = scan.fieldCount();

    const TextLineReader::Encoding encoding = first.encodingOfSecondReading();
    std::int64_t expectedBytes = first.bytesRead();
    if (encoding == TextLineReader::Encoding::Latin1)
        expectedBytes += first.latin1Growth();
    else if (encoding != TextLineReader::Encoding::Utf8)
        expectedBytes = 0; // UTF-16: the UTF-8 size is not known

    PopupMenuView* const menus[] = {c.PopupMenuLatNorth, c.PopupMenuLonEast, c.PopupMenuUTMZ,
                                    c.PopupMenuLabel};
    // Row i of each menu is column i of the preview; row 0 is no column.
    for (PopupMenuView* menu : menus)
        menu->addRow(QStringLiteral("N/A"));
    for (int i = 1; i <= fieldCount; ++i)
        for (PopupMenuView* menu : menus)
            menu->addRow(QString::number(i));

    ImportPreview& preview = *c.Listbox1;
    preview.beginFill(delim, fieldCount, expectedBytes, lines);
    QString widths = QStringLiteral("80");
    for (int i = 0; i < fieldCount; ++i)
        widths += QStringLiteral(",80");
    preview.setColumnWidths(widths);

    // Second reading: every line a row of the preview, blank lines included.
    if (!file.seek(0)) {
        preview.endFill();
        return stop(ImportMessages::couldNotRead(path, file.errorString()));
    }
    TextLineReader second(file, encoding);
    std::int64_t rows = 0;
    while (second.next(line)) {
        preview.addLine(line);
        if (++rows % progressStep == 0 &&
            !keepGoing(lines, first.bytesRead() + second.bytesRead())) {
            preview.endFill();
            return stop(QString());
        }
    }
    preview.endFill();
    if (second.failed())
        return stop(ImportMessages::couldNotRead(path, second.errorString()));
    if (showingProgress)
        c.progress->end();
    return true;
}

void ParseTextWindow::SegmentedButton1_Pressed(int segmentIndex) {
    const bool utm = segmentIndex == 2;
    c.Label2->setText(utm ? QStringLiteral("Eastings:") : QStringLiteral("Longitude:"));
    c.Label3->setText(utm ? QStringLiteral("Northings:") : QStringLiteral("Latitude:"));
    c.Label4->setVisible(utm);
    c.PopupMenuUTMZ->setVisible(utm);
}

bool ParseTextWindow::Listbox1_CellBackgroundPaint(GraphicsView& g, std::int64_t row,
                                                   std::int64_t column) {
    (void)column;
    return paintRowStripes(g, row, c.appearance->isDarkMode());
}

void ParseTextWindow::PushButton2_Action() {
    close();
}

void ParseTextWindow::close() {
    c.window->close();
}

// Reading delimited text into the import window and loading its rows as locations, on the
// controller over fakes: the delimiter and width rules, encodings and line ends, the choice of
// columns and its two messages, append and replace, the first line, progress and Cancel, and
// hostile files.

#include "files/TextLineReader.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <cstring>

#include <gtest/gtest.h>

namespace {

class ImportTest : public testing::Test {
protected:
    QString write(const QByteArray& bytes) {
        QFile f(dir.filePath(QStringLiteral("in.txt")));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return f.fileName();
    }
    FakeImportWindow& open(const QByteArray& bytes) { return win.importFile(write(bytes)); }
    void record() { win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25")); }

    QTemporaryDir dir;
    FakeWindow win;
};

struct ScanCase {
    const char* name;
    QByteArray text;
    char delim;
    int fieldCount;
    QByteArray rows; // UTF-8: rows by "/", cells by "|", the line number first
};

class ScanRules : public ImportTest, public testing::WithParamInterface<ScanCase> {};

TEST_P(ScanRules, PreviewHoldsEveryLineSplitByTheLastDelimiter) {
    const ScanCase& t = GetParam();
    FakeImportWindow& iw = open(t.text);
    EXPECT_EQ(iw.controller->delim, t.delim);
    EXPECT_EQ(iw.controller->fieldCount, t.fieldCount);
    EXPECT_EQ(iw.Listbox1.columnCount(), t.fieldCount == 0 ? 1 : t.fieldCount + 2);
    QStringList rows;
    for (int r = 0; r <= iw.Listbox1.lastRowIndex(); ++r) {
        QStringList cells;
        for (int col = 0; col <= t.fieldCount; ++col)
            cells << iw.Listbox1.cellValueAt(r, col);
        rows << cells.join(QLatin1Char('|'));
    }
    EXPECT_EQ(rows.join(QLatin1Char('/')).toUtf8(), t.rows);
    QStringList menu{QStringLiteral("N/A")};
    for (int i = 1; i <= t.fieldCount; ++i)
        menu << QString::number(i);
    for (const auto* p :
         {&iw.PopupMenuLonEast, &iw.PopupMenuLatNorth, &iw.PopupMenuUTMZ, &iw.PopupMenuLabel})
        EXPECT_EQ(p->rows, menu);
    EXPECT_TRUE(iw.messageBox.shown.isEmpty() && !iw.closed);
    EXPECT_FALSE(iw.CheckBox1.visible || iw.CheckBox1.ticked); // nothing to append to
    EXPECT_EQ(iw.Listbox1.columnWidths().split(',').size(), t.fieldCount + 1);
    EXPECT_EQ(win.TabPanel1.page, 1); // the list's page, where the locations will show
    EXPECT_TRUE(iw.TextFieldFirstLine.focusRequests == 1 && iw.TextFieldFirstLine.allSelected);
}

INSTANTIATE_TEST_SUITE_P(
    Files, ScanRules,
    testing::Values(
        ScanCase{"comma", "12.5,-70.1\n12.5,-70.1\n", ',', 2, "1|12.5|-70.1/2|12.5|-70.1"},
        ScanCase{"runOfSpaces", "12.5  -70.1", ' ', 2, "1|12.5|-70.1"},
        ScanCase{"tabWinsInItsLineLastLineDecides", "a\tb,c\nd\te\nf , g", ',', 2,
                 "1|a\tb|c/2|d\te|/3|f|g"},
        ScanCase{"headerOfSevenAboveEight", "1,2,3,4,5,6,7\n1,2,3,4,5,6,7,8\n", ',', 8,
                 "1|1|2|3|4|5|6|7|/2|1|2|3|4|5|6|7|8"},
        ScanCase{"blankLineKeepsItsRow", "1,2\n\n3,4", ',', 2, "1|1|2/2||/3|3|4"},
        ScanCase{"emptyFieldsKeepTheirPlace", "a,,b\n", ',', 3, "1|a||b"},
        ScanCase{"quotesSplitLikeAnything", "\"a,b\",c", ',', 3, "1|\"a|b\"|c"},
        ScanCase{"windowsAndOldMacLineEnds", "1,2\r\n3,4\r5,6\r\n", ',', 2, "1|1|2/2|3|4/3|5|6"},
        ScanCase{"utf8ByteOrderMarkSkipped", "\xEF\xBB\xBFx,1", ',', 2, "1|x|1"},
        ScanCase{"utf16WithByteOrderMark", QByteArray("\xFF\xFEx\0,\0\xFC\0", 8), ',', 2,
                 "1|x|\xC3\xBC"},
        ScanCase{"latin1WhenNotUtf8", "Z\xFCrich,1", ',', 2, "1|Z\xC3\xBCrich|1"},
        ScanCase{"utf8UpToItsEdges", "\xC3\x80\xF4\x8F\xBF\xBF,1", ',', 2,
                 "1|\xC3\x80\xF4\x8F\xBF\xBF|1"},
        ScanCase{"latin1WhenASequenceBreaksOff", "\xC3xxxxxxxxxx,1", ',', 2,
                 "1|\xC3\x83xxxxxxxxxx|1"},
        ScanCase{"latin1ForALoneContinuationByte", "\x80x,1", ',', 2, "1|\xC2\x80x|1"},
        ScanCase{"latin1ForALeadPastF4", "\xF5\x80\x80\x80,1", ',', 2,
                 "1|\xC3\xB5\xC2\x80\xC2\x80\xC2\x80|1"},
        ScanCase{"noDelimiterAnywhere", "abc\ndef", 0, 0, "1/2"},
        ScanCase{"emptyTextIsOneEmptyLine", "", 0, 0, "1"},
        ScanCase{"nulIsACharacter", QByteArray("1\0a,2", 5), ',', 2, QByteArray("1|1\0a|2", 7)}),
    [](const testing::TestParamInfo<ScanCase>& row) { return std::string(row.param.name); });

TEST_F(ImportTest, SixtyColumnsAreShownAndMoreTakeTheMessage) {
    for (const int n : {60, 61, 10000}) {
        FakeImportWindow& iw = open(QByteArray("x\t").repeated(n - 1) + "60");
        const QString wide = "Your text file has > 60 columns of data. You will only be able to "
                             "import data from the first 60 columns.";
        EXPECT_EQ(iw.messageBox.shown, n > 60 ? QStringList{wide} : QStringList{});
        EXPECT_EQ(iw.controller->fieldCount, 60);
        EXPECT_EQ(iw.Listbox1.cellValueAt(0, 60), n == 60 ? "60" : "x");
        EXPECT_EQ(iw.Listbox1.cellValueAt(0, 61), QString());
    }
}

TEST_F(ImportTest, EachNotationMakesTheLocationsOfItsColumns) {
    // Lines as a user's file has them: label, latitude, longitude, DMS pair, UTM with zone.
    const QByteArray text =
        "name\tlat\tlon\tdms lat\tdms lon\tE\tN\tzone\n"
        "Milan\t45.5\t9.25\t45 30 0 N\t9 15 0 E\t519531.699\t5038526.897\t32 N\n"
        "Sydney\t-33.85\t151.2\t33 51 0 S\t151 12 0 E\t333471.815\t6253018.169\t56 S\n";
    struct Row {
        int segment, lon, lat, zone;
    };
    for (const Row r : {Row{0, 3, 2, 0}, Row{1, 5, 4, 0}, Row{2, 6, 7, 8}}) {
        FakeImportWindow& iw = open(text);
        iw.CheckBox1.ticked = false;
        iw.pressSegment(r.segment);
        const bool utm = r.segment == 2;
        EXPECT_EQ(iw.Label2.caption + iw.Label3.caption,
                  utm ? "Eastings:Northings:" : "Longitude:Latitude:");
        EXPECT_EQ(iw.PopupMenuUTMZ.visible && iw.Label4.visible, utm);
        iw.ok(r.lon, r.lat, 1, "2", r.zone);
        ASSERT_EQ(win->locations.size(), 2u) << r.segment;
        const double expected[2][2] = {{45.5, 9.25}, {-33.85, 151.2}};
        for (std::size_t i = 0; i < 2; ++i) {
            const Vertex& v = *win->locations[i];
            EXPECT_NEAR(v.lat, expected[i][0], 1e-6) << r.segment;
            EXPECT_NEAR(v.lon, expected[i][1], 1e-6) << r.segment;
            EXPECT_TRUE(v.saved && v.checked);
        }
        EXPECT_EQ(win->locations[1]->label, QStringLiteral("Sydney"));
        EXPECT_EQ(win.BatchListbox.lastRowIndex(), 1);
        EXPECT_TRUE(win->Pins.size() == 2u && iw.closed);
    }
}

TEST_F(ImportTest, MissingColumnsTakeTheirMessageAndChangeNothing) {
    record();
    FakeImportWindow& iw = open("1,2,32\n3,4,33\n");
    iw.CheckBox1.ticked = false; // a replacing import that must not begin
    iw.ok(0, 2);
    iw.pressSegment(2);
    iw.ok(1, 2);
    EXPECT_EQ(iw.messageBox.shown,
              (QStringList{"You must specify the column for each type of coordinate",
                           "UTM coordinates require a zone number! Please identify the column "
                           "that has the zone number."}));
    EXPECT_FALSE(iw.closed);
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_DOUBLE_EQ(win->locations[0]->lat, 45.5);
}

TEST_F(ImportTest, AppendKeepsTheListAndReplaceClearsListPinsAndSelection) {
    FakeMapView map;
    win->Map_Open(&map);
    record();
    win.clickRow(0);
    FakeImportWindow& appending = open("10,20,a\n30,40,b\n");
    EXPECT_TRUE(appending.CheckBox1.visible && appending.CheckBox1.ticked);
    appending.ok(1, 2, 3);
    ASSERT_EQ(win->locations.size(), 3u);
    EXPECT_EQ(win->locations[2]->label, QStringLiteral("b"));
    EXPECT_EQ(win->selectedLoc, 0);

    const std::vector<MapPinRef> oldPins = win->Pins;
    FakeImportWindow& replacing = open("10,20,c\n");
    replacing.CheckBox1.ticked = false;
    replacing.ok(1, 2, 3);
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_EQ(win->locations[0]->label, QStringLiteral("c"));
    EXPECT_EQ(win->selectedLoc, -1);
    for (const MapPinRef& pin : oldPins) // the old pins are gone from the map
        EXPECT_EQ(std::count(map.pins.begin(), map.pins.end(), pin), 0);
    EXPECT_EQ(std::count(map.pins.begin(), map.pins.end(), win->Pins[0]), 1);
}

TEST_F(ImportTest, FirstLineThatIsNotAWholeNumberOfOneOrMoreCountsAsOne) {
    const std::pair<const char*, std::size_t> cases[] = {
        {"2", 2},  {" 3 ", 1}, {"0", 3},
        {"-2", 3}, {"abc", 3}, {"2.5", 3},
        {"4", 0},  {"10", 0},  {"99999999999999999999999", 0},
        {"", 3}};
    for (const auto& [first, taken] : cases) {
        FakeImportWindow& iw = open("1,2\n3,4\n\n");
        iw.CheckBox1.ticked = false;
        iw.ok(1, 2, 0, QString::fromLatin1(first));
        EXPECT_TRUE(win->locations.size() == taken && iw.closed) << first;
    }
    // Every row in the range is taken: the blank third line is a location at 0, 0.
    EXPECT_EQ(win->locations.back()->lat, 0.0);
}

TEST_F(ImportTest, UnreadableZonesAreToldOncePerImport) {
    FakeImportWindow& iw = open("x,500000,4000000\ny,500000,4000000\n");
    iw.pressSegment(2);
    iw.ok(2, 3, 0, "1", 1);
    EXPECT_EQ(win->locations.size(), 2u);
    EXPECT_EQ(iw.messageBox.shown.size(), 2); // the two texts of the unreadable zone, once
}

TEST_F(ImportTest, UnreadableFilesAreNamedAndCloseTheWindow) {
    record();
    for (const QString& path : {dir.filePath(QStringLiteral("missing.txt")), dir.path()}) {
        FakeImportWindow& iw = win.importFile(path);
        ASSERT_EQ(iw.messageBox.shown.size(), 1);
        EXPECT_TRUE(iw.messageBox.shown[0].contains(QDir::toNativeSeparators(path)));
        EXPECT_TRUE(iw.closed && win->locations.size() == 1u);
    }
}

// A text of many lines: progress with Cancel in both readings and while loading.
class LongTextTest : public ImportTest {
protected:
    void SetUp() override {
        for (int i = 0; i < 100500; ++i)
            text += QByteArray::number(i % 90) + ",1\n";
        record();
    }
    QByteArray text;
};

TEST_F(LongTextTest, CancelWhileReadingClosesTheWindow) {
    win.importWindows.prepare = [](FakeImportWindow& iw) { iw.progress.cancelAt = 1; };
    FakeImportWindow& iw = open(text);
    EXPECT_TRUE(iw.closed && iw.progress.ends == 1 && win->locations.size() == 1u);
}

TEST_F(LongTextTest, CancelWhileLoadingLeavesTheListAsItWas) {
    FakeImportWindow& iw = open(text);
    EXPECT_EQ(iw.progress.captions, QStringList{"Reading \u201Cin.txt\u201D\u2026"});
    iw.CheckBox1.ticked = false;
    iw.progress.cancelAt = 50000;
    iw.ok(2, 1);
    EXPECT_TRUE(!iw.closed && iw.progress.ends == 2);
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_DOUBLE_EQ(win->locations[0]->lat, 45.5);
    iw.progress.cancelAt = -1;
    iw.ok(2, 1);
    EXPECT_EQ(win->locations.size(), 100500u);
}

TEST_F(LongTextTest, FileRemovedBetweenTheReadingsIsStillReadWhole) {
    // The first reading reports progress; the file is gone before the second one starts.
    win.importWindows.prepare = [this](FakeImportWindow& iw) {
        iw.progress.onAdvance = [this] { QFile::remove(dir.filePath(QStringLiteral("in.txt"))); };
    };
    FakeImportWindow& iw = open(text);
    EXPECT_EQ(iw.Listbox1.lastRowIndex(), 100499);
    EXPECT_EQ(iw.Listbox1.cellValueAt(100499, 1), QStringLiteral("59"));
}

TEST_F(ImportTest, LinesOfAnyLengthAreReadWhole) {
    // A CR LF split between two reads of the file still ends one line.
    EXPECT_EQ(open(QByteArray(256 * 1024 - 1, 'x') + "\r\n1,2").Listbox1.lastRowIndex(), 1);
    // One line of 50 MB: held whole, shown cut.
    FakeImportWindow& big = open(QByteArray(50 << 20, '7') + ",1");
    EXPECT_EQ(big.Listbox1.cellValueAt(0, 1).size(), 50 << 20);
    EXPECT_LT(big.Listbox1.data(big.Listbox1.index(0, 1), Qt::DisplayRole).toString().size(),
              10000);
}

// A device that gives some bytes and then fails, as a file on a drive pulled out mid-read.
class FailingDevice : public QIODevice {
public:
    FailingDevice() { open(QIODevice::ReadOnly); }
    qint64 readData(char* data, qint64) override {
        if (given)
            return -1;
        given = true;
        std::memcpy(data, "a,1\nb,2", 7);
        return 7;
    }
    qint64 writeData(const char*, qint64) override { return -1; }
    bool given = false;
};

TEST(TextLineReaderTest, AReadErrorEndsTheLinesAndIsReported) {
    FailingDevice device;
    TextLineReader reader(device, TextLineReader::Encoding::Sniff);
    std::string_view line;
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line, "a,1");
    EXPECT_FALSE(reader.next(line)); // "b,2" may not be whole
    EXPECT_TRUE(reader.failed());
}

} // namespace

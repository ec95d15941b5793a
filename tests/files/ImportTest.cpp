// Reading delimited text into the import window and loading its rows as locations, on the
// controller over fakes: the delimiter and width rules, encodings and line ends, the choice of
// columns and its two messages, append and replace, the first line, progress and Cancel, and
// hostile files.

#include "coordinates/LatLon_UTM.h"
#include "support/FakeMapView.h"
#include "support/FakeWindow.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

#include <gtest/gtest.h>

namespace {

const QString noColumn = QStringLiteral("You must specify the column for each type of coordinate");
const QString noZone = QStringLiteral("UTM coordinates require a zone number! Please identify the "
                                      "column that has the zone number.");
const QString tooWide = QStringLiteral("Your text file has > 60 columns of data. You will only be "
                                       "able to import data from the first 60 columns.");

class ImportTest : public testing::Test {
protected:
    QString write(const QByteArray& bytes, const QString& name = QStringLiteral("in.txt")) {
        const QString path = dir.filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return path;
    }
    FakeImportWindow& open(const QByteArray& bytes) { return win.importFile(write(bytes)); }
    // Every row of the preview as "line|field|field", the fields up to the widest line.
    static QStringList rows(const FakeImportWindow& iw) {
        QStringList out;
        for (int r = 0; r <= iw.Listbox1.lastRowIndex(); ++r) {
            QStringList cells;
            for (int col = 0; col <= iw.Listbox1.fieldCount(); ++col)
                cells << iw.Listbox1.cellValueAt(r, col);
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    }
    // The user's choices, then OK.
    static void ok(FakeImportWindow& iw, int lon, int lat, int label = 0, QString first = "2") {
        iw.PopupMenuLonEast.selected = lon;
        iw.PopupMenuLatNorth.selected = lat;
        iw.PopupMenuLabel.selected = label;
        iw.TextFieldFirstLine.value = first;
        iw.controller->PushButton1_Action();
    }

    QTemporaryDir dir;
    FakeWindow win;
};

struct ScanCase {
    const char* name;
    QByteArray text;
    char delim;
    int fieldCount;
    QStringList rows;
};

class ScanRules : public ImportTest, public testing::WithParamInterface<ScanCase> {};

TEST_P(ScanRules, PreviewHoldsEveryLineSplitByTheLastDelimiter) {
    const ScanCase& t = GetParam();
    FakeImportWindow& iw = open(t.text);
    EXPECT_EQ(iw.controller->delim, t.delim);
    EXPECT_EQ(iw.controller->fieldCount, t.fieldCount);
    EXPECT_EQ(iw.Listbox1.columnCount(), t.fieldCount == 0 ? 1 : t.fieldCount + 2);
    EXPECT_EQ(rows(iw), t.rows);
    QStringList menu{QStringLiteral("N/A")};
    for (int i = 1; i <= t.fieldCount; ++i)
        menu << QString::number(i);
    for (const FakePopupMenu* p :
         {&iw.PopupMenuLonEast, &iw.PopupMenuLatNorth, &iw.PopupMenuUTMZ, &iw.PopupMenuLabel})
        EXPECT_EQ(p->rows, menu);
    EXPECT_TRUE(iw.messageBox.shown.isEmpty());
    EXPECT_FALSE(iw.closed);
    EXPECT_EQ(iw.TextFieldFirstLine.focusRequests, 1);
    EXPECT_TRUE(iw.TextFieldFirstLine.allSelected);
}

const QString latin1Zurich = QString::fromUtf8("Z\xC3\xBCrich");

INSTANTIATE_TEST_SUITE_P(
    Files, ScanRules,
    testing::Values(
        ScanCase{"comma", "12.5,-70.1\n12.5,-70.1\n", ',', 2, {"1|12.5|-70.1", "2|12.5|-70.1"}},
        ScanCase{"runOfSpaces", "12.5  -70.1", ' ', 2, {"1|12.5|-70.1"}},
        ScanCase{"tabWinsInItsLineButLastLineDecides",
                 "a\tb,c\nd\te\nf , g",
                 ',',
                 2,
                 {"1|a\tb|c", "2|d\te|", "3|f|g"}},
        ScanCase{"headerOfSevenAboveEight",
                 "h1,h2,h3,h4,h5,h6,h7\n1,2,3,4,5,6,7,8\n",
                 ',',
                 8,
                 {"1|h1|h2|h3|h4|h5|h6|h7|", "2|1|2|3|4|5|6|7|8"}},
        ScanCase{"blankLineKeepsItsRow", "1,2\n\n3,4", ',', 2, {"1|1|2", "2||", "3|3|4"}},
        ScanCase{"emptyFieldsKeepTheirPlace", "a,,b\n", ',', 3, {"1|a||b"}},
        ScanCase{"quotesSplitLikeAnything", "\"a,b\",c", ',', 3, {"1|\"a|b\"|c"}},
        ScanCase{
            "windowsAndOldMacLineEnds", "1,2\r\n3,4\r5,6\r\n", ',', 2, {"1|1|2", "2|3|4", "3|5|6"}},
        ScanCase{"utf8ByteOrderMarkSkipped", "\xEF\xBB\xBFx,1", ',', 2, {"1|x|1"}},
        ScanCase{"utf16WithByteOrderMark",
                 QByteArray("\xFF\xFEx\0,\0\xFC\0\n\0", 10),
                 ',',
                 2,
                 {QString::fromUtf8("1|x|\xC3\xBC")}},
        ScanCase{"latin1WhenNotUtf8", "Z\xFCrich,1", ',', 2, {"1|" + latin1Zurich + "|1"}},
        ScanCase{"utf8UpToItsEdges",
                 "\xC3\x80\xF4\x8F\xBF\xBF,1",
                 ',',
                 2,
                 {QString::fromUtf8("1|\xC3\x80\xF4\x8F\xBF\xBF|1")}},
        ScanCase{"latin1WhenASequenceBreaksOff",
                 "\xC3"
                 "abcdefghij,1",
                 ',',
                 2,
                 {QString::fromUtf8("1|\xC3\x83") + "abcdefghij|1"}},
        ScanCase{"noDelimiterAnywhere", "abc\ndef", 0, 0, {"1", "2"}},
        ScanCase{"emptyTextIsOneEmptyLine", "", 0, 0, {"1"}},
        ScanCase{"nulIsACharacter",
                 QByteArray("1\0a,2", 5),
                 ',',
                 2,
                 {QStringLiteral("1|1") + QChar(0) + QStringLiteral("a|2")}}),
    [](const testing::TestParamInfo<ScanCase>& info) { return std::string(info.param.name); });

TEST_F(ImportTest, SixtyColumnsAreShownAndSixtyOneTakeTheMessage) {
    const auto line = [](int n) {
        QByteArray l = "1";
        for (int i = 1; i < n; ++i)
            l += "\t" + QByteArray::number(i + 1);
        return l;
    };
    FakeImportWindow& sixty = open(line(60));
    EXPECT_TRUE(sixty.messageBox.shown.isEmpty());
    EXPECT_EQ(sixty.controller->fieldCount, 60);
    for (const int n : {61, 10000}) {
        FakeImportWindow& wide = open(line(n));
        EXPECT_EQ(wide.messageBox.shown, QStringList{tooWide}) << n;
        EXPECT_EQ(wide.controller->fieldCount, 60);
        EXPECT_EQ(wide.Listbox1.cellValueAt(0, 60), QStringLiteral("60"));
        EXPECT_EQ(wide.Listbox1.cellValueAt(0, 61), QString());
    }
}

TEST_F(ImportTest, AppendingIsOfferedOnlyWhenThereAreLocations) {
    FakeImportWindow& first = open("1,2");
    EXPECT_FALSE(first.CheckBox1.visible);
    EXPECT_FALSE(first.CheckBox1.ticked);
    win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25"));
    FakeImportWindow& second = open("1,2");
    EXPECT_TRUE(second.CheckBox1.visible);
    EXPECT_TRUE(second.CheckBox1.ticked);
}

TEST_F(ImportTest, EachNotationMakesTheLocationsOfItsColumns) {
    // Lines as a user's file has them: label, latitude, longitude, DMS pair, UTM with zone.
    const QByteArray text =
        "name\tlat\tlon\tdms lat\tdms lon\tE\tN\tzone\n"
        "Milan\t45.5\t9.25\t45 30 0 N\t9 15 0 E\t519531.699\t5038526.897\t32 N\n"
        "Sydney\t-33.85\t151.2\t33 51 0 S\t151 12 0 E\t333471.815\t6253018.169\t56 S\n";
    struct Row {
        const char* name;
        int segment, lon, lat, zone;
    };
    for (const Row r : {Row{"dd", 0, 3, 2, 0}, Row{"dms", 1, 5, 4, 0}, Row{"utm", 2, 6, 7, 8}}) {
        FakeImportWindow& iw = open(text);
        iw.CheckBox1.ticked = false;
        iw.pressSegment(r.segment);
        EXPECT_EQ(iw.Label2.value, r.segment == 2 ? "Eastings:" : "Longitude:");
        EXPECT_EQ(iw.Label3.value, r.segment == 2 ? "Northings:" : "Latitude:");
        EXPECT_EQ(iw.PopupMenuUTMZ.visible && iw.Label4.visible, r.segment == 2);
        iw.PopupMenuUTMZ.selected = r.zone;
        ok(iw, r.lon, r.lat, 1);
        ASSERT_EQ(win->locations.size(), 2u) << r.name;
        const double expected[2][2] = {{45.5, 9.25}, {-33.85, 151.2}};
        for (int i = 0; i < 2; ++i) {
            const Vertex& v = *win->locations[std::size_t(i)];
            EXPECT_NEAR(v.lat, expected[i][0], 1e-6) << r.name;
            EXPECT_NEAR(v.lon, expected[i][1], 1e-6) << r.name;
            EXPECT_TRUE(v.saved && v.checked) << r.name;
        }
        EXPECT_EQ(win->locations[1]->label, QStringLiteral("Sydney"));
        EXPECT_EQ(win.BatchListbox.lastRowIndex(), 1);
        EXPECT_EQ(win->Pins.size(), 2u);
        EXPECT_TRUE(iw.closed);
    }
}

TEST_F(ImportTest, MissingColumnsTakeTheirMessageAndChangeNothing) {
    win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25"));
    FakeImportWindow& iw = open("1,2,32\n3,4,33\n");
    iw.CheckBox1.ticked = false; // a replacing import that must not begin
    ok(iw, 0, 2);
    iw.pressSegment(2);
    ok(iw, 1, 2);
    EXPECT_EQ(iw.messageBox.shown, (QStringList{noColumn, noZone}));
    EXPECT_FALSE(iw.closed);
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_DOUBLE_EQ(win->locations[0]->lat, 45.5);
}

TEST_F(ImportTest, AppendKeepsTheListAndReplaceClearsListPinsAndSelection) {
    FakeMapView map;
    win->Map_Open(&map);
    win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25"), QStringLiteral("old"));
    win.clickRow(0);
    ASSERT_EQ(win->selectedLoc, 0);
    ok(open("10,20,a\n30,40,b\n"), 1, 2, 3, QStringLiteral("1"));
    ASSERT_EQ(win->locations.size(), 3u);
    EXPECT_EQ(win->locations[0]->label, QStringLiteral("old"));
    EXPECT_EQ(win->locations[2]->label, QStringLiteral("b"));
    EXPECT_EQ(win->selectedLoc, 0);

    const std::vector<MapPinRef> oldPins = win->Pins;
    FakeImportWindow& replacing = open("10,20,c\n");
    replacing.CheckBox1.ticked = false;
    ok(replacing, 1, 2, 3, QStringLiteral("1"));
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_EQ(win->locations[0]->label, QStringLiteral("c"));
    EXPECT_EQ(win->selectedLoc, -1);
    for (const MapPinRef& pin : oldPins) // the old pins are gone from the map
        EXPECT_EQ(std::count(map.pins.begin(), map.pins.end(), pin), 0);
    EXPECT_EQ(std::count(map.pins.begin(), map.pins.end(), win->Pins[0]), 1);
}

TEST_F(ImportTest, FirstLineThatIsNotAWholeNumberOfOneOrMoreCountsAsOne) {
    const std::pair<const char*, std::size_t> cases[] = {
        {"2", 2},   {" 3 ", 1}, {"", 3},
        {"0", 3},   {"-2", 3},  {"abc", 3},
        {"2.5", 3}, {"4", 0},   {"99999999999999999999999", 0}};
    for (const auto& [first, taken] : cases) {
        FakeImportWindow& iw = open("1,2\n3,4\n\n");
        iw.CheckBox1.ticked = false;
        ok(iw, 1, 2, 0, QString::fromLatin1(first));
        EXPECT_EQ(win->locations.size(), taken) << first;
        EXPECT_TRUE(iw.closed) << first;
    }
    // The blank third line is a location at 0, 0: every row in the range is taken.
    ok(open("1,2\n\n"), 1, 2, 0, QStringLiteral("1"));
    EXPECT_EQ(win->locations.back()->lat, 0.0);
}

TEST_F(ImportTest, UnreadableZonesAreToldOncePerImport) {
    FakeImportWindow& iw = open("x,500000,4000000\ny,500000,4000000\n");
    iw.pressSegment(2);
    iw.PopupMenuUTMZ.selected = 1;
    ok(iw, 2, 3, 0, QStringLiteral("1"));
    EXPECT_EQ(win->locations.size(), 2u);
    EXPECT_EQ(win.messageBox.shown.size() + iw.messageBox.shown.size(), 2)
        << (win.messageBox.shown + iw.messageBox.shown).join(QLatin1Char('/')).toStdString();
}

TEST_F(ImportTest, UnreadableFilesAreNamedAndCloseTheWindow) {
    win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25"));
    for (const QString& path : {dir.filePath(QStringLiteral("missing.txt")), dir.path()}) {
        FakeImportWindow& iw = win.importFile(path);
        ASSERT_EQ(iw.messageBox.shown.size(), 1);
        EXPECT_TRUE(iw.messageBox.shown[0].contains(QDir::toNativeSeparators(path)));
        EXPECT_TRUE(iw.closed);
        EXPECT_EQ(win->locations.size(), 1u);
    }
}

// A text of many lines: progress with Cancel in both readings and while loading.
class LongTextTest : public ImportTest {
protected:
    void SetUp() override {
        QByteArray text;
        for (int i = 0; i < 100500; ++i)
            text += QByteArray::number(i % 90) + ",1\n";
        path = write(text);
        win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("45.5, 9.25"));
    }
    QString path;
};

TEST_F(LongTextTest, CancelWhileReadingClosesTheWindow) {
    win.importWindows.prepare = [](FakeImportWindow& iw) { iw.progress.cancelAt = 1; };
    FakeImportWindow& iw = win.importFile(path);
    EXPECT_TRUE(iw.closed);
    EXPECT_FALSE(iw.progress.showing);
    EXPECT_EQ(win->locations.size(), 1u);
}

TEST_F(LongTextTest, CancelWhileLoadingLeavesTheListAsItWas) {
    FakeImportWindow& iw = win.importFile(path);
    EXPECT_EQ(iw.Listbox1.lastRowIndex(), 100499);
    EXPECT_EQ(iw.progress.captions,
              QStringList{QStringLiteral("Reading \u201Cin.txt\u201D\u2026")});
    iw.CheckBox1.ticked = false;
    iw.progress.cancelAt = 50000;
    ok(iw, 2, 1);
    EXPECT_FALSE(iw.closed);
    EXPECT_FALSE(iw.progress.showing);
    ASSERT_EQ(win->locations.size(), 1u);
    EXPECT_DOUBLE_EQ(win->locations[0]->lat, 45.5);
    iw.progress.cancelAt = -1;
    ok(iw, 2, 1);
    EXPECT_EQ(win->locations.size(), 100499u);
}

TEST_F(LongTextTest, FileRemovedBetweenTheReadingsIsStillReadWhole) {
    // The first reading reports progress; the file is gone before the second one starts.
    win.importWindows.prepare = [this](FakeImportWindow& iw) {
        iw.progress.onAdvance = [this] { QFile::remove(path); };
    };
    FakeImportWindow& iw = win.importFile(path);
    ASSERT_FALSE(QFile::exists(path));
    EXPECT_EQ(iw.Listbox1.lastRowIndex(), 100499);
    EXPECT_EQ(iw.Listbox1.cellValueAt(100499, 1), QStringLiteral("59"));
}

TEST_F(ImportTest, HostileBytesFillThePreviewWithoutHarm) {
    QByteArray binary;
    for (int i = 0; i < 100000; ++i)
        binary += char((i * 7919) >> 3);
    FakeImportWindow& noise = open(binary);
    EXPECT_FALSE(noise.closed);
    const auto rowCount = std::size_t(noise.Listbox1.lastRowIndex() + 1);
    ok(noise, 1, 1, 1, QStringLiteral("1"));
    EXPECT_EQ(win->locations.size(), rowCount);

    // A CR LF split between two reads of the file still ends one line.
    const QByteArray straddling = QByteArray(256 * 1024 - 1, 'x') + "\r\n1,2";
    EXPECT_EQ(open(straddling).Listbox1.lastRowIndex(), 1);

    // One line of 50 MB: held whole, shown cut.
    const QByteArray huge = QByteArray(50 << 20, '7') + ",1";
    FakeImportWindow& big = open(huge);
    EXPECT_EQ(big.Listbox1.cellValueAt(0, 1).size(), 50 << 20);
    EXPECT_LT(big.Listbox1.data(big.Listbox1.index(0, 1), Qt::DisplayRole).toString().size(),
              10000);
}

} // namespace

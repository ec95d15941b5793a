// Saving the ticked rows and reading them back through the import, and pasting: the file's
// exact text, round trips under the format settings, failures that name the file, and the
// pasted text's private temporary file.

#include "support/FakeWindow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

const QByteArray header = "Longitude (DD)\tLatitude (DD)\tLongitude (DMS)\tLatitude (DMS)\t"
                          "UTM Eastings (m)\tUTM Northings (m)\tUTM Zone\n";

class SaveTest : public testing::Test {
protected:
    void SetUp() override {
        // South and west, a pole cap and a label with a tab in it.
        win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("-33.85, 151.2"),
                          QStringLiteral("Sydney"));
        win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("40.7128, -74.006"));
        win.typeAndRecord(win.TextFieldDecDegrees, QStringLiteral("78.22, 15.65"),
                          QStringLiteral("Long\tyear"));
    }
    QByteArray save() {
        win.fileDialogs.saveAnswer = path;
        EXPECT_TRUE(win->_FileSave_Action());
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }
    QByteArray tableLine(int row) const {
        QStringList cells;
        for (int column = 1; column <= 8; ++column)
            cells << win.BatchListbox.cellValueAt(row, column);
        return cells.join(QLatin1Char('\t')).toUtf8() + '\n';
    }

    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("Saved Locations.txt"));
    FakeWindow win;
};

TEST_F(SaveTest, TickedRowsAsTheTableShowsThem) {
    win.BatchListbox.setData(win.BatchListbox.index(1, 0), Qt::Unchecked, Qt::CheckStateRole);
    win.BatchListbox.sort(2, Qt::DescendingOrder); // by the first DD column: 78, 40, -33
    EXPECT_EQ(save(), header + tableLine(2) + tableLine(0));
    EXPECT_EQ(win.fileDialogs.proposedNames, QStringList{QStringLiteral("Saved Locations.txt")});
    EXPECT_EQ(win.fileDialogs.filters, QStringList{QStringLiteral("text/plain")});
    EXPECT_TRUE(tableLine(0).startsWith("Sydney\t-33.85"));
}

TEST_F(SaveTest, NothingToSaveAndCancelWriteNothing) {
    win.fileDialogs.saveAnswer.clear();
    EXPECT_FALSE(win->_FileSave_Action());
    win->locations.clear();
    win.fileDialogs.saveAnswer = path;
    EXPECT_FALSE(win->_FileSave_Action());
    EXPECT_EQ(win.messageBox.shown,
              QStringList{QStringLiteral(
                  "Save only applies to locations listed in the batch process tab. Sorry!")});
    EXPECT_EQ(win.fileDialogs.proposedNames.size(), 1);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SaveTest, AFileThatCannotBeWrittenIsNamedAndTheOldOneKept) {
    const QByteArray old = save();
    // A folder of that name stands where the file would go: even root can't replace it.
    const QString blocked = dir.filePath(QStringLiteral("blocked.txt"));
    QDir().mkpath(blocked + QStringLiteral("/inside"));
    win.fileDialogs.saveAnswer = blocked;
    win->_FileSave_Action();
    ASSERT_EQ(win.messageBox.shown.size(), 1);
    EXPECT_TRUE(win.messageBox.shown[0].contains(QDir::toNativeSeparators(blocked)));
    EXPECT_TRUE(QFileInfo(blocked + QStringLiteral("/inside")).isDir());
    EXPECT_EQ(save(), old); // saving again replaces the file with the same text
}

// Save under an order and a few settings, open the file, name its columns in each notation:
// the same places come back, to the precision of the text.
TEST_F(SaveTest, SavedFileReadsBackInEveryNotation) {
    struct Setting {
        const char* name;
        bool lonFirst;
        const char* menuItem; // a format command, or none
    };
    // A label with a tab moves the fields after it: that row cannot come back.
    win->locations[2]->label = QStringLiteral("Longyear");
    for (const Setting s : {Setting{"latFirst", false, nullptr}, Setting{"lonFirst", true, nullptr},
                            Setting{"noDMSsymbols", false, "FormatShowDMSSymbols"},
                            Setting{"metres", true, "FormatShowm"},
                            Setting{"zoneWithoutSign", false, "FormatZoneinSHemisph"}}) {
        if (s.lonFirst)
            win.clickRadioButton2();
        else
            win.clickRadioButton1();
        if (s.menuItem)
            win->menuItemChosen(QString::fromLatin1(s.menuItem));
        win->fillBatchTable(); // the table takes the order at its next rebuild
        save();
        const std::vector<VertexRef> before = win->locations;
        const int lon = s.lonFirst ? 2 : 3, lat = s.lonFirst ? 3 : 2;
        struct Mapping {
            int segment, lon, lat, zone;
            double tolerance; // degrees
        };
        for (const Mapping m : {Mapping{0, lon, lat, 0, 1e-6},
                                Mapping{1, lon + 2, lat + 2, 0, 1e-6}, Mapping{2, 6, 7, 8, 2e-6}}) {
            FakeImportWindow& iw = win.importFile(path);
            iw.CheckBox1.ticked = false;
            iw.pressSegment(m.segment);
            iw.PopupMenuLonEast.selected = m.lon;
            iw.PopupMenuLatNorth.selected = m.lat;
            iw.PopupMenuUTMZ.selected = m.zone;
            iw.PopupMenuLabel.selected = 1;
            iw.controller->PushButton1_Action();
            ASSERT_EQ(win->locations.size(), before.size()) << s.name << m.segment;
            for (std::size_t i = 0; i < before.size(); ++i) {
                EXPECT_NEAR(win->locations[i]->lat, before[i]->lat, m.tolerance)
                    << s.name << " notation " << m.segment << " row " << i;
                EXPECT_NEAR(win->locations[i]->lon, before[i]->lon, m.tolerance)
                    << s.name << " notation " << m.segment << " row " << i;
            }
            EXPECT_EQ(win->locations[2]->label, QStringLiteral("Longyear"));
        }
        if (s.menuItem)
            win->menuItemChosen(QString::fromLatin1(s.menuItem));
    }
}

class PasteTest : public testing::Test {
protected:
    FakeWindow win;
};

TEST_F(PasteTest, PastedTextIsImportedThroughAPrivateFileRemovedWithTheWindow) {
    win.clipboard.contents = QStringLiteral("lat\tlon\n45.5\t9.25\n-33.85\t151.2");
    EXPECT_TRUE(win->_EditPaste_Action()); // on the first page: nothing happens
    EXPECT_EQ(win.importWindows.opened, 0);

    win.TabPanel1.setSelectedPanelIndex(1);
    EXPECT_TRUE(win->_EditPaste_Action());
    FakeImportWindow& iw = *win.importWindows.current;
    EXPECT_EQ(iw.Listbox1.cellValueAt(2, 2), QStringLiteral("151.2"));
    const QStringList temporary =
        QDir::temp().entryList({QStringLiteral("geoquill-paste-*")}, QDir::Files);
    ASSERT_EQ(temporary.size(), 1);
    const QString file = QDir::temp().filePath(temporary[0]);
    EXPECT_EQ(QFileInfo(file).permissions(),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    iw.PopupMenuLonEast.selected = 2;
    iw.PopupMenuLatNorth.selected = 1;
    iw.controller->PushButton1_Action();
    EXPECT_EQ(win->locations.size(), 2u);
    win.importWindows.current.reset(); // the window is gone
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PasteTest, WithoutATemporaryFileThePasteEndsWithAMessage) {
    win.TabPanel1.setSelectedPanelIndex(1);
    // The folder for temporary files is a plain file: nothing can be made in it.
    QTemporaryFile notAFolder;
    ASSERT_TRUE(notAFolder.open());
    const QByteArray saved = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(notAFolder.fileName()));
    win->_EditPaste_Action();
    qputenv("TMPDIR", saved);
    EXPECT_EQ(win.importWindows.opened, 0);
    ASSERT_EQ(win.messageBox.shown.size(), 1);
    EXPECT_TRUE(win.messageBox.shown[0].contains(notAFolder.fileName()));
}

} // namespace

// Saving the ticked rows and reading them back through the import, and pasting: the file's
// exact text, round trips under the format settings, failures that name the file, and the
// pasted text's private temporary file.

#include "support/FakeWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

class SaveTest : public testing::Test {
protected:
    void SetUp() override {
        // South and west, a pole cap and a label with a tab in it.
        win.typeAndRecord(win.TextFieldDecDegrees, "-33.85, 151.2", "Sydney");
        win.typeAndRecord(win.TextFieldDecDegrees, "40.7128, -74.006");
        win.typeAndRecord(win.TextFieldDecDegrees, "78.22, 15.65", "Long\tyear");
    }
    QByteArray save(const QString& to) {
        win.fileDialogs.saveAnswer = to;
        EXPECT_TRUE(win->_FileSave_Action());
        QFile f(to);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
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
    EXPECT_EQ(save(path), "Longitude (DD)\tLatitude (DD)\tLongitude (DMS)\tLatitude (DMS)\t"
                          "UTM Eastings (m)\tUTM Northings (m)\tUTM Zone\n" +
                              tableLine(2) + tableLine(0));
    EXPECT_EQ(win.fileDialogs.proposedNames, QStringList{"Saved Locations.txt"});
    EXPECT_EQ(win.fileDialogs.filters, QStringList{"text/plain"});
    EXPECT_TRUE(tableLine(0).startsWith("Sydney\t-33.85"));
}

TEST_F(SaveTest, NothingToSaveCancelAndUnwritableFilesWriteNothing) {
    const QByteArray old = save(path);
    win.fileDialogs.saveAnswer.clear();
    EXPECT_FALSE(win->_FileSave_Action());
    // A folder stands where the file would go: even root can't replace it.
    const QString blocked = dir.filePath(QStringLiteral("blocked.txt"));
    QDir().mkpath(blocked + QStringLiteral("/inside"));
    save(blocked);
    ASSERT_EQ(win.messageBox.shown.size(), 1);
    EXPECT_TRUE(win.messageBox.shown[0].contains(QDir::toNativeSeparators(blocked)));
    EXPECT_TRUE(QFileInfo(blocked + QStringLiteral("/inside")).isDir());
    EXPECT_EQ(save(path), old); // saving again replaces the file with the same text
    win->locations.clear();
    EXPECT_FALSE(win->_FileSave_Action());
    EXPECT_EQ(win.messageBox.shown.last(),
              "Save only applies to locations listed in the batch process tab. Sorry!");
    EXPECT_EQ(win.fileDialogs.proposedNames.size(), 4); // no dialog for an empty list
}

// Save under an order and a few settings, open the file, name its columns in each notation:
// the same places come back, to the precision of the text.
TEST_F(SaveTest, SavedFileReadsBackInEveryNotation) {
    // A label with a tab moves the fields after it: that row cannot come back.
    win->locations[2]->label = QStringLiteral("Longyear");
    const std::pair<bool, const char*> settings[] = {{false, nullptr},
                                                     {true, nullptr},
                                                     {false, "FormatShowDMSSymbols"},
                                                     {true, "FormatShowm"},
                                                     {false, "FormatZoneinSHemisph"}};
    for (const auto& [lonFirst, menuItem] : settings) {
        lonFirst ? win.clickRadioButton2() : win.clickRadioButton1();
        if (menuItem)
            win->menuItemChosen(QString::fromLatin1(menuItem));
        win->fillBatchTable(); // the table takes the order at its next rebuild
        save(path);
        const std::vector<VertexRef> before = win->locations;
        const int lon = lonFirst ? 2 : 3, lat = lonFirst ? 3 : 2;
        const int columns[3][3] = {{lon, lat, 0}, {lon + 2, lat + 2, 0}, {6, 7, 8}};
        for (int notation = 0; notation < 3; ++notation) {
            SCOPED_TRACE(std::string(menuItem ? menuItem : "") + " notation " +
                         std::to_string(notation));
            FakeImportWindow& iw = win.importFile(path);
            iw.CheckBox1.ticked = false;
            iw.pressSegment(notation);
            const int* c = columns[notation];
            iw.ok(c[0], c[1], 1, "2", c[2]);
            ASSERT_EQ(win->locations.size(), before.size());
            const double tolerance = notation == 2 ? 2e-6 : 1e-6; // degrees
            for (std::size_t i = 0; i < before.size(); ++i) {
                EXPECT_NEAR(win->locations[i]->lat, before[i]->lat, tolerance);
                EXPECT_NEAR(win->locations[i]->lon, before[i]->lon, tolerance);
            }
            EXPECT_EQ(win->locations[2]->label, QStringLiteral("Longyear"));
        }
        if (menuItem)
            win->menuItemChosen(QString::fromLatin1(menuItem));
    }
}

TEST(PasteTest, PastedTextIsImportedThroughAPrivateFileRemovedWithTheWindow) {
    FakeWindow win;
    win.clipboard.contents = QStringLiteral("lat\tlon\n45.5\t9.25\n-33.85\t151.2");
    EXPECT_TRUE(win->_EditPaste_Action()); // on the first page: nothing happens
    EXPECT_FALSE(win.importWindows.current);
    win.TabPanel1.setSelectedPanelIndex(1);
    // Only the file this paste made: another run of the suite may be pasting beside us.
    const auto pasteFiles = [] {
        const QStringList names = QDir::temp().entryList({"geoquill-paste-*"}, QDir::Files);
        return QSet<QString>(names.begin(), names.end());
    };
    const QSet<QString> earlier = pasteFiles();
    EXPECT_TRUE(win->_EditPaste_Action());
    FakeImportWindow& iw = *win.importWindows.current;
    const QStringList made = (pasteFiles() - earlier).values();
    ASSERT_EQ(made.size(), 1);
    const QString file = QDir::temp().filePath(made[0]);
    EXPECT_EQ(QFileInfo(file).permissions(),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    iw.ok(2, 1, 0, "2");
    EXPECT_EQ(win->locations.size(), 2u);
    EXPECT_EQ(win->locations[1]->lon, 151.2);
    win.importWindows.current.reset(); // the window is gone
    EXPECT_FALSE(QFile::exists(file));

    // The folder for temporary files is a plain file: nothing can be made in it.
    QTemporaryFile notAFolder;
    ASSERT_TRUE(notAFolder.open());
    const QByteArray saved = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(notAFolder.fileName()));
    win->_EditPaste_Action();
    qputenv("TMPDIR", saved);
    EXPECT_FALSE(win.importWindows.current);
    ASSERT_EQ(win.messageBox.shown.size(), 1);
    EXPECT_TRUE(win.messageBox.shown[0].contains(notAFolder.fileName()));
}

} // namespace

// The three notation fields, the label field and the order buttons as a user drives them: what
// keys, focus changes and typing do to the fields, the location on show and the record button.

#include "support/FakeWindow.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr int returnKey = 13, enterKey = 3, letterKey = 'a';
const QString recordEntry = QStringLiteral("Record Entry"), clickMap = QStringLiteral("Click Map");

// One notation field with its handlers, and texts for the location lon 9, lat 45.
struct Field {
    const char* name;
    FakeTextField FakeWindow::*field;
    bool (Window1::*keyDown)(int);
    void (Window1::*gotFocus)();
    void (Window1::*lostFocus)();
    void (Window1::*mouseDown)();
    bool Window1::*entering;
    const char* typed;     // a text a user might type
    const char* canonical; // what the field then shows
    const char* otherCase; // the canonical text in other letter case
    const char* swapped;   // a text read as lon 10, lat 20 with longitude first
};

const Field fields[] = {
    {"DecimalDegrees", &FakeWindow::TextFieldDecDegrees, &Window1::TextFieldDecDegrees_KeyDown,
     &Window1::TextFieldDecDegrees_GotFocus, &Window1::TextFieldDecDegrees_LostFocus,
     &Window1::TextFieldDecDegrees_MouseDown, &Window1::enteringDD, "45 9", "45.00, 9.00",
     "45.00 n, 9.00 e", "10 20"},
    {"DegreesMinutesSeconds", &FakeWindow::TextFieldDMS, &Window1::TextFieldDMS_KeyDown,
     &Window1::TextFieldDMS_GotFocus, &Window1::TextFieldDMS_LostFocus,
     &Window1::TextFieldDMS_MouseDown, &Window1::enteringDMS, "45 N 9 E", "45°N, 9°E", "45°n, 9°e",
     "10 0 0 20 0 0"},
    {"UTM", &FakeWindow::TextFieldUTM, &Window1::TextFieldUTM_KeyDown,
     &Window1::TextFieldUTM_GotFocus, &Window1::TextFieldUTM_LostFocus,
     &Window1::TextFieldUTM_MouseDown, &Window1::enteringUTM, "500000 e 4982950.4 n 32",
     "500000.0 E, 4982950.4 N 32", "500000.0 e, 4982950.4 n 32", "500000.0 E, 4982950.4 N 32"},
};

class EntryField : public testing::TestWithParam<Field> {
protected:
    FakeWindow f;
    Window1& w = f.window();
    const Field& p = GetParam();
    FakeTextField& field() { return f.*p.field; }
    bool key(int k) { return (w.*p.keyDown)(k); }
    // The user clicks into the field, replaces its text and presses a key.
    bool enter(const QString& text, int k = returnKey) {
        (w.*p.gotFocus)();
        f.type(field(), text);
        return key(k);
    }
    void expectOnlyThisFieldEntered() {
        for (bool Window1::*flag :
             {&Window1::enteringDD, &Window1::enteringDMS, &Window1::enteringUTM})
            EXPECT_EQ(w.*flag, flag == p.entering);
    }
    void expectTheLocation() {
        ASSERT_TRUE(w.theLocation);
        EXPECT_NEAR(w.theLocation->lat, 45, 1e-7);
        EXPECT_NEAR(w.theLocation->lon, 9, 1e-7);
        EXPECT_EQ(field().value, QString::fromUtf8(p.canonical));
        EXPECT_FALSE(w.suppressUpdate);
    }
};

TEST_P(EntryField, KeysDecideWhenTheTextIsRead) {
    const VertexRef blank = w.theLocation;
    EXPECT_FALSE(key(returnKey)) << "Return in an empty field goes on to the window";
    EXPECT_FALSE(enter(QString::fromUtf8(p.typed), letterKey)) << "other keys go to the field";
    EXPECT_EQ(w.theLocation, blank);
    expectOnlyThisFieldEntered();

    f.type(field(), QString());
    EXPECT_TRUE(enter(QString::fromUtf8(p.typed), enterKey));
    expectTheLocation();
    // Decimal degrees and UTM come out the same from all three readings; DMS shows the tiny
    // remainder of the UTM inverse, so it is compared only where the reading is exact.
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_EQ(f.TextFieldUTM.value, QStringLiteral("500000.0 E, 4982950.4 N 32"));
    if (p.entering != &Window1::enteringUTM) {
        EXPECT_EQ(f.TextFieldDMS.value, QStringLiteral("45°N, 9°E"));
    }
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
    EXPECT_TRUE(f.SearchButton.defaultButton);
    expectOnlyThisFieldEntered();

    // Text that can't be read gives way, silently, to the location on show.
    const VertexRef current = w.theLocation;
    EXPECT_TRUE(enter(QStringLiteral("somewhere near the lake")));
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(field().value, QString::fromUtf8(p.canonical));
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
}

TEST_P(EntryField, FocusLossReadsChangesAndRefillsAnEmptiedField) {
    (w.*p.gotFocus)();
    f.type(field(), QString::fromUtf8(p.typed));
    (w.*p.lostFocus)();
    expectTheLocation();

    // An emptied field is refilled, not read: neither the location nor the reading changes.
    const VertexRef current = w.theLocation;
    const double lat = w.lat, lon = w.lon;
    (w.*p.gotFocus)();
    f.type(field(), QString());
    (w.*p.lostFocus)();
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(w.lat, lat);
    EXPECT_EQ(w.lon, lon);
    expectTheLocation();

    // Without a location on show it stays empty.
    f.messageDialog.answer = MessageDialogView::Answer::Alternate;
    w.makeNewEntry();
    (w.*p.gotFocus)();
    (w.*p.lostFocus)();
    EXPECT_TRUE(field().value.isEmpty());
}

TEST_P(EntryField, KeyOrClickMarksTheFieldBeingEntered) {
    w.TextFieldUTM_KeyDown(letterKey);
    w.TextFieldDMS_MouseDown();
    key(letterKey);
    expectOnlyThisFieldEntered();
    w.TextFieldDecDegrees_KeyDown(letterKey);
    w.TextFieldUTM_MouseDown();
    (w.*p.mouseDown)();
    expectOnlyThisFieldEntered();
}

// The field is read again under the other order: "10 20" becomes lon 10, lat 20. UTM has no
// order: the same location is read and the other fields change their order.
TEST_P(EntryField, OrderButtonReadsTheFieldBeingEnteredAgain) {
    const bool utm = p.entering == &Window1::enteringUTM;
    (w.*p.gotFocus)();
    key('0');
    f.type(field(), QString::fromUtf8(p.swapped));
    const VertexRef before = w.theLocation;
    f.clickRadioButton2();
    ASSERT_TRUE(w.theLocation);
    EXPECT_NE(w.theLocation, before);
    EXPECT_NEAR(w.theLocation->lon, utm ? 9 : 10, 1e-7);
    EXPECT_NEAR(w.theLocation->lat, utm ? 45 : 20, 1e-7);
    EXPECT_EQ(f.TextFieldDecDegrees.value, utm ? "9.00, 45.00" : "10.00, 20.00");
}

INSTANTIATE_TEST_SUITE_P(Window, EntryField, testing::ValuesIn(fields),
                         [](const auto& row) { return std::string(row.param.name); });

// DMS and UTM are read only when their text differs, ignoring case, from what the field held
// when it got the focus; decimal degrees are read every time.
TEST(UnchangedText, OnlyDecimalDegreesAreReadAgain) {
    for (const Field& p : fields) {
        SCOPED_TRACE(p.name);
        FakeWindow f;
        Window1& w = f.window();
        w.DDshowHemiLet = true; // so that the DD text has letters to change the case of
        FakeTextField& field = f.*p.field;
        (w.*p.gotFocus)();
        f.type(field, QString::fromUtf8(p.typed));
        ASSERT_TRUE((w.*p.keyDown)(returnKey));
        const bool dd = p.entering == &Window1::enteringDD;
        VertexRef current = w.theLocation;
        const int writes = field.writes;
        (w.*p.gotFocus)();
        (w.*p.lostFocus)();
        EXPECT_EQ(w.theLocation != current, dd);
        EXPECT_EQ(field.writes != writes, dd);
        current = w.theLocation;
        (w.*p.gotFocus)();
        f.type(field, QString::fromUtf8(p.otherCase));
        EXPECT_TRUE((w.*p.keyDown)(returnKey));
        EXPECT_EQ(w.theLocation != current, dd);
        EXPECT_EQ(field.value == QString::fromUtf8(p.otherCase), !dd);
    }
}

TEST(DecimalDegreesFocus, RewrittenWithoutArmingTheRecordButton) {
    FakeWindow f;
    Window1& w = f.window();
    w.makeNewEntry();
    w.TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("nothing here"));
    EXPECT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral(", ")) << "no location, no value";

    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("45 9"));
    const VertexRef recorded = w.theLocation;
    f.TextFieldDecDegrees.value = QStringLiteral("no place"); // without a change event
    w.TextFieldDecDegrees_GotFocus();
    w.TextFieldDecDegrees_LostFocus();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_EQ(w.theLocation, recorded) << "an unreadable text leaves the recorded location";
    EXPECT_TRUE(recorded->saved);

    f.TextFieldDecDegrees.value = QStringLiteral("45 9");
    w.TextFieldDecDegrees_GotFocus();
    w.TextFieldDecDegrees_LostFocus();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_NE(w.theLocation, recorded);
    EXPECT_EQ(f.SearchButton.captionText, clickMap);
    EXPECT_FALSE(w.suppressUpdate);
}

// A long run of digits before a blank: the DMS pattern engine gives up on it.
TEST(RunawaySearch, OneMessageAndNothingElseChanges) {
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("45 9"));
    const QString runaway = QString(1000, '1') + ' ';
    w.TextFieldDMS_GotFocus();
    w.TextFieldDMS_KeyDown('1');
    f.type(f.TextFieldDMS, runaway);
    const VertexRef current = w.theLocation;
    f.clickRadioButton2();
    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(f.TextFieldDMS.value, runaway);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_EQ(w.locations.size(), 1u);

    EXPECT_TRUE(w.TextFieldDMS_KeyDown(returnKey));
    EXPECT_EQ(f.messageBox.shown.size(), 2);
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(f.TextFieldDMS.value, QStringLiteral("9°E, 45°N"));
}

// With no field being entered, the order buttons rewrite the location on show when it is a
// recorded row or an address find, and leave everything alone otherwise.
TEST(OrderButton, RewritesARecordedRowOrAnAddressFind) {
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("10 20"));
    ASSERT_EQ(w.selectedLoc, 0);
    const int utmWrites = f.TextFieldUTM.writes;
    f.clickRadioButton2();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
    EXPECT_EQ(f.TextFieldDMS.value, QStringLiteral("20°E, 10°N"));
    EXPECT_EQ(f.TextFieldUTM.writes, utmWrites);
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lon DD"));
    EXPECT_EQ(f.SearchButton.captionText, clickMap) << "the program's writes arm nothing";
    EXPECT_TRUE(w.locations[0]->saved);
    EXPECT_FALSE(w.suppressUpdate);

    // A click into the DMS field marks it as entered; its letters give the same place again,
    // as a new location the program shows.
    const VertexRef recorded = w.theLocation;
    w.TextFieldDMS_MouseDown();
    f.clickRadioButton1();
    ASSERT_NE(w.theLocation, recorded);
    EXPECT_EQ(w.theLocation->lat, 10);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("10.00, 20.00"));
    EXPECT_EQ(f.SearchButton.captionText, clickMap);

    // Recorded over the row, no row is edited and no field entered: nothing to rewrite...
    f.type(f.TextFieldLabel, QStringLiteral("Pier"));
    w.SearchButton_Action();
    ASSERT_EQ(w.selectedLoc, -1);
    const int ddWrites = f.TextFieldDecDegrees.writes;
    f.clickRadioButton2();
    EXPECT_EQ(f.TextFieldDecDegrees.writes, ddWrites);
    // ...unless an address search is under way...
    w.gettingAddressLoc = true;
    f.clickRadioButton2();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
    // ...and never while the program writes the controls, even with a field being entered.
    w.suppressUpdate = true;
    w.TextFieldDecDegrees_KeyDown('1');
    const VertexRef shown = w.theLocation;
    f.clickRadioButton1();
    EXPECT_EQ(w.theLocation, shown);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
    w.suppressUpdate = false;

    w.makeNewEntry(); // no location on show: nothing happens
    w.TextFieldDMS_MouseDown();
    f.clickRadioButton2();
    EXPECT_FALSE(w.theLocation);
    EXPECT_TRUE(f.TextFieldDecDegrees.value.isEmpty());
}

TEST(LabelField, NamesTheLocationAndArmsTheRecordButton) {
    FakeWindow f;
    Window1& w = f.window();
    w.suppressUpdate = true; // the program's own writes leave the label alone
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    w.suppressUpdate = false;
    EXPECT_TRUE(w.theLocation->label.isEmpty());
    EXPECT_EQ(f.SearchButton.captionText, clickMap);

    f.type(f.TextFieldLabel, QStringLiteral("Pier"));
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Pier"));
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
    EXPECT_TRUE(f.SearchButton.defaultButton);
    // A location read afterwards takes the label typed.
    w.TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("45 9"));
    ASSERT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Pier"));
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("Pier"));

    f.messageDialog.answer = MessageDialogView::Answer::Alternate;
    w.makeNewEntry(); // without a location, typing only arms the button
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(f.SearchButton.captionText, recordEntry);
}

// The window takes the user's number locale when it is built.
TEST(GermanLocale, FieldsReadAndWriteDecimalCommas) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    FakeWindow f;
    QLocale::setDefault(QLocale::c());
    f->TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("45,5, 9,25"));
    EXPECT_TRUE(f->TextFieldDecDegrees_KeyDown(returnKey));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45,50, 9,25"));
    EXPECT_EQ(f.TextFieldDMS.value, QStringLiteral("45° 30'N, 9° 15'E"));
}

} // namespace

// The three notation fields, the label field and the order buttons as a user drives them: what
// Return, focus changes, typing and the order buttons do to the fields, the current location and
// the record button.

#include "support/FakeWindow.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

constexpr int returnKey = 13;
constexpr int enterKey = 3;
constexpr int letterKey = 'a';

const QString recordCaption = QStringLiteral("Record Entry");
const QString recordTooltip =
    QStringLiteral("Click this button to record the current location for later use (including "
                   "saving a list of locations as a text file");
const QString clickMapCaption = QStringLiteral("Click Map");

// One notation field with its handlers, and texts for the location lon 9, lat 45.
struct FieldRow {
    const char* name;
    FakeTextField FakeWindow::*field;
    bool (Window1::*keyDown)(int);
    void (Window1::*gotFocus)();
    void (Window1::*lostFocus)();
    void (Window1::*mouseDown)();
    bool Window1::*entering;
    const char* typed;     // a text the user might type for lon 9, lat 45
    const char* canonical; // what the field shows for it with the start settings
};

// Failure reports name the row instead of dumping its bytes.
void PrintTo(const FieldRow& row, std::ostream* os) {
    *os << row.name;
}

const FieldRow fieldRows[] = {
    {"DecimalDegrees", &FakeWindow::TextFieldDecDegrees, &Window1::TextFieldDecDegrees_KeyDown,
     &Window1::TextFieldDecDegrees_GotFocus, &Window1::TextFieldDecDegrees_LostFocus,
     &Window1::TextFieldDecDegrees_MouseDown, &Window1::enteringDD, "45 9", "45.00, 9.00"},
    {"DegreesMinutesSeconds", &FakeWindow::TextFieldDMS, &Window1::TextFieldDMS_KeyDown,
     &Window1::TextFieldDMS_GotFocus, &Window1::TextFieldDMS_LostFocus,
     &Window1::TextFieldDMS_MouseDown, &Window1::enteringDMS, "45 N 9 E", "45°N, 9°E"},
    {"UTM", &FakeWindow::TextFieldUTM, &Window1::TextFieldUTM_KeyDown,
     &Window1::TextFieldUTM_GotFocus, &Window1::TextFieldUTM_LostFocus,
     &Window1::TextFieldUTM_MouseDown, &Window1::enteringUTM, "500000 e 4982950.4 n 32",
     "500000.0 E, 4982950.4 N 32"},
};

class EntryField : public testing::TestWithParam<FieldRow> {
protected:
    FakeWindow f;
    Window1& w = f.window();
    FakeTextField& field() { return f.*(GetParam().field); }
    bool keyDown(int key) { return (w.*(GetParam().keyDown))(key); }
    void gotFocus() { (w.*(GetParam().gotFocus))(); }
    void lostFocus() { (w.*(GetParam().lostFocus))(); }
    QString canonical() const { return QString::fromUtf8(GetParam().canonical); }

    // The user clicks into the field, replaces its text and presses Return.
    bool enterText(const QString& text, int key = returnKey) {
        gotFocus();
        f.type(field(), text);
        return keyDown(key);
    }
    void enterTheLocation() { ASSERT_TRUE(enterText(QString::fromUtf8(GetParam().typed))); }

    void expectOnlyThisFieldEntered() {
        const bool Window1::*flags[] = {&Window1::enteringDD, &Window1::enteringDMS,
                                        &Window1::enteringUTM};
        for (const bool Window1::*flag : flags)
            EXPECT_EQ(w.*flag, flag == GetParam().entering);
    }
};

TEST_P(EntryField, ReturnMakesTheLocationAndRewritesEveryField) {
    EXPECT_TRUE(enterText(QString::fromUtf8(GetParam().typed)));

    ASSERT_TRUE(w.theLocation);
    EXPECT_NEAR(w.theLocation->lat, 45, 1e-7);
    EXPECT_NEAR(w.theLocation->lon, 9, 1e-7);
    EXPECT_EQ(field().value, canonical());
    // Decimal degrees and UTM come out the same from all three readings; DMS shows the tiny
    // remainder of the UTM inverse, so it is compared only where the reading is exact.
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_EQ(f.TextFieldUTM.value, QStringLiteral("500000.0 E, 4982950.4 N 32"));
    if (GetParam().entering != &Window1::enteringUTM) {
        EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8("45°N, 9°E"));
    }
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(f.SearchButton.captionText, recordCaption);
    EXPECT_EQ(f.SearchButton.tooltipText, recordTooltip);
    EXPECT_TRUE(f.SearchButton.defaultButton);
    expectOnlyThisFieldEntered();
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
    EXPECT_FALSE(w.suppressUpdate);
}

TEST_P(EntryField, EnterKeyReadsLikeReturn) {
    EXPECT_TRUE(enterText(QString::fromUtf8(GetParam().typed), enterKey));
    ASSERT_TRUE(w.theLocation);
    EXPECT_NEAR(w.theLocation->lat, 45, 1e-7);
    EXPECT_EQ(field().value, canonical());
}

TEST_P(EntryField, OtherKeysGoToTheFieldUnread) {
    const VertexRef blank = w.theLocation;
    gotFocus();
    f.type(field(), QString::fromUtf8(GetParam().typed));
    EXPECT_FALSE(keyDown(letterKey));
    EXPECT_EQ(w.theLocation, blank);
    EXPECT_EQ(field().value, QString::fromUtf8(GetParam().typed));
    expectOnlyThisFieldEntered();
}

TEST_P(EntryField, ReturnInEmptyFieldIsPassedOn) {
    const VertexRef blank = w.theLocation;
    gotFocus();
    EXPECT_FALSE(keyDown(returnKey));
    EXPECT_EQ(w.theLocation, blank);
    EXPECT_TRUE(field().value.isEmpty());
    expectOnlyThisFieldEntered();
}

TEST_P(EntryField, UnreadableTextIsReplacedByTheCurrentLocationSilently) {
    enterTheLocation();
    const VertexRef current = w.theLocation;
    EXPECT_TRUE(enterText(QStringLiteral("somewhere near the lake")));
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(field().value, canonical());
    EXPECT_TRUE(f.messageBox.shown.isEmpty());
}

TEST_P(EntryField, EmptiedFieldIsRefilledWhenItLosesTheFocus) {
    enterTheLocation();
    const VertexRef current = w.theLocation;
    const double lat = w.lat, lon = w.lon;
    gotFocus();
    f.type(field(), QString());
    lostFocus();
    EXPECT_EQ(field().value, canonical());
    // An empty field is not read: neither the location nor the last reading changes.
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(w.lat, lat);
    EXPECT_EQ(w.lon, lon);
    EXPECT_FALSE(w.suppressUpdate);
}

TEST_P(EntryField, EmptiedFieldStaysEmptyWithoutACurrentLocation) {
    w.makeNewEntry();
    ASSERT_FALSE(w.theLocation);
    gotFocus();
    lostFocus();
    EXPECT_TRUE(field().value.isEmpty());
}

TEST_P(EntryField, ChangedTextIsReadWhenTheFieldLosesTheFocus) {
    gotFocus();
    f.type(field(), QString::fromUtf8(GetParam().typed));
    lostFocus();
    ASSERT_TRUE(w.theLocation);
    EXPECT_NEAR(w.theLocation->lat, 45, 1e-7);
    EXPECT_NEAR(w.theLocation->lon, 9, 1e-7);
    EXPECT_EQ(field().value, canonical());
    EXPECT_FALSE(w.suppressUpdate);
}

TEST_P(EntryField, PressingAKeyMarksThisFieldAsTheOneBeingEntered) {
    // Start from another field being entered.
    if (GetParam().entering == &Window1::enteringDD)
        w.TextFieldUTM_KeyDown(letterKey);
    else
        w.TextFieldDecDegrees_KeyDown(letterKey);
    keyDown(letterKey);
    expectOnlyThisFieldEntered();
}

TEST_P(EntryField, ClickingIntoTheFieldMarksItAsTheOneBeingEntered) {
    if (GetParam().entering == &Window1::enteringDMS)
        w.TextFieldUTM_MouseDown();
    else
        w.TextFieldDMS_MouseDown();
    (w.*(GetParam().mouseDown))();
    expectOnlyThisFieldEntered();
}

INSTANTIATE_TEST_SUITE_P(Window, EntryField, testing::ValuesIn(fieldRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Text unchanged since the field got the focus ----------------------------------------------

// DMS and UTM are read only when their text differs, ignoring case, from what the field held
// when it got the focus; decimal degrees are read every time.
struct UnchangedRow {
    const char* name;
    FieldRow row;
    bool hemisphereLettersInDD; // so that the DD text has letters to change the case of
    const char* otherCase;
    bool read;
};

void PrintTo(const UnchangedRow& row, std::ostream* os) {
    *os << row.name;
}

const UnchangedRow unchangedRows[] = {
    {"DMS_CaseOnlyNotRead", fieldRows[1], false, "45°n, 9°e", false},
    {"UTM_CaseOnlyNotRead", fieldRows[2], false, "500000.0 e, 4982950.4 n 32", false},
    {"DD_CaseOnlyRead", fieldRows[0], true, "45.00 n, 9.00 e", true},
};

class UnchangedText : public testing::TestWithParam<UnchangedRow> {
protected:
    FakeWindow f;
    Window1& w = f.window();
    const FieldRow& row() const { return GetParam().row; }
    FakeTextField& field() { return f.*(row().field); }

    void SetUp() override {
        w.DDshowHemiLet = GetParam().hemisphereLettersInDD;
        (w.*(row().gotFocus))();
        f.type(field(), QString::fromUtf8(row().typed));
        ASSERT_TRUE((w.*(row().keyDown))(returnKey));
        ASSERT_TRUE(w.theLocation);
    }
};

TEST_P(UnchangedText, ReturnAfterChangingOnlyTheCase) {
    const VertexRef current = w.theLocation;
    const QString shown = field().value;
    (w.*(row().gotFocus))();
    f.type(field(), QString::fromUtf8(GetParam().otherCase));
    EXPECT_TRUE((w.*(row().keyDown))(returnKey));
    if (GetParam().read) {
        EXPECT_NE(w.theLocation, current);
        EXPECT_EQ(field().value, shown);
    } else {
        EXPECT_EQ(w.theLocation, current);
        EXPECT_EQ(field().value, QString::fromUtf8(GetParam().otherCase));
    }
}

TEST_P(UnchangedText, FocusInAndOutWithoutTyping) {
    const VertexRef current = w.theLocation;
    const int writes = field().writes;
    (w.*(row().gotFocus))();
    (w.*(row().lostFocus))();
    if (GetParam().read) {
        EXPECT_NE(w.theLocation, current); // decimal degrees are read again
    } else {
        EXPECT_EQ(w.theLocation, current);
        EXPECT_EQ(field().writes, writes);
    }
}

INSTANTIATE_TEST_SUITE_P(Window, UnchangedText, testing::ValuesIn(unchangedRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DecimalDegreesFocus, FocusLossRewritesInCanonicalFormWithoutArmingTheRecordButton) {
    FakeWindow f;
    Window1& w = f.window();
    f.TextFieldDecDegrees.value = QStringLiteral("45 9"); // put there without a change event
    w.TextFieldDecDegrees_GotFocus();
    w.TextFieldDecDegrees_LostFocus();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->lat, 45);
    EXPECT_EQ(w.theLocation->lon, 9);
    // The rewrite happens with change events held back.
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
    EXPECT_FALSE(w.suppressUpdate);
}

TEST(DecimalDegreesFocus, UnreadableTextIsPutBackWithoutUnrecordingTheLocation) {
    FakeWindow f;
    Window1& w = f.window();
    w.TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("45 9"));
    ASSERT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
    w.SearchButton_Action(); // recorded
    const VertexRef recorded = w.theLocation;
    ASSERT_TRUE(recorded->saved);

    f.TextFieldDecDegrees.value = QStringLiteral("no place"); // put there without a change event
    w.TextFieldDecDegrees_GotFocus();
    w.TextFieldDecDegrees_LostFocus();

    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
    EXPECT_EQ(w.theLocation, recorded);
    EXPECT_TRUE(recorded->saved);
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
}

// --- Unreadable text when there is no current location -----------------------------------------

struct NoLocationRow {
    const char* name;
    FieldRow row;
};

void PrintTo(const NoLocationRow& row, std::ostream* os) {
    *os << row.name;
}

const NoLocationRow noLocationRows[] = {
    {"DecimalDegrees", fieldRows[0]},
    {"DegreesMinutesSeconds", fieldRows[1]},
};

class UnreadableWithoutLocation : public testing::TestWithParam<NoLocationRow> {};

TEST_P(UnreadableWithoutLocation, FieldShowsTheSeparatorAlone) {
    // With neither a current location nor a value read, both halves are missing.
    FakeWindow f;
    Window1& w = f.window();
    w.makeNewEntry();
    const FieldRow& row = GetParam().row;
    (w.*(row.gotFocus))();
    f.type(f.*(row.field), QStringLiteral("nothing here"));
    EXPECT_TRUE((w.*(row.keyDown))(returnKey));
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ((f.*(row.field)).value, QStringLiteral(", "));
}

INSTANTIATE_TEST_SUITE_P(Window, UnreadableWithoutLocation, testing::ValuesIn(noLocationRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- A runaway pattern search ------------------------------------------------------------------

class RunawaySearch : public testing::Test {
protected:
    FakeWindow f;
    Window1& w = f.window();
    // A long run of digits before a blank: the DMS pattern engine gives up on it.
    const QString runaway = QString(1000, QLatin1Char('1')) + QLatin1Char(' ');

    void SetUp() override {
        w.TextFieldDecDegrees_GotFocus();
        f.type(f.TextFieldDecDegrees, QStringLiteral("45 9"));
        ASSERT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
        w.TextFieldDMS_GotFocus();
        w.TextFieldDMS_KeyDown('1');
        f.type(f.TextFieldDMS, runaway);
    }
};

TEST_F(RunawaySearch, OrderButtonShowsOneMessageAndChangesNothingElse) {
    const VertexRef current = w.theLocation;
    const QString dd = f.TextFieldDecDegrees.value, utm = f.TextFieldUTM.value;
    const QString caption = f.SearchButton.captionText;
    f.clickRadioButton2();
    ASSERT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_FALSE(f.messageBox.shown.front().isEmpty());
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(f.TextFieldDecDegrees.value, dd);
    EXPECT_EQ(f.TextFieldDMS.value, runaway);
    EXPECT_EQ(f.TextFieldUTM.value, utm);
    EXPECT_EQ(f.SearchButton.captionText, caption);
    EXPECT_TRUE(w.locations.empty());
}

TEST_F(RunawaySearch, ReturnShowsOneMessageAndPutsTheCurrentLocationBack) {
    const VertexRef current = w.theLocation;
    EXPECT_TRUE(w.TextFieldDMS_KeyDown(returnKey));
    EXPECT_EQ(f.messageBox.shown.size(), 1);
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8("45°N, 9°E"));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
}

// --- Order buttons -----------------------------------------------------------------------------

// The field being entered is read again under the new order: "10 20" becomes lon 10, lat 20.
struct ReorderRow {
    const char* name;
    FieldRow row;
    const char* typed;
    double lon, lat;
    const char* ddAfter;  // the DD field, longitude first
    const char* dmsAfter; // the DMS field, longitude first
};

void PrintTo(const ReorderRow& row, std::ostream* os) {
    *os << row.name;
}

const ReorderRow reorderRows[] = {
    {"DecimalDegrees", fieldRows[0], "10 20", 10, 20, "10.00, 20.00", "10°E, 20°N"},
    {"DegreesMinutesSeconds", fieldRows[1], "10 0 0 20 0 0", 10, 20, "10.00, 20.00", "10°E, 20°N"},
    // UTM has no order: the same location is read and the other fields change their order.
    {"UTM", fieldRows[2], "500000.0 E, 4982950.4 N 32", 9, 45, "9.00, 45.00", nullptr},
};

class OrderButtonWhileEntering : public testing::TestWithParam<ReorderRow> {};

TEST_P(OrderButtonWhileEntering, FieldIsReadAgainUnderTheNewOrder) {
    FakeWindow f;
    Window1& w = f.window();
    const FieldRow& row = GetParam().row;
    (w.*(row.gotFocus))();
    (w.*(row.keyDown))('0');
    f.type(f.*(row.field), QString::fromUtf8(GetParam().typed));
    const VertexRef before = w.theLocation;

    f.clickRadioButton2();

    ASSERT_TRUE(w.theLocation);
    EXPECT_NE(w.theLocation, before);
    EXPECT_NEAR(w.theLocation->lon, GetParam().lon, 1e-7);
    EXPECT_NEAR(w.theLocation->lat, GetParam().lat, 1e-7);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QString::fromUtf8(GetParam().ddAfter));
    if (GetParam().dmsAfter) {
        EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8(GetParam().dmsAfter));
    }
}

INSTANTIATE_TEST_SUITE_P(Window, OrderButtonWhileEntering, testing::ValuesIn(reorderRows),
                         [](const auto& row) { return std::string(row.param.name); });

// With no field being entered, the order buttons rewrite the location on show only when it is
// a recorded row or an address find.
class OrderButtonAfterRecording : public testing::Test {
protected:
    FakeWindow f;
    Window1& w = f.window();

    void SetUp() override {
        w.TextFieldDecDegrees_GotFocus();
        f.type(f.TextFieldDecDegrees, QStringLiteral("10 20"));
        ASSERT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
        w.SearchButton_Action(); // "Record Entry": appended, and no field is being entered
        ASSERT_EQ(w.selectedLoc, 0);
        ASSERT_FALSE(w.enteringDD);
    }
};

TEST_F(OrderButtonAfterRecording, RecordedRowIsRewrittenInTheNewOrder) {
    const int utmWrites = f.TextFieldUTM.writes;
    f.clickRadioButton2();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
    EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8("20°E, 10°N"));
    EXPECT_EQ(f.TextFieldUTM.writes, utmWrites);
    // The program's own writes don't arm the record button.
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
    EXPECT_TRUE(w.locations.front()->saved);
    EXPECT_FALSE(w.suppressUpdate);
}

TEST_F(OrderButtonAfterRecording, ClickedFieldIsReadAgainWithoutArmingTheRecordButton) {
    // A click into the DMS field marks it as being entered; its text carries letters, so the
    // new order reads the same place, as a new unrecorded location shown by the program.
    const VertexRef recorded = w.theLocation;
    w.TextFieldDMS_MouseDown();
    f.clickRadioButton2();
    ASSERT_NE(w.theLocation, recorded);
    EXPECT_EQ(w.theLocation->lat, 10);
    EXPECT_EQ(w.theLocation->lon, 20);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
    EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8("20°E, 10°N"));
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
}

TEST_F(OrderButtonAfterRecording, NoRowNoFieldNoAddressSearchChangesNothing) {
    // A label change recorded over the row: the row is replaced and no row is edited any more.
    f.type(f.TextFieldLabel, QStringLiteral("Pier"));
    w.SearchButton_Action();
    ASSERT_EQ(w.selectedLoc, -1);
    const int ddWrites = f.TextFieldDecDegrees.writes, dmsWrites = f.TextFieldDMS.writes;
    const VertexRef current = w.theLocation;

    f.clickRadioButton2();

    EXPECT_EQ(f.TextFieldDecDegrees.writes, ddWrites);
    EXPECT_EQ(f.TextFieldDMS.writes, dmsWrites);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("10.00, 20.00"));
    EXPECT_EQ(w.theLocation, current);
}

TEST_F(OrderButtonAfterRecording, AddressSearchUnderWayRewritesWithoutARow) {
    f.type(f.TextFieldLabel, QStringLiteral("Pier"));
    w.SearchButton_Action();
    ASSERT_EQ(w.selectedLoc, -1);
    w.gettingAddressLoc = true;
    f.clickRadioButton2();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("20.00, 10.00"));
}

TEST_F(OrderButtonAfterRecording, SuppressedWhileTheProgramWritesControls) {
    w.TextFieldDecDegrees_KeyDown('1'); // even a field being entered is left alone
    const VertexRef current = w.theLocation;
    const int ddWrites = f.TextFieldDecDegrees.writes;
    w.suppressUpdate = true;
    f.clickRadioButton2();
    EXPECT_EQ(w.theLocation, current);
    EXPECT_EQ(f.TextFieldDecDegrees.writes, ddWrites);
}

TEST(OrderButton, WithoutACurrentLocationNothingHappens) {
    FakeWindow f;
    Window1& w = f.window();
    w.makeNewEntry();
    w.gettingAddressLoc = true;
    const int ddWrites = f.TextFieldDecDegrees.writes;
    f.clickRadioButton2();
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(f.TextFieldDecDegrees.writes, ddWrites);
}

// --- The label field ---------------------------------------------------------------------------

TEST(LabelField, TypingNamesTheLocationAndArmsTheRecordButton) {
    FakeWindow f;
    Window1& w = f.window();
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    ASSERT_TRUE(w.theLocation);
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Harbour"));
    EXPECT_FALSE(w.theLocation->saved);
    EXPECT_EQ(f.SearchButton.captionText, recordCaption);
    EXPECT_EQ(f.SearchButton.tooltipText, recordTooltip);
    EXPECT_TRUE(f.SearchButton.defaultButton);
}

TEST(LabelField, ProgramWritesLeaveTheLabelAlone) {
    FakeWindow f;
    Window1& w = f.window();
    w.suppressUpdate = true;
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    w.suppressUpdate = false;
    EXPECT_TRUE(w.theLocation->label.isEmpty());
    EXPECT_TRUE(w.theLocation->saved);
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
}

TEST(LabelField, TypingWithoutACurrentLocationOnlyArmsTheButton) {
    FakeWindow f;
    Window1& w = f.window();
    w.makeNewEntry();
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(f.SearchButton.captionText, recordCaption);
}

TEST(LabelField, ReadLocationTakesTheLabelTyped) {
    FakeWindow f;
    Window1& w = f.window();
    f.type(f.TextFieldLabel, QStringLiteral("Harbour"));
    w.TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("45 9"));
    ASSERT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
    EXPECT_EQ(w.theLocation->label, QStringLiteral("Harbour"));
    EXPECT_EQ(f.TextFieldLabel.value, QStringLiteral("Harbour"));
}

// --- The user's locale -------------------------------------------------------------------------

// The window takes the user's number locale when it is built; the pinned locale comes back
// at the end of the test.
class DefaultLocale {
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(QLocale::c()); }
};

TEST(GermanLocale, FieldsReadAndWriteDecimalCommas) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    FakeWindow f;
    Window1& w = f.window();
    w.TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QStringLiteral("45,5, 9,25"));
    EXPECT_TRUE(w.TextFieldDecDegrees_KeyDown(returnKey));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45,50, 9,25"));
    EXPECT_EQ(f.TextFieldDMS.value, QString::fromUtf8("45° 30'N, 9° 15'E"));
}

} // namespace

// The window's own state: what a user finds when the window opens, the question before an
// unrecorded location is dropped, recording into the list, the menu texts that follow the tab
// and the selection, the panel colour that follows the appearance, and the menu bindings.

#include "support/FakeWindow.h"

#include <QLocale>
#include <QSet>

#include <gtest/gtest.h>

#include <numeric>
#include <ostream>
#include <string>

namespace {

constexpr int returnKey = 13;

const QString clickMapCaption = QStringLiteral("Click Map");
const QString clickMapTooltip =
    QStringLiteral("Click this button and then click in the map to get the location data");

// The window takes the user's locale when it is built; the pinned locale comes back after.
class DefaultLocale {
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(QLocale::c()); }
};

// The user types a location into the decimal degrees field and presses Return: an unrecorded
// location is on show.
void enterLocation(FakeWindow& f, const QString& text) {
    f->TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, text);
    ASSERT_TRUE(f->TextFieldDecDegrees_KeyDown(returnKey));
}

// --- After the window opens --------------------------------------------------------------------

TEST(AfterOpen, SettingsAndDeskStartBlank) {
    FakeWindow f;
    Window1& w = f.window();
    EXPECT_EQ(w.DDseparator, QStringLiteral(", "));
    EXPECT_EQ(w.DMSseparator, QStringLiteral(", "));
    EXPECT_EQ(w.UTMseparator, QStringLiteral(", "));
    EXPECT_FALSE(w.DDshowHemiLet);
    EXPECT_FALSE(w.DDshowDegrSymb);
    EXPECT_TRUE(w.DMSshowHemiLet);
    EXPECT_TRUE(w.DMSshowSymbols);
    EXPECT_TRUE(w.UTMshowEN);
    EXPECT_FALSE(w.UTMshowM);
    EXPECT_TRUE(w.UTMnegZoneSouth);

    // A blank record that counts as recorded, so the first new entry asks nothing.
    ASSERT_TRUE(w.theLocation);
    EXPECT_TRUE(w.theLocation->saved);
    EXPECT_TRUE(w.theLocation->label.isEmpty());
    EXPECT_TRUE(w.locations.empty());
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_EQ(w.lat, -9999.0);
    EXPECT_EQ(w.lon, -9999.0);
    EXPECT_FALSE(w.suppressUpdate);
    EXPECT_FALSE(w.enteringDD);
    EXPECT_FALSE(w.enteringDMS);
    EXPECT_FALSE(w.enteringUTM);
    EXPECT_TRUE(w.theText.isEmpty());
    EXPECT_EQ(w.unitFmt.Units, 0);
    EXPECT_EQ(w.unitFmt.UnitStyle, 1);
    EXPECT_FALSE(w.gettingAddressLoc);
    EXPECT_FALSE(w.tappingMap);
    EXPECT_FALSE(w.gettingDist2Points);
    EXPECT_FALSE(w.gettingDistFromPt);
    EXPECT_TRUE(w.showMap);
    // The map pointer's hot spot is the middle of its 31 x 21 picture, cut to whole pixels.
    EXPECT_EQ(w.curs.pictureName, QStringLiteral("scopeCurs"));
    EXPECT_EQ(w.curs.hotSpotX, 15);
    EXPECT_EQ(w.curs.hotSpotY, 10);

    // Nothing is shown yet: the open event fills no field.
    EXPECT_TRUE(f.TextFieldDecDegrees.value.isEmpty());
    EXPECT_TRUE(f.TextFieldDMS.value.isEmpty());
    EXPECT_TRUE(f.TextFieldUTM.value.isEmpty());
    EXPECT_TRUE(f.TextFieldLabel.value.isEmpty());
    EXPECT_TRUE(f.RadioButton1.on);
    EXPECT_FALSE(f.RadioButton2.on);
}

struct MarkRow {
    const char* item;
    bool marked;
};

// Failure reports name the row instead of dumping its bytes.
void PrintTo(const MarkRow& row, std::ostream* os) {
    *os << row.item;
}

// The Format menu as the user first sees it: each separator as comma and blank together.
const MarkRow formatMarks[] = {
    {"SeparatorTab", false},
    {"SeparatorSpace", true},
    {"SeparatorComma", true},
    {"FormatShowDDHemiLet", false},
    {"FormatShowDegree", false},
    {"SeparatorDMScomma", true},
    {"SeparatorDMSTab", false},
    {"SeparatorDMSSpace", true},
    {"FormatShowDMSSymbols", true},
    {"FormatShowDMShemiLet", true},
    {"FormatUTMSeparatorTab", false},
    {"FormatUTMSeparatorComma", true},
    {"FormatUTMSeparatorSpace", true},
    {"FormatShowEandN", true},
    {"FormatShowm", false},
    {"FormatZoneinSHemisph", true},
};

class FormatMenuAfterOpen : public testing::TestWithParam<MarkRow> {};

TEST_P(FormatMenuAfterOpen, CheckMark) {
    FakeWindow f;
    FakeMenuItem& item = f.MainMenuBar[QString::fromLatin1(GetParam().item)];
    // A mark that is off must have been written off, not merely never touched.
    item.marked = !GetParam().marked;
    f->Event_Open();
    EXPECT_EQ(item.marked, GetParam().marked);
}

INSTANTIATE_TEST_SUITE_P(Window, FormatMenuAfterOpen, testing::ValuesIn(formatMarks),
                         [](const auto& row) { return std::string(row.param.item); });

struct UnitsRow {
    const char* name;
    QLocale locale;
    bool metric;
};

void PrintTo(const UnitsRow& row, std::ostream* os) {
    *os << row.name;
}

const UnitsRow unitsRows[] = {
    {"PinnedCLocale_Metric", QLocale::c(), true},
    {"Germany_Metric", QLocale(QLocale::German, QLocale::Germany), true},
    {"UnitedStates_Imperial", QLocale(QLocale::English, QLocale::UnitedStates), false},
};

class UnitsAfterOpen : public testing::TestWithParam<UnitsRow> {};

TEST_P(UnitsAfterOpen, MarkFollowsTheLocalesMeasureSystem) {
    const DefaultLocale locale(GetParam().locale);
    FakeWindow f;
    EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatMetricUnits")].marked, GetParam().metric);
    EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatImperialUnits")].marked, !GetParam().metric);
    // Everything else the same in every locale.
    EXPECT_EQ(f->DDseparator, QStringLiteral(", "));
    EXPECT_TRUE(f.MainMenuBar[QStringLiteral("SeparatorComma")].marked);
}

INSTANTIATE_TEST_SUITE_P(Window, UnitsAfterOpen, testing::ValuesIn(unitsRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- The question before an unrecorded location is dropped -------------------------------------

TEST(NewEntry, AfterOpenNothingIsAsked) {
    FakeWindow f;
    Window1& w = f.window();
    f.addressTextField.value = QStringLiteral("Main Street");
    w.makeNewEntry();
    EXPECT_TRUE(f.messageDialog.asked.empty());
    EXPECT_FALSE(w.theLocation);
    EXPECT_EQ(w.selectedLoc, -1);
    EXPECT_TRUE(f.addressTextField.value.isEmpty());
    EXPECT_EQ(f.TextFieldDecDegrees.focusRequests, 1);
    EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
    EXPECT_EQ(f.SearchButton.tooltipText, clickMapTooltip);
    EXPECT_TRUE(f.SearchButton.defaultButton);
    EXPECT_FALSE(w.suppressUpdate);
    // Emptying the fields is the program's own doing: nothing is armed.
    w.makeNewEntry();
    EXPECT_TRUE(f.messageDialog.asked.empty());
}

TEST(NewEntry, AddressSearchKeepsTheAddressAndTheFocus) {
    FakeWindow f;
    Window1& w = f.window();
    f.addressTextField.value = QStringLiteral("Main Street");
    w.gettingAddressLoc = true;
    w.makeNewEntry();
    EXPECT_EQ(f.addressTextField.value, QStringLiteral("Main Street"));
    EXPECT_EQ(f.TextFieldDecDegrees.focusRequests, 0);
}

struct AnswerRow {
    const char* name;
    MessageDialogView::Answer answer;
    bool recorded; // the location joined the list
    bool cleared;  // the desk was emptied
};

void PrintTo(const AnswerRow& row, std::ostream* os) {
    *os << row.name;
}

const AnswerRow answerRows[] = {
    {"Record", MessageDialogView::Answer::Action, true, true},
    {"DontRecord", MessageDialogView::Answer::Alternate, false, true},
    {"Cancel", MessageDialogView::Answer::Cancel, false, false},
};

class UnrecordedLocationQuestion : public testing::TestWithParam<AnswerRow> {
protected:
    FakeWindow f;
    Window1& w = f.window();
    void SetUp() override { enterLocation(f, QStringLiteral("45 9")); }
};

TEST_P(UnrecordedLocationQuestion, AskedOnceWithItsTexts) {
    f.messageDialog.answer = GetParam().answer;
    w.makeNewEntry();
    ASSERT_EQ(f.messageDialog.asked.size(), 1u);
    const MessageDialogView::Question& q = f.messageDialog.asked.front();
    EXPECT_EQ(q.iconType, 1);
    EXPECT_EQ(q.message, QStringLiteral("The current location has not been recorded!"));
    EXPECT_EQ(q.explanation, QStringLiteral("If you don't record it, your changes will be lost. "));
    EXPECT_EQ(q.actionCaption, QStringLiteral("Record"));
    EXPECT_EQ(q.alternateCaption, QStringLiteral("Don't Record"));
    EXPECT_TRUE(q.alternateVisible);
    EXPECT_TRUE(q.cancelVisible);
}

TEST_P(UnrecordedLocationQuestion, AnswerDecidesListAndDesk) {
    const VertexRef shown = w.theLocation;
    const QString dd = f.TextFieldDecDegrees.value;
    w.tappingMap = true;
    w.gettingAddressLoc = true;
    f.messageDialog.answer = GetParam().answer;

    w.makeNewEntry();

    if (GetParam().recorded) {
        ASSERT_EQ(w.locations.size(), 1u);
        EXPECT_EQ(w.locations.front(), shown);
        EXPECT_TRUE(shown->saved);
    } else {
        EXPECT_TRUE(w.locations.empty());
    }
    if (GetParam().cleared) {
        EXPECT_FALSE(w.theLocation);
        EXPECT_EQ(w.selectedLoc, -1);
        EXPECT_TRUE(f.TextFieldDecDegrees.value.isEmpty());
        EXPECT_TRUE(f.TextFieldDMS.value.isEmpty());
        EXPECT_TRUE(f.TextFieldUTM.value.isEmpty());
        EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
    } else {
        // Cancel: the desk stays, the map modes end.
        EXPECT_EQ(w.theLocation, shown);
        EXPECT_FALSE(shown->saved);
        EXPECT_EQ(w.selectedLoc, -1);
        EXPECT_EQ(f.TextFieldDecDegrees.value, dd);
        EXPECT_FALSE(w.tappingMap);
        EXPECT_FALSE(w.gettingAddressLoc);
    }
}

INSTANTIATE_TEST_SUITE_P(Window, UnrecordedLocationQuestion, testing::ValuesIn(answerRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Recording ---------------------------------------------------------------------------------

class Recording : public testing::Test {
protected:
    FakeWindow f;
    Window1& w = f.window();
    void SetUp() override { enterLocation(f, QStringLiteral("45 9")); }

    void expectClickMapButton() {
        EXPECT_EQ(f.SearchButton.captionText, clickMapCaption);
        EXPECT_EQ(f.SearchButton.tooltipText, clickMapTooltip);
        EXPECT_FALSE(f.SearchButton.defaultButton);
    }
};

TEST_F(Recording, NewLocationIsAppendedAndBecomesTheEditedRow) {
    const VertexRef shown = w.theLocation;
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 1u);
    EXPECT_EQ(w.locations.front(), shown); // one object: a later label edit shows in the row
    EXPECT_EQ(w.theLocation, shown);
    EXPECT_EQ(w.selectedLoc, 0);
    EXPECT_TRUE(shown->saved);
    expectClickMapButton();
}

TEST_F(Recording, LocationTypedAfterRecordingReplacesTheRecordedRow) {
    // Recording leaves the new row as the one the form edits, and reading a text doesn't
    // change that: the next record writes over it.
    w.recordEntry();
    enterLocation(f, QStringLiteral("-33.85 151.2"));
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 1u);
    EXPECT_EQ(w.locations[0]->lat, -33.85);
    EXPECT_NE(w.locations[0], w.theLocation);
    EXPECT_EQ(w.selectedLoc, -1);
}

TEST_F(Recording, EditedRowIsReplacedByACopy) {
    w.recordEntry();
    w.makeNewEntry(); // recorded: nothing is asked, and no row is edited any more
    ASSERT_TRUE(f.messageDialog.asked.empty());
    enterLocation(f, QStringLiteral("-33.85 151.2"));
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 2u);
    ASSERT_EQ(w.selectedLoc, 1);

    // The first row taken onto the desk as a copy, as a click in the table does, and renamed.
    w.theLocation = w.cloneLocation(*w.locations[0]);
    w.selectedLoc = 0;
    f.type(f.TextFieldLabel, QStringLiteral("Turin"));
    w.recordEntry();

    ASSERT_EQ(w.locations.size(), 2u);
    EXPECT_NE(w.locations[0], w.theLocation);
    EXPECT_EQ(w.locations[0]->label, QStringLiteral("Turin"));
    EXPECT_EQ(w.locations[0]->lat, 45);
    EXPECT_TRUE(w.locations[0]->saved);
    EXPECT_EQ(w.locations[1]->lat, -33.85); // the other row is untouched
    EXPECT_EQ(w.selectedLoc, -1);
    expectClickMapButton();

    // Recorded once more after a further change: no row is edited now, so it is appended.
    f.type(f.TextFieldLabel, QStringLiteral("Turin centre"));
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 3u);
    EXPECT_EQ(w.locations[2], w.theLocation);
    EXPECT_EQ(w.locations[0]->label, QStringLiteral("Turin"));
    EXPECT_EQ(w.selectedLoc, 2);
}

TEST_F(Recording, NothingOnTheDeskRecordsNothing) {
    f.messageDialog.answer = MessageDialogView::Answer::Alternate;
    w.makeNewEntry();
    w.recordEntry();
    EXPECT_TRUE(w.locations.empty());
    EXPECT_EQ(w.selectedLoc, -1);
}

// --- Menu texts that follow the tab and the selection ------------------------------------------

struct RemoveTextRow {
    const char* name;
    int page;
    int selectedRows;
    const char* text;
};

void PrintTo(const RemoveTextRow& row, std::ostream* os) {
    *os << row.name;
}

const RemoveTextRow removeTextRows[] = {
    {"Page0_NothingSelected", 0, 0, "Remove Location"},
    {"Page0_TwoSelected", 0, 2, "Remove Location"},
    {"Page1_OneSelected", 1, 1, "Remove Location"},
    {"Page1_TwoSelected", 1, 2, "Remove Locations"},
    {"Page1_FiveSelected", 1, 5, "Remove Locations"},
};

class RemoveItemText : public testing::TestWithParam<RemoveTextRow> {};

TEST_P(RemoveItemText, BeforeAMenuOpens) {
    FakeWindow f;
    Window1& w = f.window();
    for (int i = 0; i < 6; ++i)
        w.locations.push_back(std::make_shared<Vertex>());
    w.fillBatchTable();
    std::vector<int> rows(static_cast<std::size_t>(GetParam().selectedRows));
    std::iota(rows.begin(), rows.end(), 0);
    f.BatchListbox.setSelectedRows(rows);
    f.TabPanel1.page = GetParam().page;
    f->Event_EnableMenuItems();
    EXPECT_EQ(f.MainMenuBar[QStringLiteral("EditRemoveLocations")].caption,
              QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Window, RemoveItemText, testing::ValuesIn(removeTextRows),
                         [](const auto& row) { return std::string(row.param.name); });

constexpr int untouchedRow = 1; // the table's selection before the tab changes, if it has rows

struct TabRow {
    const char* name;
    int page;
    int recorded; // locations in the list and rows in the table
    std::int64_t selectedLoc;
    std::vector<int> selectedAfter;
    const char* distanceText;
};

void PrintTo(const TabRow& row, std::ostream* os) {
    *os << row.name;
}

const TabRow tabRows[] = {
    {"Page1_EditedRowSelected", 1, 3, 2, {2}, "Distance Between Selected Pts"},
    {"Page1_FirstRowSelected", 1, 3, 0, {0}, "Distance Between Selected Pts"},
    {"Page1_NoEditedRow", 1, 3, -1, {untouchedRow}, "Distance Between Selected Pts"},
    {"Page1_IndexPastTheEnd", 1, 3, 3, {untouchedRow}, "Distance Between Selected Pts"},
    {"Page1_EmptyList", 1, 0, 0, {}, "Distance Between Selected Pts"},
    {"Page0_RowLeftAlone", 0, 3, 2, {untouchedRow}, "Distance Between Clicked Pts"},
};

class TabChange : public testing::TestWithParam<TabRow> {};

TEST_P(TabChange, RowSelectionAndDistanceText) {
    FakeWindow f;
    Window1& w = f.window();
    for (int i = 0; i < GetParam().recorded; ++i)
        w.locations.push_back(std::make_shared<Vertex>());
    w.fillBatchTable();
    f.BatchListbox.setSelectedRows({untouchedRow});
    w.selectedLoc = GetParam().selectedLoc;
    // The opposite text first, so that the change has to write it.
    f.MainMenuBar[QStringLiteral("MapDistanceBetweenClickedPts")].caption =
        GetParam().page == 0 ? QStringLiteral("Distance Between Selected Pts")
                             : QStringLiteral("Distance Between Clicked Pts");
    f.TabPanel1.page = GetParam().page;

    w.TabPanel1_Change();

    std::vector<int> selectedAfter;
    for (int row = 0; row <= f.BatchListbox.lastRowIndex(); ++row)
        if (f.BatchListbox.selected(row))
            selectedAfter.push_back(row);
    EXPECT_EQ(selectedAfter, GetParam().selectedAfter);
    EXPECT_EQ(f.MainMenuBar[QStringLiteral("MapDistanceBetweenClickedPts")].caption,
              QString::fromLatin1(GetParam().distanceText));
}

INSTANTIATE_TEST_SUITE_P(Window, TabChange, testing::ValuesIn(tabRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct AppearanceRow {
    const char* name;
    bool dark;
    std::uint32_t fill;
};

void PrintTo(const AppearanceRow& row, std::ostream* os) {
    *os << row.name;
}

const AppearanceRow appearanceRows[] = {
    {"Dark", true, 0x80424242u},
    {"Light", false, 0x80FFFFFFu},
};

class PanelColour : public testing::TestWithParam<AppearanceRow> {};

TEST_P(PanelColour, FollowsTheAppearanceWhenTheWindowActivates) {
    FakeWindow f;
    f.appearance.dark = !GetParam().dark;
    f->Event_Activate();
    f.appearance.dark = GetParam().dark; // changed while the window was in the background
    f->Event_Activate();
    EXPECT_EQ(f.Rectangle1.fill, GetParam().fill);
}

INSTANTIATE_TEST_SUITE_P(Window, PanelColour, testing::ValuesIn(appearanceRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Menu bindings -----------------------------------------------------------------------------

struct Binding {
    const char* item;
    Window1::MenuHandler handler;
};

void PrintTo(const Binding& row, std::ostream* os) {
    *os << row.item;
}

// Every item of the menu bar that has a handler of the window, with that handler.
const Binding menuBindings[] = {
    {"FileNewLocation", &Window1::_FileNewLocation_Action},
    {"FileNewLocationatMapClick", &Window1::_FileNewLocationatMapClick_Action},
    {"FileOpen", &Window1::_FileOpen_Action},
    {"FileSave", &Window1::_FileSave_Action},
    {"EditPaste", &Window1::_EditPaste_Action},
    {"EditRemoveLocations", &Window1::_EditRemoveLocations_Action},
    {"SeparatorComma", &Window1::_SeparatorComma_Action},
    {"SeparatorTab", &Window1::_SeparatorTab_Action},
    {"SeparatorSpace", &Window1::_SeparatorSpace_Action},
    {"FormatShowDegree", &Window1::_FormatShowDegree_Action},
    {"FormatShowDDHemiLet", &Window1::_FormatShowDDHemiLet_Action},
    {"SeparatorDMScomma", &Window1::_SeparatorDMScomma_Action},
    {"SeparatorDMSTab", &Window1::_SeparatorDMSTab_Action},
    {"SeparatorDMSSpace", &Window1::_SeparatorDMSSpace_Action},
    {"FormatShowDMSSymbols", &Window1::_FormatShowDMSSymbols_Action},
    {"FormatShowDMShemiLet", &Window1::_FormatShowDMShemiLet_Action},
    {"FormatUTMSeparatorComma", &Window1::_FormatUTMSeparatorComma_Action},
    {"FormatUTMSeparatorTab", &Window1::_FormatUTMSeparatorTab_Action},
    {"FormatUTMSeparatorSpace", &Window1::_FormatUTMSeparatorSpace_Action},
    {"FormatShowm", &Window1::_FormatShowm_Action},
    {"FormatShowEandN", &Window1::_FormatShowEandN_Action},
    {"FormatZoneinSHemisph", &Window1::_FormatZoneinSHemisph_Action},
    {"FormatImperialUnits", &Window1::_FormatImperialUnits_Action},
    {"FormatMetricUnits", &Window1::_FormatMetricUnits_Action},
    {"MapShowUserLocation", &Window1::_MapShowUserLocation_Action},
    {"MapShowAllLocations", &Window1::_MapShowAllLocations_Action},
    {"MapDistancefromCurrentPt", &Window1::_MapDistancefromCurrentPt_Action},
    {"MapDistanceBetweenClickedPts", &Window1::_MapDistanceBetweenClickedPts_Action},
    {"MapRemoveLocations", &Window1::_MapRemoveLocations_Action},
};

TEST(MenuBindings, TwentyNineItemsEachBoundOnce) {
    const auto& bound = Window1::AddMenuHandlers();
    EXPECT_EQ(bound.size(), 29u);
    QSet<QString> names;
    for (const auto& entry : bound) {
        EXPECT_FALSE(names.contains(entry.first)) << entry.first.toStdString() << " bound twice";
        names.insert(entry.first);
    }
    EXPECT_EQ(names.size(), 29);
}

class MenuBinding : public testing::TestWithParam<Binding> {};

TEST_P(MenuBinding, ItemRunsItsOwnHandler) {
    const QString item = QString::fromLatin1(GetParam().item);
    int found = 0;
    for (const auto& [name, handler] : Window1::AddMenuHandlers()) {
        if (name != item)
            continue;
        ++found;
        EXPECT_TRUE(handler == GetParam().handler);
    }
    EXPECT_EQ(found, 1);
}

INSTANTIATE_TEST_SUITE_P(Window, MenuBinding, testing::ValuesIn(menuBindings),
                         [](const auto& row) { return std::string(row.param.item); });

struct UnboundRow {
    const char* name;
    const char* item;
};

void PrintTo(const UnboundRow& row, std::ostream* os) {
    *os << row.name;
}

// Names that are no window command: titles, separators, the platform's own items, the
// application's About, and names that are not in the menu at all.
const UnboundRow unboundRows[] = {
    {"Unknown", "NoSuchItem"},
    {"Empty", ""},
    {"Title", "FormatDecimalDegrees"},
    {"Submenu", "FormatSeparator"},
    {"MenuItself", "FileMenu"},
    {"Separator", "UntitledSeparator3"},
    {"PlatformQuit", "FileQuit"},
    {"PlatformCopy", "EditCopy"},
    {"ApplicationAbout", "HelpAboutGeoquill"},
    {"ItemPlusText", "FileSaveAs"},
};

class UnboundItem : public testing::TestWithParam<UnboundRow> {};

TEST_P(UnboundItem, IsNotCarriedOut) {
    FakeWindow f;
    EXPECT_FALSE(f->menuItemChosen(QString::fromLatin1(GetParam().item)));
    for (const auto& entry : Window1::AddMenuHandlers())
        EXPECT_NE(entry.first, QString::fromLatin1(GetParam().item));
}

INSTANTIATE_TEST_SUITE_P(Window, UnboundItem, testing::ValuesIn(unboundRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

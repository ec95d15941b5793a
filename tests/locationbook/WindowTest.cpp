// The window as a user finds and changes it: the question before an unrecorded location is
// dropped, recording into the list, the menu texts that follow the tab and the selection, the
// units and panel colour that follow the system, and the Format menu with the three format
// buttons, whose check marks are kept in step.

#include "support/FakeWindow.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace {

using Answer = MessageDialogView::Answer;
const QString clickMap = QStringLiteral("Click Map");

// The user types a location into the decimal degrees field and presses Return.
void enterLocation(FakeWindow& f, const char* text) {
    f->TextFieldDecDegrees_GotFocus();
    f.type(f.TextFieldDecDegrees, QString::fromUtf8(text));
    ASSERT_TRUE(f->TextFieldDecDegrees_KeyDown(13));
}

TEST(NewEntry, AfterOpenNothingIsAsked) {
    FakeWindow f;
    Window1& w = f.window();
    f.addressTextField.value = QStringLiteral("Main Street");
    w.gettingAddressLoc = true; // an address search keeps the address and the focus
    w.makeNewEntry();
    EXPECT_EQ(f.addressTextField.value, QStringLiteral("Main Street"));
    EXPECT_EQ(f.TextFieldDecDegrees.focusRequests, 0);
    w.gettingAddressLoc = false;
    w.makeNewEntry();
    EXPECT_TRUE(f.messageDialog.asked.empty());
    EXPECT_FALSE(w.theLocation);
    EXPECT_TRUE(f.addressTextField.value.isEmpty());
    EXPECT_EQ(f.TextFieldDecDegrees.focusRequests, 1);
    EXPECT_EQ(f.SearchButton.captionText, clickMap);
    EXPECT_TRUE(f.SearchButton.defaultButton);
    EXPECT_FALSE(w.suppressUpdate);
}

struct AnswerRow {
    const char* name;
    Answer answer;
    bool recorded, cleared;
};

const AnswerRow answerRows[] = {
    {"Record", Answer::Action, true, true},
    {"DontRecord", Answer::Alternate, false, true},
    {"Cancel", Answer::Cancel, false, false},
};

class UnrecordedLocation : public testing::TestWithParam<AnswerRow> {};

TEST_P(UnrecordedLocation, AnswerDecidesListAndDesk) {
    FakeWindow f;
    Window1& w = f.window();
    enterLocation(f, "45 9");
    const VertexRef shown = w.theLocation;
    w.tappingMap = w.gettingAddressLoc = true;
    f.messageDialog.answer = GetParam().answer;
    w.makeNewEntry();

    ASSERT_EQ(f.messageDialog.asked.size(), 1u);
    const MessageDialogView::Question& q = f.messageDialog.asked[0];
    EXPECT_EQ(q.message, QStringLiteral("The current location has not been recorded!"));
    EXPECT_TRUE(q.iconType == 1 && q.alternateVisible && q.cancelVisible);
    EXPECT_EQ(w.locations.size(), GetParam().recorded ? 1u : 0u);
    EXPECT_EQ(shown->saved, GetParam().recorded);
    EXPECT_EQ(w.selectedLoc, -1);
    if (GetParam().cleared) {
        EXPECT_FALSE(w.theLocation);
        EXPECT_TRUE(f.TextFieldDecDegrees.value.isEmpty());
        EXPECT_TRUE(f.TextFieldUTM.value.isEmpty());
    } else { // the desk stays, the map modes end
        EXPECT_EQ(w.theLocation, shown);
        EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("45.00, 9.00"));
        EXPECT_FALSE(w.tappingMap || w.gettingAddressLoc);
    }
}

INSTANTIATE_TEST_SUITE_P(Window, UnrecordedLocation, testing::ValuesIn(answerRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Recording, AppendsOrReplacesTheEditedRow) {
    FakeWindow f;
    Window1& w = f.window();
    f.messageDialog.answer = Answer::Alternate;
    w.makeNewEntry();
    w.recordEntry(); // nothing on the desk, nothing recorded
    EXPECT_TRUE(w.locations.empty());

    enterLocation(f, "45 9");
    const VertexRef first = w.theLocation;
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 1u);
    EXPECT_EQ(w.locations[0], first) << "one object: a later label edit shows in the row";
    EXPECT_EQ(w.selectedLoc, 0);
    EXPECT_TRUE(first->saved);
    EXPECT_EQ(f.SearchButton.captionText, clickMap);
    EXPECT_FALSE(f.SearchButton.defaultButton);

    // The new row stays the one the form edits, and reading a text doesn't change that.
    enterLocation(f, "-33.85 151.2");
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 1u);
    EXPECT_EQ(w.locations[0]->lat, -33.85);
    EXPECT_NE(w.locations[0], w.theLocation) << "a recorded row is replaced by a copy";
    EXPECT_EQ(w.selectedLoc, -1);

    // No row edited any more: appended.
    f.type(f.TextFieldLabel, QStringLiteral("Sydney"));
    w.recordEntry();
    ASSERT_EQ(w.locations.size(), 2u);
    EXPECT_EQ(w.locations[1], w.theLocation);
    EXPECT_TRUE(w.locations[0]->label.isEmpty());
    EXPECT_EQ(w.selectedLoc, 1);
}

// --- Menu texts, units, colour -----------------------------------------------------------------

TEST(MenuTexts, RemoveItemFollowsTabAndSelection) {
    const struct {
        int page, selected;
        const char* text;
    } rows[] = {{0, 2, "Remove Location"}, {1, 1, "Remove Location"}, {1, 2, "Remove Locations"}};
    for (const auto& r : rows) {
        FakeWindow f;
        for (int i = 0; i < 3; ++i)
            f->locations.push_back(std::make_shared<Vertex>());
        f->fillBatchTable();
        std::vector<int> selected(static_cast<std::size_t>(r.selected));
        std::iota(selected.begin(), selected.end(), 0);
        f.BatchListbox.setSelectedRows(selected);
        f.TabPanel1.page = r.page;
        f->Event_EnableMenuItems();
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("EditRemoveLocations")].caption, r.text);
    }
}

TEST(TabChange, TablePageSelectsTheEditedRowAndRenamesTheDistanceItem) {
    constexpr int untouched = 1; // the table's selection before the tab changes
    const struct {
        int page, recorded;
        std::int64_t selectedLoc;
        std::vector<int> selectedAfter;
        const char* distanceText;
    } rows[] = {{1, 3, 2, {2}, "Distance Between Selected Pts"},
                {1, 3, 0, {0}, "Distance Between Selected Pts"},
                {1, 3, -1, {untouched}, "Distance Between Selected Pts"},
                {1, 3, 3, {untouched}, "Distance Between Selected Pts"}, // past the end
                {1, 0, 0, {}, "Distance Between Selected Pts"},
                {0, 3, 2, {untouched}, "Distance Between Clicked Pts"}};
    for (const auto& r : rows) {
        FakeWindow f;
        Window1& w = f.window();
        for (int i = 0; i < r.recorded; ++i)
            w.locations.push_back(std::make_shared<Vertex>());
        w.fillBatchTable();
        f.BatchListbox.setSelectedRows({untouched});
        w.selectedLoc = r.selectedLoc;
        FakeMenuItem& item = f.MainMenuBar[QStringLiteral("MapDistanceBetweenClickedPts")];
        item.caption.clear();
        f.TabPanel1.page = r.page;
        w.TabPanel1_Change();
        std::vector<int> selectedAfter;
        for (int row = 0; row <= f.BatchListbox.lastRowIndex(); ++row)
            if (f.BatchListbox.selected(row))
                selectedAfter.push_back(row);
        EXPECT_EQ(selectedAfter, r.selectedAfter) << r.selectedLoc;
        EXPECT_EQ(item.caption, r.distanceText);
    }
}

TEST(System, UnitsFollowTheLocaleAndThePanelTheAppearance) {
    // Until a units item is chosen, distances are written as the ticked item says, with the
    // locale's decimal mark.
    const struct {
        QLocale locale;
        bool metric;
        const char* distance; // of 1,500 m
    } locales[] = {{QLocale::c(), true, "1.5 km"},
                   {QLocale(QLocale::German, QLocale::Germany), true, "1,5 km"},
                   {QLocale(QLocale::English, QLocale::UnitedStates), false, "0.9 mi"}};
    for (const auto& r : locales) {
        QLocale::setDefault(r.locale);
        FakeWindow f;
        QLocale::setDefault(QLocale::c());
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatMetricUnits")].marked, r.metric);
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("FormatImperialUnits")].marked, !r.metric);
        EXPECT_EQ(f->unitFmt.stringFromDistance(1500), QString::fromLatin1(r.distance));
    }
    FakeWindow f;
    for (bool dark : {true, false, true}) { // changed while the window was in the background
        f.appearance.dark = dark;
        f->Event_Activate();
        EXPECT_EQ(f.Rectangle1.fill, dark ? 0x80424242u : 0x80FFFFFFu);
    }
    EXPECT_FALSE(f->menuItemChosen(QStringLiteral("NoSuchItem")));
}

// --- Show options ------------------------------------------------------------------------------

struct ShowRow {
    const char* item; // of the menu bar
    bool NotationSettings::*setting;
    FakePopupButton FakeWindow::*button;
    const char* entry; // of the button's menu
    FakeTextField FakeWindow::*field;
    int column; // a table column the setting changes
};

const ShowRow showRows[] = {
    {"FormatShowDDHemiLet", &NotationSettings::DDshowHemiLet, &FakeWindow::BevelButtonFormatDD,
     "Show Hemisphere Letter", &FakeWindow::TextFieldDecDegrees, 2},
    {"FormatShowDegree", &NotationSettings::DDshowDegrSymb, &FakeWindow::BevelButtonFormatDD,
     "Show ° Symbol", &FakeWindow::TextFieldDecDegrees, 3},
    {"FormatShowDMShemiLet", &NotationSettings::DMSshowHemiLet, &FakeWindow::BevelButtonFormatDMS,
     "Show Hemisphere Letter", &FakeWindow::TextFieldDMS, 4},
    {"FormatShowDMSSymbols", &NotationSettings::DMSshowSymbols, &FakeWindow::BevelButtonFormatDMS,
     "Show ° ' \" Symbols", &FakeWindow::TextFieldDMS, 5},
    {"FormatShowm", &NotationSettings::UTMshowM, &FakeWindow::BevelButtonFormatUTM, "Show \"m\"",
     &FakeWindow::TextFieldUTM, 6},
    {"FormatShowEandN", &NotationSettings::UTMshowEN, &FakeWindow::BevelButtonFormatUTM,
     "Show E and N", &FakeWindow::TextFieldUTM, 7},
    {"FormatZoneinSHemisph", &NotationSettings::UTMnegZoneSouth, &FakeWindow::BevelButtonFormatUTM,
     "(-) Zone in S Hemisph", &FakeWindow::TextFieldUTM, 8},
};

class ShowOption : public testing::TestWithParam<ShowRow> {};

// From the menu bar and back from the button: both copies of the mark, the setting, the field
// and the table follow, and the location on show counts as changed. The notations' texts under
// each setting are the writers' own tests.
TEST_P(ShowOption, MenuBarAndButtonStayInStep) {
    const ShowRow& r = GetParam();
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("-33.5 151.25"));
    const bool before = w.*r.setting;
    FakeMenuItem& item = f.MainMenuBar[r.item];
    FakePopupButton& button = f.*r.button;
    PopupMenuItem& entry = *button.entry({QString::fromUtf8(r.entry)});
    const QString field = (f.*r.field).value, cell = f.BatchListbox.cellValueAt(0, r.column);
    ASSERT_EQ(item.marked, before);
    ASSERT_EQ(entry.HasCheckMark, before);
    EXPECT_EQ(button.menuStyle, 1) << "the whole button opens its menu";

    EXPECT_TRUE(w.menuItemChosen(r.item));
    EXPECT_EQ(item.marked, !before);
    EXPECT_EQ(entry.HasCheckMark, !before);
    EXPECT_EQ(w.*r.setting, !before);
    EXPECT_NE((f.*r.field).value, field);
    EXPECT_NE(f.BatchListbox.cellValueAt(0, r.column), cell);
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_FALSE(w.theLocation->saved);

    if (r.button == &FakeWindow::BevelButtonFormatDD)
        w.BevelButtonFormatDD_MenuSelected(entry);
    else if (r.button == &FakeWindow::BevelButtonFormatDMS)
        w.BevelButtonFormatDMS_MenuSelected(entry);
    else
        w.BevelButtonFormatUTM_MenuSelected(entry);
    EXPECT_EQ(item.marked, before);
    EXPECT_EQ(entry.HasCheckMark, before);
    EXPECT_EQ(w.*r.setting, before);
    EXPECT_EQ((f.*r.field).value, field);
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, r.column), cell);
}

INSTANTIATE_TEST_SUITE_P(Format, ShowOption, testing::ValuesIn(showRows),
                         [](const auto& row) { return std::string(row.param.item); });

TEST(ShowOption, TableAndFieldAreWrittenFromTheWindowsState) {
    FakeWindow f;
    Window1& w = f.window();
    w._FormatShowDegree_Action();
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lon DD")) << "empty list: no rebuild";
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral(", ")) << "nothing entered yet";
    w._FormatShowm_Action();
    EXPECT_EQ(f.TextFieldUTM.value, QStringLiteral(", ")) << "no position to project yet";

    // The field is written from the window's lat and lon, which a click on a row leaves; the
    // table keeps its selection.
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("1 2"));
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("3 4"));
    f.clickRow(0);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("1.00°, 2.00°"));
    w.BevelButtonFormatDD_MenuSelected(*f.BevelButtonFormatDD.entry({"Show Hemisphere Letter"}));
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("3.00°N, 4.00°E"));
    EXPECT_TRUE(f.BatchListbox.selected(0));
    EXPECT_FALSE(f.BatchListbox.selected(1));
    EXPECT_EQ(f.BatchListbox.cellValueAt(1, 2), QStringLiteral("3.00° N"));
}

// --- Separators --------------------------------------------------------------------------------

// The marks tell the separator: Comma and Space together ", ", either alone; Tab excludes both.
// The last of Comma and Space can't go: the other takes its place. Tab can be turned off with
// nothing in its place.
struct SeparatorStep {
    const char* choice; // "SeparatorTab" from the menu bar, or "Comma" from the button
    const char* separator;
    const char* marks; // Comma, Space, Tab: "CS-", "--T", ...
};

struct SeparatorRow {
    const char* name;
    int notation; // 0 DD, 1 DMS, 2 UTM
    std::vector<SeparatorStep> steps;
};

// The first step of each row depends on the marks the window opened with.
const SeparatorRow separatorRows[] = {
    {"DD_MenuCommaOffThenButtons",
     0,
     {{"SeparatorComma", " ", "-S-"}, {"Tab", "\t", "--T"}, {"Comma", ",", "C--"}}},
    {"DD_MenuSpaceOffThenTheLastOneTurnsTheOtherOn",
     0,
     {{"SeparatorSpace", ",", "C--"}, {"Comma", " ", "-S-"}, {"Space", ",", "C--"}}},
    {"DD_MenuTabThenSpaceThenComma",
     0,
     {{"SeparatorTab", "\t", "--T"},
      {"SeparatorSpace", " ", "-S-"},
      {"SeparatorComma", ", ", "CS-"}}},
    {"DD_ButtonTabOffLeavesTab", 0, {{"Tab", "\t", "--T"}, {"Tab", "\t", "---"}}},
    {"DMS_Comma",
     1,
     {{"SeparatorDMScomma", " ", "-S-"},
      {"SeparatorDMSTab", "\t", "--T"},
      {"SeparatorDMSSpace", " ", "-S-"}}},
    {"DMS_Space", 1, {{"SeparatorDMSSpace", ",", "C--"}, {"SeparatorDMScomma", " ", "-S-"}}},
    {"DMS_TabThenButton", 1, {{"SeparatorDMSTab", "\t", "--T"}, {"Space", " ", "-S-"}}},
    {"UTM_Comma",
     2,
     {{"FormatUTMSeparatorComma", " ", "-S-"},
      {"FormatUTMSeparatorTab", "\t", "--T"},
      {"FormatUTMSeparatorSpace", " ", "-S-"}}},
    {"UTM_Space",
     2,
     {{"FormatUTMSeparatorSpace", ",", "C--"}, {"FormatUTMSeparatorComma", " ", "-S-"}}},
    {"UTM_TabThenButton", 2, {{"FormatUTMSeparatorTab", "\t", "--T"}, {"Comma", ",", "C--"}}},
};

class SeparatorChoice : public testing::TestWithParam<SeparatorRow> {};

TEST_P(SeparatorChoice, MarksTellTheSeparator) {
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("45.5 9.25"));
    const int n = GetParam().notation;
    FakePopupButton* buttons[] = {&f.BevelButtonFormatDD, &f.BevelButtonFormatDMS,
                                  &f.BevelButtonFormatUTM};
    FakeTextField* fields[] = {&f.TextFieldDecDegrees, &f.TextFieldDMS, &f.TextFieldUTM};
    QString* separators[] = {&w.DDseparator, &w.DMSseparator, &w.UTMseparator};
    const char* const items[3][3] = {
        {"SeparatorComma", "SeparatorSpace", "SeparatorTab"},
        {"SeparatorDMScomma", "SeparatorDMSSpace", "SeparatorDMSTab"},
        {"FormatUTMSeparatorComma", "FormatUTMSeparatorSpace", "FormatUTMSeparatorTab"}};
    const QString halves[2] = {fields[n]->value.section(", ", 0, 0),
                               fields[n]->value.section(", ", 1)};
    const QString cell = f.BatchListbox.cellValueAt(0, 2);
    for (const SeparatorStep& step : GetParam().steps) {
        SCOPED_TRACE(step.choice);
        if (!w.menuItemChosen(step.choice)) {
            PopupMenuItem* entry = buttons[n]->entry({"Separator", step.choice});
            ASSERT_TRUE(entry);
            if (n == 0)
                w.BevelButtonFormatDD_MenuSelected(*entry);
            else if (n == 1)
                w.BevelButtonFormatDMS_MenuSelected(*entry);
            else
                w.BevelButtonFormatUTM_MenuSelected(*entry);
        }
        EXPECT_EQ(*separators[n], step.separator);
        const char* const texts[] = {"Comma", "Space", "Tab"};
        for (int k = 0; k < 3; ++k) {
            const bool marked = step.marks[k] != '-';
            EXPECT_EQ(f.MainMenuBar[items[n][k]].marked, marked) << texts[k];
            EXPECT_EQ(buttons[n]->entry({"Separator", texts[k]})->HasCheckMark, marked) << k;
        }
        EXPECT_EQ(fields[n]->value, halves[0] + step.separator + halves[1]);
    }
    // The other notations and the table never see this separator.
    for (int other = 0; other < 3; ++other)
        if (other != n) {
            EXPECT_EQ(*separators[other], QStringLiteral(", "));
        }
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 2), cell);
}

INSTANTIATE_TEST_SUITE_P(Format, SeparatorChoice, testing::ValuesIn(separatorRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

// The Format menu and the three pop-up format buttons: the buttons' menus, the two copies of
// the check marks kept in step, the separators told by the marks, and what is written again.

#include "support/FakeWindow.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using Notation = Window1::Notation;

const QString tab = QStringLiteral("\t");

struct ButtonOpenRow {
    const char* name;
    FakePopupButton FakeWindow::*button;
    const char* caption;
    std::vector<const char*> entries;
    std::vector<bool> marks; // of the entries after "Separator", with the start settings
};

void PrintTo(const ButtonOpenRow& row, std::ostream* os) {
    *os << row.name;
}

const ButtonOpenRow buttonRows[] = {
    {"DD",
     &FakeWindow::BevelButtonFormatDD,
     "DD Format",
     {"Separator", "Show ° Symbol", "Show Hemisphere Letter"},
     {false, false}},
    {"DMS",
     &FakeWindow::BevelButtonFormatDMS,
     "DMS Format",
     {"Separator", "Show ° ' \" Symbols", "Show Hemisphere Letter"},
     {true, true}},
    {"UTM",
     &FakeWindow::BevelButtonFormatUTM,
     "UTM Format",
     {"Separator", "Show \"m\"", "Show E and N", "(-) Zone in S Hemisph"},
     {false, true, true}},
};

class FormatButtonOpen : public testing::TestWithParam<ButtonOpenRow> {};

TEST_P(FormatButtonOpen, MenuFollowsTheSettings) {
    FakeWindow f;
    const FakePopupButton& button = f.*GetParam().button;
    EXPECT_EQ(button.captionText, QString::fromUtf8(GetParam().caption));
    EXPECT_EQ(button.captionAlignment, 0);
    EXPECT_EQ(button.menuStyle, 1);
    const auto& entries = button.base.children;
    ASSERT_EQ(entries.size(), GetParam().entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        EXPECT_EQ(entries[i].Text, QString::fromUtf8(GetParam().entries[i]));
    for (std::size_t i = 1; i < entries.size(); ++i)
        EXPECT_EQ(entries[i].HasCheckMark, GetParam().marks[i - 1]) << i;
    const auto& separators = entries[0].children;
    ASSERT_EQ(separators.size(), 3u);
    EXPECT_EQ(separators[0].Text, QStringLiteral("Comma"));
    EXPECT_TRUE(separators[0].HasCheckMark);
    EXPECT_EQ(separators[1].Text, QStringLiteral("Tab"));
    EXPECT_FALSE(separators[1].HasCheckMark);
    EXPECT_EQ(separators[2].Text, QStringLiteral("Space"));
    EXPECT_TRUE(separators[2].HasCheckMark);
}

INSTANTIATE_TEST_SUITE_P(Format, FormatButtonOpen, testing::ValuesIn(buttonRows),
                         [](const auto& row) { return std::string(row.param.name); });

// --- Show options ------------------------------------------------------------------------------

struct ShowRow {
    const char* name;
    const char* item;
    bool (Window1::*handler)();
    bool NotationSettings::*setting;
    FakePopupButton FakeWindow::*button;
    const char* entry;
    FakeTextField FakeWindow::*field;
    const char* fieldAfter; // for lat -33.5, lon 151.25, latitude first
    int column;             // a table column the setting changes
    const char* cellAfter;
};

void PrintTo(const ShowRow& row, std::ostream* os) {
    *os << row.name;
}

const ShowRow showRows[] = {
    {"DDLetters", "FormatShowDDHemiLet", &Window1::_FormatShowDDHemiLet_Action,
     &NotationSettings::DDshowHemiLet, &FakeWindow::BevelButtonFormatDD, "Show Hemisphere Letter",
     &FakeWindow::TextFieldDecDegrees, "33.50 S, 151.25 E", 2, "33.50 S"},
    {"DDDegree", "FormatShowDegree", &Window1::_FormatShowDegree_Action,
     &NotationSettings::DDshowDegrSymb, &FakeWindow::BevelButtonFormatDD, "Show ° Symbol",
     &FakeWindow::TextFieldDecDegrees, "-33.50°, 151.25°", 2, "-33.50°"},
    {"DMSLetters", "FormatShowDMShemiLet", &Window1::_FormatShowDMShemiLet_Action,
     &NotationSettings::DMSshowHemiLet, &FakeWindow::BevelButtonFormatDMS, "Show Hemisphere Letter",
     &FakeWindow::TextFieldDMS, "-33° 30', 151° 15'", 4, "-33° 30' 0\""},
    {"DMSSymbols", "FormatShowDMSSymbols", &Window1::_FormatShowDMSSymbols_Action,
     &NotationSettings::DMSshowSymbols, &FakeWindow::BevelButtonFormatDMS, "Show ° ' \" Symbols",
     &FakeWindow::TextFieldDMS, "33 30S, 151 15E", 4, "33 30 0.0 S"},
    {"UTMMetres", "FormatShowm", &Window1::_FormatShowm_Action, &NotationSettings::UTMshowM,
     &FakeWindow::BevelButtonFormatUTM, "Show \"m\"", &FakeWindow::TextFieldUTM, nullptr, 8, "-56"},
    {"UTMLetters", "FormatShowEandN", &Window1::_FormatShowEandN_Action,
     &NotationSettings::UTMshowEN, &FakeWindow::BevelButtonFormatUTM, "Show E and N",
     &FakeWindow::TextFieldUTM, nullptr, 8, "-56"},
    {"UTMZone", "FormatZoneinSHemisph", &Window1::_FormatZoneinSHemisph_Action,
     &NotationSettings::UTMnegZoneSouth, &FakeWindow::BevelButtonFormatUTM, "(-) Zone in S Hemisph",
     &FakeWindow::TextFieldUTM, nullptr, 8, "56 S"},
};

class ShowOption : public testing::TestWithParam<ShowRow> {
protected:
    void SetUp() override {
        f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("-33.5 151.25"));
        ASSERT_EQ(w.locations.size(), 1u);
    }
    PopupMenuItem& entry() {
        return *(f.*GetParam().button).entry({QString::fromUtf8(GetParam().entry)});
    }
    FakeWindow f;
    Window1& w = f.window();
};

TEST_P(ShowOption, FromTheMenuBar) {
    const ShowRow& row = GetParam();
    const bool before = w.*row.setting;
    FakeMenuItem& item = f.MainMenuBar[QString::fromLatin1(row.item)];
    ASSERT_EQ(item.marked, before);

    EXPECT_TRUE((w.*row.handler)());

    EXPECT_EQ(item.marked, !before);
    EXPECT_EQ(w.*row.setting, !before);
    EXPECT_EQ(entry().HasCheckMark, !before);
    if (row.fieldAfter) {
        EXPECT_EQ((f.*row.field).value, QString::fromUtf8(row.fieldAfter));
    }
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, row.column), QString::fromUtf8(row.cellAfter));
    // A format change counts as an edit of the location on show.
    EXPECT_EQ(f.SearchButton.captionText, QStringLiteral("Record Entry"));
    EXPECT_FALSE(w.theLocation->saved);

    (w.*row.handler)();
    EXPECT_EQ(item.marked, before);
    EXPECT_EQ(entry().HasCheckMark, before);
}

TEST_P(ShowOption, FromTheButton) {
    const ShowRow& row = GetParam();
    const bool before = w.*row.setting;
    auto select = [&](PopupMenuItem& hit) {
        if (row.button == &FakeWindow::BevelButtonFormatDD)
            w.BevelButtonFormatDD_MenuSelected(hit);
        else if (row.button == &FakeWindow::BevelButtonFormatDMS)
            w.BevelButtonFormatDMS_MenuSelected(hit);
        else
            w.BevelButtonFormatUTM_MenuSelected(hit);
    };
    select(entry());
    EXPECT_EQ(entry().HasCheckMark, !before);
    EXPECT_EQ(w.*row.setting, !before);
    EXPECT_EQ(f.MainMenuBar[QString::fromLatin1(row.item)].marked, !before);
    if (row.fieldAfter) {
        EXPECT_EQ((f.*row.field).value, QString::fromUtf8(row.fieldAfter));
    }
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, row.column), QString::fromUtf8(row.cellAfter));
}

INSTANTIATE_TEST_SUITE_P(Format, ShowOption, testing::ValuesIn(showRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ShowOptionTable, EmptyListLeavesTheTableAloneAndRowsKeepTheirSelection) {
    FakeWindow f;
    Window1& w = f.window();
    w._FormatShowDDHemiLet_Action();
    EXPECT_EQ(f.BatchListbox.headerAt(2), QStringLiteral("Lon DD")) << "never rebuilt";

    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("1 2"));
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("3 4"));
    f.BatchListbox.setSelectedRows({1});
    w._FormatShowDegree_Action();
    EXPECT_FALSE(f.BatchListbox.selected(0));
    EXPECT_TRUE(f.BatchListbox.selected(1));
    EXPECT_EQ(f.BatchListbox.cellValueAt(1, 2), QStringLiteral("3.00° N"));
}

// The field is written from the window's lat and lon, which a click on a row doesn't change.
TEST(ShowOptionField, WrittenFromTheWindowsValues) {
    FakeWindow f;
    Window1& w = f.window();
    w._FormatShowDegree_Action();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral(", ")) << "nothing entered yet";
    w._FormatShowm_Action();
    EXPECT_EQ(f.TextFieldUTM.value, QStringLiteral(", ")) << "no position to project yet";

    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("1 2"));
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("3 4"));
    f.clickRow(0);
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("1.00°, 2.00°"));
    w._FormatShowDDHemiLet_Action();
    EXPECT_EQ(f.TextFieldDecDegrees.value, QStringLiteral("3.00°N, 4.00°E"));
}

// --- Separators ----------------------------------------------------------------------------------

// A step a user takes: a menu bar item or an entry of the DD button, and what follows.
struct SeparatorStep {
    const char* choice; // "menu:SeparatorTab" or "button:Comma"
    const char* separator;
    const char* marks; // Comma, Space, Tab marks of the menu bar: "CS-", "--T", ...
};

struct SeparatorRow {
    const char* name;
    std::vector<SeparatorStep> steps;
};

void PrintTo(const SeparatorRow& row, std::ostream* os) {
    *os << row.name;
}

const SeparatorRow separatorRows[] = {
    {"ButtonCommaOffLeavesSpace", {{"button:Comma", " ", "-S-"}, {"button:Comma", ", ", "CS-"}}},
    {"ButtonLastOneTurnsTheOtherOn",
     {{"button:Space", ",", "C--"}, {"button:Comma", " ", "-S-"}, {"button:Space", ",", "C--"}}},
    {"ButtonTabClearsBoth", {{"button:Tab", "\t", "--T"}, {"button:Comma", ",", "C--"}}},
    {"ButtonTabOffLeavesTabWithoutMarks",
     {{"button:Tab", "\t", "--T"}, {"button:Tab", "\t", "---"}}},
    {"MenuTabThenSpace",
     {{"menu:SeparatorTab", "\t", "--T"},
      {"menu:SeparatorSpace", " ", "-S-"},
      {"menu:SeparatorComma", ", ", "CS-"}}},
    {"MenuOffActsAsTheButton",
     {{"menu:SeparatorComma", " ", "-S-"}, {"menu:SeparatorSpace", ",", "C--"}}},
    {"MixedCopiesStayInStep",
     {{"menu:SeparatorTab", "\t", "--T"},
      {"button:Space", " ", "-S-"},
      {"menu:SeparatorComma", ", ", "CS-"}}},
};

class SeparatorChoice : public testing::TestWithParam<SeparatorRow> {};

TEST_P(SeparatorChoice, MarksTellTheSeparator) {
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("45.5 9.25"));
    const QString cellBefore = f.BatchListbox.cellValueAt(0, 2);
    for (const SeparatorStep& step : GetParam().steps) {
        const QString choice = QString::fromLatin1(step.choice);
        SCOPED_TRACE(step.choice);
        if (choice.startsWith(QLatin1String("menu:")))
            EXPECT_TRUE(w.menuItemChosen(choice.mid(5)));
        else
            w.BevelButtonFormatDD_MenuSelected(
                *f.BevelButtonFormatDD.entry({QStringLiteral("Separator"), choice.mid(7)}));
        EXPECT_EQ(w.DDseparator, QString::fromLatin1(step.separator));
        const QString marks = QString::fromLatin1(step.marks);
        const bool comma = marks[0] == 'C', space = marks[1] == 'S', tabMark = marks[2] == 'T';
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("SeparatorComma")].marked, comma);
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("SeparatorSpace")].marked, space);
        EXPECT_EQ(f.MainMenuBar[QStringLiteral("SeparatorTab")].marked, tabMark);
        auto buttonMark = [&](const char* text) {
            return f.BevelButtonFormatDD.entry({QStringLiteral("Separator"), text})->HasCheckMark;
        };
        EXPECT_EQ(buttonMark("Comma"), comma);
        EXPECT_EQ(buttonMark("Space"), space);
        EXPECT_EQ(buttonMark("Tab"), tabMark);
        EXPECT_EQ(f.TextFieldDecDegrees.value,
                  QStringLiteral("45.50") + w.DDseparator + QStringLiteral("9.25"));
    }
    // The other notations and the table never see the DD separator.
    EXPECT_EQ(w.DMSseparator, QStringLiteral(", "));
    EXPECT_EQ(w.UTMseparator, QStringLiteral(", "));
    EXPECT_EQ(f.BatchListbox.cellValueAt(0, 2), cellBefore);
}

INSTANTIATE_TEST_SUITE_P(Format, SeparatorChoice, testing::ValuesIn(separatorRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct NotationSeparatorRow {
    const char* name;
    const char* tabItem;
    QString NotationSettings::*separator;
    FakeTextField FakeWindow::*field;
};

void PrintTo(const NotationSeparatorRow& row, std::ostream* os) {
    *os << row.name;
}

const NotationSeparatorRow notationSeparatorRows[] = {
    {"DMS", "SeparatorDMSTab", &NotationSettings::DMSseparator, &FakeWindow::TextFieldDMS},
    {"UTM", "FormatUTMSeparatorTab", &NotationSettings::UTMseparator, &FakeWindow::TextFieldUTM},
};

class NotationSeparator : public testing::TestWithParam<NotationSeparatorRow> {};

TEST_P(NotationSeparator, TabReachesItsOwnField) {
    FakeWindow f;
    Window1& w = f.window();
    f.typeAndRecord(f.TextFieldDecDegrees, QStringLiteral("45.5 9.25"));
    QString expected = (f.*GetParam().field).value;
    ASSERT_EQ(expected.count(QStringLiteral(", ")), 1) << expected.toStdString();
    expected.replace(QStringLiteral(", "), tab);
    EXPECT_TRUE(w.menuItemChosen(QString::fromLatin1(GetParam().tabItem)));
    EXPECT_EQ(w.*GetParam().separator, tab);
    EXPECT_EQ(w.DDseparator, QStringLiteral(", "));
    EXPECT_EQ((f.*GetParam().field).value, expected);
}

INSTANTIATE_TEST_SUITE_P(Format, NotationSeparator, testing::ValuesIn(notationSeparatorRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

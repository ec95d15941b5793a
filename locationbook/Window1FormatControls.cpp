// The Format menu and the three pop-up format buttons: each changes a notation setting, keeps
// the two copies of the check marks in step, and redraws what shows the setting.
//
// The separators are read from the marks: Comma and Space together give ", ", either alone ","
// or " ", and Tab excludes both. Comma and Space can't both be turned off: turning off the last
// one turns on the other, whether from the menu bar or from a button. Tab can be turned off with
// nothing in its place; the separator then stays a tab with no mark set.

#include "Window1.h"

namespace {

using Notation = Window1::Notation;
using SeparatorKind = Window1::SeparatorKind;

struct ShowOption {
    const char* itemName;
    bool NotationSettings::*setting;
    const char* entryText;
    Notation notation;
};

const ShowOption showOptions[] = {
    {"FormatShowDDHemiLet", &NotationSettings::DDshowHemiLet, "Show Hemisphere Letter",
     Notation::DD},
    {"FormatShowDegree", &NotationSettings::DDshowDegrSymb, "Show \u00B0 Symbol", Notation::DD},
    {"FormatShowDMShemiLet", &NotationSettings::DMSshowHemiLet, "Show Hemisphere Letter",
     Notation::DMS},
    {"FormatShowDMSSymbols", &NotationSettings::DMSshowSymbols, "Show \u00B0 ' \" Symbols",
     Notation::DMS},
    {"FormatShowm", &NotationSettings::UTMshowM, "Show \"m\"", Notation::UTM},
    {"FormatShowEandN", &NotationSettings::UTMshowEN, "Show E and N", Notation::UTM},
    {"FormatZoneinSHemisph", &NotationSettings::UTMnegZoneSouth, "(-) Zone in S Hemisph",
     Notation::UTM},
};

struct SeparatorItems {
    const char* comma;
    const char* space;
    const char* tab;
    QString NotationSettings::*separator;
};

const SeparatorItems& separatorItems(Notation n) {
    static const SeparatorItems dd{"SeparatorComma", "SeparatorSpace", "SeparatorTab",
                                   &NotationSettings::DDseparator};
    static const SeparatorItems dms{"SeparatorDMScomma", "SeparatorDMSSpace", "SeparatorDMSTab",
                                    &NotationSettings::DMSseparator};
    static const SeparatorItems utm{"FormatUTMSeparatorComma", "FormatUTMSeparatorSpace",
                                    "FormatUTMSeparatorTab", &NotationSettings::UTMseparator};
    return n == Notation::DD ? dd : (n == Notation::DMS ? dms : utm);
}

// The entries of each button's menu, top to bottom.
const char* const ddEntries[] = {"Separator", "Show \u00B0 Symbol", "Show Hemisphere Letter"};
const char* const dmsEntries[] = {"Separator", "Show \u00B0 ' \" Symbols",
                                  "Show Hemisphere Letter"};
const char* const utmEntries[] = {"Separator", "Show \"m\"", "Show E and N",
                                  "(-) Zone in S Hemisph"};

const QString separatorEntry = QStringLiteral("Separator");

QString entryName(SeparatorKind kind) {
    switch (kind) {
    case SeparatorKind::Comma:
        return QStringLiteral("Comma");
    case SeparatorKind::Space:
        return QStringLiteral("Space");
    case SeparatorKind::Tab:
        break;
    }
    return QStringLiteral("Tab");
}

} // namespace

// --- Where each notation lives -----------------------------------------------------------------

PopupButtonView* Window1::formatButton(Notation notation) const {
    switch (notation) {
    case Notation::DD:
        return c.BevelButtonFormatDD;
    case Notation::DMS:
        return c.BevelButtonFormatDMS;
    case Notation::UTM:
        break;
    }
    return c.BevelButtonFormatUTM;
}

void Window1::rewriteNotationField(Notation notation) {
    switch (notation) {
    case Notation::DD:
        c.TextFieldDecDegrees->setText(formatDD(lon, lat));
        return;
    case Notation::DMS:
        c.TextFieldDMS->setText(formatDMS(lon, lat));
        return;
    case Notation::UTM:
        c.TextFieldUTM->setText(formatUTM(lon, lat));
        return;
    }
}

// The entry of the button's menu with that text, in the separator submenu or at the top.
PopupMenuItem* Window1::formatButtonEntry(Notation notation, const QString& text) const {
    PopupButtonView* button = formatButton(notation);
    if (!button)
        return nullptr;
    PopupMenuItem& menu = button->menu();
    if (PopupMenuItem* entry = menu.child(text))
        return entry;
    PopupMenuItem* separators = menu.child(separatorEntry);
    return separators ? separators->child(text) : nullptr;
}

void Window1::setFormatMarks(Notation notation, SeparatorKind kind, bool marked) {
    const SeparatorItems& items = separatorItems(notation);
    const char* itemName = kind == SeparatorKind::Comma   ? items.comma
                           : kind == SeparatorKind::Space ? items.space
                                                          : items.tab;
    c.MainMenuBar->item(QLatin1String(itemName)).setHasCheckMark(marked);
    if (PopupMenuItem* entry = formatButtonEntry(notation, entryName(kind)))
        entry->HasCheckMark = marked;
}

// --- Opening the buttons ----------------------------------------------------------------------

void Window1::openFormatButton(Notation notation, const QString& caption,
                               const std::vector<QString>& entries) {
    PopupButtonView* button = formatButton(notation);
    if (!button)
        return;
    button->setCaption(caption);
    button->setCaptionAlignment(0);
    button->setMenuStyle(1);
    PopupMenuItem base;
    for (const QString& text : entries) {
        if (text == separatorEntry) {
            PopupMenuItem& separators = base.addChild(text);
            separators.addChild(QStringLiteral("Comma"), true);
            separators.addChild(QStringLiteral("Tab"), false);
            separators.addChild(QStringLiteral("Space"), true);
            continue;
        }
        bool marked = false;
        for (const ShowOption& option : showOptions)
            if (option.notation == notation && text == QString::fromUtf8(option.entryText))
                marked = this->*option.setting;
        base.addChild(text, marked);
    }
    button->setMenu(base);
}

namespace {
template <std::size_t N> std::vector<QString> texts(const char* const (&entries)[N]) {
    std::vector<QString> result;
    for (const char* entry : entries)
        result.push_back(QString::fromUtf8(entry));
    return result;
}
} // namespace

void Window1::BevelButtonFormatDD_Open() {
    openFormatButton(Notation::DD, QStringLiteral("DD Format"), texts(ddEntries));
}
void Window1::BevelButtonFormatDMS_Open() {
    openFormatButton(Notation::DMS, QStringLiteral("DMS Format"), texts(dmsEntries));
}
void Window1::BevelButtonFormatUTM_Open() {
    openFormatButton(Notation::UTM, QStringLiteral("UTM Format"), texts(utmEntries));
}

// --- Show options -----------------------------------------------------------------------------

bool Window1::showOptionFromMenuBar(const char* itemName) {
    for (const ShowOption& option : showOptions) {
        if (qstrcmp(option.itemName, itemName) != 0)
            continue;
        MenuItemView& item = c.MainMenuBar->item(QLatin1String(itemName));
        item.setHasCheckMark(!item.hasCheckMark());
        this->*option.setting = item.hasCheckMark();
        if (PopupMenuItem* entry =
                formatButtonEntry(option.notation, QString::fromUtf8(option.entryText)))
            entry->HasCheckMark = this->*option.setting;
        rewriteNotationField(option.notation);
        if (!locations.empty())
            fillBatchTable();
        return true;
    }
    return false;
}

bool Window1::_FormatShowDDHemiLet_Action() {
    return showOptionFromMenuBar("FormatShowDDHemiLet");
}
bool Window1::_FormatShowDegree_Action() {
    return showOptionFromMenuBar("FormatShowDegree");
}
bool Window1::_FormatShowDMShemiLet_Action() {
    return showOptionFromMenuBar("FormatShowDMShemiLet");
}
bool Window1::_FormatShowDMSSymbols_Action() {
    return showOptionFromMenuBar("FormatShowDMSSymbols");
}
bool Window1::_FormatShowm_Action() {
    return showOptionFromMenuBar("FormatShowm");
}
bool Window1::_FormatShowEandN_Action() {
    return showOptionFromMenuBar("FormatShowEandN");
}
bool Window1::_FormatZoneinSHemisph_Action() {
    return showOptionFromMenuBar("FormatZoneinSHemisph");
}

// --- Separators -------------------------------------------------------------------------------

// Both copies of the chosen kind's mark already say nowOn; this sets the other marks and the
// separator that the marks tell.
void Window1::separatorMarkChanged(Notation notation, SeparatorKind kind, bool nowOn) {
    const SeparatorItems& items = separatorItems(notation);
    QString& separator = this->*items.separator;
    MenuBarView& menu = *c.MainMenuBar;
    const bool commaMarked = menu.item(QLatin1String(items.comma)).hasCheckMark();
    const bool spaceMarked = menu.item(QLatin1String(items.space)).hasCheckMark();
    const SeparatorKind comma = SeparatorKind::Comma, space = SeparatorKind::Space,
                        tab = SeparatorKind::Tab;
    if (kind == tab) {
        if (nowOn) {
            setFormatMarks(notation, comma, false);
            setFormatMarks(notation, space, false);
            separator = QStringLiteral("\t");
        }
        return;
    }
    const bool isComma = kind == comma;
    const bool otherMarked = isComma ? spaceMarked : commaMarked;
    const QString alone = isComma ? QStringLiteral(",") : QStringLiteral(" ");
    const QString otherAlone = isComma ? QStringLiteral(" ") : QStringLiteral(",");
    if (nowOn) {
        setFormatMarks(notation, tab, false);
        separator = otherMarked ? QStringLiteral(", ") : alone;
        return;
    }
    // The last of Comma and Space can't go: the other one takes its place.
    if (!otherMarked)
        setFormatMarks(notation, isComma ? space : comma, true);
    separator = otherAlone;
}

bool Window1::separatorFromMenuBar(Notation notation, SeparatorKind kind) {
    const SeparatorItems& items = separatorItems(notation);
    const char* itemName = kind == SeparatorKind::Comma   ? items.comma
                           : kind == SeparatorKind::Space ? items.space
                                                          : items.tab;
    const bool nowOn = !c.MainMenuBar->item(QLatin1String(itemName)).hasCheckMark();
    setFormatMarks(notation, kind, nowOn);
    separatorMarkChanged(notation, kind, nowOn);
    // The table doesn't show separators, so only the field is written again.
    rewriteNotationField(notation);
    return true;
}

bool Window1::_SeparatorComma_Action() {
    return separatorFromMenuBar(Notation::DD, SeparatorKind::Comma);
}
bool Window1::_SeparatorSpace_Action() {
    return separatorFromMenuBar(Notation::DD, SeparatorKind::Space);
}
bool Window1::_SeparatorTab_Action() {
    return separatorFromMenuBar(Notation::DD, SeparatorKind::Tab);
}
bool Window1::_SeparatorDMScomma_Action() {
    return separatorFromMenuBar(Notation::DMS, SeparatorKind::Comma);
}
bool Window1::_SeparatorDMSSpace_Action() {
    return separatorFromMenuBar(Notation::DMS, SeparatorKind::Space);
}
bool Window1::_SeparatorDMSTab_Action() {
    return separatorFromMenuBar(Notation::DMS, SeparatorKind::Tab);
}
bool Window1::_FormatUTMSeparatorComma_Action() {
    return separatorFromMenuBar(Notation::UTM, SeparatorKind::Comma);
}
bool Window1::_FormatUTMSeparatorSpace_Action() {
    return separatorFromMenuBar(Notation::UTM, SeparatorKind::Space);
}
bool Window1::_FormatUTMSeparatorTab_Action() {
    return separatorFromMenuBar(Notation::UTM, SeparatorKind::Tab);
}

// --- A choice in a button's menu --------------------------------------------------------------

void Window1::formatButtonMenuSelected(Notation notation, PopupMenuItem& hitItem) {
    hitItem.HasCheckMark = !hitItem.HasCheckMark;
    const bool nowOn = hitItem.HasCheckMark;
    bool known = false;
    for (const ShowOption& option : showOptions) {
        if (option.notation != notation ||
            hitItem.Text.compare(QString::fromUtf8(option.entryText), Qt::CaseInsensitive) != 0)
            continue;
        c.MainMenuBar->item(QLatin1String(option.itemName)).setHasCheckMark(nowOn);
        this->*option.setting = nowOn;
        known = true;
        break;
    }
    for (SeparatorKind kind : {SeparatorKind::Comma, SeparatorKind::Tab, SeparatorKind::Space}) {
        if (known || hitItem.Text.compare(entryName(kind), Qt::CaseInsensitive) != 0)
            continue;
        setFormatMarks(notation, kind, nowOn);
        separatorMarkChanged(notation, kind, nowOn);
        known = true;
    }
    if (!known)
        return; // the "Separator" submenu itself, or an entry this button doesn't have
    rewriteNotationField(notation);
    if (!locations.empty())
        fillBatchTable();
}

void Window1::BevelButtonFormatDD_MenuSelected(PopupMenuItem& hitItem) {
    formatButtonMenuSelected(Notation::DD, hitItem);
}
void Window1::BevelButtonFormatDMS_MenuSelected(PopupMenuItem& hitItem) {
    formatButtonMenuSelected(Notation::DMS, hitItem);
}
void Window1::BevelButtonFormatUTM_MenuSelected(PopupMenuItem& hitItem) {
    formatButtonMenuSelected(Notation::UTM, hitItem);
}

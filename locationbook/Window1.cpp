#include "Window1.h"

#include <QLocale>

Window1::Window1(const Window1Controls& controls)
    : numberLocale(NumberLocale::current()), c(controls) {}

void Window1::Event_Open() {
    theLocation = std::make_shared<Vertex>();
    // A blank record that counts as saved: the first new entry must not prompt.
    theLocation->saved = true;
    // The map pointer's hot spot is the middle of its picture.
    if (c.pictures) {
        const QSize picture = c.pictures->pictureSize(QStringLiteral("scopeCurs"));
        curs = MouseCursor{QStringLiteral("scopeCurs"), int(picture.width() * 0.5),
                           int(picture.height() * 0.5)};
    }
    unitFmt.Units = 0;
    unitFmt.UnitStyle = 1;
    const bool metric = QLocale().measurementSystem() == QLocale::MetricSystem;
    unitFmt.localeUsesMetric = metric;
    unitFmt.locale = numberLocale;
    MenuBarView& menu = *c.MainMenuBar;
    menu.item(QStringLiteral("FormatMetricUnits")).setHasCheckMark(metric);
    menu.item(QStringLiteral("FormatImperialUnits")).setHasCheckMark(!metric);

    // A separator starts as comma and blank together, shown by two check marks.
    const std::pair<const char*, bool> marks[] = {
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
    for (const auto& [name, marked] : marks)
        menu.item(QString::fromLatin1(name)).setHasCheckMark(marked);
    DDseparator = QStringLiteral(", ");
    DMSseparator = QStringLiteral(", ");
    UTMseparator = QStringLiteral(", ");
}

void Window1::Event_Activate() {
    c.Rectangle1->setFillColor(c.appearance->isDarkMode() ? 0x80424242u : 0x80FFFFFFu);
}

void Window1::Event_EnableMenuItems() {
    const bool severalOnTable =
        c.TabPanel1->selectedPanelIndex() == 1 && c.BatchListbox->selectedRowCount() >= 2;
    c.MainMenuBar->item(QStringLiteral("EditRemoveLocations"))
        .setText(severalOnTable ? QStringLiteral("Remove Locations")
                                : QStringLiteral("Remove Location"));
}

void Window1::TabPanel1_Change() {
    const int page = c.TabPanel1->selectedPanelIndex();
    if (page == 1 && selectedLoc >= 0 &&
        selectedLoc <= static_cast<std::int64_t>(locations.size()) - 1)
        c.BatchListbox->setSelectedRowIndex(static_cast<int>(selectedLoc));
    c.MainMenuBar->item(QStringLiteral("MapDistanceBetweenClickedPts"))
        .setText(page == 0 ? QStringLiteral("Distance Between Clicked Pts")
                           : QStringLiteral("Distance Between Selected Pts"));
}

VertexRef Window1::cloneLocation(const Vertex& source) const {
    return ::cloneLocation(source);
}

const std::vector<std::pair<QString, Window1::MenuHandler>>& Window1::AddMenuHandlers() {
    static const std::vector<std::pair<QString, MenuHandler>> handlers = {
        {QStringLiteral("FileNewLocation"), &Window1::_FileNewLocation_Action},
        {QStringLiteral("FileNewLocationatMapClick"), &Window1::_FileNewLocationatMapClick_Action},
        {QStringLiteral("FileOpen"), &Window1::_FileOpen_Action},
        {QStringLiteral("FileSave"), &Window1::_FileSave_Action},
        {QStringLiteral("EditPaste"), &Window1::_EditPaste_Action},
        {QStringLiteral("EditRemoveLocations"), &Window1::_EditRemoveLocations_Action},
        {QStringLiteral("SeparatorComma"), &Window1::_SeparatorComma_Action},
        {QStringLiteral("SeparatorTab"), &Window1::_SeparatorTab_Action},
        {QStringLiteral("SeparatorSpace"), &Window1::_SeparatorSpace_Action},
        {QStringLiteral("FormatShowDegree"), &Window1::_FormatShowDegree_Action},
        {QStringLiteral("FormatShowDDHemiLet"), &Window1::_FormatShowDDHemiLet_Action},
        {QStringLiteral("SeparatorDMScomma"), &Window1::_SeparatorDMScomma_Action},
        {QStringLiteral("SeparatorDMSTab"), &Window1::_SeparatorDMSTab_Action},
        {QStringLiteral("SeparatorDMSSpace"), &Window1::_SeparatorDMSSpace_Action},
        {QStringLiteral("FormatShowDMSSymbols"), &Window1::_FormatShowDMSSymbols_Action},
        {QStringLiteral("FormatShowDMShemiLet"), &Window1::_FormatShowDMShemiLet_Action},
        {QStringLiteral("FormatUTMSeparatorComma"), &Window1::_FormatUTMSeparatorComma_Action},
        {QStringLiteral("FormatUTMSeparatorTab"), &Window1::_FormatUTMSeparatorTab_Action},
        {QStringLiteral("FormatUTMSeparatorSpace"), &Window1::_FormatUTMSeparatorSpace_Action},
        {QStringLiteral("FormatShowm"), &Window1::_FormatShowm_Action},
        {QStringLiteral("FormatShowEandN"), &Window1::_FormatShowEandN_Action},
        {QStringLiteral("FormatZoneinSHemisph"), &Window1::_FormatZoneinSHemisph_Action},
        {QStringLiteral("FormatImperialUnits"), &Window1::_FormatImperialUnits_Action},
        {QStringLiteral("FormatMetricUnits"), &Window1::_FormatMetricUnits_Action},
        {QStringLiteral("MapShowUserLocation"), &Window1::_MapShowUserLocation_Action},
        {QStringLiteral("MapShowAllLocations"), &Window1::_MapShowAllLocations_Action},
        {QStringLiteral("MapDistancefromCurrentPt"), &Window1::_MapDistancefromCurrentPt_Action},
        {QStringLiteral("MapDistanceBetweenClickedPts"),
         &Window1::_MapDistanceBetweenClickedPts_Action},
        {QStringLiteral("MapRemoveLocations"), &Window1::_MapRemoveLocations_Action},
    };
    return handlers;
}

bool Window1::menuItemChosen(const QString& itemName) {
    for (const auto& [name, handler] : AddMenuHandlers())
        if (name == itemName)
            return (this->*handler)();
    return false;
}

#include "MainMenuBar.h"

#include "QtControlViews.h"

#include <QMenu>

namespace {

// One row of the menu table. depth 0: a top-level menu; 1: an item; 2: an item of the submenu
// above it. A caption "-" is a separator. A title has no command.
struct MenuRow {
    int depth;
    const char* name;
    const char* caption;
    const char* shortcut;
    bool command;
};

// clang-format off
const MenuRow menuTable[] = {
    {0, "FileMenu", "&File", "", false},
    {1, "FileNewLocation", "New Location", "Ctrl+N", true},
    {1, "FileNewLocationatMapClick", "New Location at Map Click", "Ctrl+Shift+N", true},
    {1, "UntitledSeparator3", "-", "", false},
    {1, "FileOpen", "Open", "Ctrl+O", true},
    {1, "FileSave", "Save", "Ctrl+S", true},
    {1, "UntitledSeparator1", "-", "", false},
    {1, "FileQuit", "&Quit", "Ctrl+Q", true},
    {0, "EditMenu", "&Edit", "", false},
    {1, "EditUndo", "&Undo", "Ctrl+Z", true},
    {1, "EditSeparator1", "-", "", false},
    {1, "EditCut", "Cu&t", "Ctrl+X", true},
    {1, "EditCopy", "&Copy", "Ctrl+C", true},
    {1, "EditPaste", "&Paste", "Ctrl+V", true},
    {1, "EditClear", "&Delete", "", true},
    {1, "EditSeparator2", "-", "", false},
    {1, "EditSelectAll", "Select &All", "Ctrl+A", true},
    {1, "UntitledSeparator2", "-", "", false},
    {1, "EditRemoveLocations", "Remove Location(s)", "Ctrl+R", true},
    {0, "FormatMenu", "Format", "", false},
    {1, "FormatDecimalDegrees", "Decimal Degrees", "", false},
    {1, "FormatSeparator", "Separator", "", false},
    {2, "SeparatorComma", "Comma", "", true},
    {2, "SeparatorTab", "Tab", "", true},
    {2, "SeparatorSpace", "Space", "", true},
    {1, "FormatShowDegree", "Show \u00b0 Symbol", "", true},
    {1, "FormatShowDDHemiLet", "Show Hemisphere Letter", "", true},
    {1, "UntitledSeparator", "-", "", false},
    {1, "FormatDegrMinSec", "Degr. Min. Sec.", "", false},
    {1, "SeparatorDMS", "Separator", "", false},
    {2, "SeparatorDMScomma", "Comma", "", true},
    {2, "SeparatorDMSTab", "Tab", "", true},
    {2, "SeparatorDMSSpace", "Space", "", true},
    {1, "FormatShowDMSSymbols", "Show \u00b0 ' \" Symbols", "", true},
    {1, "FormatShowDMShemiLet", "Show Hemisphere Letter", "", true},
    {1, "UntitledSeparator0", "-", "", false},
    {1, "FormatUTM", "UTM", "", false},
    {1, "FormatUTMSeparator", "Separator", "", false},
    {2, "FormatUTMSeparatorComma", "Comma", "", true},
    {2, "FormatUTMSeparatorTab", "Tab", "", true},
    {2, "FormatUTMSeparatorSpace", "Space", "", true},
    {1, "FormatShowm", "Show \"m\"", "", true},
    {1, "FormatShowEandN", "Show E and N", "", true},
    {1, "FormatZoneinSHemisph", "(-) Zone in S Hemisph", "", true},
    {1, "UntitledSeparator6", "-", "", false},
    {1, "FormatImperialUnits", "Imperial Units", "Ctrl+F", true},
    {1, "FormatMetricUnits", "Metric Units", "Ctrl+M", true},
    {0, "MapMenu", "Map", "", false},
    {1, "MapShowUserLocation", "Show User Location", "Ctrl+L", true},
    {1, "MapShowAllLocations", "Show All Locations", "Ctrl+Shift+A", true},
    {1, "UntitledSeparator5", "-", "", false},
    {1, "MapDistancefromCurrentPt", "Distance from Current Pt", "Ctrl+Shift+D", true},
    {1, "MapDistanceBetweenClickedPts", "Distance Between Clicked Pts", "Ctrl+D", true},
    {1, "UntitledSeparator4", "-", "", false},
    {1, "MapRemoveLocations", "Remove All Locations", "Ctrl+Shift+R", true},
    {0, "HelpMenu", "Help", "", false},
    {1, "HelpAboutGeoquill", "About Geoquill", "", true},
};
// clang-format on

constexpr int rowCount = static_cast<int>(sizeof menuTable / sizeof menuTable[0]);

// Items whose check mark is a setting.
bool hasMark(const QString& name) {
    return name.startsWith(QLatin1String("Separator")) ||
           name.startsWith(QLatin1String("FormatUTMSeparator")) ||
           (name.startsWith(QLatin1String("FormatShow")) ||
            name == QLatin1String("FormatZoneinSHemisph") ||
            name == QLatin1String("FormatImperialUnits") ||
            name == QLatin1String("FormatMetricUnits") ||
            name == QLatin1String("MapShowUserLocation"));
}

} // namespace

MainMenuBar::MainMenuBar(QWidget* parent) : QMenuBar(parent) {
    setObjectName(QStringLiteral("MainMenuBar"));
    int row = 0;
    while (row < rowCount) {
        const MenuRow& top = menuTable[row];
        int end = row + 1;
        while (end < rowCount && menuTable[end].depth > 0)
            ++end;
        QMenu* menu = addTopMenu(QString::fromLatin1(top.name), QString::fromUtf8(top.caption));
        addItems(menu, row + 1, end);
        row = end;
    }
}

MainMenuBar::~MainMenuBar() = default;

QMenu* MainMenuBar::addTopMenu(const QString& name, const QString& caption) {
    QMenu* menu = addMenu(caption);
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    actions.insert(name, menu->menuAction());
    connect(menu, &QMenu::aboutToShow, this, &MainMenuBar::menuAboutToShow);
    return menu;
}

void MainMenuBar::addItems(QMenu* menu, int firstRow, int endRow) {
    QMenu* submenu = nullptr;
    for (int i = firstRow; i < endRow; ++i) {
        const MenuRow& r = menuTable[i];
        const QString name = QString::fromLatin1(r.name);
        const QString caption = QString::fromUtf8(r.caption);
        QMenu* target = r.depth == 2 && submenu ? submenu : menu;
        const bool opensSubmenu = i + 1 < endRow && menuTable[i + 1].depth == 2 && r.depth == 1;
        QAction* action = nullptr;
        if (caption == QLatin1String("-")) {
            action = target->addSeparator();
        } else if (opensSubmenu) {
            submenu = target->addMenu(caption);
            submenu->setObjectName(name);
            action = submenu->menuAction();
        } else {
            action = target->addAction(caption);
            action->setShortcut(QKeySequence(QString::fromLatin1(r.shortcut)));
            action->setCheckable(hasMark(name));
            // A title heads its group of the Format menu: shown, never chosen.
            action->setEnabled(r.command);
        }
        action->setObjectName(name);
        if (r.command)
            connect(action, &QAction::triggered, this, [this, action, name] {
                // A check mark is the handler's to flip, not Qt's: undo the automatic toggle.
                if (action->isCheckable())
                    action->setChecked(!action->isChecked());
                emit itemChosen(name);
            });
        if (r.depth == 1 && !opensSubmenu)
            submenu = nullptr;
        actions.insert(name, action);
    }
}

QAction* MainMenuBar::action(const QString& name) const {
    return actions.value(name, nullptr);
}

MenuItemView& MainMenuBar::item(const QString& name) {
    auto it = views.find(name);
    if (it == views.end())
        it = views.insert(name, std::make_shared<ActionMenuItemView>(action(name)));
    return **it;
}

QList<QAction*> MainMenuBar::commandActions() const {
    QList<QAction*> result;
    for (const MenuRow& r : menuTable)
        if (r.command)
            result << actions.value(QString::fromLatin1(r.name));
    return result;
}

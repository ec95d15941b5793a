#include "FormatPopupButton.h"

#include <QMenu>

FormatPopupButton::FormatPopupButton(QWidget* parent)
    : QToolButton(parent), dropDown(new QMenu(this)) {
    QToolButton::setMenu(dropDown);
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    connect(dropDown, &QMenu::aboutToShow, this, &FormatPopupButton::rebuildMenu);
}

void FormatPopupButton::setMenuStyle(int style) {
    // Style 1: the whole button opens the menu; otherwise only its arrow does.
    setPopupMode(style == 1 ? QToolButton::InstantPopup : QToolButton::MenuButtonPopup);
}

void FormatPopupButton::rebuildMenu() {
    dropDown->clear();
    addEntries(dropDown, base, {});
}

void FormatPopupButton::addEntries(QMenu* into, const PopupMenuItem& parent,
                                   const QStringList& path) {
    for (const PopupMenuItem& entry : parent.children) {
        const QStringList entryPath = path + QStringList{entry.Text};
        if (!entry.children.empty()) {
            addEntries(into->addMenu(entry.Text), entry, entryPath);
            continue;
        }
        QAction* action = into->addAction(entry.Text);
        action->setCheckable(true);
        action->setChecked(entry.HasCheckMark);
        // Found again by its texts when chosen: the tree may have been set anew meanwhile.
        connect(action, &QAction::triggered, this, [this, entryPath] { chooseEntry(entryPath); });
    }
}

bool FormatPopupButton::chooseEntry(const QStringList& path) {
    PopupMenuItem* item = &base;
    for (const QString& text : path)
        if (!(item = item->child(text)))
            return false;
    if (item == &base || !onMenuSelected)
        return false;
    onMenuSelected(*item);
    return true;
}

#include "FormatPopupButton.h"

#include "CaptionFont.h"

#include <QMenu>
#include <QStyle>

FormatPopupButton::FormatPopupButton(QWidget* parent)
    : QToolButton(parent), dropDown(new QMenu(this)), designPointSize(font().pointSizeF()) {
    QToolButton::setMenu(dropDown);
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    connect(dropDown, &QMenu::aboutToShow, this, &FormatPopupButton::rebuildMenu);
}

void FormatPopupButton::setCaption(const QString& caption) {
    setText(caption);
    fitCaption();
}

void FormatPopupButton::resizeEvent(QResizeEvent* event) {
    QToolButton::resizeEvent(event);
    fitCaption();
}

void FormatPopupButton::fitCaption() {
    const int arrow = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
    const int room = width() - arrow - 8; // the frame's margins on both sides
    QFont design = font();
    design.setPointSizeF(designPointSize);
    setFont(captionFontToFit(design, text(), room));
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

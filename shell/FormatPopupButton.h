#pragma once
// A button beside a notation field that drops down a menu of that notation's settings. The
// menu's entries and marks are the controller's (a PopupMenuItem tree); the Qt menu is made
// from them each time it opens, so the marks shown are always the current ones.

#include "locationbook/ControlViews.h"

#include <QStringList>
#include <QToolButton>

#include <functional>

class QMenu;

class FormatPopupButton : public QToolButton, public PopupButtonView {
    Q_OBJECT
public:
    explicit FormatPopupButton(QWidget* parent = nullptr);

    // The window's event for a chosen entry.
    std::function<void(PopupMenuItem& hitItem)> onMenuSelected;

    // Chooses the entry reached by that path of texts, as a user's click in the menu does;
    // false when there is no such entry.
    bool chooseEntry(const QStringList& path);
    QMenu* popupMenu() const { return dropDown; }

    QString caption() const override { return text(); }
    void setCaption(const QString& caption) override;
    void setCaptionAlignment(int alignment) override { captionAlignment = alignment; }
    void setMenuStyle(int style) override;
    PopupMenuItem& menu() override { return base; }
    void setMenu(const PopupMenuItem& menu) override { base = menu; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // The caption in a font that fits beside the menu's arrow.
    void fitCaption();
    void rebuildMenu();
    void addEntries(QMenu* into, const PopupMenuItem& parent, const QStringList& path);

    PopupMenuItem base;
    QMenu* dropDown;
    int captionAlignment = 0;
    qreal designPointSize;
};

#pragma once
// The one menu bar. Items are named (QAction::objectName), and the names, never the captions,
// bind items to handlers.

#include "locationbook/ControlViews.h"

#include <QHash>
#include <QMenuBar>

#include <memory>

class QAction;
class QMenu;

class MainMenuBar : public QMenuBar, public MenuBarView {
    Q_OBJECT
public:
    explicit MainMenuBar(QWidget* parent = nullptr);
    ~MainMenuBar() override;

    // The item of that name (a title, a submenu or a command); null for an unknown name.
    QAction* action(const QString& name) const;
    MenuItemView& item(const QString& name) override;

    // Every named item that runs a command, in menu order.
    QList<QAction*> commandActions() const;

signals:
    // A command item was chosen, by menu or by shortcut.
    void itemChosen(const QString& name);
    // A menu is about to open.
    void menuAboutToShow();

private:
    QMenu* addTopMenu(const QString& name, const QString& caption);
    void addItems(QMenu* menu, int firstRow, int endRow);

    QHash<QString, QAction*> actions;
    QHash<QString, std::shared_ptr<MenuItemView>> views;
};

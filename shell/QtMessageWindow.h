#pragma once
// The small floating window that tells the user what to click on the map ("Click two points on
// the map to get the distance."), with a Cancel button that ends the measurement. It floats over
// the main window without blocking it. The window is made when first asked for and destroyed
// when it closes; each time it is made it looks up the main window it serves, as the core's
// MessageWindow does, among the application's windows front to back.

#include "locationbook/ControlViews.h"
#include "locationbook/MessageWindow.h"

#include <QPointer>

class QLabel;
class QPushButton;
class QWidget;

class QtMessageWindow : public MessageWindowView {
public:
    // parent: the window the message floats over.
    explicit QtMessageWindow(QWidget* parent);
    ~QtMessageWindow() override;

    int width() const override;
    void move(int left, int top) override;
    void setText(const QString& text) override;
    void show() override;
    void close() override;

    // The window while it exists (null once closed), and its parts, for the tests.
    QWidget* window() const { return frame; }
    QLabel* label() const { return Label1; }
    QPushButton* cancelButton() const { return PushButton1; }
    // The main window the open message window serves.
    Window1* servedWindow() const { return logic.w; }

private:
    QWidget* made() const; // the window, made on first use
    void open() const;

    QPointer<QWidget> parent;
    mutable QPointer<QWidget> frame;
    mutable QPointer<QLabel> Label1;
    mutable QPointer<QPushButton> PushButton1;
    mutable MessageWindow logic;
};

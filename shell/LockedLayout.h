#pragma once
// Fixed positions with edge locks: each control has a place in the window's design size and
// follows the window edges it is locked to when the window is resized. Locked left and right,
// it stretches; locked right alone, it moves.

#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <vector>

class LockedLayout {
public:
    enum Lock { Left = 1, Top = 2, Right = 4, Bottom = 8 };

    explicit LockedLayout(QWidget* form, QSize size) : window(form), designSize(size) {}

    // designRect is in window coordinates at the design size.
    void add(QWidget* control, QRect designRect, int locks);
    // Places every control for the window's current size.
    void apply();

private:
    struct Entry {
        QPointer<QWidget> control;
        QRect designRect;
        int locks;
    };
    QWidget* window;
    QSize designSize;
    std::vector<Entry> entries;
};

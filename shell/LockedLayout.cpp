#include "LockedLayout.h"

void LockedLayout::add(QWidget* control, QRect designRect, int locks) {
    entries.push_back(Entry{control, designRect, locks});
}

void LockedLayout::apply() {
    const int dw = window->width() - designSize.width();
    const int dh = window->height() - designSize.height();
    for (const Entry& e : entries) {
        if (!e.control)
            continue;
        QRect r = e.designRect;
        if ((e.locks & Right) && (e.locks & Left))
            r.setWidth(r.width() + dw);
        else if (e.locks & Right)
            r.translate(dw, 0);
        if ((e.locks & Bottom) && (e.locks & Top))
            r.setHeight(r.height() + dh);
        else if (e.locks & Bottom)
            r.translate(0, dh);
        // Window coordinates to the control's parent (a tab page sits inside the tab panel).
        QWidget* parent = e.control->parentWidget();
        const QPoint topLeft =
            parent && parent != window ? parent->mapFrom(window, r.topLeft()) : r.topLeft();
        e.control->setGeometry(QRect(topLeft, r.size()));
    }
}

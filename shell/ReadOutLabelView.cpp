#include "ReadOutLabelView.h"

#include <QFontMetrics>

#include <algorithm>

void ReadOutLabelView::setLeft(int left) {
    givenLeft = left;
    fitText();
}

void ReadOutLabelView::setWidth(int width) {
    givenWidth = width;
    fitText();
}

void ReadOutLabelView::setVisible(bool visible) {
    if (label)
        label->setVisible(visible);
}

void ReadOutLabelView::setText(const QString& text) {
    if (!label)
        return;
    label->setText(text);
    fitText();
}

void ReadOutLabelView::fitText() {
    if (!label)
        return;
    const int needed = label->fontMetrics().horizontalAdvance(label->text()) + 2 * padding;
    const int width = std::max(givenWidth, needed);
    const QRect place(givenLeft + givenWidth - width, label->y(), width, label->height());
    label->setGeometry(place);
    if (panel)
        panel->setGeometry(place.x(), panel->y(), place.width(), panel->height());
}

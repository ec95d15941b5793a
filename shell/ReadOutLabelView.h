#pragma once
// The pointer's read-out over the map's top right corner: a label and the panel behind it.
//
// The controller places both at a width of 200 or 275 pixels with the right edge on the map's
// right edge, and writes the coordinates with every digit of the double. Those digits need
// more room than that at the read-out's font size, so where the text is wider than the place
// given, label and panel grow to the left: the right edge stays where the controller put it,
// nothing is cut, and left() and width() still answer with the place the controller gave.

#include "QtControlViews.h"

#include <QLabel>
#include <QPointer>
#include <QWidget>

class ReadOutLabelView : public LabelView {
public:
    // panel: the backing panel, kept in the label's geometry.
    ReadOutLabelView(QLabel* readOut, QWidget* backing)
        : label(readOut), panel(backing), givenLeft(readOut->x()), givenWidth(readOut->width()) {
        readOut->setIndent(padding); // right-aligned: the room is kept at the right edge
    }

    int left() const override { return givenLeft; }
    void setLeft(int left) override;
    int width() const override { return givenWidth; }
    void setWidth(int width) override;
    bool isVisible() const override { return label && label->isVisible(); }
    void setVisible(bool visible) override;
    QString text() const override { return label ? label->text() : QString(); }
    void setText(const QString& text) override;

    // Room on each side of the text (pixels).
    static constexpr int padding = 4;

private:
    void fitText();

    QPointer<QLabel> label;
    QPointer<QWidget> panel;
    int givenLeft, givenWidth;
};

#pragma once
// The blocking message box through which failures reach the user. The core never shows a
// window itself: the shell puts up a real dialog, the tests record the texts.

#include <QString>

class MessageBox {
public:
    virtual ~MessageBox() = default;
    // Shows the text and returns once the user has dismissed it.
    virtual void show(const QString& text) = 0;
};

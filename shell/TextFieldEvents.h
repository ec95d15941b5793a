#pragma once
// Turns a QLineEdit's events into the controller's field handlers: GotFocus, LostFocus,
// MouseDown, KeyDown (before the key reaches the field; true swallows it) and TextChange,
// which like the design's fires on every change of the text, the program's own included.

#include <QObject>

#include <functional>

class QLineEdit;

struct TextFieldHandlers {
    std::function<bool(int)> keyDown; // character code: 13 Return, 3 Enter
    std::function<void()> gotFocus;
    std::function<void()> lostFocus;
    std::function<void()> mouseDown;
    std::function<void()> textChange;
};

class TextFieldEvents : public QObject {
    Q_OBJECT
public:
    TextFieldEvents(QLineEdit* field, TextFieldHandlers handlers);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TextFieldHandlers handlers;
};

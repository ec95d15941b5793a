#include "TextFieldEvents.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

// The character code of a key as the handlers know it.
int characterCode(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
        return 13;
    case Qt::Key_Enter:
        return 3;
    case Qt::Key_Tab:
        return 9;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Escape:
        return 27;
    default:
        return key.text().isEmpty() ? 0 : key.text().at(0).unicode();
    }
}

// A menu, a pop-up or a message box taking the focus for a moment is not leaving the field;
// counting it would read the field again while its own message box is up.
bool isPassingFocusChange(const QFocusEvent& focus) {
    return focus.reason() == Qt::PopupFocusReason || focus.reason() == Qt::ActiveWindowFocusReason;
}

} // namespace

TextFieldEvents::TextFieldEvents(QLineEdit* field, TextFieldHandlers h)
    : QObject(field), handlers(std::move(h)) {
    field->installEventFilter(this);
    if (handlers.textChange)
        connect(field, &QLineEdit::textChanged, this, [this] { handlers.textChange(); });
}

bool TextFieldEvents::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (handlers.keyDown)
            return handlers.keyDown(characterCode(static_cast<QKeyEvent&>(*event)));
        break;
    case QEvent::FocusIn:
        if (handlers.gotFocus && !isPassingFocusChange(static_cast<QFocusEvent&>(*event)))
            handlers.gotFocus();
        break;
    case QEvent::FocusOut:
        if (handlers.lostFocus && !isPassingFocusChange(static_cast<QFocusEvent&>(*event)))
            handlers.lostFocus();
        break;
    case QEvent::MouseButtonPress:
        if (handlers.mouseDown)
            handlers.mouseDown();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

#pragma once
// What the controller needs of each kind of control, and nothing more. The shell implements
// these with Qt widgets; the tests implement them with fakes that record what was written.

#include <QString>

#include <cstdint>

class TextFieldView {
public:
    virtual ~TextFieldView() = default;
    virtual QString text() const = 0;
    // Like typing, writing the text raises the field's change event.
    virtual void setText(const QString& text) = 0;
    virtual void setFocus() = 0;
};

class PushButtonView {
public:
    virtual ~PushButtonView() = default;
    virtual QString caption() const = 0;
    virtual void setCaption(const QString& caption) = 0;
    virtual QString tooltip() const = 0;
    virtual void setTooltip(const QString& tooltip) = 0;
    // The default button is the one that Return presses.
    virtual bool isDefault() const = 0;
    virtual void setDefault(bool isDefault) = 0;
};

class RadioButtonView {
public:
    virtual ~RadioButtonView() = default;
    virtual bool value() const = 0;
    // Turning one button of the pair on turns the other off; it raises no action event.
    virtual void setValue(bool on) = 0;
};

class MenuItemView {
public:
    virtual ~MenuItemView() = default;
    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual bool hasCheckMark() const = 0;
    virtual void setHasCheckMark(bool marked) = 0;
};

// The menu bar's items, reached by their names ("FormatShowDegree"), never by caption.
class MenuBarView {
public:
    virtual ~MenuBarView() = default;
    // The item of that name; the menu bar holds every named item, so never null.
    virtual MenuItemView& item(const QString& name) = 0;
};

class TabPanelView {
public:
    virtual ~TabPanelView() = default;
    // 0 "Current Location", 1 "All Locations".
    virtual int selectedPanelIndex() const = 0;
};

// The modal question with three answers: the action button, the alternate and Cancel.
class MessageDialogView {
public:
    enum class Answer { Action, Alternate, Cancel };
    struct Question {
        int iconType = 0; // 1: caution
        QString message;
        QString explanation;
        QString actionCaption;
        QString alternateCaption;
        bool alternateVisible = false;
        bool cancelVisible = false;
    };
    virtual ~MessageDialogView() = default;
    // Shows the dialog and returns once the user has answered.
    virtual Answer showModal(const Question& question) = 0;
};

class TimerView {
public:
    virtual ~TimerView() = default;
    // 0 off, 2 running (firing every period).
    virtual int runMode() const = 0;
    virtual void setRunMode(int mode) = 0;
};

// The half-transparent panel behind the pointer read-out on the map.
class RectangleView {
public:
    virtual ~RectangleView() = default;
    // Colour word 0xAARRGGBB, AA 0x00 opaque and 0xFF fully transparent.
    virtual void setFillColor(std::uint32_t colourWord) = 0;
};

// The system's appearance.
class AppearanceView {
public:
    virtual ~AppearanceView() = default;
    virtual bool isDarkMode() const = 0;
};

// The table of recorded locations on page 1.
class BatchListboxView {
public:
    virtual ~BatchListboxView() = default;
    virtual int selectedRowCount() const = 0;
    // Selects that row alone.
    virtual void setSelectedRowIndex(int row) = 0;
};

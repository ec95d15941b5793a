#pragma once
// What the controller needs of each kind of control, and nothing more. The shell implements
// these with Qt widgets; the tests implement them with fakes that record what was written.

#include "BatchCellText.h"
#include "coordinates/Vertex.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <vector>

class TextFieldView {
public:
    virtual ~TextFieldView() = default;
    virtual QString text() const = 0;
    // Like typing, writing the text raises the field's change event.
    virtual void setText(const QString& text) = 0;
    virtual void setFocus() = 0;
    // Selects the whole text, so that typing replaces it.
    virtual void selectAll() = 0;
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
    virtual void setFocus() = 0;
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
    // Shows that page, which raises the panel's change event as a user's click does.
    virtual void setSelectedPanelIndex(int index) = 0;
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

// A control placed on the map page whose left edge and width the program changes. Positions
// are in the page's coordinates, the same as the map's own left edge.
class PlacedControlView {
public:
    virtual ~PlacedControlView() = default;
    virtual int left() const = 0;
    virtual void setLeft(int left) = 0;
    virtual int width() const = 0;
    virtual void setWidth(int width) = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

// The half-transparent panel behind the pointer read-out on the map.
class RectangleView : public PlacedControlView {
public:
    // Colour word 0xAARRGGBB, AA 0x00 opaque and 0xFF fully transparent.
    virtual void setFillColor(std::uint32_t colourWord) = 0;
};

// A one-line text on the map page (the pointer read-out).
class LabelView : public PlacedControlView {
public:
    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;
};

// The frame of a window on the screen (pixels).
class WindowFrameView {
public:
    virtual ~WindowFrameView() = default;
    virtual int left() const = 0;
    virtual int top() const = 0;
    virtual int width() const = 0;
};

// The small floating window that tells the user what to click, with one Cancel button. It is
// made when first asked for; showing it does not block the window under it.
class MessageWindowView {
public:
    virtual ~MessageWindowView() = default;
    virtual int width() const = 0;
    virtual void move(int left, int top) = 0;
    // Its Label1.
    virtual void setText(const QString& text) = 0;
    virtual void show() = 0;
    virtual void close() = 0;
};

// The painter of one table cell's background, in the cell's own coordinates.
class GraphicsView {
public:
    virtual ~GraphicsView() = default;
    // Colour word 0xAARRGGBB, AA 0x00 opaque and 0xFF fully transparent.
    virtual std::uint32_t foreColor() const = 0;
    virtual void setForeColor(std::uint32_t colourWord) = 0;
    virtual int width() const = 0;
    virtual int height() const = 0;
    virtual void fillRectangle(int x, int y, int width, int height) = 0;
};

// An entry of a pop-up button's menu, with its submenu. Entries are found by their text, and
// the comparison ignores case.
struct PopupMenuItem {
    QString Text;
    bool HasCheckMark = false;
    std::vector<PopupMenuItem> children;

    PopupMenuItem& addChild(const QString& text, bool marked = false) {
        children.push_back(PopupMenuItem{text, marked, {}});
        return children.back();
    }
    // The child of that text, or null.
    PopupMenuItem* child(const QString& text) {
        for (PopupMenuItem& item : children)
            if (item.Text.compare(text, Qt::CaseInsensitive) == 0)
                return &item;
        return nullptr;
    }
};

// A button that opens a menu of settings when pressed (the format buttons beside the fields).
class PopupButtonView {
public:
    virtual ~PopupButtonView() = default;
    virtual QString caption() const = 0;
    virtual void setCaption(const QString& caption) = 0;
    // 0 centred; 1 the menu drops down from the button.
    virtual void setCaptionAlignment(int alignment) = 0;
    virtual void setMenuStyle(int style) = 0;
    // The button's menu; the button shows the marks as they are whenever it is opened.
    virtual PopupMenuItem& menu() = 0;
    virtual void setMenu(const PopupMenuItem& menu) = 0;
};

// The application's named pictures ("scopeCurs"), loaded once on first use.
class PictureSource {
public:
    virtual ~PictureSource() = default;
    // Width and height in pixels; an empty size for a name the application doesn't have.
    virtual QSize pictureSize(const QString& name) = 0;
};

// The system's appearance.
class AppearanceView {
public:
    virtual ~AppearanceView() = default;
    virtual bool isDarkMode() const = 0;
};

// The table of recorded locations on page 1. A row is named by the place of its record in the
// list of locations at the last rebuild, whichever place a sort has given it on screen.
class BatchListboxView {
public:
    virtual ~BatchListboxView() = default;
    virtual QString headerAt(int column) const = 0;
    virtual void setHeaderAt(int column, const QString& text) = 0;
    // Removes every row and adds one per record, in the order of the list: the cells show the
    // texts of the record under the format, the tick boxes the records' ticks; nothing selected.
    virtual void showLocations(const std::vector<VertexRef>& locations,
                               const BatchCellFormat& format) = 0;
    // The last row, -1 for an empty table.
    virtual int lastRowIndex() const = 0;
    virtual QString cellValueAt(int row, int column) const = 0;
    virtual bool cellCheckBoxValueAt(int row, int column) const = 0;
    virtual bool selected(int row) const = 0;
    // Selects exactly these rows.
    virtual void setSelectedRows(const std::vector<int>& rows) = 0;
    virtual int selectedRowCount() const = 0;
    // Selects that row alone and brings it into view.
    virtual void setSelectedRowIndex(int row) = 0;
    // The rows as the table shows them, top first.
    virtual std::vector<int> rowsInDisplayOrder() const = 0;
};

#pragma once
// Fakes of the window's controls: they keep what the controller writes, raise the events a real
// control would raise (writing a field's text raises its change event), and let a test answer
// dialogs.

#include "locationbook/ControlViews.h"
#include "support/QStringPrinting.h"
#include "support/RecordingMessageBox.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class FakeTextField : public TextFieldView {
public:
    QString text() const override { return value; }
    void setText(const QString& text) override {
        const bool changed = text != value;
        value = text;
        ++writes;
        if (changed && onTextChange)
            onTextChange();
    }
    void setFocus() override { ++focusRequests; }
    void selectAll() override { allSelected = true; }

    QString value;
    int writes = 0;
    int focusRequests = 0;
    bool allSelected = false;
    std::function<void()> onTextChange; // the field's change event, wired to the controller
};

class FakePushButton : public PushButtonView {
public:
    QString caption() const override { return captionText; }
    void setCaption(const QString& caption) override { captionText = caption; }
    QString tooltip() const override { return tooltipText; }
    void setTooltip(const QString& tooltip) override { tooltipText = tooltip; }
    bool isDefault() const override { return defaultButton; }
    void setDefault(bool isDefault) override { defaultButton = isDefault; }
    void setFocus() override { ++focusRequests; }

    QString captionText;
    QString tooltipText;
    bool defaultButton = false;
    int focusRequests = 0;
};

class FakeRadioButton : public RadioButtonView {
public:
    bool value() const override { return on; }
    void setValue(bool value) override {
        on = value;
        if (value && partner)
            partner->on = false;
    }
    bool on = false;
    FakeRadioButton* partner = nullptr;
};

class FakeMenuItem : public MenuItemView {
public:
    QString text() const override { return caption; }
    void setText(const QString& text) override { caption = text; }
    bool hasCheckMark() const override { return marked; }
    void setHasCheckMark(bool m) override { marked = m; }
    QString caption;
    bool marked = false;
};

class FakeMenuBar : public MenuBarView {
public:
    MenuItemView& item(const QString& name) override { return items[name]; }
    FakeMenuItem& operator[](const QString& name) { return items[name]; }
    QHash<QString, FakeMenuItem> items;
};

class FakeTabPanel : public TabPanelView {
public:
    int selectedPanelIndex() const override { return page; }
    void setSelectedPanelIndex(int index) override {
        const bool changed = index != page;
        page = index;
        if (changed && onChange)
            onChange();
    }
    int page = 0;
    std::function<void()> onChange; // the panel's change event, wired to the controller
};

class FakeMessageDialog : public MessageDialogView {
public:
    Answer showModal(const Question& question) override {
        asked.push_back(question);
        return answer;
    }
    Answer answer = Answer::Cancel;
    std::vector<Question> asked;
};

class FakeTimer : public TimerView {
public:
    int runMode() const override { return mode; }
    void setRunMode(int m) override { mode = m; }
    int mode = 0;
};

// Where a control on the map page stands, and whether it shows.
template <class View> class FakePlaced : public View {
public:
    int left() const override { return x; }
    void setLeft(int l) override { x = l; }
    int width() const override { return w; }
    void setWidth(int width) override { w = width; }
    bool isVisible() const override { return visible; }
    void setVisible(bool v) override { visible = v; }
    int x = 0, w = 0;
    bool visible = false;
};

class FakeRectangle : public FakePlaced<RectangleView> {
public:
    void setFillColor(std::uint32_t colourWord) override { fill = colourWord; }
    std::uint32_t fill = 0;
};

class FakeLabel : public FakePlaced<LabelView> {
public:
    QString text() const override { return value; }
    void setText(const QString& text) override { value = text; }
    QString value;
};

class FakeFrame : public WindowFrameView {
public:
    int left() const override { return x; }
    int top() const override { return y; }
    int width() const override { return w; }
    int x = 100, y = 50, w = 800;
};

class FakeMessageWindow : public MessageWindowView {
public:
    int width() const override { return 286; }
    void move(int l, int t) override {
        left = l;
        top = t;
    }
    void setText(const QString& text) override { label = text; }
    void show() override {
        shown = true;
        ++shows;
    }
    void close() override { shown = false; }
    int left = 0, top = 0;
    QString label;
    bool shown = false;
    int shows = 0;
};

class FakeAppearance : public AppearanceView {
public:
    bool isDarkMode() const override { return dark; }
    bool dark = false;
};

class FakePopupButton : public PopupButtonView {
public:
    QString caption() const override { return captionText; }
    void setCaption(const QString& caption) override { captionText = caption; }
    void setCaptionAlignment(int alignment) override { captionAlignment = alignment; }
    void setMenuStyle(int style) override { menuStyle = style; }
    PopupMenuItem& menu() override { return base; }
    void setMenu(const PopupMenuItem& menu) override { base = menu; }

    // The entry a user reaches by that path of texts ("Separator", "Tab"); null if none.
    PopupMenuItem* entry(const QStringList& path) {
        PopupMenuItem* item = &base;
        for (const QString& text : path)
            if (!(item = item->child(text)))
                return nullptr;
        return item;
    }

    QString captionText;
    int captionAlignment = -1;
    int menuStyle = -1;
    PopupMenuItem base;
};

// A cell's painter that records the fills.
class FakeGraphics : public GraphicsView {
public:
    struct Fill {
        std::uint32_t colour;
        int x, y, width, height;
    };
    std::uint32_t foreColor() const override { return colour; }
    void setForeColor(std::uint32_t c) override { colour = c; }
    int width() const override { return cellWidth; }
    int height() const override { return cellHeight; }
    void fillRectangle(int x, int y, int w, int h) override {
        fills.push_back({colour, x, y, w, h});
    }
    std::uint32_t colour = 0x00000000; // what the painter came with
    int cellWidth = 80, cellHeight = 18;
    std::vector<Fill> fills;
};

class FakePictures : public PictureSource {
public:
    QSize pictureSize(const QString& name) override { return sizes.value(name); }
    QHash<QString, QSize> sizes;
};

#pragma once
// The controller's views of the window's controls, implemented with Qt widgets.

#include "coordinates/MessageBox.h"
#include "locationbook/ControlViews.h"

#include <QAction>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>

class LineEditView : public TextFieldView {
public:
    explicit LineEditView(QLineEdit* field) : edit(field) {}
    QString text() const override;
    void setText(const QString& text) override;
    void setFocus() override;
    void selectAll() override;

private:
    QPointer<QLineEdit> edit;
};

class QtPushButtonView : public PushButtonView {
public:
    explicit QtPushButtonView(QPushButton* control) : button(control) {}
    QString caption() const override;
    void setCaption(const QString& caption) override;
    QString tooltip() const override;
    void setTooltip(const QString& tooltip) override;
    bool isDefault() const override;
    void setDefault(bool isDefault) override;
    void setFocus() override;

private:
    QPointer<QPushButton> button;
};

class QtRadioButtonView : public RadioButtonView {
public:
    explicit QtRadioButtonView(QRadioButton* control) : button(control) {}
    bool value() const override;
    void setValue(bool on) override;

private:
    QPointer<QRadioButton> button;
};

class ActionMenuItemView : public MenuItemView {
public:
    explicit ActionMenuItemView(QAction* item) : action(item) {}
    QString text() const override;
    void setText(const QString& text) override;
    bool hasCheckMark() const override;
    void setHasCheckMark(bool marked) override;

private:
    QPointer<QAction> action;
};

class QtTabPanelView : public TabPanelView {
public:
    explicit QtTabPanelView(QTabWidget* panel) : tabs(panel) {}
    int selectedPanelIndex() const override;
    void setSelectedPanelIndex(int index) override;

private:
    QPointer<QTabWidget> tabs;
};

// Modal message boxes over the main window.
class QtMessageBox : public MessageBox {
public:
    explicit QtMessageBox(QWidget* owner) : parent(owner) {}
    void show(const QString& text) override;

private:
    QPointer<QWidget> parent;
};

class QtMessageDialog : public MessageDialogView {
public:
    explicit QtMessageDialog(QWidget* owner) : parent(owner) {}
    Answer showModal(const Question& question) override;

private:
    QPointer<QWidget> parent;
};

class QtTimerView : public TimerView {
public:
    explicit QtTimerView(QTimer* control) : timer(control) {}
    int runMode() const override;
    void setRunMode(int mode) override;

private:
    QPointer<QTimer> timer;
};

// A widget's left edge, width and visibility in its parent's coordinates.
template <class View> class PlacedWidget : public View {
public:
    explicit PlacedWidget(QWidget* control) : widget(control) {}
    int left() const override { return widget ? widget->x() : 0; }
    void setLeft(int left) override {
        if (widget)
            widget->move(left, widget->y());
    }
    int width() const override { return widget ? widget->width() : 0; }
    void setWidth(int width) override {
        if (widget)
            widget->resize(width, widget->height());
    }
    bool isVisible() const override { return widget && widget->isVisible(); }
    void setVisible(bool visible) override {
        if (widget)
            widget->setVisible(visible);
    }

protected:
    QPointer<QWidget> widget;
};

// A plain panel painted in one colour.
class ColourPanelView : public PlacedWidget<RectangleView> {
public:
    explicit ColourPanelView(QWidget* panel) : PlacedWidget(panel) {}
    void setFillColor(std::uint32_t colourWord) override;
};

class QtWindowFrame : public WindowFrameView {
public:
    explicit QtWindowFrame(QWidget* frame) : window(frame) {}
    int left() const override { return window ? window->frameGeometry().left() : 0; }
    int top() const override { return window ? window->frameGeometry().top() : 0; }
    int width() const override { return window ? window->frameGeometry().width() : 0; }

private:
    QPointer<QWidget> window;
};

// Dark when the window colour of the palette is darker than mid-grey.
class PaletteAppearance : public AppearanceView {
public:
    bool isDarkMode() const override;
};

// The pictures built into the application (shell/resources/<name>.svg), each rendered on first
// use at the highest pixel ratio of the screens, so that it is sharp on a HiDPI screen too, and
// the same pixmap given from then on.
class ResourcePictures : public PictureSource {
public:
    ResourcePictures();
    // In logical pixels, the size the picture is drawn for.
    QSize pictureSize(const QString& name) override { return load(name).size; }
    // Its device pixel ratio says how many pixels it has per logical pixel.
    QPixmap picture(const QString& name) { return load(name).pixmap; }

private:
    struct Picture {
        QPixmap pixmap;
        QSize size;
    };
    const Picture& load(const QString& name);

    QHash<QString, Picture> loaded;
};

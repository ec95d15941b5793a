#pragma once
// The import window's views of its controls, and the platform's file dialogs and clipboard,
// implemented with Qt widgets.

#include "files/ImportViews.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFont>
#include <QLabel>
#include <QPointer>
#include <QProgressDialog>

#include <functional>

// Whether a control is shown by its own flag, so that a window not yet on screen can still
// tell which of its controls will show with it.
bool shownWithItsWindow(const QWidget* control);

class ComboBoxMenuView : public PopupMenuView {
public:
    explicit ComboBoxMenuView(QComboBox* control) : combo(control) {}
    void addRow(const QString& text) override;
    int rowCount() const override;
    QString rowTextAt(int row) const override;
    int selectedRowIndex() const override;
    void setSelectedRowIndex(int row) override;
    bool isVisible() const override;
    void setVisible(bool visible) override;

private:
    QPointer<QComboBox> combo;
};

// Segments as checkable buttons of one exclusive group; each button's id is its index.
class ButtonGroupSegmentsView : public SegmentedButtonView {
public:
    explicit ButtonGroupSegmentsView(QButtonGroup* segments) : group(segments) {}
    int selectedSegmentIndex() const override;

private:
    QPointer<QButtonGroup> group;
};

class QtCheckBoxView : public CheckBoxView {
public:
    explicit QtCheckBoxView(QCheckBox* control) : box(control) {}
    bool value() const override;
    void setValue(bool ticked) override;
    bool isVisible() const override;
    void setVisible(bool visible) override;

private:
    QPointer<QCheckBox> box;
};

// A label whose caption, when changed, is set in a smaller font if it would not fit its place.
class LabelCaptionView : public CaptionView {
public:
    // designFont: the size the window's labels share; room: the label's design width (pixels).
    LabelCaptionView(QLabel* control, const QFont& font, int width)
        : label(control), designFont(font), room(width) {}
    QString text() const override;
    void setText(const QString& text) override;
    bool isVisible() const override;
    void setVisible(bool visible) override;

private:
    QPointer<QLabel> label;
    QFont designFont;
    int room;
};

// A progress dialog, modal over its window. Positions beyond the range of int are shown on a
// scale of 0 to 1000; events are let through at most every few hundredths of a second, so that
// a reading that reports every line is not slowed down by the screen.
class QtProgressView : public ProgressView {
public:
    explicit QtProgressView(QWidget* owner) : window(owner) {}
    ~QtProgressView() override;
    void begin(const QString& caption, std::int64_t maximum) override;
    bool advance(std::int64_t value) override;
    void end() override;

    QProgressDialog* dialog() const { return progress; }

private:
    QPointer<QWidget> window;
    QPointer<QProgressDialog> progress;
    std::int64_t maximum = 0;
    int shown = -1;
    QElapsedTimer sinceEvents;
};

// A window closed by its controller; onClose runs first, so the window can tell the controller's
// close from the user's.
class DialogCloser : public ClosableWindowView {
public:
    DialogCloser(QWidget* dialog, std::function<void()> beforeClose)
        : window(dialog), onClose(std::move(beforeClose)) {}
    void close() override;

private:
    QPointer<QWidget> window;
    std::function<void()> onClose;
};

// The standard file dialogs over a window. Text files are offered by their usual endings.
class QtFileDialogs : public FileDialogsView {
public:
    explicit QtFileDialogs(QWidget* owner) : parent(owner) {}
    QString getOpenFolderItem(const QString& mimeFilter) override;
    QString showSaveFileDialog(const QString& mimeFilter, const QString& defaultName) override;

private:
    QPointer<QWidget> parent;
};

class QtClipboard : public ClipboardView {
public:
    QString text() const override;
};

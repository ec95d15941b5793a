#pragma once
// What the import window's controller needs of its controls, and what the main window needs of
// the platform to open, save and paste. The shell implements these with Qt widgets and dialogs;
// the tests with fakes.

#include <QString>

#include <cstdint>

class ParseTextWindow;

// A pop-up menu of texts; row 0 is the first entry. -1: nothing chosen.
class PopupMenuView {
public:
    virtual ~PopupMenuView() = default;
    virtual void addRow(const QString& text) = 0;
    virtual int rowCount() const = 0;
    virtual QString rowTextAt(int row) const = 0;
    virtual int selectedRowIndex() const = 0;
    virtual void setSelectedRowIndex(int row) = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

// A button of segments of which one is pressed (0 the first).
class SegmentedButtonView {
public:
    virtual ~SegmentedButtonView() = default;
    virtual int selectedSegmentIndex() const = 0;
};

class CheckBoxView {
public:
    virtual ~CheckBoxView() = default;
    virtual bool value() const = 0;
    virtual void setValue(bool ticked) = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

// A fixed text beside a control.
class CaptionView {
public:
    virtual ~CaptionView() = default;
    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

// Progress of a long reading or loading, with a Cancel button. Shown from begin to end.
class ProgressView {
public:
    virtual ~ProgressView() = default;
    // maximum 0: the amount of work is not known.
    virtual void begin(const QString& caption, std::int64_t maximum) = 0;
    // Shows the work done so far and lets the user act; false once the user has cancelled.
    virtual bool advance(std::int64_t value) = 0;
    virtual void end() = 0;
};

// A window the controller can close; closing it ends the controller with it.
class ClosableWindowView {
public:
    virtual ~ClosableWindowView() = default;
    virtual void close() = 0;
};

// The standard file dialogs. A path, or an empty text when the user cancelled.
class FileDialogsView {
public:
    virtual ~FileDialogsView() = default;
    // mimeFilter: the kind of file offered ("text/plain").
    virtual QString getOpenFolderItem(const QString& mimeFilter) = 0;
    virtual QString showSaveFileDialog(const QString& mimeFilter, const QString& defaultName) = 0;
};

class ClipboardView {
public:
    virtual ~ClipboardView() = default;
    virtual QString text() const = 0;
};

// Makes the import window, runs its open event and shows it. It is one window at a time: a new
// request replaces one still open. The window lives until it is closed, and Show returns at
// once: the import ends later, by OK or Cancel.
class ParseTextWindowOpener {
public:
    virtual ~ParseTextWindowOpener() = default;
    virtual ParseTextWindow& showParseTextWindow() = 0;
};

#pragma once
// The import window over fakes, and fakes of the file dialogs and the clipboard. The window's
// preview is the real core model; the pop-ups, buttons and the progress window record what the
// controller did and take a test's choices.

#include "files/ImportViews.h"
#include "files/ParseTextWindow.h"
#include "support/FakeControls.h"

#include <QStringList>

#include <functional>
#include <memory>

class FakePopupMenu : public PopupMenuView {
public:
    void addRow(const QString& text) override { rows << text; }
    int rowCount() const override { return rows.size(); }
    QString rowTextAt(int row) const override { return rows.value(row); }
    int selectedRowIndex() const override { return selected; }
    void setSelectedRowIndex(int row) override { selected = row; }
    bool isVisible() const override { return visible; }
    void setVisible(bool v) override { visible = v; }
    QStringList rows;
    int selected = 0; // a combo box shows its first row, "N/A"
    bool visible = true;
};

class FakeSegmentedButton : public SegmentedButtonView {
public:
    int selectedSegmentIndex() const override { return segment; }
    int segment = 0;
};

class FakeCheckBox : public CheckBoxView {
public:
    bool value() const override { return ticked; }
    void setValue(bool t) override { ticked = t; }
    bool isVisible() const override { return visible; }
    void setVisible(bool v) override { visible = v; }
    bool ticked = true;
    bool visible = true;
};

class FakeCaption : public CaptionView {
public:
    QString text() const override { return value; }
    void setText(const QString& t) override { value = t; }
    bool isVisible() const override { return visible; }
    void setVisible(bool v) override { visible = v; }
    QString value;
    bool visible = true;
};

// Cancels when the work done reaches cancelAt (never, at -1).
class FakeProgress : public ProgressView {
public:
    void begin(const QString& caption, std::int64_t maximum) override {
        captions << caption;
        this->maximum = maximum;
        showing = true;
    }
    bool advance(std::int64_t value) override {
        last = value;
        if (onAdvance)
            onAdvance();
        return cancelAt < 0 || value < cancelAt;
    }
    void end() override { showing = false; }
    QStringList captions;
    std::int64_t maximum = 0, last = 0, cancelAt = -1;
    bool showing = false;
    std::function<void()> onAdvance;
};

class FakeImportWindow : public ClosableWindowView {
public:
    FakeImportWindow();
    void close() override { closed = true; }

    // A user's press on a segment: the button shows it, then its event runs.
    void pressSegment(int index);

    ImportPreview Listbox1;
    FakeSegmentedButton SegmentedButton1;
    FakeCaption Label2, Label3, Label4;
    FakePopupMenu PopupMenuLonEast, PopupMenuLatNorth, PopupMenuUTMZ, PopupMenuLabel;
    FakeTextField TextFieldFirstLine;
    FakeCheckBox CheckBox1;
    FakeAppearance appearance;
    RecordingMessageBox messageBox;
    FakeProgress progress;
    bool closed = false;
    std::unique_ptr<ParseTextWindow> controller;
};

// Makes a fresh import window at each request, as the application does; the last one stays
// for the test to look at.
class FakeImportWindows : public ParseTextWindowOpener {
public:
    ParseTextWindow& showParseTextWindow() override;
    Window1* main = nullptr;
    std::unique_ptr<FakeImportWindow> current;
    int opened = 0;
    // Runs on each new window before it is shown: a test sets what the user would.
    std::function<void(FakeImportWindow&)> prepare;
};

class FakeFileDialogs : public FileDialogsView {
public:
    QString getOpenFolderItem(const QString& mimeFilter) override {
        filters << mimeFilter;
        return openAnswer;
    }
    QString showSaveFileDialog(const QString& mimeFilter, const QString& defaultName) override {
        filters << mimeFilter;
        proposedNames << defaultName;
        return saveAnswer;
    }
    QString openAnswer, saveAnswer; // "" is Cancel
    QStringList filters, proposedNames;
};

class FakeClipboard : public ClipboardView {
public:
    QString text() const override { return contents; }
    QString contents;
};

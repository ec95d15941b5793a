#pragma once
// The import window over fakes, and fakes of the file dialogs and the clipboard. The window's
// preview is the real core model; the other controls record what the controller did and take a
// test's choices.

#include "files/ImportViews.h"
#include "files/ParseTextWindow.h"
#include "support/FakeControls.h"

#include <QStringList>

#include <functional>
#include <memory>

// Any small control of the import window: a caption, a tick box, a pop-up menu or the segments.
class FakeImportControl : public PopupMenuView,
                          public CheckBoxView,
                          public CaptionView,
                          public SegmentedButtonView {
public:
    void addRow(const QString& text) override { rows << text; }
    int rowCount() const override { return rows.size(); }
    QString rowTextAt(int row) const override { return rows.value(row); }
    int selectedRowIndex() const override { return selected; }
    void setSelectedRowIndex(int row) override { selected = row; }
    int selectedSegmentIndex() const override { return selected; }
    bool value() const override { return ticked; }
    void setValue(bool t) override { ticked = t; }
    QString text() const override { return caption; }
    void setText(const QString& t) override { caption = t; }
    bool isVisible() const override { return visible; }
    void setVisible(bool v) override { visible = v; }

    QString caption;
    QStringList rows;
    int selected = 0; // a menu shows its first row, "N/A"; the first segment is pressed
    bool ticked = true;
    bool visible = true;
};

// Cancels once the work done reaches cancelAt (never, at -1).
class FakeProgress : public ProgressView {
public:
    void begin(const QString& caption, std::int64_t) override { captions << caption; }
    bool advance(std::int64_t value) override {
        if (onAdvance)
            onAdvance();
        return cancelAt < 0 || value < cancelAt;
    }
    void end() override { ++ends; }
    QStringList captions;
    int ends = 0;
    std::int64_t cancelAt = -1;
    std::function<void()> onAdvance;
};

class FakeImportWindow : public ClosableWindowView {
public:
    FakeImportWindow();
    void close() override { closed = true; }
    // A user's press on a segment: the button shows it, then its event runs.
    void pressSegment(int index);
    // The user's choice of columns (0 none) and of the first line, then OK.
    void ok(int lon, int lat, int label = 0, const QString& firstLine = "1", int zone = 0);

    ImportPreview Listbox1;
    FakeImportControl SegmentedButton1, Label2, Label3, Label4, PopupMenuLonEast, PopupMenuLatNorth,
        PopupMenuUTMZ, PopupMenuLabel, CheckBox1;
    FakeTextField TextFieldFirstLine;
    FakeAppearance appearance;
    RecordingMessageBox messageBox;
    FakeProgress progress;
    bool closed = false;
    std::unique_ptr<ParseTextWindow> controller;
};

// Makes a fresh import window at each request, as the application does; the last one stays
// for the test to look at. prepare runs on each before it opens.
class FakeImportWindows : public ParseTextWindowOpener {
public:
    ParseTextWindow& showParseTextWindow() override;
    Window1* main = nullptr;
    std::unique_ptr<FakeImportWindow> current;
    std::function<void(FakeImportWindow&)> prepare;
};

class FakeFileDialogs : public FileDialogsView {
public:
    QString getOpenFolderItem(const QString& filter) override {
        filters << filter;
        return openAnswer;
    }
    QString showSaveFileDialog(const QString& filter, const QString& name) override {
        filters << filter;
        proposedNames << name;
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

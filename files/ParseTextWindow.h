#pragma once
// The import window: it scans any delimited text, shows it in a preview with one row per line,
// offers the columns in four pop-up menus, and on OK turns the rows from the chosen first line
// on into locations of the main window. It reaches its controls only through the views in
// ParseTextWindowControls, so the whole import runs without a screen.

#include "ImportColumns.h"
#include "ImportPreview.h"
#include "ImportViews.h"
#include "coordinates/Vertex.h"
#include "locationbook/ControlViews.h"
#include "locationbook/MessageWindow.h"

#include <QString>

#include <memory>
#include <vector>

class MessageBox;
class QTemporaryFile;
class Window1;

// The window's controls and services by their names in the window. Every pointer is set by
// whoever builds the window and outlives the controller.
struct ParseTextWindowControls {
    ImportPreview* Listbox1 = nullptr;
    SegmentedButtonView* SegmentedButton1 = nullptr; // 0 DD, 1 DMS, 2 UTM
    CaptionView* Label2 = nullptr;                   // "Longitude:" / "Eastings:"
    CaptionView* Label3 = nullptr;                   // "Latitude:" / "Northings:"
    CaptionView* Label4 = nullptr;                   // "UTM Zone:"
    PopupMenuView* PopupMenuLonEast = nullptr;
    PopupMenuView* PopupMenuLatNorth = nullptr;
    PopupMenuView* PopupMenuUTMZ = nullptr;
    PopupMenuView* PopupMenuLabel = nullptr;
    TextFieldView* TextFieldFirstLine = nullptr;
    CheckBoxView* CheckBox1 = nullptr; // "append to existing"
    AppearanceView* appearance = nullptr;
    MessageBox* messageBox = nullptr;
    ProgressView* progress = nullptr;
    ClosableWindowView* window = nullptr; // this window on the screen
};

class ParseTextWindow {
public:
    // Texts of more lines than this show their progress, with Cancel.
    static constexpr std::int64_t progressLines = 100000;

    explicit ParseTextWindow(const ParseTextWindowControls& controls);
    ~ParseTextWindow();
    ParseTextWindow(const ParseTextWindow&) = delete;
    ParseTextWindow& operator=(const ParseTextWindow&) = delete;

    Window1* w = nullptr; // the main window that the import fills
    char delim = 0;       // the delimiter of the last line that had one: '\t', ',' or ' '
    int fieldCount = 0;   // the widest line's number of fields, at most 60

    // Finds the main window and offers appending only when it has locations.
    void Event_Open(const std::vector<DocWindowAndMenu::OpenWindow>& frontToBack);
    // Reads the file twice: to find the delimiter and the width, then to fill the preview. A
    // file that can't be read gets a message naming it and the reason, and the window closes.
    void ParseTextFile(const QString& path);
    // OK: the locations from the preview's rows into the main window.
    void PushButton1_Action();
    // Cancel: the window closes and nothing else happens.
    void PushButton2_Action();
    bool Listbox1_CellBackgroundPaint(GraphicsView& g, std::int64_t row, std::int64_t column);
    void SegmentedButton1_Pressed(int segmentIndex);

    // A file made for this import (the pasted text); it is removed when the window goes.
    void keepTemporaryFile(std::unique_ptr<QTemporaryFile> file);
    const ParseTextWindowControls& controls() const { return c; }

private:
    bool readText(const QString& path);
    // The rows from the first line on as new locations; false when the user cancelled.
    bool buildLocations(const ImportColumns& columns, int firstRow, std::vector<VertexRef>& built);
    void close();

    ParseTextWindowControls c;
    std::unique_ptr<QTemporaryFile> temporaryFile;
};

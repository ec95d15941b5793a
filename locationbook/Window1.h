#pragma once
// The controller of the main window and the only owner of state: the recorded locations, the
// location on show in the details form, the notation settings and the mode flags. It receives
// every event of the window by a handler of the control's and event's name, and reaches the
// controls, dialogs and the map only through the narrow views in Window1Controls.

#include "ControlViews.h"
#include "SearchButtonStates.h"
#include "coordinates/MessageBox.h"
#include "coordinates/NumberText.h"
#include "coordinates/Vertex.h"
#include "map/DistanceFormatter.h"
#include "map/MapPin.h"
#include "map/MouseCursor.h"
#include "notation/NotationSettings.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

class ClipboardView;
class FileDialogsView;
class MapView;
class ParseTextWindowOpener;

// The window's controls and platform services, by their names in the window. Every pointer is
// set by whoever builds the window (the shell or a test) and outlives the controller.
struct Window1Controls {
    TextFieldView* TextFieldDecDegrees = nullptr;
    TextFieldView* TextFieldDMS = nullptr;
    TextFieldView* TextFieldUTM = nullptr;
    TextFieldView* TextFieldLabel = nullptr;
    TextFieldView* addressTextField = nullptr;
    PushButtonView* SearchButton = nullptr;
    RadioButtonView* RadioButton1 = nullptr; // "Lat, Lon": on means latitude first
    RadioButtonView* RadioButton2 = nullptr; // "Lon, Lat"
    TabPanelView* TabPanel1 = nullptr;
    BatchListboxView* BatchListbox = nullptr;
    MenuBarView* MainMenuBar = nullptr;
    PopupButtonView* BevelButtonFormatDD = nullptr;
    PopupButtonView* BevelButtonFormatDMS = nullptr;
    PopupButtonView* BevelButtonFormatUTM = nullptr;
    MessageBox* messageBox = nullptr;
    MessageDialogView* messageDialog = nullptr;
    TimerView* TimerUserLocation = nullptr;
    RectangleView* Rectangle1 = nullptr; // the panel behind LabelLatLon
    LabelView* LabelLatLon = nullptr;    // the pointer read-out at the map's top right
    WindowFrameView* frame = nullptr;    // this window on the screen
    MessageWindowView* messageWindow = nullptr;
    AppearanceView* appearance = nullptr;
    PictureSource* pictures = nullptr;
    FileDialogsView* fileDialogs = nullptr;
    ClipboardView* clipboard = nullptr;
    ParseTextWindowOpener* importWindows = nullptr; // makes and shows the import window
};

class Window1 : public NotationSettings {
public:
    enum class Notation { DD, DMS, UTM };
    enum class SeparatorKind { Comma, Space, Tab };

    explicit Window1(const Window1Controls& controls);
    Window1(const Window1&) = delete;
    Window1& operator=(const Window1&) = delete;

    // --- State -------------------------------------------------------------------------------
    std::vector<VertexRef> locations; // recorded locations, in order of recording
    VertexRef theLocation;            // the location on show in the details form, or null
    std::int64_t selectedLoc = -1;    // index in locations of the row the form edits, or -1

    double lat = missingCoordinate; // latitude last taken in by an entry path (degrees)
    double lon = missingCoordinate; // longitude, the same
    bool suppressUpdate = false;    // the program is writing controls: change events keep still
    bool enteringDD = false;        // the user was last working in this notation field
    bool enteringDMS = false;
    bool enteringUTM = false;
    QString theText; // a notation field's text when it got the focus

    MapView* mapview = nullptr;        // set by Map_Open
    std::vector<MapPinRef> Pins;       // one pin per recorded location, joined by index
    MapPinRef currentPin;              // the pin of the location on show
    std::vector<MapCoordinate> mpt;    // points clicked so far for a distance
    DistanceFormatter unitFmt;         // metres to text for every distance shown
    MouseCursor curs;                  // the pointer over the map, made when the window opens
    std::int64_t xDown = 0, yDown = 0; // where the last map press happened (pixels)
    bool gettingAddressLoc = false;
    bool tappingMap = false;
    bool gettingDist2Points = false;
    bool gettingDistFromPt = false;
    bool showMap = true;

    // The user's number locale: decimal separator and minus sign of every written number.
    NumberLocale numberLocale;

    // --- Window events -----------------------------------------------------------------------
    void Event_Open();
    void Event_Activate();
    void Event_EnableMenuItems();
    void TabPanel1_Change();

    // --- Writing and reading the notations ---------------------------------------------------
    // The field texts of a position: longitude, latitude (degrees).
    QString formatDD(double longitude, double latitude) const;
    QString formatDMS(double longitude, double latitude) const;
    QString formatUTM(double longitude, double latitude) const;
    QString DMSfromAngle(double angle) const;
    void parseDD();
    void parseDMS();
    void parseUTM();

    // --- Entry fields ------------------------------------------------------------------------
    // KeyDown takes the key's character code (13 Return, 3 Enter) and tells whether the key
    // has been dealt with; false lets it go on to the field.
    bool TextFieldDecDegrees_KeyDown(int key);
    void TextFieldDecDegrees_GotFocus();
    void TextFieldDecDegrees_LostFocus();
    void TextFieldDecDegrees_TextChange();
    void TextFieldDecDegrees_MouseDown();
    bool TextFieldDMS_KeyDown(int key);
    void TextFieldDMS_GotFocus();
    void TextFieldDMS_LostFocus();
    void TextFieldDMS_TextChange();
    void TextFieldDMS_MouseDown();
    bool TextFieldUTM_KeyDown(int key);
    void TextFieldUTM_GotFocus();
    void TextFieldUTM_LostFocus();
    void TextFieldUTM_TextChange();
    void TextFieldUTM_MouseDown();
    void TextFieldLabel_TextChange();
    void RadioButton1_Action();
    void RadioButton2_Action();

    // --- The location book -------------------------------------------------------------------
    VertexRef cloneLocation(const Vertex& source) const;
    void makeNewEntry();
    void recordEntry();
    void FillDetailsForm();
    void fillBatchTable();

    // --- The table of recorded locations (rows are places in locations) ----------------------
    // false: the table goes on with its own handling of the click.
    bool BatchListbox_CellClick(std::int64_t row, std::int64_t column, std::int64_t x,
                                std::int64_t y);
    void BatchListbox_CellAction(std::int64_t row, std::int64_t column);
    void BatchListbox_Change();
    // true when result is set (-1, 0, 1); false leaves the pair to the table's text order.
    bool BatchListbox_CompareRows(std::int64_t row1, std::int64_t row2, std::int64_t column,
                                  std::int64_t& result);
    // row is the row's place on screen: the stripes alternate down the screen.
    bool BatchListbox_CellBackgroundPaint(GraphicsView& g, std::int64_t row, std::int64_t column);

    // --- The pop-up format buttons -----------------------------------------------------------
    void BevelButtonFormatDD_Open();
    void BevelButtonFormatDMS_Open();
    void BevelButtonFormatUTM_Open();
    void BevelButtonFormatDD_MenuSelected(PopupMenuItem& hitItem);
    void BevelButtonFormatDMS_MenuSelected(PopupMenuItem& hitItem);
    void BevelButtonFormatUTM_MenuSelected(PopupMenuItem& hitItem);

    // --- The map -----------------------------------------------------------------------------
    // The map's events: x and y are pixels in the map's own coordinates.
    void Map_Open(MapView* view);
    void Map_regionDidChangeAnimated();
    // true: the press has been dealt with. A contextual click (right button) only notes where.
    bool Map_MouseDown(std::int64_t x, std::int64_t y, bool contextualClick);
    void Map_MouseUp(std::int64_t x, std::int64_t y);
    void Map_MouseMove(std::int64_t x, std::int64_t y);
    // The address being looked for names no place: nothing changes but the search mode, so a
    // later pan makes no location under that address.
    void Map_addressNotFound();
    void Map_MouseEnter();
    void Map_MouseExit();
    // annotation is the pin the user clicked, compared by identity with Pins.
    void Map_didSelectAnnotationView(const MapPinRef& annotation);
    void Map_annotationViewDidChangeDragState();
    bool Map_ConstructContextualMenu(PopupMenuItem& base, std::int64_t x, std::int64_t y);
    bool Map_ContextualMenuAction(const PopupMenuItem& item);
    // index: 0 "Standard", 1 "Satellite", 2 "Hybrid".
    void SegmentedControl1_Action(int index);
    void TimerUserLocation_Action();
    // A location labelled by its numbers, in the order of the order buttons: "45.5°, 9.25°".
    QString coordinateText(double latitude, double longitude) const;

    void LoadMap(double latitude, double longitude);
    void SetMapType(int type);
    void makePinsFromLocations();
    void searchAddress();
    void SearchButton_Action();
    bool addressTextField_KeyDown(int key);
    void addressTextField_TextChange();

    // --- Files ----------------------------------------------------------------------------------
    // Writes the ticked rows of the table, as it shows them, to the file at path (tab-delimited,
    // UTF-8, a header line first). It replaces the file only once the whole text is written: a
    // failure leaves the old file whole and shows a message naming the file and the reason.
    void writeSaveDataFile(const QString& path);

    // --- Menu commands (bound by item name; true when carried out) ---------------------------
    bool _FileNewLocation_Action();
    bool _FileNewLocationatMapClick_Action();
    bool _FileOpen_Action();
    bool _FileSave_Action();
    bool _EditPaste_Action();
    bool _EditRemoveLocations_Action();
    bool _SeparatorComma_Action();
    bool _SeparatorTab_Action();
    bool _SeparatorSpace_Action();
    bool _FormatShowDegree_Action();
    bool _FormatShowDDHemiLet_Action();
    bool _SeparatorDMScomma_Action();
    bool _SeparatorDMSTab_Action();
    bool _SeparatorDMSSpace_Action();
    bool _FormatShowDMSSymbols_Action();
    bool _FormatShowDMShemiLet_Action();
    bool _FormatUTMSeparatorComma_Action();
    bool _FormatUTMSeparatorTab_Action();
    bool _FormatUTMSeparatorSpace_Action();
    bool _FormatShowm_Action();
    bool _FormatShowEandN_Action();
    bool _FormatZoneinSHemisph_Action();
    bool _FormatImperialUnits_Action();
    bool _FormatMetricUnits_Action();
    bool _MapShowUserLocation_Action();
    bool _MapShowAllLocations_Action();
    bool _MapDistancefromCurrentPt_Action();
    bool _MapDistanceBetweenClickedPts_Action();
    bool _MapRemoveLocations_Action();

    using MenuHandler = bool (Window1::*)();
    // The window's menu handlers by item name, bound once when the window is built.
    static const std::vector<std::pair<QString, MenuHandler>>& AddMenuHandlers();
    // Runs the handler bound to the item name; false when none is bound or it declined.
    bool menuItemChosen(const QString& itemName);

    const Window1Controls& controls() const { return c; }

private:
    bool latitudeFirst() const { return c.RadioButton1->value(); }
    // The prompt before the location on show is replaced; false when the user cancelled.
    bool promptToRecordIfUnsaved();
    // The last steps of every parser: a complete position becomes the location on show.
    void showParsedLocation();
    // Return in a notation field, and the field losing the focus.
    bool notationKeyDown(int key, TextFieldView& field, bool& entering, bool skipIfUnchanged,
                         void (Window1::*parse)(),
                         QString (Window1::*format)(double, double) const);
    void notationLostFocus(TextFieldView& field, bool skipIfUnchanged, void (Window1::*parse)(),
                           QString (Window1::*format)(double, double) const);
    void notationTextChange();
    void enterOnly(bool& flag);
    void orderButtonAction();
    void setSearchButton(const SearchButtonState& state, bool isDefault);
    bool isLocationRow(std::int64_t row) const;

    // The map.
    static double metersBetween(MapCoordinate a, MapCoordinate b); // WGS84 geodesic (metres)
    std::optional<MapCoordinate> coordinateAt(std::int64_t x, std::int64_t y) const;
    void showDistance(const QString& caption, MapCoordinate from, MapCoordinate to);
    void showInstruction(const QString& text);
    void armedLocationMade(); // the button invites recording a location made on the map

    // The format controls.
    PopupButtonView* formatButton(Notation notation) const;
    PopupMenuItem* formatButtonEntry(Notation notation, const QString& text) const;
    void rewriteNotationField(Notation notation);
    void setFormatMarks(Notation notation, SeparatorKind kind, bool marked);
    void openFormatButton(Notation notation, const QString& caption,
                          const std::vector<QString>& entries);
    bool showOptionFromMenuBar(const char* itemName);
    void separatorMarkChanged(Notation notation, SeparatorKind kind, bool nowOn);
    bool separatorFromMenuBar(Notation notation, SeparatorKind kind);
    void formatButtonMenuSelected(Notation notation, PopupMenuItem& hitItem);

    Window1Controls c;
};

#pragma once
// A controller wired to fakes of every control, built and opened as the application does it:
// RadioButton1 on, SearchButton "Click Map" as default, the open event run.

#include "locationbook/BatchTable.h"
#include "locationbook/Window1.h"
#include "support/FakeControls.h"
#include "support/FakeImportWindow.h"

#include <memory>

class FakeWindow {
public:
    FakeWindow();

    Window1& window() { return *w; }
    Window1* operator->() { return w.get(); }

    FakeTextField TextFieldDecDegrees, TextFieldDMS, TextFieldUTM, TextFieldLabel, addressTextField;
    FakePushButton SearchButton;
    FakeRadioButton RadioButton1, RadioButton2;
    FakeTabPanel TabPanel1;
    // The real table model: it is plain data and selection, and needs no screen.
    BatchTable BatchListbox;
    FakePopupButton BevelButtonFormatDD, BevelButtonFormatDMS, BevelButtonFormatUTM;
    FakeMenuBar MainMenuBar;
    RecordingMessageBox messageBox;
    FakeMessageDialog messageDialog;
    FakeTimer TimerUserLocation;
    FakeRectangle Rectangle1;
    FakeLabel LabelLatLon;
    FakeFrame frame;
    FakeMessageWindow messageWindow;
    FakeAppearance appearance;
    FakePictures pictures; // scopeCurs is 31 x 21 pixels
    FakeFileDialogs fileDialogs;
    FakeClipboard clipboard;
    FakeImportWindows importWindows;

    // A user's choice of order: turns the button on and raises its action event.
    void clickRadioButton1();
    void clickRadioButton2();
    // Typing replaces the field's text as a user would (raising its change event); Return is
    // pressed through the field's key handler.
    void type(FakeTextField& field, const QString& text);
    // Starts a new entry, types into the field and presses Return, names the location, then
    // records it with the button.
    void typeAndRecord(FakeTextField& field, const QString& text, const QString& label = {});
    // A user's click on a row of the table: the window's click event, then the table selects
    // the row as a list control does (which raises its change event).
    void clickRow(int row);
    // File > Open with the file dialog answered by path: the import window that it showed.
    FakeImportWindow& importFile(const QString& path);

private:
    std::unique_ptr<Window1> w;
};

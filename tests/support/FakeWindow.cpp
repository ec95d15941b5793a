#include "FakeWindow.h"

FakeWindow::FakeWindow() {
    Window1Controls c;
    c.TextFieldDecDegrees = &TextFieldDecDegrees;
    c.TextFieldDMS = &TextFieldDMS;
    c.TextFieldUTM = &TextFieldUTM;
    c.TextFieldLabel = &TextFieldLabel;
    c.addressTextField = &addressTextField;
    c.SearchButton = &SearchButton;
    c.RadioButton1 = &RadioButton1;
    c.RadioButton2 = &RadioButton2;
    c.TabPanel1 = &TabPanel1;
    c.BatchListbox = &BatchListbox;
    c.BevelButtonFormatDD = &BevelButtonFormatDD;
    c.BevelButtonFormatDMS = &BevelButtonFormatDMS;
    c.BevelButtonFormatUTM = &BevelButtonFormatUTM;
    c.MainMenuBar = &MainMenuBar;
    c.messageBox = &messageBox;
    c.messageDialog = &messageDialog;
    c.TimerUserLocation = &TimerUserLocation;
    c.Rectangle1 = &Rectangle1;
    c.LabelLatLon = &LabelLatLon;
    c.frame = &frame;
    c.messageWindow = &messageWindow;
    c.appearance = &appearance;
    c.pictures = &pictures;
    c.fileDialogs = &fileDialogs;
    c.clipboard = &clipboard;
    c.importWindows = &importWindows;
    pictures.sizes.insert(QStringLiteral("scopeCurs"), QSize(31, 21));
    w = std::make_unique<Window1>(c);
    importWindows.main = w.get();

    RadioButton1.partner = &RadioButton2;
    RadioButton2.partner = &RadioButton1;
    RadioButton1.on = true;
    SearchButton.captionText = QStringLiteral("Click Map");
    SearchButton.tooltipText =
        QStringLiteral("Click this button and then click in the map to get the location data");
    SearchButton.defaultButton = true;
    MainMenuBar[QStringLiteral("EditRemoveLocations")].caption =
        QStringLiteral("Remove Location(s)");
    MainMenuBar[QStringLiteral("MapDistanceBetweenClickedPts")].caption =
        QStringLiteral("Distance Between Clicked Pts");

    Window1* win = w.get();
    TextFieldDecDegrees.onTextChange = [win] { win->TextFieldDecDegrees_TextChange(); };
    TextFieldDMS.onTextChange = [win] { win->TextFieldDMS_TextChange(); };
    TextFieldUTM.onTextChange = [win] { win->TextFieldUTM_TextChange(); };
    TextFieldLabel.onTextChange = [win] { win->TextFieldLabel_TextChange(); };
    addressTextField.onTextChange = [win] { win->addressTextField_TextChange(); };
    TabPanel1.onChange = [win] { win->TabPanel1_Change(); };
    BatchListbox.onCellAction = [win](int row, int column) {
        win->BatchListbox_CellAction(row, column);
    };
    BatchListbox.onChange = [win] { win->BatchListbox_Change(); };
    BatchListbox.onCompareRows = [win](int row1, int row2, int column, std::int64_t& result) {
        return win->BatchListbox_CompareRows(row1, row2, column, result);
    };
    // Controls open before their window.
    w->BevelButtonFormatDD_Open();
    w->BevelButtonFormatDMS_Open();
    w->BevelButtonFormatUTM_Open();
    w->Event_Open();
}

void FakeWindow::typeAndRecord(FakeTextField& field, const QString& text, const QString& label) {
    // A new entry first: a location typed over a recorded one would replace its row.
    w->_FileNewLocation_Action();
    type(field, text);
    if (&field == &TextFieldDecDegrees)
        w->TextFieldDecDegrees_KeyDown(13);
    else if (&field == &TextFieldDMS)
        w->TextFieldDMS_KeyDown(13);
    else
        w->TextFieldUTM_KeyDown(13);
    if (!label.isEmpty())
        type(TextFieldLabel, label);
    w->SearchButton_Action();
}

void FakeWindow::clickRow(int row) {
    if (w->BatchListbox_CellClick(row, 1, 10, 5))
        return;
    BatchListbox.setSelectedRowIndex(row);
}

void FakeWindow::clickRadioButton1() {
    RadioButton1.setValue(true);
    w->RadioButton1_Action();
}

void FakeWindow::clickRadioButton2() {
    RadioButton2.setValue(true);
    w->RadioButton2_Action();
}

void FakeWindow::type(FakeTextField& field, const QString& text) {
    field.setText(text);
}

FakeImportWindow& FakeWindow::importFile(const QString& path) {
    fileDialogs.openAnswer = path;
    w->_FileOpen_Action();
    return *importWindows.current;
}

#include "FakeImportWindow.h"

FakeImportWindow::FakeImportWindow() {
    Label4.visible = PopupMenuUTMZ.visible = false;
    TextFieldFirstLine.value = QStringLiteral("2");
    ParseTextWindowControls c{
        &Listbox1,         &SegmentedButton1,  &Label2,        &Label3,         &Label4,
        &PopupMenuLonEast, &PopupMenuLatNorth, &PopupMenuUTMZ, &PopupMenuLabel, &TextFieldFirstLine,
        &CheckBox1,        &appearance,        &messageBox,    &progress,       this};
    controller = std::make_unique<ParseTextWindow>(c);
}

void FakeImportWindow::pressSegment(int index) {
    SegmentedButton1.selected = index;
    controller->SegmentedButton1_Pressed(index);
}

void FakeImportWindow::ok(int lon, int lat, int label, const QString& firstLine, int zone) {
    PopupMenuLonEast.selected = lon;
    PopupMenuLatNorth.selected = lat;
    PopupMenuLabel.selected = label;
    PopupMenuUTMZ.selected = zone;
    TextFieldFirstLine.value = firstLine;
    controller->PushButton1_Action();
}

ParseTextWindow& FakeImportWindows::showParseTextWindow() {
    current = std::make_unique<FakeImportWindow>();
    if (prepare)
        prepare(*current);
    current->controller->Event_Open({DocWindowAndMenu::OpenWindow{0, true, main}});
    return *current->controller;
}

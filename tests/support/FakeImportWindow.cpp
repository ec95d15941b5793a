#include "FakeImportWindow.h"

FakeImportWindow::FakeImportWindow() {
    Label2.value = QStringLiteral("Longitude:");
    Label3.value = QStringLiteral("Latitude:");
    Label4.value = QStringLiteral("UTM Zone:");
    Label4.visible = false;
    PopupMenuUTMZ.visible = false;
    TextFieldFirstLine.value = QStringLiteral("2");
    ParseTextWindowControls c;
    c.Listbox1 = &Listbox1;
    c.SegmentedButton1 = &SegmentedButton1;
    c.Label2 = &Label2;
    c.Label3 = &Label3;
    c.Label4 = &Label4;
    c.PopupMenuLonEast = &PopupMenuLonEast;
    c.PopupMenuLatNorth = &PopupMenuLatNorth;
    c.PopupMenuUTMZ = &PopupMenuUTMZ;
    c.PopupMenuLabel = &PopupMenuLabel;
    c.TextFieldFirstLine = &TextFieldFirstLine;
    c.CheckBox1 = &CheckBox1;
    c.appearance = &appearance;
    c.messageBox = &messageBox;
    c.progress = &progress;
    c.window = this;
    controller = std::make_unique<ParseTextWindow>(c);
}

void FakeImportWindow::pressSegment(int index) {
    SegmentedButton1.segment = index;
    controller->SegmentedButton1_Pressed(index);
}

ParseTextWindow& FakeImportWindows::showParseTextWindow() {
    current = std::make_unique<FakeImportWindow>();
    ++opened;
    if (prepare)
        prepare(*current);
    current->controller->Event_Open({DocWindowAndMenu::OpenWindow{0, true, main}});
    return *current->controller;
}

#include "MainWindow.h"

#include "BatchTableView.h"
#include "CaptionFont.h"
#include "FormatPopupButton.h"
#include "ImportControlViews.h"
#include "MainMenuBar.h"
#include "MarbleMapView.h"
#include "ParseTextDialog.h"
#include "TextFieldEvents.h"
#include "files/ParseTextWindow.h"
#include "locationbook/BatchTable.h"
#include "locationbook/Window1.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include <cstdio>

namespace {

constexpr int L = LockedLayout::Left, T = LockedLayout::Top, R = LockedLayout::Right,
              B = LockedLayout::Bottom;

const char* const latLonTooltip =
    "Type a latitude, longitude pair separated by a comma, space, or tab. When you are finished, "
    "press return or exit this field by selecting another field. The app will automatically "
    "format the other forms of the location and fill the other text boxes.";
const char* const utmTooltip =
    "Type a UTM Eastings, Northings pair separated by a comma, space, or tab. Eastings are "
    "always listed before Northings, regardless of which radio button, above, is selected. When "
    "you are finished, press return or exit this field by selecting another field. The app will "
    "automatically format the other forms of the location and fill the other text boxes.";

void fitCaption(QWidget* control, const QString& caption, int width) {
    const int extra = qobject_cast<QRadioButton*>(control) ? 22 : 2; // the radio's circle
    control->setFont(captionFontToFit(control->font(), caption, width - extra));
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(QStringLiteral("Geoquill Converter"));
    menu = new MainMenuBar(this);
    setMenuBar(menu);
    central = new QWidget(this);
    setCentralWidget(central);
    layout = std::make_unique<LockedLayout>(central, QSize(800, 650));
    picturesView = std::make_unique<ResourcePictures>(); // the map's pointer is one of them
    createControls();

    Window1Controls c;
    c.TextFieldDecDegrees = (ddView = std::make_unique<LineEditView>(TextFieldDecDegrees)).get();
    c.TextFieldDMS = (dmsView = std::make_unique<LineEditView>(TextFieldDMS)).get();
    c.TextFieldUTM = (utmView = std::make_unique<LineEditView>(TextFieldUTM)).get();
    c.TextFieldLabel = (labelView = std::make_unique<LineEditView>(TextFieldLabel)).get();
    c.addressTextField = (addressView = std::make_unique<LineEditView>(addressTextField)).get();
    c.SearchButton = (searchButtonView = std::make_unique<QtPushButtonView>(SearchButton)).get();
    c.RadioButton1 = (radio1View = std::make_unique<QtRadioButtonView>(RadioButton1)).get();
    c.RadioButton2 = (radio2View = std::make_unique<QtRadioButtonView>(RadioButton2)).get();
    c.TabPanel1 = (tabView = std::make_unique<QtTabPanelView>(TabPanel1)).get();
    c.BatchListbox = batchTable.get();
    c.BevelButtonFormatDD = BevelButtonFormatDD;
    c.BevelButtonFormatDMS = BevelButtonFormatDMS;
    c.BevelButtonFormatUTM = BevelButtonFormatUTM;
    c.MainMenuBar = menu;
    c.messageBox = (messageBoxView = std::make_unique<QtMessageBox>(this)).get();
    c.messageDialog = (messageDialogView = std::make_unique<QtMessageDialog>(this)).get();
    c.TimerUserLocation = (timerView = std::make_unique<QtTimerView>(TimerUserLocation)).get();
    c.Rectangle1 = (rectangleView = std::make_unique<ColourPanelView>(Rectangle1)).get();
    c.LabelLatLon =
        (labelLatLonView = std::make_unique<ReadOutLabelView>(LabelLatLon, Rectangle1)).get();
    c.frame = (frameView = std::make_unique<QtWindowFrame>(this)).get();
    c.messageWindow = (messageWindowView = std::make_unique<QtMessageWindow>(this)).get();
    c.appearance = (appearanceView = std::make_unique<PaletteAppearance>()).get();
    c.pictures = picturesView.get();
    c.fileDialogs = (fileDialogsView = std::make_unique<QtFileDialogs>(this)).get();
    c.clipboard = (clipboardView = std::make_unique<QtClipboard>()).get();
    c.importWindows = this;
    window1 = std::make_unique<Window1>(c);
    // White, a fifth see-through: the map shows faintly behind the read-out.
    rectangleView->setFillColor(0x33FFFFFFu);

    wireEvents();
    wireMenu();
    wireMap();
    resize(800, 650 + menu->sizeHint().height());
    setMinimumSize(536, 410 + menu->sizeHint().height());
    // Controls open before their window.
    window1->BevelButtonFormatDD_Open();
    window1->BevelButtonFormatDMS_Open();
    window1->BevelButtonFormatUTM_Open();
    window1->Event_Open();
    // The map opens after the window, which makes the pointer the map is to show.
    window1->Map_Open(Map);
}

MainWindow::~MainWindow() {
    // The import window fills this window's controller: it goes before it.
    delete importDialog;
    // The controller goes first: widgets being torn down must not reach it.
    Map->setEvents({});
    window1.reset();
    batchTable->onCellAction = nullptr;
    batchTable->onChange = nullptr;
    batchTable->onCompareRows = nullptr;
}

ParseTextWindow& MainWindow::showParseTextWindow() {
    if (importDialog)
        importDialog->dismiss();
    importDialog = new ParseTextDialog(this);
    ParseTextWindow& controller = importDialog->controller();
    controller.Event_Open({DocWindowAndMenu::OpenWindow{0, true, window1.get()}});
    importDialog->show();
    return controller;
}

ParseTextDialog* MainWindow::importWindow() const {
    return importDialog;
}

void MainWindow::createControls() {
    TabPanel1 = new QTabWidget(central);
    TabPanel1->setObjectName(QStringLiteral("TabPanel1"));
    auto* page0 = new QWidget;
    auto* page1 = new QWidget;
    TabPanel1->addTab(page0, QStringLiteral("Current Location"));
    TabPanel1->addTab(page1, QStringLiteral("All Locations"));
    layout->add(TabPanel1, QRect(20, 10, 760, 620), L | T | R | B);
    createPage0(page0);

    batchTable = std::make_unique<BatchTable>();
    BatchTableView::Events tableEvents;
    tableEvents.cellClick = [this](int row, int column, int x, int y) {
        return window1 && window1->BatchListbox_CellClick(row, column, x, y);
    };
    tableEvents.cellBackgroundPaint = [this](GraphicsView& g, int row, int column) {
        return window1 && window1->BatchListbox_CellBackgroundPaint(g, row, column);
    };
    BatchListbox = new BatchTableView(batchTable.get(), tableEvents, page1);
    BatchListbox->setObjectName(QStringLiteral("BatchListbox"));
    layout->add(BatchListbox, QRect(40, 48, 720, 562), L | T | R | B);

    TimerUserLocation = new QTimer(this);
    TimerUserLocation->setObjectName(QStringLiteral("TimerUserLocation"));
    TimerUserLocation->setInterval(200);
}

QLineEdit* MainWindow::addTextField(QWidget* page, const char* name, QRect place, int locks) {
    auto* field = new QLineEdit(page);
    field->setObjectName(QString::fromLatin1(name));
    layout->add(field, place, locks);
    return field;
}

FormatPopupButton* MainWindow::addFormatButton(QWidget* page, const char* name, QRect place) {
    auto* button = new FormatPopupButton(page);
    button->setObjectName(QString::fromLatin1(name));
    layout->add(button, place, T | R);
    return button;
}

QLabel* MainWindow::addLabel(QWidget* page, const char* name, const QString& text, QRect place) {
    auto* label = new QLabel(text, page);
    label->setObjectName(QString::fromLatin1(name));
    fitCaption(label, text, place.width());
    layout->add(label, place, L | T);
    return label;
}

void MainWindow::createPage0(QWidget* page) {
    TextFieldUTM = addTextField(page, "TextFieldUTM", QRect(156, 156, 524, 22), L | T | R);
    TextFieldUTM->setToolTip(QString::fromLatin1(utmTooltip));
    addLabel(page, "Label5", QStringLiteral("UTM:"), QRect(32, 156, 112, 20));

    RadioButton2 = new QRadioButton(QStringLiteral("Lon, Lat"), page);
    RadioButton2->setObjectName(QStringLiteral("RadioButton2"));
    RadioButton2->setToolTip(QStringLiteral("List the longitude value before the latitude value"));
    fitCaption(RadioButton2, RadioButton2->text(), 85);
    layout->add(RadioButton2, QRect(249, 54, 85, 20), L | T);
    RadioButton1 = new QRadioButton(QStringLiteral("Lat, Lon"), page);
    RadioButton1->setObjectName(QStringLiteral("RadioButton1"));
    RadioButton1->setToolTip(QStringLiteral("List the latitude value before the longitude value"));
    RadioButton1->setChecked(true);
    fitCaption(RadioButton1, RadioButton1->text(), 81);
    layout->add(RadioButton1, QRect(156, 54, 81, 20), L | T);
    orderButtons = new QButtonGroup(this);
    orderButtons->addButton(RadioButton1);
    orderButtons->addButton(RadioButton2);
    addLabel(page, "Label4", QStringLiteral("Entry is"), QRect(32, 54, 58, 20));

    TextFieldDMS = addTextField(page, "TextFieldDMS", QRect(156, 122, 524, 22), L | T | R);
    TextFieldDMS->setToolTip(QString::fromLatin1(latLonTooltip));
    addLabel(page, "Label1", QStringLiteral("Degr.-Min.-Sec.:"), QRect(32, 122, 112, 20));

    SearchButton = new QPushButton(QStringLiteral("Click Map"), page);
    SearchButton->setObjectName(QStringLiteral("SearchButton"));
    SearchButton->setToolTip(
        QStringLiteral("Click this button and then click in the map to get the location data"));
    SearchButton->setDefault(true);
    layout->add(SearchButton, QRect(632, 191, 137, 20), T | R);

    addressTextField = addTextField(page, "addressTextField", QRect(156, 189, 464, 22), L | T | R);
    addressTextField->setPlaceholderText(QStringLiteral("Type address"));
    addressTextField->setToolTip(
        QStringLiteral("Type an address in this text field and then click the Find Address "
                       "button to the right to get the location of that address"));

    createMap(page);

    TextFieldLabel = addTextField(page, "TextFieldLabel", QRect(346, 54, 423, 22), L | T | R);
    TextFieldLabel->setPlaceholderText(QStringLiteral("Label"));
    TextFieldLabel->setToolTip(
        QStringLiteral("Type an optional label for the located point. This label will be shown "
                       "in the map popups, listed in the batch table, and saved with the "
                       "location data"));
    TextFieldDecDegrees =
        addTextField(page, "TextFieldDecDegrees", QRect(156, 88, 524, 22), L | T | R);
    TextFieldDecDegrees->setToolTip(QString::fromLatin1(latLonTooltip));
    addLabel(page, "Label3", QStringLiteral("Decimal Degrees:"), QRect(32, 88, 112, 20));
    addLabel(page, "Label6", QStringLiteral("Address:"), QRect(32, 191, 112, 20));
    BevelButtonFormatDD = addFormatButton(page, "BevelButtonFormatDD", QRect(692, 88, 78, 22));
    BevelButtonFormatDMS = addFormatButton(page, "BevelButtonFormatDMS", QRect(692, 122, 78, 22));
    BevelButtonFormatUTM = addFormatButton(page, "BevelButtonFormatUTM", QRect(692, 156, 78, 22));

    // One caption size for the page's labels and order buttons: the one the longest needs.
    qreal captionSize = font().pointSizeF();
    // The map's read-out has a size of its own, and the map's own labels are not the page's.
    const auto captions = page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const auto isCaption = [this](QWidget* w) {
        return w != LabelLatLon && (qobject_cast<QLabel*>(w) || qobject_cast<QRadioButton*>(w));
    };
    for (QWidget* w : captions)
        if (isCaption(w))
            captionSize = qMin(captionSize, w->font().pointSizeF());
    for (QWidget* w : captions)
        if (isCaption(w)) {
            QFont f = w->font();
            f.setPointSizeF(captionSize);
            w->setFont(f);
        }

    // Tab order within the page, as the fields are worked through.
    setTabOrder(RadioButton1, TextFieldLabel);
    setTabOrder(TextFieldLabel, TextFieldDecDegrees);
    setTabOrder(TextFieldDecDegrees, TextFieldDMS);
    setTabOrder(TextFieldDMS, TextFieldUTM);
    setTabOrder(TextFieldUTM, addressTextField);
    setTabOrder(addressTextField, SearchButton);
}

void MainWindow::createMap(QWidget* page) {
    Map = new MarbleMapView(picturesView.get(), page);
    Map->setObjectName(QStringLiteral("Map"));
    layout->add(Map, QRect(32, 226, 737, 398), L | T | R | B);

    // The pointer read-out over the map's top right corner, on its half-transparent panel.
    // Clicks and the pointer pass through both to the map, which would otherwise see the
    // pointer leave whenever it went under them.
    Rectangle1 = new QWidget(page);
    Rectangle1->setObjectName(QStringLiteral("Rectangle1"));
    Rectangle1->setAttribute(Qt::WA_TransparentForMouseEvents);
    Rectangle1->hide(); // shown while the pointer is over the map
    layout->add(Rectangle1, QRect(592, 226, 173, 20), T | R);
    LabelLatLon = new QLabel(page);
    LabelLatLon->setObjectName(QStringLiteral("LabelLatLon"));
    LabelLatLon->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont readout = LabelLatLon->font();
    readout.setPixelSize(16);
    LabelLatLon->setFont(readout);
    LabelLatLon->setAttribute(Qt::WA_TransparentForMouseEvents);
    LabelLatLon->hide();
    layout->add(LabelLatLon, QRect(519, 226, 250, 20), T | R);

    // The map types, as one segmented control over the map's bottom left corner.
    auto* segments = new QWidget(page);
    segments->setObjectName(QStringLiteral("SegmentedControl1"));
    auto* row = new QHBoxLayout(segments);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    SegmentedControl1 = new QButtonGroup(this);
    SegmentedControl1->setExclusive(true);
    const QString captions[] = {QStringLiteral("Standard"), QStringLiteral("Satellite"),
                                QStringLiteral("Hybrid")};
    for (int i = 0; i < 3; ++i) {
        auto* segment = new QToolButton(segments);
        segment->setObjectName(QStringLiteral("SegmentedControl1_%1").arg(i));
        segment->setText(captions[i]);
        segment->setCheckable(true);
        segment->setFocusPolicy(Qt::NoFocus);
        segment->setFixedSize(73, 24);
        fitCaption(segment, captions[i], 73);
        row->addWidget(segment);
        SegmentedControl1->addButton(segment, i);
    }
    // One size for the three captions: the one the longest needs.
    qreal segmentSize = font().pointSizeF();
    for (QAbstractButton* segment : SegmentedControl1->buttons())
        segmentSize = qMin(segmentSize, segment->font().pointSizeF());
    for (QAbstractButton* segment : SegmentedControl1->buttons()) {
        QFont f = segment->font();
        f.setPointSizeF(segmentSize);
        segment->setFont(f);
    }
    SegmentedControl1->button(0)->setChecked(true);
    layout->add(segments, QRect(40, 593, 219, 24), L | B);

    Rectangle1->raise();
    LabelLatLon->raise();
    segments->raise();
}

void MainWindow::wireMap() {
    Window1* w = window1.get();
    MarbleMapView::Events events;
    events.mouseDown = [w](int x, int y, bool contextual) {
        return w->Map_MouseDown(x, y, contextual);
    };
    events.mouseUp = [w](int x, int y) { w->Map_MouseUp(x, y); };
    events.mouseMove = [w](int x, int y) { w->Map_MouseMove(x, y); };
    events.mouseEnter = [w] { w->Map_MouseEnter(); };
    events.mouseExit = [w] { w->Map_MouseExit(); };
    events.pinSelected = [w](const MapPinRef& pin) { w->Map_didSelectAnnotationView(pin); };
    events.constructContextualMenu = [w](PopupMenuItem& base, int x, int y) {
        return w->Map_ConstructContextualMenu(base, x, y);
    };
    events.contextualMenuAction = [w](const PopupMenuItem& item) {
        return w->Map_ContextualMenuAction(item);
    };
    events.regionChanged = [w] { w->Map_regionDidChangeAnimated(); };
    events.addressNotFound = [w] { w->Map_addressNotFound(); };
    events.locationOnShow = [w] { return w->currentPin; };
    Map->setEvents(events);
    connect(SegmentedControl1, &QButtonGroup::idClicked, this,
            [w](int id) { w->SegmentedControl1_Action(id); });
    connect(TimerUserLocation, &QTimer::timeout, this, [w] { w->TimerUserLocation_Action(); });
    // Start-up measurement (bench/MapBench): GEOQUILL_FIRST_MAP_FRAME=print says on standard
    // output when the map is first painted; =exit also quits then.
    const QByteArray report = qgetenv("GEOQUILL_FIRST_MAP_FRAME");
    if (report == "print" || report == "exit")
        connect(Map, &MarbleMapView::firstFrame, this, [report] {
            std::fputs("first map frame\n", stdout);
            std::fflush(stdout);
            if (report == "exit")
                QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        });
}

void MainWindow::wireEvents() {
    Window1* w = window1.get();
    new TextFieldEvents(TextFieldDecDegrees,
                        {[w](int k) { return w->TextFieldDecDegrees_KeyDown(k); },
                         [w] { w->TextFieldDecDegrees_GotFocus(); },
                         [w] { w->TextFieldDecDegrees_LostFocus(); },
                         [w] { w->TextFieldDecDegrees_MouseDown(); },
                         [w] { w->TextFieldDecDegrees_TextChange(); }});
    new TextFieldEvents(TextFieldDMS,
                        {[w](int k) { return w->TextFieldDMS_KeyDown(k); },
                         [w] { w->TextFieldDMS_GotFocus(); }, [w] { w->TextFieldDMS_LostFocus(); },
                         [w] { w->TextFieldDMS_MouseDown(); },
                         [w] { w->TextFieldDMS_TextChange(); }});
    new TextFieldEvents(TextFieldUTM,
                        {[w](int k) { return w->TextFieldUTM_KeyDown(k); },
                         [w] { w->TextFieldUTM_GotFocus(); }, [w] { w->TextFieldUTM_LostFocus(); },
                         [w] { w->TextFieldUTM_MouseDown(); },
                         [w] { w->TextFieldUTM_TextChange(); }});
    new TextFieldEvents(TextFieldLabel, {{}, {}, {}, {}, [w] { w->TextFieldLabel_TextChange(); }});
    new TextFieldEvents(addressTextField, {[w](int k) { return w->addressTextField_KeyDown(k); },
                                           {},
                                           {},
                                           {},
                                           [w] { w->addressTextField_TextChange(); }});
    connect(RadioButton1, &QRadioButton::clicked, this, [w] { w->RadioButton1_Action(); });
    connect(RadioButton2, &QRadioButton::clicked, this, [w] { w->RadioButton2_Action(); });
    connect(SearchButton, &QPushButton::clicked, this, [w] { w->SearchButton_Action(); });
    connect(TabPanel1, &QTabWidget::currentChanged, this, [w] { w->TabPanel1_Change(); });
    BevelButtonFormatDD->onMenuSelected = [w](PopupMenuItem& hit) {
        w->BevelButtonFormatDD_MenuSelected(hit);
    };
    BevelButtonFormatDMS->onMenuSelected = [w](PopupMenuItem& hit) {
        w->BevelButtonFormatDMS_MenuSelected(hit);
    };
    BevelButtonFormatUTM->onMenuSelected = [w](PopupMenuItem& hit) {
        w->BevelButtonFormatUTM_MenuSelected(hit);
    };
    batchTable->onCellAction = [w](int row, int column) {
        w->BatchListbox_CellAction(row, column);
    };
    batchTable->onChange = [w] { w->BatchListbox_Change(); };
    batchTable->onCompareRows = [w](int row1, int row2, int column, std::int64_t& result) {
        return w->BatchListbox_CompareRows(row1, row2, column, result);
    };
}

void MainWindow::wireMenu() {
    connect(menu, &MainMenuBar::menuAboutToShow, this,
            [this] { window1->Event_EnableMenuItems(); });
    connect(menu, &MainMenuBar::itemChosen, this, [this](const QString& name) {
        auto* field = qobject_cast<QLineEdit*>(focusWidget());
        // Text pasted into a field stays a field's text; only elsewhere is it data to import.
        if (name == QLatin1String("EditPaste") && field) {
            field->paste();
            return;
        }
        if (window1->menuItemChosen(name))
            return;
        // Items the platform serves itself: quit and the text-editing commands, which act on
        // the focused field.
        if (name == QLatin1String("FileQuit"))
            close();
        else if (!field)
            return;
        else if (name == QLatin1String("EditUndo"))
            field->undo();
        else if (name == QLatin1String("EditCut"))
            field->cut();
        else if (name == QLatin1String("EditCopy"))
            field->copy();
        else if (name == QLatin1String("EditClear"))
            field->del();
        else if (name == QLatin1String("EditSelectAll"))
            field->selectAll();
    });
}

bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && window1)
        window1->Event_Activate();
    return QMainWindow::event(event);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    // Outside a dialog Qt does not press the default button on Return: do it here, for keys
    // that no field has dealt with.
    const bool returnKey = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (returnKey && SearchButton->isDefault() && SearchButton->isVisible()) {
        SearchButton->click();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    layout->apply();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    layout->apply();
    // The tab panel lays its pages out once shown; place the controls again then.
    QTimer::singleShot(0, this, [this] { layout->apply(); });
}

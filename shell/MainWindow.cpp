#include "MainWindow.h"

#include "AboutWindow.h"
#include "App.h"
#include "BatchTableView.h"
#include "CaptionFont.h"
#include "FormatPopupButton.h"
#include "ImportControlViews.h"
#include "MainMenuBar.h"
#include "MainWindowControls.h"
#include "MarbleMapView.h"
#include "ParseTextDialog.h"
#include "TextFieldEvents.h"
#include "files/ParseTextWindow.h"
#include "locationbook/BatchTable.h"
#include "locationbook/SearchButtonStates.h"
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
#include <QScreen>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void fitCaption(QWidget* control, const QString& caption, int width) {
    const int extra = qobject_cast<QRadioButton*>(control) ? 22 : 2; // the radio's circle
    control->setFont(captionFontToFit(control->font(), caption, width - extra));
}

// One caption size for a group of captions: the one the longest of them needs.
void oneCaptionSize(const QList<QWidget*>& captions, qreal largest) {
    qreal size = largest;
    for (QWidget* w : captions)
        size = qMin(size, w->font().pointSizeF());
    for (QWidget* w : captions) {
        QFont f = w->font();
        f.setPointSizeF(size);
        w->setFont(f);
    }
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
    // The one window lives as long as the program: File > Quit ends both, so no close button.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint);
    // Centred on the screen it opens on.
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
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

AboutWindow* MainWindow::showAboutWindow() {
    if (!aboutWindow) {
        aboutWindow = new AboutWindow(picturesView->picture(QStringLiteral("mapIcon")), this);
        aboutWindow->Event_Open();
    }
    aboutWindow->show();
    aboutWindow->raise();
    aboutWindow->activateWindow();
    return aboutWindow;
}

ParseTextDialog* MainWindow::importWindow() const {
    return importDialog;
}

void MainWindow::createControls() {
    using namespace MainWindowControls;
    batchTable = std::make_unique<BatchTable>();
    QWidget* pages[2] = {new QWidget, new QWidget};
    QList<QWidget*> pageCaptions, segmentCaptions;
    for (const ControlRow& row : windowControls) {
        QWidget* parent = row.page < 0 ? central : pages[row.page];
        QWidget* control = makeControl(row, parent);
        control->setObjectName(QString::fromLatin1(row.name));
        layout->add(control, row.place, row.locks);
        if (row.kind == ControlKind::SegmentedControl)
            segmentCaptions = control->findChildren<QWidget*>();
        else if ((row.kind == ControlKind::Label && control != LabelLatLon) ||
                 row.kind == ControlKind::RadioButton)
            pageCaptions << control;
    }
    TabPanel1->addTab(pages[0], QString());
    TabPanel1->addTab(pages[1], QString());
    const QStringList tabs =
        QString::fromLatin1(windowControls[0].caption).split(QLatin1Char('\r'));
    for (int i = 0; i < tabs.size(); ++i)
        TabPanel1->setTabText(i, tabs[i]);
    // The map's read-out has a size of its own, and the map's own labels are not the page's.
    oneCaptionSize(pageCaptions, font().pointSizeF());
    oneCaptionSize(segmentCaptions, font().pointSizeF());
    RadioButton1->setChecked(true);
    SearchButton->setDefault(true);
    SegmentedControl1->button(0)->setChecked(true);
    // The read-out and the map types lie over the map.
    Rectangle1->raise();
    LabelLatLon->raise();
    SegmentedControl1->button(0)->parentWidget()->raise();

    for (const ControlTip& tip : controlTips)
        findChild<QWidget*>(QString::fromLatin1(tip.name))
            ->setToolTip(QString::fromLatin1(tip.tip));
    for (const LabelFor& pair : fieldLabels) {
        auto* label = findChild<QLabel*>(QString::fromLatin1(pair.label));
        auto* field = findChild<QWidget*>(QString::fromLatin1(pair.field));
        label->setBuddy(field);
        // What a screen reader says of the field: its label, without the colon.
        QString name = label->text();
        if (name.endsWith(QLatin1Char(':')))
            name.chop(1);
        field->setAccessibleName(name);
    }
    TextFieldLabel->setAccessibleName(TextFieldLabel->placeholderText());
    Map->setAccessibleName(QStringLiteral("Map"));
    BatchListbox->setAccessibleName(tabs.value(1));

    // The keyboard's way through each page, in the table's order.
    std::vector<const ControlRow*> focusOrder;
    for (const ControlRow& row : windowControls)
        if (row.page == 0 && row.tab >= 0)
            focusOrder.push_back(&row);
    std::stable_sort(focusOrder.begin(), focusOrder.end(),
                     [](const ControlRow* a, const ControlRow* b) { return a->tab < b->tab; });
    QList<QWidget*> chain;
    for (const ControlRow* row : focusOrder) {
        auto* control = findChild<QWidget*>(QString::fromLatin1(row->name));
        if (row->kind == ControlKind::SegmentedControl)
            chain << control->findChildren<QWidget*>();
        else
            chain << control;
    }
    for (int i = 1; i < chain.size(); ++i)
        setTabOrder(chain[i - 1], chain[i]);

    TimerUserLocation = new QTimer(this);
    TimerUserLocation->setObjectName(QStringLiteral("TimerUserLocation"));
    TimerUserLocation->setInterval(200);
}

QWidget* MainWindow::makeControl(const ControlRow& row, QWidget* parent) {
    const QString caption = QString::fromUtf8(row.caption);
    const QString name = QString::fromLatin1(row.name);
    switch (row.kind) {
    case ControlKind::TabPanel:
        return TabPanel1 = new QTabWidget(parent);
    case ControlKind::TextField: {
        auto* field = new QLineEdit(parent);
        field->setPlaceholderText(caption);
        QLineEdit** member = name == QLatin1String("TextFieldUTM")          ? &TextFieldUTM
                             : name == QLatin1String("TextFieldDMS")        ? &TextFieldDMS
                             : name == QLatin1String("TextFieldDecDegrees") ? &TextFieldDecDegrees
                             : name == QLatin1String("TextFieldLabel")      ? &TextFieldLabel
                                                                            : &addressTextField;
        return *member = field;
    }
    case ControlKind::Label: {
        auto* label = new QLabel(caption, parent);
        if (name == QLatin1String("LabelLatLon")) {
            LabelLatLon = label;
            label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            QFont readout = label->font();
            readout.setPixelSize(16);
            label->setFont(readout);
            // Clicks and the pointer pass through to the map, which would otherwise see the
            // pointer leave whenever it went under the read-out.
            label->setAttribute(Qt::WA_TransparentForMouseEvents);
            label->hide(); // shown while the pointer is over the map
        } else {
            fitCaption(label, caption, row.place.width());
        }
        return label;
    }
    case ControlKind::RadioButton: {
        auto* radio = new QRadioButton(caption, parent);
        fitCaption(radio, caption, row.place.width());
        if (!orderButtons)
            orderButtons = new QButtonGroup(this);
        orderButtons->addButton(radio);
        return (name == QLatin1String("RadioButton1") ? RadioButton1 : RadioButton2) = radio;
    }
    case ControlKind::Listbox: {
        BatchTableView::Events tableEvents;
        tableEvents.cellClick = [this](int r, int column, int x, int y) {
            return window1 && window1->BatchListbox_CellClick(r, column, x, y);
        };
        tableEvents.cellBackgroundPaint = [this](GraphicsView& g, int r, int column) {
            return window1 && window1->BatchListbox_CellBackgroundPaint(g, r, column);
        };
        return BatchListbox = new BatchTableView(batchTable.get(), tableEvents, parent);
    }
    case ControlKind::PushButton: {
        const SearchButtonState first = SearchButtonStates::clickMap();
        SearchButton = new QPushButton(first.caption, parent);
        SearchButton->setToolTip(first.tooltip);
        return SearchButton;
    }
    case ControlKind::Map:
        Map = new MarbleMapView(picturesView.get(), parent);
        // Reached by Tab, to pan with the arrow keys, but a click on the map leaves the keyboard
        // in the field being typed in.
        Map->setFocusPolicy(Qt::TabFocus);
        return Map;
    case ControlKind::Rectangle:
        Rectangle1 = new QWidget(parent);
        Rectangle1->setAttribute(Qt::WA_TransparentForMouseEvents);
        Rectangle1->hide(); // shown while the pointer is over the map
        return Rectangle1;
    case ControlKind::SegmentedControl: {
        auto* segments = new QWidget(parent);
        auto* line = new QHBoxLayout(segments);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(0);
        SegmentedControl1 = new QButtonGroup(this);
        SegmentedControl1->setExclusive(true);
        const QStringList captions = caption.split(QLatin1Char('\t'));
        const int width = row.place.width() / int(captions.size());
        for (int i = 0; i < captions.size(); ++i) {
            auto* segment = new QToolButton(segments);
            segment->setObjectName(QStringLiteral("SegmentedControl1_%1").arg(i));
            segment->setText(captions[i]);
            segment->setAccessibleName(captions[i]);
            segment->setCheckable(true);
            segment->setFocusPolicy(Qt::TabFocus);
            segment->setFixedSize(width, row.place.height());
            fitCaption(segment, captions[i], width);
            line->addWidget(segment);
            SegmentedControl1->addButton(segment, i);
        }
        return segments;
    }
    case ControlKind::BevelButton: {
        auto* button = new FormatPopupButton(parent);
        FormatPopupButton** member =
            name == QLatin1String("BevelButtonFormatDD")    ? &BevelButtonFormatDD
            : name == QLatin1String("BevelButtonFormatDMS") ? &BevelButtonFormatDMS
                                                            : &BevelButtonFormatUTM;
        return *member = button;
    }
    }
    return new QWidget(parent);
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
        if (name == QLatin1String("HelpAboutGeoquill")) {
            App::_HelpAboutGeoquill_Action();
            return;
        }
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

#include "ParseTextDialog.h"

#include "BatchTableView.h"
#include "CaptionFont.h"
#include "files/ImportPreview.h"
#include "files/ParseTextWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr int L = LockedLayout::Left, T = LockedLayout::Top, R = LockedLayout::Right,
              B = LockedLayout::Bottom;

constexpr int segmentWidth = 146;
constexpr int checkBoxIndicator = 22; // the box and its gap before the caption (pixels)

// The label leads to its field and names it to screen readers (on Linux through the label
// relation, since there a pop-up menu's own name is its current entry).
void nameByLabel(QLabel* label, QWidget* field) {
    label->setBuddy(field);
    field->setAccessibleName(label->text());
}

} // namespace

ParseTextDialog::ParseTextDialog(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                          Qt::WindowCloseButtonHint) {
    setObjectName(QStringLiteral("ParseTextWindow"));
    setWindowTitle(QStringLiteral("Parse Text"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    setMinimumSize(64, 64);
    resize(600, 418);
    preview = std::make_unique<ImportPreview>();
    layout = std::make_unique<LockedLayout>(this, QSize(600, 418));
    createControls();

    ParseTextWindowControls c;
    c.Listbox1 = preview.get();
    c.SegmentedButton1 =
        (segmentsView = std::make_unique<ButtonGroupSegmentsView>(SegmentedButton1)).get();
    c.Label2 = (label2View = std::make_unique<LabelCaptionView>(Label2, captionFont, 100)).get();
    c.Label3 = (label3View = std::make_unique<LabelCaptionView>(Label3, captionFont, 109)).get();
    c.Label4 = (label4View = std::make_unique<LabelCaptionView>(Label4, captionFont, 100)).get();
    c.PopupMenuLonEast = (lonEastView = std::make_unique<ComboBoxMenuView>(PopupMenuLonEast)).get();
    c.PopupMenuLatNorth =
        (latNorthView = std::make_unique<ComboBoxMenuView>(PopupMenuLatNorth)).get();
    c.PopupMenuUTMZ = (utmZoneView = std::make_unique<ComboBoxMenuView>(PopupMenuUTMZ)).get();
    c.PopupMenuLabel = (labelMenuView = std::make_unique<ComboBoxMenuView>(PopupMenuLabel)).get();
    c.TextFieldFirstLine =
        (firstLineView = std::make_unique<LineEditView>(TextFieldFirstLine)).get();
    c.CheckBox1 = (appendView = std::make_unique<QtCheckBoxView>(CheckBox1)).get();
    c.appearance = &appearanceView;
    c.messageBox = (messageBoxView = std::make_unique<QtMessageBox>(this)).get();
    c.progress = &progressView;
    c.window = &closer;
    window = std::make_unique<ParseTextWindow>(c);
    wireEvents();
}

ParseTextDialog::~ParseTextDialog() {
    // The controller goes first: widgets being torn down must not reach it.
    window.reset();
    Listbox1->setModel(nullptr);
}

void ParseTextDialog::dismiss() {
    closeRequested = true;
    close();
}

void ParseTextDialog::reject() {
    if (window)
        window->PushButton2_Action();
}

void ParseTextDialog::closeEvent(QCloseEvent* event) {
    // The window's close button is Cancel; the window goes only when its controller says so.
    if (!closeRequested && window)
        window->PushButton2_Action();
    event->setAccepted(closeRequested);
}

void ParseTextDialog::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    // The keys go back to the window the import has filled, whose shortcuts come next.
    if (closeRequested && parentWidget())
        parentWidget()->activateWindow();
}

void ParseTextDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    layout->apply();
}

void ParseTextDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    layout->apply();
}

QLabel* ParseTextDialog::addLabel(const char* name, const QString& text, QRect place, int locks) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QString::fromLatin1(name));
    label->setFont(captionFontToFit(label->font(), text, place.width()));
    layout->add(label, place, locks);
    return label;
}

QComboBox* ParseTextDialog::addPopupMenu(const char* name, QRect place, int locks) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(QString::fromLatin1(name));
    layout->add(combo, place, locks);
    return combo;
}

void ParseTextDialog::createControls() {
    PushButton1 = new QPushButton(QStringLiteral("OK"), this);
    PushButton1->setObjectName(QStringLiteral("PushButton1"));
    PushButton1->setDefault(true);
    layout->add(PushButton1, QRect(500, 378, 80, 20), R | B);
    PushButton2 = new QPushButton(QStringLiteral("Cancel"), this);
    PushButton2->setObjectName(QStringLiteral("PushButton2"));
    layout->add(PushButton2, QRect(20, 378, 80, 20), L | B);
    for (QPushButton* button : {PushButton1, PushButton2})
        button->setFont(captionFontToFit(button->font(), button->text(), 80 - 16));

    createListbox();
    createSegments();

    QLabel* label1 =
        addLabel("Label1", QStringLiteral("Input data are:"), QRect(20, 248, 100, 20), L | B);
    label1->setBuddy(SegmentedButton1->button(0));
    Label2 = addLabel("Label2", QStringLiteral("Longitude:"), QRect(20, 280, 100, 20), L | B);
    PopupMenuLonEast = addPopupMenu("PopupMenuLonEast", QRect(132, 280, 150, 20), L | B);
    nameByLabel(Label2, PopupMenuLonEast);
    Label3 = addLabel("Label3", QStringLiteral("Latitude:"), QRect(309, 280, 109, 20), R | B);
    PopupMenuLatNorth = addPopupMenu("PopupMenuLatNorth", QRect(430, 282, 150, 20), R | B);
    nameByLabel(Label3, PopupMenuLatNorth);
    Label4 = addLabel("Label4", QStringLiteral("UTM Zone:"), QRect(309, 312, 100, 20), L | B);
    PopupMenuUTMZ = addPopupMenu("PopupMenuUTMZ", QRect(430, 314, 150, 20), L | B);
    nameByLabel(Label4, PopupMenuUTMZ);
    Label4->hide();
    PopupMenuUTMZ->hide();

    QLabel* label5 =
        addLabel("Label5", QStringLiteral("1st Line with data:"), QRect(309, 346, 116, 20), R | B);
    TextFieldFirstLine = new QLineEdit(QStringLiteral("2"), this);
    TextFieldFirstLine->setObjectName(QStringLiteral("TextFieldFirstLine"));
    layout->add(TextFieldFirstLine, QRect(430, 344, 150, 22), R | B);
    nameByLabel(label5, TextFieldFirstLine);

    CheckBox1 = new QCheckBox(QStringLiteral("append to existing"), this);
    CheckBox1->setObjectName(QStringLiteral("CheckBox1"));
    CheckBox1->setChecked(true);
    CheckBox1->setFont(
        captionFontToFit(CheckBox1->font(), CheckBox1->text(), 180 - checkBoxIndicator));
    layout->add(CheckBox1, QRect(20, 346, 180, 20), L | B);

    QLabel* label6 = addLabel("Label6", QStringLiteral("Label:"), QRect(20, 312, 100, 20), L | B);
    PopupMenuLabel = addPopupMenu("PopupMenuLabel", QRect(132, 312, 150, 20), L | B);
    nameByLabel(label6, PopupMenuLabel);

    // One caption size for the window's labels: the one the longest needs.
    captionFont = font();
    const auto labels = findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    for (QLabel* label : labels)
        captionFont.setPointSizeF(qMin(captionFont.pointSizeF(), label->font().pointSizeF()));
    for (QLabel* label : labels)
        label->setFont(captionFont);

    // The order in which Tab walks the window: the buttons, the preview, then the choices.
    QWidget* order[] = {PushButton1,
                        PushButton2,
                        Listbox1,
                        SegmentedButton1->button(0),
                        SegmentedButton1->button(1),
                        SegmentedButton1->button(2),
                        PopupMenuLonEast,
                        PopupMenuLatNorth,
                        PopupMenuUTMZ,
                        TextFieldFirstLine,
                        CheckBox1,
                        PopupMenuLabel};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void ParseTextDialog::createListbox() {
    Listbox1 = new QTableView(this);
    Listbox1->setObjectName(QStringLiteral("Listbox1"));
    Listbox1->setModel(preview.get());
    Listbox1->setItemDelegate(new BatchCellDelegate(
        [this](GraphicsView& g, int row, int column) {
            return window && window->Listbox1_CellBackgroundPaint(g, row, column);
        },
        Listbox1));
    Listbox1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Listbox1->setSelectionMode(QAbstractItemView::SingleSelection);
    Listbox1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Listbox1->setSortingEnabled(false);
    Listbox1->setShowGrid(false); // the delegate draws the vertical lines alone
    Listbox1->setWordWrap(false);
    Listbox1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // Columns past the window's width are reached by scrolling.
    Listbox1->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Listbox1->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    QHeaderView* rows = Listbox1->verticalHeader();
    rows->hide();
    // Rows of one height: a million lines are never measured one by one.
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setMinimumSectionSize(1);
    rows->setDefaultSectionSize(Listbox1->fontMetrics().height() + 4);
    QHeaderView* columns = Listbox1->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Fixed);
    columns->setSectionsClickable(false);
    columns->setHighlightSections(false);
    columns->setStretchLastSection(true);
    layout->add(Listbox1, QRect(20, 20, 560, 214), L | T | R | B);
}

void ParseTextDialog::createSegments() {
    auto* strip = new QWidget(this);
    strip->setObjectName(QStringLiteral("SegmentedButton1"));
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    SegmentedButton1 = new QButtonGroup(this);
    SegmentedButton1->setExclusive(true);
    const QString captions[] = {QStringLiteral("Decimal Degrees"),
                                QStringLiteral("Degr. Min. Sec."), QStringLiteral("UTM")};
    for (int i = 0; i < 3; ++i) {
        auto* segment = new QToolButton(strip);
        segment->setObjectName(QStringLiteral("SegmentedButton1_%1").arg(i));
        segment->setText(captions[i]);
        segment->setCheckable(true);
        segment->setFixedSize(segmentWidth, 24);
        segment->setFont(captionFontToFit(segment->font(), captions[i], segmentWidth - 8));
        row->addWidget(segment);
        SegmentedButton1->addButton(segment, i);
    }
    row->addStretch(1);
    SegmentedButton1->button(0)->setChecked(true);
    layout->add(strip, QRect(132, 248, 440, 24), L | R | B);
}

void ParseTextDialog::applyColumnWidths() {
    const QStringList widths = preview->columnWidths().split(QLatin1Char(','));
    const int last = preview->columnCount() - 1;
    for (int column = 0; column < last && column < widths.size(); ++column) {
        bool ok = false;
        const int pixels = widths[column].trimmed().toInt(&ok);
        if (ok && pixels >= 0)
            Listbox1->setColumnWidth(column, pixels);
    }
}

void ParseTextDialog::wireEvents() {
    connect(PushButton1, &QPushButton::clicked, this, [this] {
        if (window)
            window->PushButton1_Action();
    });
    connect(PushButton2, &QPushButton::clicked, this, [this] {
        if (window)
            window->PushButton2_Action();
    });
    connect(SegmentedButton1, &QButtonGroup::idClicked, this, [this](int index) {
        if (window)
            window->SegmentedButton1_Pressed(index);
    });
    // The reading gives the preview its widths while it fills it.
    connect(preview.get(), &QAbstractItemModel::modelReset, this, [this] { applyColumnWidths(); });
}

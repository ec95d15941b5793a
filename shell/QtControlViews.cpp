#include "QtControlViews.h"

#include <QAction>
#include <QApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QSvgRenderer>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>

QString LineEditView::text() const {
    return edit ? edit->text() : QString();
}
void LineEditView::setText(const QString& text) {
    if (edit)
        edit->setText(text);
}
void LineEditView::setFocus() {
    if (edit)
        edit->setFocus(Qt::OtherFocusReason);
}

void LineEditView::selectAll() {
    if (edit)
        edit->selectAll();
}

QString QtPushButtonView::caption() const {
    return button ? button->text() : QString();
}
void QtPushButtonView::setCaption(const QString& caption) {
    if (button)
        button->setText(caption);
}
QString QtPushButtonView::tooltip() const {
    return button ? button->toolTip() : QString();
}
void QtPushButtonView::setTooltip(const QString& tooltip) {
    if (button)
        button->setToolTip(tooltip);
}
bool QtPushButtonView::isDefault() const {
    return button && button->isDefault();
}
void QtPushButtonView::setDefault(bool isDefault) {
    if (button)
        button->setDefault(isDefault);
}

bool QtRadioButtonView::value() const {
    return button && button->isChecked();
}
void QtRadioButtonView::setValue(bool on) {
    if (button)
        button->setChecked(on);
}

QString ActionMenuItemView::text() const {
    return action ? action->text() : QString();
}
void ActionMenuItemView::setText(const QString& text) {
    if (action)
        action->setText(text);
}
bool ActionMenuItemView::hasCheckMark() const {
    return action && action->isChecked();
}
void ActionMenuItemView::setHasCheckMark(bool marked) {
    if (!action)
        return;
    action->setCheckable(action->isCheckable() || marked);
    action->setChecked(marked);
}

int QtTabPanelView::selectedPanelIndex() const {
    return tabs ? tabs->currentIndex() : 0;
}

void QtTabPanelView::setSelectedPanelIndex(int index) {
    if (tabs)
        tabs->setCurrentIndex(index);
}

void QtPushButtonView::setFocus() {
    if (button)
        button->setFocus();
}

void QtMessageBox::show(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationName(), text, QMessageBox::Ok,
                    parent);
    box.exec();
}

MessageDialogView::Answer QtMessageDialog::showModal(const Question& q) {
    QMessageBox box(parent);
    box.setWindowTitle(QApplication::applicationName());
    box.setIcon(q.iconType == 1 ? QMessageBox::Warning : QMessageBox::Information);
    box.setText(q.message);
    box.setInformativeText(q.explanation);
    QPushButton* action = box.addButton(q.actionCaption, QMessageBox::AcceptRole);
    QPushButton* alternate = nullptr;
    if (q.alternateVisible)
        alternate = box.addButton(q.alternateCaption, QMessageBox::DestructiveRole);
    if (q.cancelVisible)
        box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(action);
    box.exec();
    if (box.clickedButton() == action)
        return Answer::Action;
    if (alternate && box.clickedButton() == alternate)
        return Answer::Alternate;
    return Answer::Cancel;
}

int QtTimerView::runMode() const {
    return timer && timer->isActive() ? 2 : 0;
}
void QtTimerView::setRunMode(int mode) {
    if (!timer)
        return;
    if (mode == 0)
        timer->stop();
    else
        timer->start();
}

void ColourPanelView::setFillColor(std::uint32_t colourWord) {
    if (!widget)
        return;
    // The colour word's AA is transparency (00 opaque); Qt's alpha is opacity.
    QColor colour = QColor::fromRgb(colourWord & 0xFFFFFFu);
    colour.setAlpha(255 - static_cast<int>(colourWord >> 24));
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    widget->update();
}

bool PaletteAppearance::isDarkMode() const {
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

// The pictures live in a static library, whose resource registration the linker would drop
// unless something refers to it.
static void registerPictures() {
    Q_INIT_RESOURCE(pictures);
}

ResourcePictures::ResourcePictures() {
    registerPictures();
}

const ResourcePictures::Picture& ResourcePictures::load(const QString& name) {
    auto found = loaded.find(name);
    if (found != loaded.end())
        return found.value();
    Picture made;
    QSvgRenderer svg(QStringLiteral(":/pictures/%1.svg").arg(name));
    if (svg.isValid()) {
        made.size = svg.defaultSize();
        const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
        made.pixmap = QPixmap(made.size * ratio);
        made.pixmap.fill(Qt::transparent);
        QPainter painter(&made.pixmap);
        svg.render(&painter, QRectF(QPointF(0, 0), made.pixmap.size()));
        painter.end();
        made.pixmap.setDevicePixelRatio(ratio);
    }
    return loaded.insert(name, made).value();
}

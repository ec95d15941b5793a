#include "ImportControlViews.h"

#include "CaptionFont.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

#include <algorithm>

namespace {

// How long a reading may keep the screen waiting (milliseconds).
constexpr qint64 eventInterval = 30;
// The scale that positions beyond the range of int are shown on.
constexpr int progressSteps = 1000;

QStringList nameFilters(const QString& mimeFilter) {
    QStringList filters;
    if (mimeFilter == QLatin1String("text/plain"))
        filters << QStringLiteral("Text files (*.txt *.csv *.tsv *.tab *.asc *.dat *.xyz)");
    filters << QStringLiteral("All files (*)");
    return filters;
}

} // namespace

bool shownWithItsWindow(const QWidget* control) {
    return control && control->isVisibleTo(control->window());
}

void ComboBoxMenuView::addRow(const QString& text) {
    if (combo)
        combo->addItem(text);
}
int ComboBoxMenuView::rowCount() const {
    return combo ? combo->count() : 0;
}
QString ComboBoxMenuView::rowTextAt(int row) const {
    return combo ? combo->itemText(row) : QString();
}
int ComboBoxMenuView::selectedRowIndex() const {
    return combo ? combo->currentIndex() : -1;
}
void ComboBoxMenuView::setSelectedRowIndex(int row) {
    if (combo)
        combo->setCurrentIndex(row);
}
bool ComboBoxMenuView::isVisible() const {
    return shownWithItsWindow(combo);
}
void ComboBoxMenuView::setVisible(bool visible) {
    if (combo)
        combo->setVisible(visible);
}

int ButtonGroupSegmentsView::selectedSegmentIndex() const {
    return group ? group->checkedId() : -1;
}

bool QtCheckBoxView::value() const {
    return box && box->isChecked();
}
void QtCheckBoxView::setValue(bool ticked) {
    if (box)
        box->setChecked(ticked);
}
bool QtCheckBoxView::isVisible() const {
    return shownWithItsWindow(box);
}
void QtCheckBoxView::setVisible(bool visible) {
    if (box)
        box->setVisible(visible);
}

QString LabelCaptionView::text() const {
    return label ? label->text() : QString();
}
void LabelCaptionView::setText(const QString& text) {
    if (!label)
        return;
    label->setFont(captionFontToFit(designFont, text, room));
    label->setText(text);
    // The field keeps the name its label gives it.
    if (QWidget* field = label->buddy())
        field->setAccessibleName(text);
}
bool LabelCaptionView::isVisible() const {
    return shownWithItsWindow(label);
}
void LabelCaptionView::setVisible(bool visible) {
    if (label)
        label->setVisible(visible);
}

QtProgressView::~QtProgressView() {
    delete progress;
}

void QtProgressView::begin(const QString& caption, std::int64_t work) {
    delete progress;
    maximum = std::max<std::int64_t>(work, 0);
    shown = -1;
    progress = new QProgressDialog(caption, QStringLiteral("Cancel"), 0,
                                   maximum > 0 ? progressSteps : 0, window);
    progress->setObjectName(QStringLiteral("ProgressView"));
    progress->setWindowModality(Qt::WindowModal);
    progress->setAutoClose(false);
    progress->setAutoReset(false);
    progress->setMinimumDuration(0);
    progress->setValue(0);
    progress->show();
    QCoreApplication::processEvents();
    sinceEvents.start();
}

bool QtProgressView::advance(std::int64_t value) {
    if (!progress)
        return true;
    if (maximum > 0) {
        const std::int64_t part = std::clamp<std::int64_t>(value, 0, maximum);
        // Scaled in floating point: the bytes of a large file are past the range of int.
        const int step = int(double(part) / double(maximum) * progressSteps);
        if (step != shown) {
            shown = step;
            progress->setValue(step);
        }
    }
    if (sinceEvents.elapsed() >= eventInterval) {
        QCoreApplication::processEvents();
        sinceEvents.start();
    }
    return progress && !progress->wasCanceled();
}

void QtProgressView::end() {
    if (!progress)
        return;
    progress->hide();
    progress->deleteLater();
    progress = nullptr;
    // The keys go back to the window whose work this was: the import window's fields are next.
    if (window)
        window->activateWindow();
}

void DialogCloser::close() {
    if (onClose)
        onClose();
    if (window)
        window->close();
}

QString QtFileDialogs::getOpenFolderItem(const QString& mimeFilter) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(mimeFilter));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

QString QtFileDialogs::showSaveFileDialog(const QString& mimeFilter, const QString& defaultName) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(nameFilters(mimeFilter));
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialog.setDirectory(documents);
    dialog.selectFile(QDir(documents).filePath(defaultName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

QString QtClipboard::text() const {
    return QGuiApplication::clipboard()->text();
}

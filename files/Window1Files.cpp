// The window's file commands: saving the ticked rows, opening and pasting delimited text.

#include "ImportMessages.h"
#include "ImportViews.h"
#include "ParseTextWindow.h"
#include "SavedLocationsFile.h"
#include "coordinates/MessageBox.h"
#include "locationbook/Window1.h"

#include <QDir>
#include <QSaveFile>
#include <QTemporaryFile>

namespace {

const QString textFiles = QStringLiteral("text/plain");

// Written out in pieces of about this many bytes, so that a million rows never stand in memory
// as one text.
constexpr int writeBlock = 1 << 20;

} // namespace

bool Window1::_FileSave_Action() {
    if (locations.empty()) {
        c.messageBox->show(QStringLiteral(
            "Save only applies to locations listed in the batch process tab. Sorry!"));
        return false;
    }
    const QString path =
        c.fileDialogs->showSaveFileDialog(textFiles, QStringLiteral("Saved Locations.txt"));
    if (path.isEmpty())
        return false;
    writeSaveDataFile(path);
    return true;
}

void Window1::writeSaveDataFile(const QString& path) {
    if (path.isEmpty())
        return;
    // The text goes to a file beside the target, which replaces the target only once it is
    // whole: a disk that fills up halfway leaves the old file as it was.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        c.messageBox->show(ImportMessages::couldNotSave(path, file.errorString()));
        return;
    }
    QByteArray out = SavedLocationsFile::headerLine().toUtf8();
    QString line;
    for (const int row : c.BatchListbox->rowsInDisplayOrder()) {
        if (!c.BatchListbox->cellCheckBoxValueAt(row, 0))
            continue;
        line.clear();
        SavedLocationsFile::appendLine(line, [&](QString& text, int column) {
            text += c.BatchListbox->cellValueAt(row, column);
        });
        out += line.toUtf8();
        if (out.size() >= writeBlock) {
            file.write(out);
            out.clear();
        }
    }
    file.write(out);
    if (!file.commit())
        c.messageBox->show(ImportMessages::couldNotSave(path, file.errorString()));
}

bool Window1::_FileOpen_Action() {
    const QString path = c.fileDialogs->getOpenFolderItem(textFiles);
    if (path.isEmpty())
        return false;
    // The imported locations are listed on the second page.
    c.TabPanel1->setSelectedPanelIndex(1);
    ParseTextWindow& importer = c.importWindows->showParseTextWindow();
    importer.ParseTextFile(path);
    return true;
}

bool Window1::_EditPaste_Action() {
    // Pasting imports only on the page of the list.
    if (c.TabPanel1->selectedPanelIndex() != 1)
        return true;
    const QByteArray text = c.clipboard->text().toUtf8();
    // The pasted text goes through the import as a file would. The file is the user's alone
    // (QTemporaryFile makes it readable and writable by its owner only) and is removed when
    // the import window closes.
    // An empty folder name (a temporary folder that does not exist) must not put the file
    // at the root.
    const QString folder = QDir::tempPath();
    const QString reported = folder.isEmpty() ? QString::fromLocal8Bit(qgetenv("TMPDIR")) : folder;
    auto file =
        std::make_unique<QTemporaryFile>(folder + QStringLiteral("/geoquill-paste-XXXXXX.txt"));
    if (folder.isEmpty() || !file->open()) {
        c.messageBox->show(ImportMessages::noTemporaryFile(
            reported, folder.isEmpty() ? QStringLiteral("no such folder") : file->errorString()));
        return true;
    }
    if (file->write(text) != text.size() || !file->flush()) {
        c.messageBox->show(ImportMessages::noTemporaryFile(folder, file->errorString()));
        return true;
    }
    file->close();
    const QString path = file->fileName();
    ParseTextWindow& importer = c.importWindows->showParseTextWindow();
    importer.keepTemporaryFile(std::move(file));
    importer.ParseTextFile(path);
    return true;
}

#include "ImportMessages.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

} // namespace

QString ImportMessages::couldNotRead(const QString& path, const QString& reason) {
    return QStringLiteral("The file \u201C%1\u201D could not be read: %2.")
        .arg(shown(path), reason);
}

QString ImportMessages::couldNotSave(const QString& path, const QString& reason) {
    return QStringLiteral("The file \u201C%1\u201D could not be saved: %2. Nothing was written.")
        .arg(shown(path), reason);
}

QString ImportMessages::noTemporaryFile(const QString& folder, const QString& reason) {
    return QStringLiteral("The pasted text could not be imported: no temporary file could be "
                          "made in \u201C%1\u201D: %2.")
        .arg(shown(folder), reason);
}

QString ImportMessages::reading(const QString& path) {
    return QStringLiteral("Reading \u201C%1\u201D\u2026").arg(QFileInfo(path).fileName());
}

QString ImportMessages::importing() {
    return QStringLiteral("Importing locations\u2026");
}

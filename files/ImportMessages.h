#pragma once
// The texts with which reading, importing and saving files report a file and their progress.
// A failure names the file and the system's reason.

#include <QString>

namespace ImportMessages {

QString couldNotRead(const QString& path, const QString& reason);
QString couldNotSave(const QString& path, const QString& reason);
QString noTemporaryFile(const QString& folder, const QString& reason);
// The captions of the progress window.
QString reading(const QString& path);
QString importing();

} // namespace ImportMessages

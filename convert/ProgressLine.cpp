#include "ProgressLine.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

bool ProgressLine::wanted(int inputFileDescriptor) {
    struct stat status {};
    return isatty(STDERR_FILENO) == 1 && fstat(inputFileDescriptor, &status) == 0 &&
           S_ISREG(status.st_mode);
}

ProgressLine::ProgressLine(const QString& fileName, std::int64_t totalBytes)
    : name(QFileInfo(fileName).fileName()), total(std::max<std::int64_t>(totalBytes, 1)) {}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::update(std::int64_t bytesDone) {
    if (shown && sinceShown.elapsed() < 100)
        return;
    const std::int64_t percent = std::min<std::int64_t>(100, bytesDone * 100 / total);
    const QByteArray text =
        QStringLiteral("\rgeoquill-convert: %1 %2%").arg(name).arg(percent).toUtf8();
    std::fputs(text.constData(), stderr);
    std::fflush(stderr);
    shown = true;
    sinceShown.start();
}

void ProgressLine::clear() {
    if (!shown)
        return;
    // Back to the start of the line and wipe it to its end.
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    shown = false;
}

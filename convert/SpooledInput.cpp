#include "SpooledInput.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

constexpr qint64 inMemory = 8 << 20;
constexpr qint64 chunk = 256 * 1024;

QString readError(const QIODevice& source) {
    return source.errorString().isEmpty() ? QStringLiteral("read error") : source.errorString();
}

} // namespace

bool SpooledInput::spool(QIODevice& source) {
    while (bytes.size() < inMemory) {
        const int before = bytes.size();
        bytes.resize(before + static_cast<int>(chunk));
        const qint64 n = source.read(bytes.data() + before, chunk);
        bytes.resize(before + static_cast<int>(std::max<qint64>(n, 0)));
        if (n < 0) {
            error = readError(source);
            return false;
        }
        if (n == 0) {
            memory.setBuffer(&bytes);
            return memory.open(QIODevice::ReadOnly);
        }
    }
    return spill(source);
}

bool SpooledInput::spill(QIODevice& source) {
    QByteArray folder = qgetenv("TMPDIR");
    if (folder.isEmpty())
        folder = "/tmp";
    QByteArray name = folder + "/geoquill-convert-XXXXXX";
    const int fd = mkstemp(name.data());
    if (fd < 0) {
        error = QStringLiteral("no temporary file in %1: %2")
                    .arg(QString::fromLocal8Bit(folder), QString::fromLocal8Bit(strerror(errno)));
        return false;
    }
    unlink(name.constData());
    file = std::make_unique<QFile>();
    if (!file->open(fd, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        error = file->errorString();
        return false;
    }
    QByteArray block = std::move(bytes);
    bytes = QByteArray();
    for (;;) {
        if (file->write(block) != block.size()) {
            error = file->errorString();
            return false;
        }
        block.resize(static_cast<int>(chunk));
        const qint64 n = source.read(block.data(), chunk);
        if (n < 0) {
            error = readError(source);
            return false;
        }
        if (n == 0)
            break;
        block.resize(static_cast<int>(n));
    }
    return file->flush() && file->seek(0);
}

QIODevice& SpooledInput::device() {
    if (file)
        return *file;
    return memory;
}

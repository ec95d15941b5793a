#include "OutputBuffer.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

OutputBuffer::OutputBuffer(int fileDescriptor) : fd(fileDescriptor) {
    pending.reserve(blockCharacters + 4096);
}

OutputBuffer::OutputBuffer(QByteArray& gathered) : memory(&gathered) {}

bool OutputBuffer::flush() {
    if (error != 0)
        return false;
    const QByteArray utf8 = pending.toUtf8();
    // resize, not clear: the text keeps its capacity for the next block.
    pending.resize(0);
    if (memory) {
        memory->append(utf8);
        return true;
    }
    return writeAll(utf8.constData(), utf8.size());
}

bool OutputBuffer::writeAll(const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, static_cast<std::size_t>(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            error = errno;
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

bool OutputBuffer::readerGone() const {
    return error == EPIPE;
}

QString OutputBuffer::errorString() const {
    return QString::fromLocal8Bit(std::strerror(error));
}

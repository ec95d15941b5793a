#pragma once
// Standard output of geoquill-convert: lines are appended to one text as they are made, and
// written out as UTF-8 whenever it holds a block of them, so that a million lines take a few
// hundred writes and never more memory than a block.

#include <QByteArray>
#include <QString>

class OutputBuffer {
public:
    // Writes to the open file descriptor fd.
    explicit OutputBuffer(int fd);
    // Gathers everything in memory (for the fuzz target).
    explicit OutputBuffer(QByteArray& memory);

    // Where the lines are appended.
    QString& text() { return pending; }
    // Writes the text out once it holds a block; false once a write has failed.
    bool flushIfFull() { return pending.size() < blockCharacters || flush(); }
    // Writes out whatever is gathered; false once a write has failed.
    bool flush();

    // The reader went away (a closed pipe, as under "| head"): the output is no longer wanted,
    // which needs no message.
    bool readerGone() const;
    // The system's reason for the failed write.
    QString errorString() const;

private:
    static constexpr int blockCharacters = 1 << 16;

    bool writeAll(const char* data, qint64 size);

    int fd = -1;
    QByteArray* memory = nullptr;
    QString pending;
    int error = 0; // errno of the failed write
};

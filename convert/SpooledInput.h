#pragma once
// A pipe (standard input, or a named one) made readable twice, as the import reads a file: the
// delimiter is that of the last line that has one and the encoding is known only at the end, so
// a pipe is read to its end before the first line is converted. Up to 8 MiB are kept in memory; a
// longer input goes on into a temporary file in $TMPDIR (or /tmp) that has no name from the moment
// it is made, so nothing is left behind whatever ends the program, and memory stays bounded for any
// input.

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>

class SpooledInput {
public:
    // Reads source to its end. false when it could not be read or kept; errorString() says why.
    bool spool(QIODevice& source);
    // The whole text, from its start.
    QIODevice& device();
    QString errorString() const { return error; }

private:
    bool spill(QIODevice& source);

    QByteArray bytes;
    QBuffer memory;
    std::unique_ptr<QFile> file;
    QString error;
};

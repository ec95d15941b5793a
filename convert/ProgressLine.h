#pragma once
// How far a long conversion of a file has come, on a terminal: one line on standard error,
// rewritten in place ("geoquill-convert: big.txt 42%"), wiped before any other message and at
// the end. Both readings of the file count, so the first ends at 50%.

#include <QElapsedTimer>
#include <QString>

#include <cstdint>

class ProgressLine {
public:
    // A line is shown only when standard error is a terminal and the input a regular file,
    // whose size is known.
    static bool wanted(int inputFileDescriptor);

    // totalBytes: the bytes of both readings together.
    ProgressLine(const QString& name, std::int64_t totalBytes);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    // Rewrites the line, at most ten times a second.
    void update(std::int64_t bytesDone);
    void clear();

private:
    QString name;
    std::int64_t total;
    QElapsedTimer sinceShown;
    bool shown = false;
};

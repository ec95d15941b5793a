#pragma once
// The conversion of one text: the import's first reading finds the delimiter, the width and the
// encoding; the second turns every line from the first line with data on into a location, as
// OK in the import window does, and writes it as Save writes a ticked row of the table. Nothing
// is kept from one line to the next, so any number of lines takes the memory of the longest.

#include "ConvertOptions.h"
#include "files/ImportRowBuilder.h"
#include "files/TextLineReader.h"

#include <QString>

#include <cstdint>
#include <string_view>
#include <vector>

class MessageBox;
class OutputBuffer;
class ProgressLine;
class QIODevice;

namespace ExitStatus {
constexpr int done = 0;
constexpr int failed = 1; // the input could not be read or the output not written
constexpr int usage = 2;
constexpr int linesLeftOut = 3; // --strict found lines that do not read whole
} // namespace ExitStatus

class Converter {
public:
    // messages: the import's messages (too many columns, a zone it can't read), the reports of
    // --strict and read failures. progress may be null.
    Converter(const ConvertOptions& options, OutputBuffer& out, MessageBox& messages,
              ProgressLine* progress);

    // Converts the text that input holds from its current position, which must be seekable;
    // name stands for it in messages. The exit status.
    int run(QIODevice& input, const QString& name);

private:
    struct Layout {
        char delimiter = 0;
        int fieldCount = 0;
        std::int64_t lines = 0;
        TextLineReader::Encoding encoding = TextLineReader::Encoding::Sniff; // of the second
    };
    bool scan(QIODevice& input, const QString& name, Layout& layout);
    int convert(QIODevice& input, const QString& name, const Layout& layout);
    void report(const QString& name, std::int64_t lineNumber,
                ImportRowBuilder::Unreadable unreadable,
                const std::vector<std::string_view>& fields);
    int writeFailed();

    const ConvertOptions& o;
    OutputBuffer& out;
    MessageBox& messages;
    ProgressLine* progress;
    std::int64_t startBytes = 0; // where the text starts in input
    std::int64_t doneBytes = 0;  // bytes read by the first reading, for the progress
};

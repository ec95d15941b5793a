// geoquill-convert's handling of lines: any bytes as the text, the user's options taken from the
// first eight bytes (notation, columns, first line, a delimiter or none, --strict, the order and
// the format flags), converted in memory as the program converts a file. Whatever the text,
// every line from the first line on is written or, under --strict, left out and reported; a
// written line has the eight fields of the saved file; the exit status is 0, or 3 when --strict
// left lines out.

#include "FuzzInput.h"

#include "convert/Converter.h"
#include "convert/OutputBuffer.h"
#include "files/DelimiterScan.h"
#include "files/SavedLocationsFile.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>

namespace {

class RecordingMessages : public MessageBox {
public:
    void show(const QString& text) override { shown << text; }
    QStringList shown;
};

ConvertOptions takeOptions(const std::uint8_t*& data, std::size_t& size) {
    std::uint8_t b[8];
    takeChoiceBytes(data, size, b);
    ConvertOptions o;
    o.columns.notation = b[0] % 3;
    const int columns = static_cast<int>(DelimiterScan::maxColumns);
    o.columns.lonEast = 1 + b[1] % columns;
    o.columns.latNorth = 1 + b[2] % columns;
    o.columns.zone = o.columns.notation == ImportColumns::UTM ? 1 + b[3] % columns : 0;
    o.columns.label = b[4] % (columns + 1);
    o.firstLine = b[5] == 255 ? INT64_MAX : 1 + b[5] % 8;
    const char delimiters[] = {0, 0, 0, '\t', ',', ' ', ';', 0};
    o.delimiter = delimiters[b[6] % 8];
    o.strict = b[7] & 1;
    o.latFirst = b[7] & 2;
    bool* const flags[] = {&o.settings.DDshowHemiLet,  &o.settings.DDshowDegrSymb,
                           &o.settings.DMSshowHemiLet, &o.settings.DMSshowSymbols,
                           &o.settings.UTMshowM,       &o.settings.UTMshowEN,
                           &o.settings.UTMnegZoneSouth};
    for (int i = 0; i < 6; ++i)
        *flags[i] = b[7] & (4 << i);
    *flags[6] = b[6] & 8;
    return o;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    makeDefaultDatum();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ConvertOptions o = takeOptions(data, size);
    QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer input(&text);
    FUZZ_CHECK(input.open(QIODevice::ReadOnly));
    QByteArray written;
    OutputBuffer out(written);
    RecordingMessages messages;
    const int status = Converter(o, out, messages, nullptr).run(input, QStringLiteral("fuzz"));

    FUZZ_CHECK(status == ExitStatus::done || status == ExitStatus::linesLeftOut);
    QList<QByteArray> lines = written.split('\n');
    FUZZ_CHECK(lines.takeLast().isEmpty()); // every line ends with its line end
    FUZZ_CHECK(lines.takeFirst() == SavedLocationsFile::headerLine().toUtf8().chopped(1));
    const int reports =
        messages.shown.size() - messages.shown.count(DelimiterScan::tooWideMessage());
    FUZZ_CHECK(o.strict || reports <= 2); // a zone the builder can't read: two texts, once
    FUZZ_CHECK((status == ExitStatus::linesLeftOut) == (o.strict && reports > 0));
    if (!startsWithUtf16Mark(data, size)) {
        const std::int64_t total = countLines(data, size);
        const std::int64_t taken = o.firstLine > total ? 0 : total - o.firstLine + 1;
        FUZZ_CHECK(lines.size() + (o.strict ? reports : 0) == taken);
    }
    // A label may hold tabs, and so may a DMS text's hemisphere "letter", which is any
    // character; the numbers never do.
    const bool tabsInCells = o.columns.label > 0 || o.columns.notation == ImportColumns::DMS;
    for (const QByteArray& line : lines)
        FUZZ_CHECK(tabsInCells ? line.count('\t') >= 7 : line.count('\t') == 7);
    return 0;
}

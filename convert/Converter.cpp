#include "Converter.h"

#include "OutputBuffer.h"
#include "ProgressLine.h"
#include "coordinates/MessageBox.h"
#include "files/DelimitedLine.h"
#include "files/DelimiterScan.h"
#include "files/ImportMessages.h"
#include "files/SavedLocationsFile.h"

#include <QIODevice>

namespace {

// Lines between two looks at the progress.
constexpr std::int64_t progressStep = 8192;
// No coordinate line comes near this; a longer one is refused rather than held, which keeps the
// memory bounded whatever the input.
constexpr std::size_t lineLimit = std::size_t(8) << 20;
// A reported cell is quoted up to this many characters.
constexpr int quotedCharacters = 40;

// A cell as a report quotes it: cut short, control characters as '?', so that the bytes of a
// binary file do not reach the terminal.
QString quoted(std::string_view cell) {
    QString text = QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
    if (text.size() > quotedCharacters)
        text = text.left(quotedCharacters) + QChar(0x2026);
    for (QChar& ch : text)
        if (ch.category() == QChar::Other_Control)
            ch = QLatin1Char('?');
    return QLatin1Char('"') + text + QLatin1Char('"');
}

// Under --strict a zone the builder can't read is reported with its line, not told once.
class Unshown : public MessageBox {
public:
    void show(const QString&) override {}
};

} // namespace

Converter::Converter(const ConvertOptions& options, OutputBuffer& output, MessageBox& shownBy,
                     ProgressLine* progressLine)
    : o(options), out(output), messages(shownBy), progress(progressLine) {}

int Converter::run(QIODevice& input, const QString& name) {
    startBytes = input.pos();
    Layout layout;
    if (!scan(input, name, layout))
        return ExitStatus::failed;
    if (o.header)
        out.text() += SavedLocationsFile::headerLine();
    // A first line past the end takes no line: the header stands alone.
    const int status =
        o.firstLine <= layout.lines ? convert(input, name, layout) : ExitStatus::done;
    if (status != ExitStatus::failed && !out.flush())
        return writeFailed();
    return status;
}

bool Converter::scan(QIODevice& input, const QString& name, Layout& layout) {
    DelimiterScan found;
    TextLineReader reader(input, TextLineReader::Encoding::Sniff);
    reader.setLineLimit(lineLimit);
    std::string_view line;
    while (reader.next(line)) {
        if (o.delimiter == DelimitedLine::noDelimiter)
            found.addLine(line);
        if (++layout.lines % progressStep == 0 && progress)
            progress->update(reader.bytesRead());
    }
    if (reader.failed()) {
        messages.show(ImportMessages::couldNotRead(name, reader.errorString()));
        return false;
    }
    doneBytes = reader.bytesRead();
    layout.encoding = reader.encodingOfSecondReading();
    if (o.delimiter != DelimitedLine::noDelimiter) {
        layout.delimiter = o.delimiter;
        layout.fieldCount = static_cast<int>(DelimiterScan::maxColumns);
        return true;
    }
    if (found.tooWide())
        messages.show(DelimiterScan::tooWideMessage());
    layout.delimiter = found.delimiter();
    layout.fieldCount = found.fieldCount();
    return true;
}

int Converter::convert(QIODevice& input, const QString& name, const Layout& layout) {
    if (!input.seek(startBytes)) {
        messages.show(ImportMessages::couldNotRead(name, input.errorString()));
        return ExitStatus::failed;
    }
    TextLineReader reader(input, layout.encoding);
    reader.setLineLimit(lineLimit);
    Unshown unshown;
    ImportRowBuilder builder(o.columns, o.locale, o.strict ? unshown : messages);
    const BatchCellFormat format = BatchCellFormat::from(o.settings, o.latFirst, o.locale);
    const auto fieldCount = static_cast<std::size_t>(layout.fieldCount);
    std::vector<std::string_view> fields;
    std::string_view line;
    std::int64_t number = 0;
    std::size_t written = 0;
    bool leftOut = false;
    while (reader.next(line)) {
        if (++number % progressStep == 0 && progress)
            progress->update(doneBytes + reader.bytesRead());
        if (number < o.firstLine)
            continue;
        DelimitedLine::fieldsOf(line, layout.delimiter, fieldCount, fields);
        VertexRef v;
        if (o.strict) {
            ImportRowBuilder::Unreadable unreadable = ImportRowBuilder::Unreadable::None;
            v = builder.build(fields, unreadable);
            if (unreadable != ImportRowBuilder::Unreadable::None) {
                report(name, number, unreadable, fields);
                leftOut = true;
                continue;
            }
        } else {
            v = builder.build(fields);
        }
        SavedLocationsFile::appendLine(out.text(), *v, written++, format);
        if (!out.flushIfFull())
            return writeFailed();
    }
    if (reader.failed()) {
        out.flush();
        messages.show(ImportMessages::couldNotRead(name, reader.errorString()));
        return ExitStatus::failed;
    }
    return leftOut ? ExitStatus::linesLeftOut : ExitStatus::done;
}

void Converter::report(const QString& name, std::int64_t lineNumber,
                       ImportRowBuilder::Unreadable unreadable,
                       const std::vector<std::string_view>& fields) {
    const bool utm = o.columns.notation == ImportColumns::UTM;
    int column = o.columns.zone;
    QString what = QStringLiteral("zone");
    QString expected = QStringLiteral("a UTM zone");
    if (unreadable != ImportRowBuilder::Unreadable::Zone) {
        const bool first = unreadable == ImportRowBuilder::Unreadable::LonEast;
        column = first ? o.columns.lonEast : o.columns.latNorth;
        what = utm ? (first ? QStringLiteral("easting") : QStringLiteral("northing"))
                   : (first ? QStringLiteral("longitude") : QStringLiteral("latitude"));
        expected = o.columns.notation == ImportColumns::DMS
                       ? QStringLiteral("degrees, minutes, seconds and a hemisphere letter")
                       : QStringLiteral("a number");
    }
    const std::string_view cell = static_cast<std::size_t>(column) <= fields.size()
                                      ? fields[static_cast<std::size_t>(column - 1)]
                                      : std::string_view();
    messages.show(QStringLiteral("%1:%2: the %3 in column %4 is not %5: %6")
                      .arg(name)
                      .arg(lineNumber)
                      .arg(what)
                      .arg(column)
                      .arg(expected, quoted(cell)));
}

int Converter::writeFailed() {
    // A reader that went away wants no more lines and no message.
    if (!out.readerGone())
        messages.show(
            QStringLiteral("standard output could not be written: %1.").arg(out.errorString()));
    return ExitStatus::failed;
}

// The import's scan of a text file with any bytes, as a damaged or misnamed file would give it:
// the line reader guessing the encoding, the delimiter judged on every line, the second reading
// with the encoding decided, and the preview filled and read back cell by cell. Fields are
// checked against a plain splitter written here. The first byte sets how many bytes each read
// of the file gives, as a slow disk or a pipe would give them, so that a CR LF pair, a UTF-8
// sequence or a UTF-16 pair split between two reads is tried on texts of a few bytes.

#include "FuzzInput.h"

#include "files/DelimitedLine.h"
#include "files/ImportPreview.h"
#include "files/TextLineReader.h"

#include <QByteArray>
#include <QIODevice>
#include <QTextCodec>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t maxColumns = 60;
// Rows read back cell by cell; the rest of a long text only by row.
constexpr int checkedRows = 512;

// A file that gives at most `piece` bytes per read.
class TrickleDevice : public QIODevice {
public:
    TrickleDevice(const QByteArray& bytes, qint64 piece) : bytes(bytes), piece(piece) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return false; }
    qint64 size() const override { return bytes.size(); }
    bool seek(qint64 pos) override {
        at = pos;
        return QIODevice::seek(pos);
    }

protected:
    qint64 readData(char* out, qint64 max) override {
        const qint64 n = std::min({max, piece, bytes.size() - at});
        std::memcpy(out, bytes.constData() + at, static_cast<std::size_t>(n));
        at += n;
        return n;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QByteArray& bytes;
    qint64 piece;
    qint64 at = 0;
};

bool isAsciiBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view trimAscii(std::string_view s) {
    while (!s.empty() && isAsciiBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isAsciiBlank(s.back()))
        s.remove_suffix(1);
    return s;
}

// The fields of a line as a person would cut it: at every tab or comma, keeping empty fields;
// at blanks, dropping the empty pieces that runs of blanks leave.
std::vector<std::string_view> plainFields(std::string_view line, char delimiter) {
    std::vector<std::string_view> out;
    if (delimiter == DelimitedLine::noDelimiter)
        return out;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i < line.size() && line[i] != delimiter)
            continue;
        const std::string_view piece = line.substr(start, i - start);
        if (delimiter != ' ' || !piece.empty())
            out.push_back(trimAscii(piece));
        start = i + 1;
    }
    return out;
}

// The first of tab, comma and blank that the line holds.
char plainDelimiter(std::string_view line) {
    for (char d : {'\t', ',', ' '})
        if (line.find(d) != std::string_view::npos)
            return d;
    return DelimitedLine::noDelimiter;
}

bool qtFindsValidUtf8(std::string_view bytes) {
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()),
                                                 &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

struct FirstReading {
    std::vector<std::string> lines;
    TextLineReader::Encoding encoding = TextLineReader::Encoding::Sniff;
    bool validUtf8 = true;
    char delimiter = DelimitedLine::noDelimiter;
    std::size_t widest = 0;
};

FirstReading readFirst(QIODevice& device) {
    FirstReading r;
    TextLineReader reader(device, TextLineReader::Encoding::Sniff);
    std::string_view line;
    while (reader.next(line)) {
        FUZZ_CHECK(line.find('\n') == std::string_view::npos);
        FUZZ_CHECK(line.find('\r') == std::string_view::npos);
        const DelimitedLine::Shape shape = DelimitedLine::judge(line);
        FUZZ_CHECK(shape.delimiter == plainDelimiter(line));
        const std::vector<std::string_view> expected = plainFields(line, shape.delimiter);
        FUZZ_CHECK(shape.width == expected.size());
        std::size_t count = 0;
        DelimitedLine::forEachField(line, shape.delimiter, maxColumns,
                                    [&](std::size_t i, std::string_view field) {
                                        FUZZ_CHECK(i == count++);
                                        FUZZ_CHECK(field == expected[i]);
                                    });
        FUZZ_CHECK(count == std::min(expected.size(), maxColumns));
        if (shape.delimiter != DelimitedLine::noDelimiter) {
            r.delimiter = shape.delimiter;
            r.widest = std::max(r.widest, shape.width);
        }
        r.lines.emplace_back(line);
    }
    FUZZ_CHECK(!reader.failed());
    FUZZ_CHECK(!r.lines.empty()); // an empty text is one empty line
    r.encoding = reader.encoding();
    r.validUtf8 = reader.validUtf8();
    return r;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    // 1 to 16 bytes a read, or the whole file at once as a local disk gives it.
    const qint64 piece = data[0] < 128 ? 1 + data[0] % 16 : std::int64_t(1) << 30;
    QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    TrickleDevice device(bytes, piece);
    const FirstReading first = readFirst(device);
    using Encoding = TextLineReader::Encoding;
    if (first.encoding == Encoding::Sniff) {
        // The guess on the whole text agrees with Qt's own UTF-8 decoder.
        FUZZ_CHECK(first.validUtf8 ==
                   qtFindsValidUtf8(std::string_view(bytes.constData(), bytes.size())));
    }

    Encoding encoding = first.encoding;
    if (encoding == Encoding::Sniff)
        encoding = first.validUtf8 ? Encoding::Utf8 : Encoding::Latin1;
    device.seek(0);
    TextLineReader second(device, encoding);
    ImportPreview preview;
    const int fieldCount = static_cast<int>(std::min(first.widest, maxColumns));
    preview.beginFill(first.delimiter, fieldCount);
    std::string_view line;
    std::size_t lines = 0;
    while (second.next(line)) {
        FUZZ_CHECK(lines < first.lines.size());
        const std::string& raw = first.lines[lines];
        if (encoding == Encoding::Latin1) {
            // Each byte of the file is its own character.
            const QByteArray utf8 =
                QString::fromLatin1(raw.data(), static_cast<int>(raw.size())).toUtf8();
            FUZZ_CHECK(line == std::string_view(utf8.constData(), utf8.size()));
        } else {
            FUZZ_CHECK(line == raw);
        }
        if (first.encoding != Encoding::Utf8) // a UTF-8 mark is taken at its word
            FUZZ_CHECK(qtFindsValidUtf8(line));
        preview.addLine(line);
        ++lines;
    }
    preview.endFill();
    FUZZ_CHECK(!second.failed());
    FUZZ_CHECK(lines == first.lines.size());
    FUZZ_CHECK(preview.lastRowIndex() == static_cast<int>(lines) - 1);
    FUZZ_CHECK(preview.fieldCount() == fieldCount);
    FUZZ_CHECK(preview.columnCount() == (fieldCount == 0 ? 1 : fieldCount + 2));

    std::vector<std::string_view> fields;
    const int rows = static_cast<int>(lines);
    for (int row = 0; row < rows; ++row) {
        preview.rowFields(row, fields);
        FUZZ_CHECK(fields.size() == static_cast<std::size_t>(fieldCount));
        if (row >= checkedRows)
            continue;
        std::string converted = first.lines[static_cast<std::size_t>(row)];
        if (encoding == Encoding::Latin1)
            converted = QString::fromLatin1(converted.data(), static_cast<int>(converted.size()))
                            .toUtf8()
                            .toStdString();
        const std::vector<std::string_view> expected = plainFields(converted, first.delimiter);
        FUZZ_CHECK(preview.cellValueAt(row, 0) == QString::number(row + 1));
        for (int column = 1; column <= fieldCount; ++column) {
            const std::size_t i = static_cast<std::size_t>(column - 1);
            const std::string_view want = i < expected.size() ? expected[i] : std::string_view();
            FUZZ_CHECK(fields[i] == want);
            FUZZ_CHECK(fields[i] == trimAscii(fields[i]));
            FUZZ_CHECK(preview.cellValueAt(row, column) ==
                       QString::fromUtf8(want.data(), static_cast<int>(want.size())).trimmed());
        }
        FUZZ_CHECK(preview.cellValueAt(row, fieldCount + 1).isEmpty());
    }
    FUZZ_CHECK(preview.cellValueAt(rows, 0).isEmpty());
    preview.rowFields(rows, fields);
    FUZZ_CHECK(
        std::all_of(fields.begin(), fields.end(), [](std::string_view f) { return f.empty(); }));
    return 0;
}

#include "TextLineReader.h"

#include <QIODevice>
#include <QTextCodec>

#include <cstring>

namespace {

constexpr std::int64_t chunkSize = 256 * 1024;

bool startsWith(const char* data, std::int64_t size, const char* bom, int bomSize) {
    return size >= bomSize && std::memcmp(data, bom, static_cast<std::size_t>(bomSize)) == 0;
}

} // namespace

TextLineReader::TextLineReader(QIODevice& source, Encoding encoding)
    : device(source), enc(encoding), chunk(chunkSize) {}

TextLineReader::~TextLineReader() = default;

bool TextLineReader::fill() {
    if (atEnd || failed())
        return false;
    if (pos > 0) {
        buffer.erase(0, pos);
        pos = 0;
    }
    const std::int64_t n = device.read(chunk.data(), chunkSize);
    if (n < 0) {
        error = device.errorString();
        if (error.isEmpty())
            error = QStringLiteral("read error");
        return false;
    }
    if (n == 0) {
        atEnd = true;
        return false;
    }
    consumed += n;
    const char* data = chunk.data();
    std::int64_t size = n;
    if (!started) {
        started = true;
        if (enc != Encoding::Latin1 && startsWith(data, size, "\xEF\xBB\xBF", 3)) {
            data += 3, size -= 3;
            enc = Encoding::Utf8;
        } else if (startsWith(data, size, "\xFF\xFE", 2)) {
            data += 2, size -= 2;
            enc = Encoding::Utf16LE;
        } else if (startsWith(data, size, "\xFE\xFF", 2)) {
            data += 2, size -= 2;
            enc = Encoding::Utf16BE;
        }
        if (enc == Encoding::Utf16LE || enc == Encoding::Utf16BE)
            utf16.reset(QTextCodec::codecForName(enc == Encoding::Utf16LE ? "UTF-16LE" : "UTF-16BE")
                            ->makeDecoder(QTextCodec::IgnoreHeader));
    }
    append(data, size);
    return true;
}

void TextLineReader::append(const char* data, std::int64_t size) {
    const auto count = static_cast<std::size_t>(size);
    switch (enc) {
    case Encoding::Sniff:
        checkUtf8(reinterpret_cast<const unsigned char*>(data), size);
        buffer.append(data, count);
        break;
    case Encoding::Utf8:
        buffer.append(data, count);
        break;
    case Encoding::Latin1:
        buffer.reserve(buffer.size() + 2 * count);
        for (std::size_t i = 0; i < count; ++i) {
            const auto byte = static_cast<unsigned char>(data[i]);
            if (byte < 0x80) {
                buffer.push_back(static_cast<char>(byte));
            } else {
                buffer.push_back(static_cast<char>(0xC0 | (byte >> 6)));
                buffer.push_back(static_cast<char>(0x80 | (byte & 0x3F)));
            }
        }
        break;
    case Encoding::Utf16LE:
    case Encoding::Utf16BE: {
        const QByteArray utf8 = utf16->toUnicode(data, static_cast<int>(size)).toUtf8();
        buffer.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
        break;
    }
    }
}

void TextLineReader::checkUtf8(const unsigned char* data, std::int64_t size) {
    std::int64_t i = 0;
    while (i < size) {
        // Plain ASCII, eight bytes at a time: the common case in a file of numbers.
        if (utf8State == 0 && i + 8 <= size) {
            std::uint64_t word;
            std::memcpy(&word, data + i, 8);
            if ((word & 0x8080808080808080ull) == 0) {
                i += 8;
                continue;
            }
        }
        const unsigned byte = data[i++];
        if (byte >= 0x80)
            ++highBytes;
        if (utf8Broken)
            continue;
        if (utf8State == 0) {
            if (byte < 0x80)
                continue;
            utf8Lead = byte;
            utf8Seen = 0;
            if (byte >= 0xC2 && byte <= 0xDF)
                utf8State = 1;
            else if (byte >= 0xE0 && byte <= 0xEF)
                utf8State = 2;
            else if (byte >= 0xF0 && byte <= 0xF4)
                utf8State = 3;
            else
                utf8Broken = true;
            continue;
        }
        // The second byte's range rules out overlong forms, surrogates and code points past
        // U+10FFFF.
        unsigned low = 0x80, high = 0xBF;
        if (utf8Seen == 0) {
            if (utf8Lead == 0xE0)
                low = 0xA0;
            else if (utf8Lead == 0xED)
                high = 0x9F;
            else if (utf8Lead == 0xF0)
                low = 0x90;
            else if (utf8Lead == 0xF4)
                high = 0x8F;
        }
        if (byte < low || byte > high) {
            utf8Broken = true;
            utf8State = 0;
            continue;
        }
        ++utf8Seen;
        --utf8State;
    }
}

TextLineReader::Encoding TextLineReader::encodingOfSecondReading() const {
    if (enc != Encoding::Sniff)
        return enc;
    return validUtf8() ? Encoding::Utf8 : Encoding::Latin1;
}

bool TextLineReader::next(std::string_view& line) {
    for (;;) {
        const char* begin = buffer.data() + pos;
        const std::size_t available = buffer.size() - pos;
        const auto* lf = static_cast<const char*>(std::memchr(begin, '\n', available));
        const std::size_t beforeLf = lf ? static_cast<std::size_t>(lf - begin) : available;
        const auto* cr = static_cast<const char*>(std::memchr(begin, '\r', beforeLf));
        const char* end = cr ? cr : lf;
        if (end) {
            const bool lastByte = end + 1 == buffer.data() + buffer.size();
            // A CR at the end of what has been read may be the first half of CR LF.
            if (*end == '\r' && lastByte && !atEnd) {
                if (fill())
                    continue;
                if (failed())
                    return false;
                continue; // at the end now: the CR ends the last line
            }
            const auto length = static_cast<std::size_t>(end - begin);
            line = std::string_view(begin, length);
            const bool crLf = *end == '\r' && !lastByte && end[1] == '\n';
            pos += length + (crLf ? 2 : 1);
            handedOutAny = true;
            return true;
        }
        // No line end yet: all that is available belongs to one line.
        if (lineLimit != 0 && available > lineLimit) {
            error = QStringLiteral("a line is longer than %1 MiB").arg(lineLimit >> 20);
            return false;
        }
        if (!atEnd) {
            if (fill())
                continue;
            if (failed())
                return false;
            continue;
        }
        if (available > 0) {
            line = std::string_view(begin, available);
            pos = buffer.size();
            handedOutAny = true;
            return true;
        }
        if (!handedOutAny) {
            // An empty text still has one line, an empty one.
            handedOutAny = true;
            line = std::string_view();
            return true;
        }
        return false;
    }
}

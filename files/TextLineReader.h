#pragma once
// Reads a text file line by line, in chunks, as UTF-8, whatever the file's encoding:
//   - a UTF-8 byte-order mark is skipped; UTF-16 with a byte-order mark (either byte order)
//     is decoded;
//   - otherwise the bytes are UTF-8 if they all are valid UTF-8, and Latin-1 if not. That can
//     only be known at the end, so the first reading (encoding Sniff) hands out the raw bytes
//     and says at the end whether they were valid UTF-8; a second reading with the encoding
//     then known (Latin1) converts them. Since every line end and every delimiter the import
//     looks for is ASCII, the raw lines split exactly as the decoded ones do.
// Line ends are LF, CR LF and a lone CR. A line end at the very end of the text starts no
// further line, and an empty text is one empty line:
//   "a\nb\n" -> "a", "b"     "a\r\n\r\nb" -> "a", "", "b"     "" -> ""     "\n" -> ""
// NUL bytes and anything else are ordinary characters of their line. A line can be of any
// length; memory grows with the longest line, not with the file.

#include <QString>
#include <QTextDecoder>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QIODevice;

class TextLineReader {
public:
    enum class Encoding { Sniff, Utf8, Latin1, Utf16LE, Utf16BE };

    // Reads from the device's current position, which should be the start of the text.
    TextLineReader(QIODevice& source, Encoding encoding);
    ~TextLineReader();
    TextLineReader(const TextLineReader&) = delete;
    TextLineReader& operator=(const TextLineReader&) = delete;

    // The next line without its line end, valid until the next call; false at the end of the
    // text or when reading failed.
    bool next(std::string_view& line);

    // A line longer than this many bytes (0: no limit) ends the reading as failed: a reader that
    // must stay within bounded memory refuses such a line rather than hold it.
    void setLineLimit(std::size_t bytes) { lineLimit = bytes; }

    bool failed() const { return !error.isEmpty(); }
    QString errorString() const { return error; }
    // The encoding in use: a byte-order mark decides it at the first read; Sniff otherwise.
    Encoding encoding() const { return enc; }
    // After a whole first reading: the encoding that a second reading of the same text takes,
    // the byte-order mark's, else UTF-8 when every byte was valid UTF-8 and Latin-1 when not.
    Encoding encodingOfSecondReading() const;
    // With Sniff: every byte read so far was part of valid UTF-8.
    bool validUtf8() const { return utf8State == 0 && !utf8Broken; }
    // Bytes taken from the device so far.
    std::int64_t bytesRead() const { return consumed; }
    // Bytes of UTF-8 that the lines so far would take once decoded as Latin-1 rather than
    // as they are (each byte from 0x80 up becomes two).
    std::int64_t latin1Growth() const { return highBytes; }

private:
    bool fill(); // reads one more chunk into the buffer; false at the end or on failure
    void append(const char* data, std::int64_t size);
    void checkUtf8(const unsigned char* data, std::int64_t size);

    QIODevice& device;
    Encoding enc;
    std::unique_ptr<QTextDecoder> utf16;
    std::vector<char> chunk; // raw bytes of the last read
    std::string buffer;      // decoded text; what is not yet handed out starts at pos
    std::size_t pos = 0;
    std::size_t lineLimit = 0;
    bool atEnd = false;   // the device has no more to give
    bool started = false; // the first chunk (byte-order mark) has been seen
    bool handedOutAny = false;
    QString error;
    std::int64_t consumed = 0;
    std::int64_t highBytes = 0;
    int utf8State = 0;     // bytes still expected in the current UTF-8 sequence
    unsigned utf8Lead = 0; // the lead byte of that sequence, for the second byte's range
    int utf8Seen = 0;      // continuation bytes seen of that sequence
    bool utf8Broken = false;
};

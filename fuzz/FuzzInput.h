#pragma once
// Turning libFuzzer's bytes into the numbers and texts that the coordinate builders receive,
// and the checks that end a run with a report when a record breaks its own rules.

#include "coordinates/LatLon_UTM.h"
#include "coordinates/MessageBox.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// A property of a built record that failed: print it and abort, which libFuzzer reports as a
// crash and saves the input for.
#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition);     \
            std::abort();                                                                          \
        }                                                                                          \
    } while (0)

// The bytes of one run, consumed from the front.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    // The next eight bytes as a double, zero-padded past the end: every bit pattern reaches the
    // code, NaNs, infinities and subnormals included.
    double takeDouble() {
        unsigned char bytes[sizeof(double)] = {};
        const std::size_t n = size_ < sizeof bytes ? size_ : sizeof bytes;
        std::memcpy(bytes, data_, n);
        data_ += n;
        size_ -= n;
        double value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }

    // The rest as UTF-16 code units, little-endian, an odd last byte dropped. Decoded unit by
    // unit and never validated, so texts hold NULs and lone surrogates as a damaged file or
    // clipboard can.
    QString takeRestAsUtf16() {
        const std::size_t units = size_ / 2;
        QString text(static_cast<int>(units), Qt::Uninitialized);
        for (std::size_t i = 0; i < units; ++i)
            text[static_cast<int>(i)] =
                QChar(static_cast<ushort>(data_[2 * i] | (data_[2 * i + 1] << 8)));
        data_ += size_;
        size_ = 0;
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

// Text before and after the first line feed (U+000A); all of it is the first part when there
// is none.
inline void splitAtFirstLineFeed(const QString& text, QString& first, QString& second) {
    const int at = text.indexOf(QLatin1Char('\n'));
    if (at < 0) {
        first = text;
        second.clear();
        return;
    }
    first = text.left(at);
    second = text.mid(at + 1);
}

// The inverse projection reports bad zones through a message box; the fuzzer has no one to
// show them to, but counts them, since the builders promise a fixed number per failure.
class CountingMessageBox : public MessageBox {
public:
    void show(const QString&) override { ++shown; }
    int shown = 0;
};

// The same double, bit for bit (so NaN equals the same NaN and -0 differs from +0).
inline bool sameBits(double x, double y) {
    return std::memcmp(&x, &y, sizeof x) == 0;
}

// Fills bytes from the front of the input, zeros past its end: the choices a run makes before
// the text that follows them.
template <std::size_t N>
void takeChoiceBytes(const std::uint8_t*& data, std::size_t& size, std::uint8_t (&bytes)[N]) {
    for (std::uint8_t& x : bytes) {
        x = 0;
        if (size > 0) {
            x = *data++;
            --size;
        }
    }
}

// The lines of a text without a UTF-16 mark: one more than its line ends (CR LF counting once),
// less one when it ends with a line end.
inline std::int64_t countLines(const std::uint8_t* data, std::size_t size) {
    std::int64_t ends = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == '\n' || (data[i] == '\r' && !(i + 1 < size && data[i + 1] == '\n')))
            ++ends;
    }
    const bool endsWithLineEnd = size > 0 && (data[size - 1] == '\n' || data[size - 1] == '\r');
    return ends + 1 - (endsWithLineEnd ? 1 : 0);
}

inline bool startsWithUtf16Mark(const std::uint8_t* data, std::size_t size) {
    return size >= 2 &&
           ((data[0] == 0xFF && data[1] == 0xFE) || (data[0] == 0xFE && data[1] == 0xFF));
}

// As at application start: every conversion reads the default datum.
inline void makeDefaultDatum() {
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
}

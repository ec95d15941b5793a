#include "DMSTextMatch.h"

namespace {

bool isDigit(const QString& t, int i) {
    return i < t.size() && t[i].unicode() >= '0' && t[i].unicode() <= '9';
}
bool is(const QString& t, int i, char16_t c) {
    return i < t.size() && t[i].unicode() == c;
}

int endOfDigits(const QString& t, int i) {
    while (isDigit(t, i))
        ++i;
    return i;
}

// After minutes ending at z: an optional "'" then the mandatory blank. Returns the position
// after the blank, or -1.
int afterMinuteMark(const QString& t, int z) {
    if (is(t, z, u'\'') && is(t, z + 1, u' '))
        return z + 2;
    if (is(t, z, u' '))
        return z + 1;
    return -1;
}

void setGroup(DMSTextMatch& m, int group, int from, int to) {
    m.start[group] = from;
    m.length[group] = to - from;
}

// Tries a match whose degrees' digits start at b (with a minus sign at b - 1 when minus).
bool matchAt(const QString& t, int b, bool minus, DMSTextMatch& m) {
    const int runEnd = endOfDigits(t, b);
    int degreesEnd = -1, minutesStart = -1, minutesEnd = -1, afterBlank = -1;
    // The degrees take the whole run: an optional degree sign and blank may follow.
    int p = runEnd;
    if (is(t, p, u'\u00B0'))
        ++p;
    if (is(t, p, u' '))
        ++p;
    if (isDigit(t, p)) {
        const int z = endOfDigits(t, p);
        afterBlank = afterMinuteMark(t, z);
        if (afterBlank >= 0) {
            degreesEnd = runEnd;
            minutesStart = p;
            minutesEnd = z;
        }
    }
    // Otherwise the run's last digit is the minutes and the rest the degrees.
    if (afterBlank < 0 && runEnd - b >= 2) {
        afterBlank = afterMinuteMark(t, runEnd);
        if (afterBlank >= 0) {
            degreesEnd = runEnd - 1;
            minutesStart = runEnd - 1;
            minutesEnd = runEnd;
        }
    }
    if (afterBlank < 0)
        return false;

    const int matchStart = minus ? b - 1 : b;
    setGroup(m, 1, matchStart, degreesEnd);
    setGroup(m, 2, minutesStart, minutesEnd);
    // Seconds: digits, an optional point, digits; the group takes part even when empty.
    int q = endOfDigits(t, afterBlank);
    if (is(t, q, u'.'))
        q = endOfDigits(t, q + 1);
    setGroup(m, 3, afterBlank, q);
    if (is(t, q, u'"'))
        ++q;
    while (is(t, q, u' '))
        ++q;
    // The letter: any one character but a line feed; a surrogate pair is one character.
    if (q < t.size() && t[q] != QLatin1Char('\n')) {
        const bool pair = t[q].isHighSurrogate() && q + 1 < t.size() && t[q + 1].isLowSurrogate();
        const int width = pair ? 2 : 1;
        setGroup(m, 4, q, q + width);
        q += width;
    }
    setGroup(m, 0, matchStart, q);
    return true;
}

} // namespace

DMSTextMatch matchDMSText(const QString& t) {
    DMSTextMatch m;
    const int n = t.size();
    for (int i = 0; i < n; ++i) {
        if (is(t, i, u'-') && isDigit(t, i + 1)) {
            if (matchAt(t, i + 1, true, m))
                return m;
            i = endOfDigits(t, i + 1) - 1; // the run's inner starts can't match either
        } else if (isDigit(t, i)) {
            if (matchAt(t, i, false, m))
                return m;
            i = endOfDigits(t, i) - 1;
        }
    }
    return m;
}

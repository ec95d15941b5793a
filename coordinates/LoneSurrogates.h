#pragma once
// Pasted or imported text can hold half of a UTF-16 surrogate pair. The pattern engine refuses
// such a text as a whole; read as the replacement character it is just one more character
// that is not a digit, so the rest of the text is still read.

#include <QString>

inline QString withoutLoneSurrogates(QString text) {
    const int n = text.size();
    for (int i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < n && text.at(i + 1).isLowSurrogate()) {
            ++i; // a whole pair
        } else if (c.isSurrogate()) {
            text[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return text;
}

#pragma once
// Word processors and web pages turn " and ' into curly quotes; a DMS text pasted from them
// must read the same as one typed with plain quotes.

#include <QString>

// text with U+201D and U+201C as '"' and U+2019 as '\'', replaced in that order.
inline QString withPlainQuotes(QString text) {
    text.replace(QChar(0x201D), QLatin1Char('"'));
    text.replace(QChar(0x201C), QLatin1Char('"'));
    text.replace(QChar(0x2019), QLatin1Char('\''));
    return text;
}

#pragma once
// Failure reports show Qt strings as text instead of their bytes.

#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}

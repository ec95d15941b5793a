#pragma once
// Numbers as a person reads them off a label or a table cell, outside the notation patterns.
//
// plainDoubleText: the shortest text that reads back as the same double, with '.' whatever
// the locale: 0 -> "0", 15.5 -> "15.5", 0.1 + 0.2 -> "0.30000000000000004", 1e-7 -> "1e-07".
//
// Val: the number at the head of a cell, for sorting by a column. Leading blanks are skipped,
// a sign is taken (the locale's own minus sign too), digits with the locale's decimal separator
// and an exponent are read; whatever follows is ignored and a text without a number is 0.
//   "-33.50° S" -> -33.5    "151° 15' 0.0\" E" -> 151    "Home" -> 0    "12 Main St" -> 12

#include "NumberText.h"

#include <QString>
#include <QStringView>

QString plainDoubleText(double value);
void appendPlainDoubleText(QString& out, double value);
double Val(QStringView text, const NumberLocale& locale);

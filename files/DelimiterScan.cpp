#include "DelimiterScan.h"

#include <algorithm>

void DelimiterScan::addLine(std::string_view line) {
    const DelimitedLine::Shape shape = DelimitedLine::judge(line);
    if (shape.delimiter == DelimitedLine::noDelimiter)
        return;
    delim = shape.delimiter;
    widest = std::max(widest, shape.width);
}

int DelimiterScan::fieldCount() const {
    return static_cast<int>(std::min(widest, maxColumns));
}

QString DelimiterScan::tooWideMessage() {
    return QStringLiteral("Your text file has > 60 columns of data. You will only be able to "
                          "import data from the first 60 columns.");
}

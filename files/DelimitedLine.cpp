#include "DelimitedLine.h"

#include <algorithm>

namespace DelimitedLine {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

} // namespace

Shape judge(std::string_view line) {
    // Tab before comma before space: a tab file's fields may hold commas and blanks, a comma
    // file's fields blanks.
    if (line.find('\t') != std::string_view::npos)
        return {'\t', static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t')) + 1};
    if (line.find(',') != std::string_view::npos)
        return {',', static_cast<std::size_t>(std::count(line.begin(), line.end(), ',')) + 1};
    if (line.find(' ') == std::string_view::npos)
        return {};
    // Two fields by space, however many of them are empty: the width counts only the others.
    std::size_t width = 0;
    bool inField = false;
    for (char c : line) {
        const bool field = c != ' ';
        if (field && !inField)
            ++width;
        inField = field;
    }
    return {' ', width};
}

std::string_view trimmed(std::string_view text) {
    std::size_t begin = 0, end = text.size();
    while (begin < end && isBlank(text[begin]))
        ++begin;
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

void fieldsOf(std::string_view line, char delimiter, std::size_t fieldCount,
              std::vector<std::string_view>& out) {
    out.assign(fieldCount, std::string_view());
    forEachField(line, delimiter, fieldCount,
                 [&out](std::size_t i, std::string_view field) { out[i] = field; });
}

} // namespace DelimitedLine

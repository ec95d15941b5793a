#pragma once
// The import's rules for one line of delimited text (UTF-8 bytes). The delimiter is tab, comma
// or space, judged line by line in that order:
//   "1\t2,3"  -> tab, width 2          "12.5,-70.1" -> comma, width 2
//   "12.5  -70.1" -> space, width 2 (a run of spaces is one separator)
//   "12.5" -> no delimiter, no width   " 12.5" -> space, width 1
// With tab or comma every delimiter splits, and adjacent delimiters give empty fields that keep
// their place ("a,,b" -> "a", "", "b"); with space only the non-empty pieces count. There is no
// quoting: "\"a,b\"" is the two fields "\"a" and "b\"". Fields are trimmed of white space.

#include <cstddef>
#include <string_view>
#include <vector>

namespace DelimitedLine {

constexpr char noDelimiter = 0;

struct Shape {
    char delimiter = noDelimiter; // '\t', ',', ' ' or noDelimiter
    std::size_t width = 0;        // the line's number of fields by that delimiter
};

// The delimiter that this line names and its width; noDelimiter when no delimiter gives it two
// fields.
Shape judge(std::string_view line);

// The text without ASCII white space (blank, tab, CR, LF, VT, FF) at either end.
std::string_view trimmed(std::string_view text);

// Calls take(index, field) for each field of the line by the delimiter, trimmed, from index 0,
// for at most maxFields fields. noDelimiter gives no field.
template <class Take>
void forEachField(std::string_view line, char delimiter, std::size_t maxFields, Take&& take) {
    if (delimiter == noDelimiter || maxFields == 0)
        return;
    std::size_t index = 0, start = 0;
    for (;;) {
        const std::size_t end = line.find(delimiter, start);
        const std::string_view field = line.substr(
            start, end == std::string_view::npos ? std::string_view::npos : end - start);
        if (delimiter != ' ' || !field.empty()) {
            take(index, trimmed(field));
            if (++index == maxFields)
                return;
        }
        if (end == std::string_view::npos)
            return;
        start = end + 1;
    }
}

// The fields of a line as columns 1 to fieldCount of a row, at indexes 0 to fieldCount - 1:
// a line with fewer fields leaves its last columns empty, and fields past fieldCount have no
// column.
void fieldsOf(std::string_view line, char delimiter, std::size_t fieldCount,
              std::vector<std::string_view>& out);

} // namespace DelimitedLine

#pragma once
// A line's fields as a plain reader splits them, written without the import's code: at every
// tab or comma, or at runs of blanks. The reference that the real files are read back against.

#include <sstream>
#include <string>
#include <vector>

inline std::vector<std::string> plainFields(const std::string& line, char delimiter) {
    std::vector<std::string> fields;
    std::istringstream in(line);
    for (std::string field;
         delimiter == ' ' ? bool(in >> field) : bool(std::getline(in, field, delimiter));)
        fields.push_back(field);
    return fields;
}

#include "ImportRowBuilder.h"

#include "coordinates/generalModule.h"

namespace {

QString cellText(std::string_view cell) {
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size())).trimmed();
}

// The number a cell's text reads as, and whether it is all of the text. Short ASCII cells,
// nearly every cell of a coordinates file, are read without making a string.
double cellNumber(std::string_view cell, const NumberLocale& locale, bool& whole) {
    constexpr std::size_t shortCell = 64;
    if (cell.size() <= shortCell) {
        char16_t wide[shortCell];
        bool ascii = true;
        for (std::size_t i = 0; i < cell.size() && ascii; ++i) {
            const auto byte = static_cast<unsigned char>(cell[i]);
            ascii = byte < 0x80;
            wide[i] = byte;
        }
        if (ascii)
            return ToDouble(QStringView(wide, static_cast<qsizetype>(cell.size())), locale, whole);
    }
    return ToDouble(cellText(cell), locale, whole);
}

} // namespace

void ImportRowBuilder::MessagesOnce::show(const QString& text) {
    ++count;
    if (shown.contains(text))
        return;
    shown << text;
    target.show(text);
}

ImportRowBuilder::ImportRowBuilder(const ImportColumns& chosen, const NumberLocale& numberLocale,
                                   MessageBox& shownBy)
    : columns(chosen), locale(numberLocale), messages(shownBy) {}

VertexRef ImportRowBuilder::build(const std::vector<std::string_view>& fields) {
    return buildChecked(fields, nullptr);
}

VertexRef ImportRowBuilder::build(const std::vector<std::string_view>& fields,
                                  Unreadable& unreadable) {
    unreadable = Unreadable::None;
    return buildChecked(fields, &unreadable);
}

VertexRef ImportRowBuilder::buildChecked(const std::vector<std::string_view>& fields,
                                         Unreadable* unreadable) {
    const auto cell = [&fields](int column) {
        return column >= 1 && column <= static_cast<int>(fields.size())
                   ? fields[static_cast<std::size_t>(column - 1)]
                   : std::string_view();
    };
    const auto mark = [unreadable](bool readable, Unreadable which) {
        if (!readable && *unreadable == Unreadable::None)
            *unreadable = which;
    };
    bool lonWhole = true, latWhole = true;
    VertexRef v;
    if (columns.notation == ImportColumns::DMS) {
        const QString lonText = cellText(cell(columns.lonEast));
        const QString latText = cellText(cell(columns.latNorth));
        v = generalModule::vertexFromDMS(lonText, latText);
        if (unreadable) {
            mark(generalModule::isDMSText(lonText), Unreadable::LonEast);
            mark(generalModule::isDMSText(latText), Unreadable::LatNorth);
        }
    } else {
        const double lonEast = cellNumber(cell(columns.lonEast), locale, lonWhole);
        const double latNorth = cellNumber(cell(columns.latNorth), locale, latWhole);
        const int shownBefore = messages.count;
        if (columns.notation == ImportColumns::UTM)
            v = generalModule::vertexFromUTM(lonEast, latNorth, cellText(cell(columns.zone)),
                                             messages);
        else
            v = generalModule::vertexFromDD(lonEast, latNorth);
        if (unreadable) {
            mark(lonWhole, Unreadable::LonEast);
            mark(latWhole, Unreadable::LatNorth);
            mark(messages.count == shownBefore, Unreadable::Zone);
        }
    }
    if (columns.label >= 1)
        v->label = cellText(cell(columns.label));
    // Imported locations count as recorded: there is nothing to prompt about.
    v->saved = true;
    return v;
}

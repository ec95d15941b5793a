#pragma once
// One line of a delimited text to one location, as OK in the import window makes it. The cells
// of the chosen columns go to the builder of the notation: decimal degrees and UTM metres are
// read by the leading-number rule (a blank cell or a word is 0, so a blank line in decimal
// degrees is a location at 0, 0), DMS and zone texts by the builders' own patterns. The label
// cell becomes the label, and the location counts as recorded. A zone the builder can't read
// shows its messages once for all the lines, not once per line.
//
// The import window and geoquill-convert both build their locations here.

#include "ImportColumns.h"
#include "coordinates/MessageBox.h"
#include "coordinates/NumberText.h"
#include "coordinates/Vertex.h"

#include <QStringList>

#include <string_view>
#include <vector>

class ImportRowBuilder {
public:
    // The first cell of a line that does not hold what its column is chosen for.
    enum class Unreadable {
        None,
        LonEast,  // not a whole number (DD, UTM) or not a DMS text with its letter (DMS)
        LatNorth, // the same
        Zone,     // a zone the UTM builder can't read
    };

    // messages: where a zone the builder can't read is told.
    ImportRowBuilder(const ImportColumns& columns, const NumberLocale& locale,
                     MessageBox& messages);

    // fields: the line's columns 1 to n at indexes 0 to n - 1 (DelimitedLine::fieldsOf); a
    // column past them is an empty cell.
    VertexRef build(const std::vector<std::string_view>& fields);
    // The same location, and whether each coordinate cell read whole as what its column holds:
    // "45.5 N" gives 45.5 in decimal degrees but is not a number.
    VertexRef build(const std::vector<std::string_view>& fields, Unreadable& unreadable);

private:
    // Forwards each text once, and counts every showing, so that a row knows its zone failed.
    class MessagesOnce : public MessageBox {
    public:
        explicit MessagesOnce(MessageBox& shownBy) : target(shownBy) {}
        void show(const QString& text) override;
        int count = 0;

    private:
        MessageBox& target;
        QStringList shown;
    };

    VertexRef buildChecked(const std::vector<std::string_view>& fields, Unreadable* unreadable);

    ImportColumns columns;
    NumberLocale locale;
    MessagesOnce messages;
};

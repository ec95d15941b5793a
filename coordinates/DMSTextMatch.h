#pragma once
// The first match of the sexagesimal pattern of the import,
//     (-?\d+)°? ?(\d+)'? (\d*\.?\d*)?"? *(.)?
// found as an unanchored, backtracking regular-expression search finds it, but in linear time.
// A general engine tries every digit of a long run as a start and every split of the run
// between degrees and minutes, which takes seconds on texts such as 64,000 digits and "X ".
//
// Why the shortcut is exact: after the mandatory blank everything is optional, so a match
// exists where the part up to the blank matches. Minutes shorter than their whole run are
// followed by a digit, never by "'" or the blank, so only a run's full length can end the
// minutes; and a start inside a run of digits can only match if the run's head matches too.
// A differential test holds this against QRegularExpression.

#include <QString>

struct DMSTextMatch {
    // Start and length of each group in the text; start -1 for a group that took no part.
    // Group 1 degrees (with a minus sign), 2 minutes, 3 seconds, 4 hemisphere letter.
    int start[5] = {-1, -1, -1, -1, -1};
    int length[5] = {0, 0, 0, 0, 0};

    bool found() const { return start[0] >= 0; }
    bool took(int group) const { return start[group] >= 0; }
    QStringView captured(const QString& text, int group) const {
        return took(group) ? QStringView(text).mid(start[group], length[group]) : QStringView();
    }
};

DMSTextMatch matchDMSText(const QString& text);

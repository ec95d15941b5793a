// The linear-time reader of DMS texts against the regular-expression engine it stands in for:
// the same match, group by group, on every kind of text.

#include "coordinates/DMSTextMatch.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace {

void expectSameMatch(const QString& text) {
    static const QRegularExpression reference(
        QStringLiteral("(-?\\d+)°? ?(\\d+)'? (\\d*\\.?\\d*)?\"? *(.)?"));
    const QRegularExpressionMatch expected = reference.match(text);
    const DMSTextMatch actual = matchDMSText(text);
    ASSERT_EQ(actual.found(), expected.hasMatch()) << text.toStdString();
    for (int g = 0; g <= 4 && expected.hasMatch(); ++g) {
        EXPECT_EQ(actual.start[g], expected.capturedStart(g)) << text.toStdString() << " " << g;
        if (expected.capturedStart(g) >= 0) {
            EXPECT_EQ(actual.length[g], expected.capturedLength(g)) << text.toStdString() << g;
        }
    }
}

TEST(DMSText, AgreesWithTheEngine) {
    // Split at '|': a line feed is no letter, a carriage return is one; the second run
    // matches; the letter took half of a surrogate pair; the empty text.
    for (const QString& text : QString::fromUtf8("45° 30' 15.5\" N|-0° 10' 01\" E|45 N|45°30'15\"N|"
                                                 "abc -12 5 x|--5 6 W|12 30 5\n|12 30 5\r|"
                                                 "1x 22 33 S|45 30 \xF0\x9F\x8C\x8D|")
                                   .split('|'))
        expectSameMatch(text);
    // Random texts over the characters the pattern cares about reach every path of the
    // backtracking engine many times.
    const char16_t alphabet[] = {u'0',  u'1', u'9', u'-', u'\u00B0', u' ', u' ',
                                 u'\'', u'"', u'.', u'N', u'x',      u'\n'};
    std::mt19937_64 random(20261123);
    std::uniform_int_distribution<int> pick(0, int(std::size(alphabet)) - 1), length(0, 14);
    for (int i = 0; i < 200000 && !testing::Test::HasFailure(); ++i) {
        QString text;
        for (int k = length(random); k > 0; --k)
            text += QChar(alphabet[pick(random)]);
        expectSameMatch(text);
    }
}

} // namespace

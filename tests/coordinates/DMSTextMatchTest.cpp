// The linear-time reader of the import's DMS texts against the regular-expression engine it
// stands in for: the same match, group by group, on every kind of text.

#include "coordinates/DMSTextMatch.h"
#include "coordinates/generalModule.h"
#include "notation/NotationParse.h"
#include "support/RecordingMessageBox.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace {

const QRegularExpression& referencePattern() {
    static const QRegularExpression re(
        QStringLiteral("(-?\\d+)°? ?(\\d+)'? (\\d*\\.?\\d*)?\"? *(.)?"));
    return re;
}

void expectSameMatch(const QString& text) {
    const QRegularExpressionMatch expected = referencePattern().match(text);
    const DMSTextMatch actual = matchDMSText(text);
    ASSERT_EQ(actual.found(), expected.hasMatch()) << text.toStdString();
    if (!expected.hasMatch())
        return;
    for (int g = 0; g <= 4; ++g) {
        EXPECT_EQ(actual.start[g], expected.capturedStart(g))
            << text.toStdString() << " group " << g;
        if (expected.capturedStart(g) >= 0) {
            EXPECT_EQ(actual.length[g], expected.capturedLength(g))
                << text.toStdString() << " group " << g;
        }
    }
}

struct NamedText {
    const char* name;
    const char* text;
};

class DMSTextMatchExamples : public testing::TestWithParam<NamedText> {};

TEST_P(DMSTextMatchExamples, AgreesWithTheEngine) {
    expectSameMatch(QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    DMSText, DMSTextMatchExamples,
    testing::Values(NamedText{"full", "45° 30' 15.5\" N"}, NamedText{"plain", "45 30 15.5 N"},
                    NamedText{"negative", "-0° 10' 01\" E"},
                    NamedText{"digits_split_between_degrees_and_minutes", "45 N"},
                    NamedText{"no_letter", "45° 30' 15\""},
                    NamedText{"no_blank_after_minutes", "45°30'15\"N"},
                    NamedText{"leading_junk", "abc -12 5 x"}, NamedText{"double_minus", "--5 6 W"},
                    NamedText{"line_feed_is_no_letter", "12 30 5\n"},
                    NamedText{"carriage_return_is_a_letter", "12 30 5\r"},
                    NamedText{"second_run_matches", "1x 22 33 S"},
                    // The letter group took half of a surrogate pair.
                    NamedText{"letter_outside_the_basic_plane", "45 30 \xF0\x9F\x8C\x8D"},
                    NamedText{"empty", ""}),
    [](const auto& row) { return std::string(row.param.name); });

// Random texts over the characters the pattern cares about: every path of the backtracking
// engine is reached many times.
TEST(DMSText, AgreesWithTheEngineOnRandomTexts) {
    const char16_t alphabet[] = {u'0',  u'1', u'9', u'-', u'\u00B0', u' ', u' ',
                                 u'\'', u'"', u'.', u'N', u'x',      u'\n'};
    std::mt19937_64 random(20261123);
    std::uniform_int_distribution<int> pick(0, static_cast<int>(std::size(alphabet)) - 1);
    std::uniform_int_distribution<int> length(0, 14);
    for (int i = 0; i < 200000; ++i) {
        QString text;
        const int n = length(random);
        for (int k = 0; k < n; ++k)
            text += QChar(alphabet[pick(random)]);
        expectSameMatch(text);
        if (testing::Test::HasFailure())
            return;
    }
}

// A long run of digits followed by text that defeats the match took an engine seconds.
TEST(DMSText, LongDigitRunsAreReadWithoutBacktracking) {
    const QString hostile = QString(64000, QLatin1Char('1')) + QStringLiteral("X ");
    EXPECT_FALSE(matchDMSText(hostile).found());
    const QString late = QString(64000, QLatin1Char('1')) + QStringLiteral("X 12 30 N");
    const DMSTextMatch m = matchDMSText(late);
    ASSERT_TRUE(m.found());
    EXPECT_EQ(m.captured(late, 1), QStringLiteral("12"));
    EXPECT_EQ(m.captured(late, 4), QStringLiteral("N"));
}

// A lone surrogate made the pattern engine refuse the whole zone text: the zone was lost.
TEST(ZoneText, LoneSurrogateIsJustAnotherCharacter) {
    RecordingMessageBox box;
    const QString zone = QStringLiteral("32") + QChar(0xD800);
    const VertexRef v = generalModule::vertexFromUTM(500000, 4982950.4, zone, box);
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_EQ((*v->utmZ)[1], 32);
    EXPECT_NEAR(v->lat, 45, 1e-6);
}

// The same in a notation field: the engine's refusal was shown as a failed search.
TEST(ZoneText, LoneSurrogateInATypedTextIsNoFailedSearch) {
    const QString typed = QChar(0xDC00) + QStringLiteral("45.5 9.25");
    const ParsedPosition p = parseDDText(typed, true, NumberLocale());
    EXPECT_FALSE(p.searchFailed);
    EXPECT_EQ(p.lat, 45.5);
}

} // namespace

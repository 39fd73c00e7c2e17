#include "Platform/Foundation/TextMatcher.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

/// A letter that no short cut knows: with it behind, a text is looked at in full.
constexpr QChar kLetterBeyondTheTable = u'\u0436';

struct MatchCase
{
    const char *name;
    const char *locale;
    QString wanted;
    QString text;
    bool isIn;
};

class TextMatcherTest : public testing::TestWithParam<MatchCase>
{
};

TEST_P(TextMatcherTest, FindsByTheRulesOfTheLanguage)
{
    const TextMatcher matcher(GetParam().wanted, Locale::fromIdentifier(QLatin1String(GetParam().locale)));
    EXPECT_EQ(matcher.isIn(GetParam().text), GetParam().isIn);
    EXPECT_EQ(matcher.isIn(GetParam().text + kLetterBeyondTheTable), GetParam().isIn);
}

INSTANTIATE_TEST_SUITE_P(Rows, TextMatcherTest,
    testing::Values(MatchCase { "UpperInLower", "en_GB", u"DENT"_qs, u"the dentist"_qs, true },
        MatchCase { "LowerInUpper", "en_GB", u"dent"_qs, u"THE DENTIST"_qs, true },
        MatchCase { "Absent", "en_GB", u"doctor"_qs, u"the dentist"_qs, false },
        MatchCase { "AtTheVeryEnd", "en_GB", u"tist"_qs, u"the dentist"_qs, true },
        MatchCase { "LongerThanTheText", "en_GB", u"dentists"_qs, u"dentist"_qs, false },
        MatchCase { "NothingIsInAll", "en_GB", u""_qs, u"dentist"_qs, true },
        MatchCase { "NothingIsInNothing", "en_GB", u""_qs, u""_qs, true },
        MatchCase { "SomethingIsNotInNothing", "en_GB", u"d"_qs, u""_qs, false },
        MatchCase { "Dash", "en_GB", u"9\u201310"_qs, u"room 9\u201310"_qs, true },
        MatchCase { "SpacesThatAreTheSame", "en_GB", u"a\u2000b"_qs, u"A\u2002B"_qs, true },
        MatchCase { "AccentOfOtherCase", "it_IT", u"CAFF\u00c8"_qs, u"un caff\u00e8"_qs, true },
        MatchCase { "AccentCounts", "it_IT", u"caffe"_qs, u"un caff\u00e8"_qs, false },
        MatchCase { "AccentApartInTheText", "it_IT", u"caff\u00c8"_qs, u"un CAFFE\u0300"_qs, true },
        MatchCase { "AccentApartInWhatIsWanted", "it_IT", u"caffe\u0300"_qs, u"un CAFF\u00c8"_qs, true },
        MatchCase { "LetterWithoutItsMark", "it_IT", u"caffe"_qs, u"caffe\u0300"_qs, false },
        MatchCase { "MarksInEitherOrder", "vi_VN", u"q\u0323\u0307"_qs, u"Q\u0307\u0323"_qs, true },
        MatchCase { "SharpSAsTwo", "de_DE", u"STRASSE"_qs, u"Lange Stra\u00dfe"_qs, true },
        MatchCase { "TwoAsSharpS", "de_DE", u"ma\u00df"_qs, u"MASSE"_qs, true },
        MatchCase { "CapitalSharpS", "de_DE", u"MA\u1e9eE"_qs, u"ma\u00dfe"_qs, true },
        MatchCase { "FinalSigmaInTheText", "el_GR", u"\u039b\u039f\u0393\u039f\u03a3"_qs,
            u"\u03bb\u03bf\u03b3\u03bf\u03c2"_qs, true },
        MatchCase { "FinalSigmaInTheMiddle", "el_GR", u"\u03bb\u03bf\u03c2"_qs, u"\u039b\u039f\u03a3\u0391"_qs, true },
        MatchCase { "TurkishDottedI", "tr_TR", u"istanbul"_qs, u"\u0130STANBUL"_qs, true },
        MatchCase { "TurkishDotlessI", "tr_TR", u"\u0131\u011fd\u0131r"_qs, u"I\u011eDIR"_qs, true },
        MatchCase { "TurkishTellsThemApart", "tr_TR", u"irmak"_qs, u"IRMAK"_qs, false },
        MatchCase { "AzerbaijaniToo", "az_AZ", u"irmak"_qs, u"IRMAK"_qs, false },
        MatchCase { "ElsewhereOneI", "en_GB", u"irmak"_qs, u"IRMAK"_qs, true },
        MatchCase { "LanguageThatOnlyBeginsAsTurkish", "trv_TW", u"irmak"_qs, u"IRMAK"_qs, true },
        MatchCase { "SurrogatePairOfOtherCase", "en_GB", u"\U00010400"_qs, u"a \U00010428"_qs, true },
        MatchCase { "Emoji", "en_GB", u"\U0001f382"_qs, u"Tom \U0001f382"_qs, true },
        MatchCase { "EmojiOfTheSameFirstHalf", "en_GB", u"\U0001f382"_qs, u"Tom \U0001f383"_qs, false }),
    kRowName);

/// The short cuts are for the first blocks of letters and for punctuation.
TEST(TextMatcher, ShortCutsAgreeWithTheFullLook)
{
    for (const char *locale : { "en_GB", "tr_TR" }) {
        for (int unit = 1; unit < 0x2100; unit = unit == 0x3ff ? 0x1f00 : unit + 1) {
            const QString letter = QChar(static_cast<char16_t>(unit));
            const TextMatcher matcher(letter, Locale::fromIdentifier(QLatin1String(locale)));
            EXPECT_TRUE(matcher.isIn(letter)) << locale << " U+" << std::hex << unit;
            EXPECT_TRUE(matcher.isIn(letter + kLetterBeyondTheTable)) << locale << " U+" << std::hex << unit;
        }
    }
}

} // namespace
} // namespace mintaro

#include "clues/gridlanguage.h"
#include "fill/wordlist.h"
#include "model/cp1252.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

constexpr int English = 0, French = 1, Spanish = 2, German = 4, Danish = 7, Multilingual = 8;

int scoreOf(const TWordList &list, const QString &word)
{
    const int at = list.find(View(ToCp1252(word)));
    return at < 0 ? -1 : list.score(at);
}

}  // namespace

struct NormalisationCase {
    const char *what;
    int language;
    const char16_t *word;
    const char16_t *expected;
};

class WordNormalisation : public ::testing::TestWithParam<NormalisationCase> {};

TEST_P(WordNormalisation, BringsTheWordIntoTheGridLanguage)
{
    const NormalisationCase &c = GetParam();
    EXPECT_EQ(FromCp1252(NormaliseWord(QString::fromUtf16(c.word), c.language)), QString::fromUtf16(c.expected)) << "\"\" leaves it out";
}

INSTANTIATE_TEST_SUITE_P(
    Languages, WordNormalisation,
    ::testing::Values(
        NormalisationCase{"English_upper_cases_and_drops_apostrophes", English, u"o'clock", u"OCLOCK"},
        NormalisationCase{"English_drops_hyphens_spaces_and_curly_apostrophes", English, u"ice-cream man’s", u"ICECREAMMANS"},
        NormalisationCase{"English_reduces_accents", English, u"café", u"CAFE"},
        NormalisationCase{"English_spells_out_ligatures", English, u"Œuvre", u"OEUVRE"},
        NormalisationCase{"French_keeps_E_acute", French, u"été", u"ÉTÉ"},
        NormalisationCase{"French_reduces_E_circumflex", French, u"fête", u"FETE"},
        NormalisationCase{"French_keeps_C_cedilla", French, u"garçon", u"GARÇON"},
        NormalisationCase{"Spanish_keeps_N_tilde", Spanish, u"año", u"AÑO"},
        NormalisationCase{"German_keeps_sharp_s_and_umlauts", German, u"Straße", u"STRAßE"},
        NormalisationCase{"German_umlauts_become_capitals", German, u"größe", u"GRÖßE"},
        NormalisationCase{"English_doubles_sharp_s", English, u"Straße", u"STRASSE"},
        NormalisationCase{"Danish_keeps_AE_O_slash_A_ring", Danish, u"blåbærgrød", u"BLÅBÆRGRØD"},
        NormalisationCase{"German_reduces_A_ring", German, u"Ångström", u"ANGSTRÖM"},
        NormalisationCase{"Multilingual_keeps_S_caron", Multilingual, u"šilo", u"ŠILO"},
        NormalisationCase{"Digits_leave_the_word_out", English, u"R2D2", u""},
        NormalisationCase{"Periods_leave_the_word_out", English, u"e.g.", u""},
        NormalisationCase{"Greek_leaves_the_word_out", English, u"λόγος", u""},
        NormalisationCase{"One_letter_is_too_short", English, u"a", u""},
        NormalisationCase{"Twenty_three_letters_fit", English, u"abcdefghijklmnopqrstuvw", u"ABCDEFGHIJKLMNOPQRSTUVW"},
        NormalisationCase{"Twenty_four_letters_do_not", English, u"abcdefghijklmnopqrstuvwx", u""}),
    [](const auto &info) { return std::string(info.param.what); });

TEST(WordListFiles, ReadScoresAndReportMalformedLinesByNumber)
{
    // Lines 4 and 5 are malformed; x2 is left out.
    const TReadList read = ParseWordList("apple;80\nbanana\n\ncherry;101\n;40\ndates ; 7 \r\nx2;90\nAPPLE;30\n", English);
    EXPECT_EQ(read.Words.size(), 3);
    EXPECT_EQ(scoreOf(read.Words, "APPLE"), 80) << "a word twice in one list keeps its better score";
    EXPECT_EQ(scoreOf(read.Words, "BANANA"), PlainWordScore);
    EXPECT_EQ(scoreOf(read.Words, "DATES"), 7);
    ASSERT_EQ(read.Problems.size(), 2);
    EXPECT_EQ(std::pair(read.Problems[0].Line, read.Problems[1].Line), std::pair(4, 5));
    EXPECT_EQ(read.LeftOut, 1);
}

TEST(WordListFiles, ReadUtf8AndWindows1252Alike)
{
    const QByteArray utf8 = QStringLiteral("crème;60\n").toUtf8();
    const QByteArray cp1252 = ToCp1252(QStringLiteral("crème;60\n"));
    for (const QByteArray &bytes : {utf8, QByteArray("\xEF\xBB\xBF") + utf8, cp1252}) {
        const TReadList read = ParseWordList(bytes, French);
        EXPECT_EQ(scoreOf(read.Words, QStringLiteral("CRÈME")), 60) << bytes.toHex().toStdString();
    }
    EXPECT_TRUE(ParseWordList(QByteArray("abc\0def", 7), English).Unreadable);
}

TEST(WordListMerging, TheFirstListWithAWordGivesItsScore)
{
    TScratchDir dir;
    WriteFileBytes(dir.path("first.txt"), "apple;90\nbanana;20\n");
    WriteFileBytes(dir.path("second.txt"), "banana;70\ncherry;10\nplum;60\n");
    WriteFileBytes(dir.path("personal.txt"), "grape;99\n-plum\n");
    TWordListConfig config;
    config.Sources = {{dir.path("first.txt")}, {dir.path("off.txt"), false}, {dir.path("second.txt")},
                      {dir.path("missing.txt")}};
    config.PersonalPath = dir.path("personal.txt");
    config.MinScore = 15;
    const TLoadedWords loaded = LoadWordLists(config);
    EXPECT_EQ(scoreOf(loaded.Words, "BANANA"), 20);
    EXPECT_EQ(scoreOf(loaded.Words, "APPLE"), 90);
    EXPECT_EQ(scoreOf(loaded.Words, "GRAPE"), 99) << "added personal words";
    EXPECT_EQ(scoreOf(loaded.Words, "PLUM"), -1) << "excluded personal words";
    EXPECT_EQ(scoreOf(loaded.Words, "CHERRY"), -1) << "below the minimum score";
    EXPECT_EQ(loaded.Words.size(), 3);
    EXPECT_EQ(loaded.Unreadable, QStringList{dir.path("missing.txt")}) << "a switched-off list is not read";
    ASSERT_EQ(loaded.Problems.size(), 1);
    EXPECT_TRUE(loaded.Problems[0].startsWith("missing.txt: ")) << loaded.Problems[0].toStdString();
}

TEST(WordListMerging, PersonalListRoundTrips)
{
    TScratchDir dir;
    const TPersonalList list{{{QStringLiteral("Ärger"), 77}}, {QStringLiteral("crud")}};
    ASSERT_TRUE(WritePersonalList(dir.path("sub/personal.txt"), list));
    const TPersonalList back = ReadPersonalList(dir.path("sub/personal.txt"));
    ASSERT_EQ(back.Added.size(), 1);
    EXPECT_EQ(std::pair(back.Added[0].Word, back.Added[0].Score), std::pair(QStringLiteral("Ärger"), 77));
    EXPECT_EQ(back.Excluded, QStringList{QStringLiteral("crud")});
}

// The installed default lists: each is there and every word is inside its language's letters.
class DefaultWordLists : public ::testing::TestWithParam<int> {};

TEST_P(DefaultWordLists, AreInstalledAndHoldOnlyTheLanguagesLetters)
{
    const int language = GetParam();
    const TWordList &words = DefaultWordList(language);
    ASSERT_GT(words.size(), 50000);
    TCharSet letters = GridCharSetFor(language);
    for (int control : {8, 13, 32, 43})
        letters.reset(size_t(control));
    int outside = 0;
    for (int i = 0; i < words.size(); ++i) {
        const std::string_view w = words.word(i);
        bool inside = w.size() >= MinWordLength && w.size() <= MaxWordLength;
        for (char c : w)
            inside = inside && letters.test(uint8_t(c));
        outside += inside ? 0 : 1;
        EXPECT_LE(words.score(i), MaxWordScore);
    }
    EXPECT_EQ(outside, 0);
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, DefaultWordLists, ::testing::Range(0, GridLanguageCount),
                         [](const auto &info) { return GridLanguageName(info.param).toStdString(); });

TEST(DefaultWordLists, EnglishScoresCommonWordsAboveRareOnes)
{
    const TWordList &words = DefaultWordList(English);
    EXPECT_GT(scoreOf(words, "HOUSE"), scoreOf(words, "ABACUS"));
    EXPECT_GT(scoreOf(words, "ABACUS"), 0);
    EXPECT_GT(scoreOf(words, "DONT"), 0) << "contractions lose their apostrophe";
}

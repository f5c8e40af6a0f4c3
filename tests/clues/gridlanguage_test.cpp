#include "clues/gridlanguage.h"

#include <gtest/gtest.h>

#include <utility>

TEST(GridLanguages, EveryLanguageAdmitsTheBaseSetAndAccentedCapitalsFollowTheLanguage)
{
    for (int language = 0; language < GridLanguageCount; ++language) {
        const TCharSet set = GridCharSetFor(language);
        for (int code : {8, 13, 32, 43, int('A'), int('M'), int('Z')})
            EXPECT_TRUE(set.test(code)) << language << " " << code;
        for (int code : {int('a'), int('z'), int('?'), 0, 7, 233})
            EXPECT_FALSE(set.test(code)) << language << " " << code;
        const bool eAcute = language == 1 || language == 2 || language == 3 || language == 8;
        EXPECT_EQ(set.test(201), eAcute) << GridLanguageName(language).toStdString() << " É";
    }
    EXPECT_TRUE(GridCharSetFor(4).test(196) && GridCharSetFor(4).test(223)) << "German Ä and ß";
    EXPECT_FALSE(GridCharSetFor(4).test(228)) << "but not ä";
    EXPECT_EQ(GridCharSetFor(6), GridCharSetFor(7)) << "Norwegian and Danish admit the same letters";
    EXPECT_TRUE(GridCharSetFor(8).test(138)) << "Multilingual: Š";
    EXPECT_FALSE(GridCharSetFor(8).test(215) || GridCharSetFor(8).test(222)) << "multiplication sign, thorn";
    EXPECT_EQ(GridCharSetFor(8).count(), GridCharSetFor(0).count() + 33);
}

TEST(GridLanguages, NamesSuffixesAndParsing)
{
    EXPECT_EQ(GridLanguageName(0), "English");
    EXPECT_EQ(GridLanguageName(9), "");
    EXPECT_EQ(GridLanguageSuffix(0), "");
    EXPECT_EQ(GridLanguageSuffix(5), " (Swedish)");
    for (const auto &[text, language] : {std::pair{"french", 1}, {"8", 8}, {"9", -1}, {"Klingon", -1}})
        EXPECT_EQ(ParseGridLanguage(text), language) << text;
}

TEST(GridLanguages, AChoiceLeavesOneDigitInTheLastClueSlot)
{
    TPuzzle p;
    MarkLanguageChoice(p, 4);
    MarkLanguageChoice(p, 7);
    EXPECT_EQ(p.clue(ClueSlots), QByteArray("7"));
    p.setClue(ClueSlots, QByteArray(80, 'x'));
    MarkLanguageChoice(p, 2);
    EXPECT_EQ(p.clue(ClueSlots), QByteArray(79, 'x') + "2");
    EXPECT_EQ(p.clue(ClueSlots - 1), QByteArray()) << "no word's clue is touched";
}

#include "model/cp1252.h"

#include <utility>

#include <gtest/gtest.h>

TEST(Cp1252, EveryCodeRoundTripsThroughUnicode)
{
    QByteArray all;
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(UnicodeToCp1252(Cp1252ToUnicode(uint8_t(code))), code) << code;
        all.append(char(code));
    }
    EXPECT_EQ(ToCp1252(FromCp1252(all)), all);
}

TEST(Cp1252, TheHighRangeMapsToTypographicCharacters)
{
    // Euro, ellipsis, S caron, left double quote, trade mark, Y diaeresis, E acute, and the
    // black-square byte, which is a letter too.
    for (const auto &[code, unicode] : {std::pair{0x80, 0x20AC}, {0x85, 0x2026}, {0x8A, 0x0160}, {0x93, 0x201C},
                                        {0x99, 0x2122}, {0x9F, 0x0178}, {0xC9, 0x00C9}, {0xDB, 0x00DB}})
        EXPECT_EQ(Cp1252ToUnicode(uint8_t(code)), QChar(unicode)) << code;
}

// An edit keeps only what a puzzle can store; capitals are those the code page has.
TEST(Cp1252, CharactersWithoutACodeAreReplacedAndCapitalsAreTheCodePagesOwn)
{
    EXPECT_EQ(UnicodeToCp1252(QChar(0x0100)), -1);
    EXPECT_EQ(ToCp1252(QStringLiteral("a\u4E2Db")), "a?b");
    EXPECT_EQ(ToCp1252(QString::fromUtf8("x\xF0\x9F\x98\x80y"), '_'), "x_y") << "one replacement per character";
    EXPECT_EQ(KeepCp1252(QStringLiteral("Caf\u00E9 \u2014 \u4E2D\u2122")), QStringLiteral("Caf\u00E9 \u2014 ?\u2122"));
    EXPECT_EQ(UpperInCp1252(QStringLiteral("straße ÿ µ éœš")), QStringLiteral("STRAßE Ÿ µ ÉŒŠ"));
}

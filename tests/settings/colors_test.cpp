#include "settings/colors.h"

#include <utility>

#include <gtest/gtest.h>

TEST(ColorSettings, IdentifiersNameTheStandardColoursAndNumbersAreReferencesWithRedInTheLowByte)
{
    EXPECT_EQ(ColorFromSetting(QStringLiteral("clLtGray")), ColorFromSetting(QStringLiteral("clSilver")));
    // Identifiers in any case; hexadecimal with "$" or "0x", and decimal; then what names no colour.
    for (const auto &[text, colour] : {std::pair{"clNavy", QColor(0, 0, 128)}, {"clMaroon", QColor(128, 0, 0)},
                                       {"clteal", QColor(0, 128, 128)}, {"$000000FF", QColor(255, 0, 0)}, {"$00FF0000", QColor(0, 0, 255)},
                                       {"$00030201", QColor(1, 2, 3)}, {"0x00808000", QColor(0, 128, 128)},
                                       {"255", QColor(255, 0, 0)}, {"8388608", QColor(0, 0, 128)},
                                       {"clPlaid", QColor()}, {"$GG", QColor()}, {"", QColor()}})
        EXPECT_EQ(ColorFromSetting(QString::fromLatin1(text)), colour) << text;
}

TEST(ColorSettings, WritingPrefersTheIdentifier)
{
    for (const auto &[colour, text] : {std::pair{QColor(0, 0, 0), "clBlack"}, {QColor(255, 255, 0), "clYellow"},
                                       {QColor(128, 128, 128), "clGray"}, {QColor(192, 192, 192), "clSilver"},
                                       {QColor(1, 2, 3), "$00030201"}, {QColor(0xAB, 0xCD, 0xEF), "$00EFCDAB"}})
        EXPECT_EQ(ColorToSetting(colour), QString::fromLatin1(text));
    for (const QColor &c : {QColor(1, 2, 3), QColor(250, 128, 7), QColor(0, 0, 128), QColor(164, 160, 160)})
        EXPECT_EQ(ColorFromSetting(ColorToSetting(c)), c) << ColorToSetting(c).toStdString();
    EXPECT_EQ(ColorRef(QColor(255, 0, 0)), 0x0000FFu);
    EXPECT_EQ(ColorFromRef(0xFF0000), QColor(0, 0, 255));
}

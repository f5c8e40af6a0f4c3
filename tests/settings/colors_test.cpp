#include "settings/colors.h"

#include <gtest/gtest.h>

TEST(ColorSettings, IdentifiersNameTheStandardColours)
{
    EXPECT_EQ(ColorFromSetting(QStringLiteral("clNavy")), QColor(0, 0, 128));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("clMaroon")), QColor(128, 0, 0));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("clteal")), QColor(0, 128, 128)) << "any case";
    EXPECT_EQ(ColorFromSetting(QStringLiteral("clLtGray")), ColorFromSetting(QStringLiteral("clSilver")));
}

TEST(ColorSettings, NumbersAreColourReferencesWithRedInTheLowByte)
{
    EXPECT_EQ(ColorFromSetting(QStringLiteral("$000000FF")), QColor(255, 0, 0));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("$00FF0000")), QColor(0, 0, 255));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("$00030201")), QColor(1, 2, 3));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("0x00808000")), QColor(0, 128, 128));
    EXPECT_EQ(ColorFromSetting(QStringLiteral("255")), QColor(255, 0, 0)) << "decimal";
    EXPECT_EQ(ColorFromSetting(QStringLiteral("8388608")), QColor(0, 0, 128));
    EXPECT_FALSE(ColorFromSetting(QStringLiteral("clPlaid")).isValid());
    EXPECT_FALSE(ColorFromSetting(QStringLiteral("$GG")).isValid());
    EXPECT_FALSE(ColorFromSetting(QString()).isValid());
}

TEST(ColorSettings, WritingPrefersTheIdentifier)
{
    EXPECT_EQ(ColorToSetting(QColor(0, 0, 0)), "clBlack");
    EXPECT_EQ(ColorToSetting(QColor(255, 255, 0)), "clYellow");
    EXPECT_EQ(ColorToSetting(QColor(128, 128, 128)), "clGray");
    EXPECT_EQ(ColorToSetting(QColor(192, 192, 192)), "clSilver");
    EXPECT_EQ(ColorToSetting(QColor(1, 2, 3)), "$00030201");
    EXPECT_EQ(ColorToSetting(QColor(0xAB, 0xCD, 0xEF)), "$00EFCDAB");
    for (const QColor &c : {QColor(1, 2, 3), QColor(250, 128, 7), QColor(0, 0, 128), QColor(164, 160, 160)})
        EXPECT_EQ(ColorFromSetting(ColorToSetting(c)), c) << ColorToSetting(c).toStdString();
    EXPECT_EQ(ColorRef(QColor(255, 0, 0)), 0x0000FFu);
    EXPECT_EQ(ColorFromRef(0xFF0000), QColor(0, 0, 255));
}

// The special character table and how a chosen character goes into the clue.

#include "clues/charmap.h"

#include <gtest/gtest.h>

TEST(CharMap, CellsHoldTheirCodeOrTheTypographicCharacter)
{
    EXPECT_EQ(CharMapCell(0, 0), QByteArray("___"));
    EXPECT_EQ(CharMapCell(1, 0), QByteArray("\xA2"));    // 162, its own code
    EXPECT_EQ(CharMapCell(9, 0), QByteArray("\xA9"));    // ©
    EXPECT_EQ(CharMapCell(5, 0), QByteArray("\x85"));    // …
    EXPECT_EQ(CharMapCell(3, 2), QByteArray("\x8A"));    // Š
    EXPECT_EQ(CharMapCell(0, 9), QByteArray("\xFB"));    // 251
    EXPECT_EQ(CharMapCell(4, 9), QByteArray("\xFF"));    // 255, the last before the codes wrap
    EXPECT_EQ(CharMapCell(9, 9), QByteArray("\x99"));    // ™
    int specials = 0;
    for (int r = 0; r < CharMapRows; ++r)
        for (int c = 0; c < CharMapColumns; ++c)
            specials += CharMapCell(c, r) != QByteArray(1, char((161 + c + 10 * r) % 256));
    EXPECT_EQ(specials, 18);
}

TEST(CharMap, CellsScaleWithTheScreen)
{
    EXPECT_EQ(CharMapScaled(CharMapCellWidth, 96), 16);
    EXPECT_EQ(CharMapScaled(CharMapCellWidth, 144), 24);
    EXPECT_EQ(CharMapScaled(CharMapCellHeight, 120), 24);   // 23.75
}

TEST(CharMap, TheCharacterGoesBeforeTheSelection)
{
    int caret = -1;
    EXPECT_EQ(InsertBeforeSelection(QStringLiteral("abc"), 0, 3, QStringLiteral("\u00A9"), &caret),
              QStringLiteral("\u00A9abc"));
    EXPECT_EQ(caret, 4);
    EXPECT_EQ(InsertBeforeSelection(QStringLiteral("The  end"), 4, 0, QStringLiteral("___"), &caret),
              QStringLiteral("The ___ end"));
    EXPECT_EQ(caret, 7);
    EXPECT_EQ(InsertBeforeSelection(QStringLiteral("xy"), 1, 9, QStringLiteral("-"), &caret), QStringLiteral("x-y"));
}

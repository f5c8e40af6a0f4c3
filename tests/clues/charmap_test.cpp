// The special character table and how a chosen character goes into the clue.

#include "clues/charmap.h"

#include <tuple>

#include <gtest/gtest.h>

TEST(CharMap, CellsHoldTheirCodeOrTheTypographicCharacter)
{
    // The blank, 162 (its own code), ©, …, Š, 251, 255 (the last before the codes wrap), ™.
    for (const auto &[c, r, cell] : {std::tuple{0, 0, "___"}, {1, 0, "\xA2"}, {9, 0, "\xA9"}, {5, 0, "\x85"},
                                     {3, 2, "\x8A"}, {0, 9, "\xFB"}, {4, 9, "\xFF"}, {9, 9, "\x99"}})
        EXPECT_EQ(CharMapCell(c, r), QByteArray(cell)) << c << "," << r;
    int specials = 0;
    for (int r = 0; r < CharMapRows; ++r)
        for (int c = 0; c < CharMapColumns; ++c)
            specials += CharMapCell(c, r) != QByteArray(1, char((161 + c + 10 * r) % 256));
    EXPECT_EQ(specials, 18);
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

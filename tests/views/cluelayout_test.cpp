// The clue list's items, line breaks, item heights and picked words, measured with a
// made-up font whose widths are easy to add up: "M" 10 pixels, a space 4, anything else 6.

#include "testsupport.h"
#include "views/cluelayout.h"

#include <gtest/gtest.h>

namespace {

TTextMeasure sums()
{
    return TTextMeasure{[](const QString &text) {
                            int width = 0;
                            for (QChar ch : text)
                                width += ch == u'M' ? 10 : ch == u' ' ? 4 : 6;
                            return width;
                        },
                        16};
}

// A list 120 pixels wide with a 20-pixel scroll bar: 100 pixels to measure against, 96 to
// draw in.
constexpr int ListWidth = 120;
constexpr int ScrollBar = 20;

const char *const Shared =
    "size 5\ngrid\n"
    "ABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n"
    "clues\n1A c1\n1D c2\n3D c4\n4D c5\n5A c6\n6A c7\n7A c8\n";

}  // namespace

TEST(ClueListItems, ListTheCluesInReadingOrderAcrossFirst)
{
    TPuzzle p = PuzzleFrom(QString::fromLatin1(Shared));
    EXPECT_EQ(ClueListItems(p), (QList<QByteArray>{"c1", "c2", "", "c4", "c5", "c6", "c7", "c8"}))
        << "2D has no clue and so no slot";
    // The item shows the slot stored at the square, not the word's place.
    p.setSlotAt(1, 2, Direction::Across, 8);
    EXPECT_EQ(ClueListItems(p).at(5), QByteArray("c8"));
}

TEST(ClueListLayout, ItemsAreOneTwoOrThreeLinesHigh)
{
    const TTextMeasure m = sums();
    EXPECT_EQ(ClueListMeasureItem("Short clue", m, ListWidth, ScrollBar), 17 + 2);
    // Exactly the measured width still fits.
    EXPECT_EQ(ClueListMeasureItem("ab cdefghijklmnop", m, ListWidth, ScrollBar), 17 + 2);
    EXPECT_EQ(ClueListMeasureItem("aaaa bbbb cccc dddd eeee", m, ListWidth, ScrollBar), 2 * 17 + 2);
    EXPECT_EQ(ClueListMeasureItem("aaaa bbbb cccc dddd eeee ffff gggg hhhh iiii jjjj", m, ListWidth, ScrollBar),
              3 * 17 + 2);
    EXPECT_EQ(ClueListMeasureItem("aaaa bbbb cccc dddd eeee ffff gggg hhhh iiii jjjj kkkk llll mmmm nnnn", m,
                                  ListWidth, ScrollBar),
              3 * 17 + 2)
        << "never more than three lines";
    EXPECT_EQ(ClueListMeasureItem("abcdefghijklmnopqrstuvwxyz", m, ListWidth, ScrollBar), 2 * 17 + 2);
    // The line height is the list's, whatever the font.
    EXPECT_EQ(ClueListMeasureItem("aaaa bbbb cccc dddd eeee", m, ListWidth, ScrollBar, 20), 2 * 20 + 2);
}

TEST(ClueListLayout, LongCluesBreakAtSpacesWithAHangingIndent)
{
    const TTextMeasure m = sums();
    const TClueItemLayout two = ClueListDrawLayout("aaaa bbbb cccc dddd eeee", m, ListWidth, ScrollBar, 36);
    EXPECT_EQ(two.Lines[0], QStringLiteral("aaaa bbbb cccc"));
    EXPECT_EQ(two.Lines[1], QStringLiteral("dddd eeee"));
    EXPECT_EQ(two.Lines[2], QString());
    EXPECT_EQ(two.Origins[0], QPoint(2, 0));
    EXPECT_EQ(two.Origins[1], QPoint(2 + 10, 16 - 1));
    EXPECT_EQ(two.Origins[2], QPoint(2 + 10, 2 * 16 - 1));

    // Line 2 leaves room for its indent; what line 3 cannot hold is left to the clipping.
    const TClueItemLayout three =
        ClueListDrawLayout("aaaa bbbb cccc dddd eeee ffff gggg hhhh iiii jjjj", m, ListWidth, ScrollBar, 53);
    EXPECT_EQ(three.Lines[0], QStringLiteral("aaaa bbbb cccc"));
    EXPECT_EQ(three.Lines[1], QStringLiteral("dddd eeee ffff"));
    EXPECT_EQ(three.Lines[2], QStringLiteral("gggg hhhh iiii jjjj"));
}

TEST(ClueListLayout, SomeCluesAreNeverBroken)
{
    const TTextMeasure m = sums();
    const TClueItemLayout unbroken = ClueListDrawLayout("abcdefghijklmnopqrstuvwxyz", m, ListWidth, ScrollBar, 36);
    EXPECT_EQ(unbroken.Lines[0], QStringLiteral("abcdefghijklmnopqrstuvwxyz"));
    EXPECT_TRUE(unbroken.Lines[1].isEmpty());

    // Wider than the drawing room, but measured as one line: drawn as one line.
    const TClueItemLayout oneLine = ClueListDrawLayout("ab cdefghijklmnop", m, ListWidth, ScrollBar, 19);
    EXPECT_EQ(oneLine.Lines[0], QStringLiteral("ab cdefghijklmnop"));
    EXPECT_TRUE(oneLine.Lines[1].isEmpty());
}

TEST(ClueListPick, FindsTheFirstSquareOfThePickedWord)
{
    const TPuzzle p = PuzzleFrom(QString::fromLatin1(Shared));
    constexpr int Square = 20;
    auto pick = ClueListPickWord(p, 4, 0, Square);  // 3D
    EXPECT_EQ(pick.Point, QPoint(40, 0));
    EXPECT_EQ(pick.WordDirection, 2);
    pick = ClueListPickWord(p, 6, 0, Square);  // 5A
    EXPECT_EQ(pick.Point, QPoint(0, 20));
    EXPECT_EQ(pick.WordDirection, 1);
    pick = ClueListPickWord(p, 2, 0, Square);  // 1D, on the square of 1A
    EXPECT_EQ(pick.Point, QPoint(0, 0));
    EXPECT_EQ(pick.WordDirection, 2);

    // A direction the grid kept stops the scan after the first square.
    pick = ClueListPickWord(p, 7, 1, Square);
    EXPECT_EQ(pick.Point, QPoint(0, 0));
    EXPECT_EQ(pick.WordDirection, 1);
    pick = ClueListPickWord(p, 2, 1, Square);
    EXPECT_EQ(pick.WordDirection, 2) << "the first square is still looked at";
}

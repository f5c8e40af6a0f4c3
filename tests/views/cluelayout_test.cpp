// The clue list's items, line breaks, item heights and picked words, measured with a
// made-up font whose widths are easy to add up: "M" 10 pixels, a space 4, anything else 6,
// and a line of "H" 16 high.

#include "testsupport.h"
#include "views/cluelayout.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

const TTextMeasure Sums{[](const QString &t) { return int(6 * t.size() + 4 * t.count(u'M') - 2 * t.count(u' ')); },
                        16};

// A list 120 pixels wide with a 20-pixel scroll bar: 100 pixels to measure against, 96 to
// draw in.
constexpr int ListWidth = 120;
constexpr int ScrollBar = 20;

const char *const Shared = "size 5\ngrid\nABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n"
                           "clues\n1A c1\n1D c2\n3D c4\n4D c5\n5A c6\n6A c7\n7A c8\n";

const char *const TwoLines = "aaaa bbbb cccc dddd eeee";
const char *const ThreeLines = "aaaa bbbb cccc dddd eeee ffff gggg hhhh iiii jjjj";
const char *const NoSpaces = "abcdefghijklmnopqrstuvwxyz";
const char *const JustFits = "ab cdefghijklmnop";  // exactly the measured width

}  // namespace

TEST(ClueListItems, ListTheCluesInReadingOrderAcrossFirstAndAPickFindsItsWord)
{
    TPuzzle p = PuzzleFrom(QString::fromLatin1(Shared));
    EXPECT_EQ(ClueListItems(p), (QList<QByteArray>{"c1", "c2", "", "c4", "c5", "c6", "c7", "c8"}))
        << "2D has no clue and so no slot";
    // The item shows the slot stored at the square, not the word's place.
    p.setSlotAt(1, 2, Direction::Across, 8);
    EXPECT_EQ(ClueListItems(p).at(5), QByteArray("c8"));

    // A picked item finds its word's first square: 3D, 5A, and 1D on the square of 1A; then a
    // direction the grid kept, which stops the scan after the first square (still looked at).
    p.setSlotAt(1, 2, Direction::Across, 6);
    for (auto [slot, kept, point, direction] : {std::tuple{4, 0, QPoint(40, 0), 2}, {6, 0, QPoint(0, 20), 1},
                                                {2, 0, QPoint(0, 0), 2}, {7, 1, QPoint(0, 0), 1},
                                                {2, 1, QPoint(0, 0), 2}}) {
        const TClueListPick pick = ClueListPickWord(p, slot, kept, 20);
        EXPECT_EQ(std::pair(pick.Point, pick.WordDirection), std::pair(point, direction)) << slot << " " << kept;
    }
}

TEST(ClueListLayout, ItemsAreOneTwoOrThreeLinesHigh)
{
    const QString longest = QString::fromLatin1(ThreeLines) + QStringLiteral(" kkkk llll mmmm nnnn");
    for (auto [text, lines] : {std::pair<QString, int>{"Short clue", 1}, {JustFits, 1}, {TwoLines, 2},
                               {ThreeLines, 3}, {longest, 3}, {NoSpaces, 2}})
        EXPECT_EQ(ClueListMeasureItem(text, Sums, ListWidth, ScrollBar), lines * 17 + 2) << text.toStdString();
    // The line height is the list's, or the font's where that is taller (no descender is cut),
    // and a one-line item of a tall font still draws on one line.
    EXPECT_EQ(ClueListMeasureItem(TwoLines, Sums, ListWidth, ScrollBar, 20), 2 * 20 + 2);
    const TTextMeasure tall{Sums.Width, 24};
    EXPECT_EQ(ClueListMeasureItem(TwoLines, tall, ListWidth, ScrollBar), 2 * 24 + 2);
    EXPECT_EQ(ClueListMeasureItem(JustFits, tall, ListWidth, ScrollBar), 24 + 2);
    EXPECT_EQ(ClueListDrawLayout(JustFits, tall, ListWidth, ScrollBar, 24 + 2).Lines[1], QString());
}

TEST(ClueListLayout, LongCluesBreakAtSpacesWithAHangingIndentAndOthersNever)
{
    // Line 2 leaves room for its indent; what line 3 cannot hold is left to the clipping. A
    // clue without spaces, or one wider than the drawing room but measured as one line, stays
    // on one line.
    const std::tuple<const char *, int, QStringList> cases[] = {
        {TwoLines, 36, {"aaaa bbbb cccc", "dddd eeee", ""}},
        {ThreeLines, 53, {"aaaa bbbb cccc", "dddd eeee ffff", "gggg hhhh iiii jjjj"}},
        {NoSpaces, 36, {NoSpaces, "", ""}},
        {JustFits, 19, {JustFits, "", ""}},
    };
    for (const auto &[text, height, lines] : cases) {
        const TClueItemLayout layout = ClueListDrawLayout(text, Sums, ListWidth, ScrollBar, height);
        EXPECT_EQ(QStringList(std::begin(layout.Lines), std::end(layout.Lines)), lines) << text;
        // Continuation lines hang one "M" in, a line of "H" (16) less a pixel down.
        const QPoint origins[] = {{2, 0}, {2 + 10, 16 - 1}, {2 + 10, 2 * 16 - 1}};
        for (int i = 0; i < 3; ++i)
            if (!lines[i].isEmpty()) {
                EXPECT_EQ(layout.Origins[i], origins[i]) << text << " line " << i;
            }
    }
}

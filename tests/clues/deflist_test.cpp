// The definition list's lines, and the walk from a clicked line back to its word.

#include "clues/deflist.h"
#include "testsupport.h"

#include <gtest/gtest.h>

namespace {

// 1A and 1D share the top-left square; reading order 1A 1D 2D 3D 4D 5A 6A 7A.
const char *const Shared = "size 5\ngrid\nABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n"
                           "clues\n1A Bread\n3D Tree\n7A Cat\n";

// CAT is both 1 Across and 6 Across.
const char *const Repeated = "size 5\ngrid\nCAT#X\nOXO#Y\nWXYZW\nS#O#Z\nCAT#Z\n";

}  // namespace

TEST(DefList, LinesPadTheNumberEndWithTheAnswerAndReadBack)
{
    EXPECT_EQ(DefLine(7, "Feline", "CAT"), QByteArray("    7  Feline  | CAT"));
    EXPECT_EQ(DefLine(12, "", "DOG"), QByteArray("  12    | DOG"));
    for (const auto &[number, padded] : {std::pair{9, "    9"}, {10, "  10"}, {99, "  99"}, {100, "100"}, {179, "179"}})
        EXPECT_EQ(PadNumber(number), QByteArray(padded));
    // A replaced line is found again by its padded number.
    const QList<QByteArray> lines{"    1  a  | X", "  10  b  | Y", "100  c  | Z"};
    for (const auto &[number, line] : {std::pair{1, 0}, {10, 1}, {100, 2}, {2, -1}})
        EXPECT_EQ(FindDefLineIndex(lines, number), line) << number;

    const auto read = [](const char *line) { return std::pair(ReadDefLine(line).Number, ReadDefLine(line).Answer); };
    EXPECT_EQ(read("    7  Feline  | CAT"), std::pair(7, QByteArray("CAT")));
    EXPECT_EQ(read("  42  x | y  | DOG"), std::pair(42, QByteArray("y  | DOG"))) << "the first bar ends the clue";
    EXPECT_EQ(read("123    | ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::pair(123, QByteArray("ABCDEFGHIJKLMNOPQRSTUVW")));
}

TEST(DefList, FillingNumbersASharedSquareOnceInBothLists)
{
    const TDefLists lists = FillDefLists(PuzzleFrom(QString::fromLatin1(Shared)));
    EXPECT_EQ(lists.Across, (QList<QByteArray>{"    1  Bread  | ABC", "    5    | EFG", "    6    | IJKLM",
                                               "    7  Cat  | QRS"}));
    EXPECT_EQ(lists.Down.value(0), QByteArray("    1    | AEINQ"));
    EXPECT_EQ(lists.Down.value(2), QByteArray("    3  Tree  | CGKOS"));
    EXPECT_EQ(lists.Down.size(), 4);
}

TEST(DefList, AClickedLineLeadsToTheWordWithItsOwnNumber)
{
    const TPuzzle p = PuzzleFrom(QString::fromLatin1(Repeated));
    const TDefLists lists = FillDefLists(p);
    ASSERT_EQ(lists.Across.first(), QByteArray("    1    | CAT"));
    ASSERT_EQ(lists.Across.last(), QByteArray("    7    | CAT"));

    const TDefListTarget first = FindDefLineWord(p, lists.Across.first(), Direction::Across);
    EXPECT_EQ(std::tuple(first.Found, first.Col, first.Row, first.Number, first.Slot, first.Dir), std::tuple(true, 1, 1, 1, 1, 'a'));
    const TDefListTarget last = FindDefLineWord(p, lists.Across.last(), Direction::Across);
    EXPECT_EQ(std::tuple(last.Col, last.Row, last.Number, last.Dir), std::tuple(1, 5, 7, 'a'));

    // The slot counts every word before it in reading order, across before down at a square.
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QList<QByteArray> &list = w.Dir == Direction::Across ? lists.Across : lists.Down;
        const char dir = char(w.Dir);
        const int line = FindDefLineIndex(list, w.Number);
        ASSERT_GE(line, 0) << w.Number << dir;
        const TDefListTarget t = FindDefLineWord(p, list[line], w.Dir);
        EXPECT_EQ(std::tuple(t.Col, t.Row, t.Number, t.Slot), std::tuple(w.Column, w.Row, w.Number, w.Index))
            << w.Number << dir;
    }
    EXPECT_FALSE(FindDefLineWord(p, "    1    | DOG", Direction::Across).Found);
}

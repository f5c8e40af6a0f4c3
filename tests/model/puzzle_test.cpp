#include "model/puzzle.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(WordStarts, OpenGridNumbersRowOneAndColumnOne)
{
    TPuzzle p;
    p.ClearPuzzle(15, 'N', {}, 0);
    EXPECT_EQ(WordCount(p), 30);
    const TGridArray<int> numbers = SquareNumbers(p);
    for (int c = 1; c <= 15; ++c)
        EXPECT_EQ(numbers(c, 1), c);
    for (int r = 2; r <= 15; ++r) {
        EXPECT_EQ(numbers(1, r), 14 + r);
        for (int c = 2; c <= 15; ++c)
            EXPECT_EQ(numbers(c, r), 0);
    }
}

TEST(WordStarts, BlackSquaresDecideWordsAtEdgesAndBesideThem)
{
    const TPuzzle p = PuzzleFrom("size 11\ngrid\nA#.........\n...........\n.........#A\n"
                                 + QStringLiteral("...........\n").repeated(7) + "....#......\n");
    EXPECT_FALSE(p.IsAcrossStart(1, 1)) << "white then black in column 2 starts nothing";
    EXPECT_FALSE(p.IsAcrossStart(2, 1)) << "black squares start nothing";
    EXPECT_TRUE(p.IsAcrossStart(3, 1));
    EXPECT_TRUE(p.IsAcrossStart(1, 2)) << "empty squares count as white";
    EXPECT_FALSE(p.IsAcrossStart(11, 3)) << "the last column never starts an across word";
    EXPECT_FALSE(p.IsDownStart(5, 11)) << "a black square in the last row";
    EXPECT_FALSE(p.IsDownStart(3, 11)) << "the last row never starts a down word";
    EXPECT_TRUE(p.IsDownStart(2, 2));
    EXPECT_TRUE(p.IsDownStart(1, 1));
}

TEST(WordStarts, SlotOrderPutsAcrossBeforeDownAtOneSquare)
{
    const TPuzzle p = PuzzleFrom("size 11\ngrid\n" + GridRows({"...#......."}, 11, u'.'));
    const QList<TWordRef> words = WordsInSlotOrder(p);
    ASSERT_EQ(words.size(), WordCount(p));
    // 1A, 1D, 2D at (2,1) down only, 3D; (4,1) is black, (5,1) starts both.
    const auto word = [&words](int i) { return std::tuple(words[i].Number, words[i].Dir, words[i].Column, words[i].Index); };
    EXPECT_EQ(word(0), std::tuple(1, Direction::Across, 1, 1));
    EXPECT_EQ(word(1), std::tuple(1, Direction::Down, 1, 2));
    EXPECT_EQ(word(2), std::tuple(2, Direction::Down, 2, 3));
    EXPECT_EQ(word(4), std::tuple(4, Direction::Across, 5, 5));
}

TEST(GetWord, ReadsToTheBlackSquareOrTheEdgeAndNeverPast80Characters)
{
    TPuzzle p = PuzzleFrom("size 11\ngrid\n" + GridRows({"CA?T#DO.GHI"}, 11, u'.'));
    EXPECT_EQ(p.GetWord(1, 1, 'a'), QByteArray("CA?T"));
    EXPECT_EQ(p.GetWord(6, 1, 'a'), QByteArray("DO\0GHI", 6)) << "an empty square reads as code 0";
    EXPECT_EQ(p.GetWord(10, 1, 'a'), QByteArray("HI")) << "stops at the edge";
    EXPECT_EQ(p.GetWord(1, 1, 'd').size(), 11);
    EXPECT_EQ(p.GetWord(1, 10, 'x').size(), 2) << "anything but 'a' reads down";
    p.Size = 200;
    EXPECT_EQ(p.GetWord(11, 1, 'd').size(), 80) << "a corrupt size never runs a word past 80";
}

TEST(IsGridFull, EmptySquaresOnlyMakeAGridIncomplete)
{
    TPuzzle p = PuzzleFrom("size 11\ngrid\nABC#?FGHIJK\n" + QStringLiteral("ABCDEFGHIJK\n").repeated(9) + "ABCDEFGHIJ.\n");
    EXPECT_FALSE(p.IsGridFull());
    p.Cells(11, 11) = 'K';
    EXPECT_TRUE(p.IsGridFull()) << "black and open squares count as filled";
    p.Size = 0;
    EXPECT_TRUE(p.IsGridFull());
}

TEST(ClearPuzzle, VariantCKeepsOnlyTheBlackSquares)
{
    TPuzzle p = PuzzleFrom("size 11\nbyline Old Name\nlanguage 4\ngrid\nABC#?FGHIJK\n"
                           + QStringLiteral("ABCDEFGHIJK\n").repeated(9) + "ABCDEFGHIJ#\nentries\n"
                           + GridRows({"AB........."}, 11, u'.') + "clues\n1A Start\n1D Down\n");
    p.Cells(20, 20) = 'Q';  // outside the grid: cleared too
    p.ClearPuzzle(11, 'C', "New Name", 2);
    for (int c = 1; c <= MaxGrid; ++c)
        for (int r = 1; r <= MaxGrid; ++r) {
            const bool black = (c == 4 && r == 1) || (c == 11 && r == 11);
            EXPECT_EQ(p.Cells(c, r), black ? BlockChar : 0) << c << "," << r;
            EXPECT_EQ(p.Entries(c, r), 0);
            EXPECT_EQ(p.CellWords(c, r).AcrossSlot + p.CellWords(c, r).DownSlot, 0);
        }
    for (int k = 1; k <= ClueSlots; ++k)
        EXPECT_TRUE(p.clue(k).isEmpty());
    EXPECT_EQ(p.Byline.text(), "New Name");
    EXPECT_EQ(p.Language, 2);

    p.ClearPuzzle(13, 'N', QByteArray(70, 'x'), 0);
    EXPECT_EQ(p.Size, 13);
    EXPECT_EQ(p.Cells(4, 1), 0) << "variant N clears black squares";
    EXPECT_EQ(p.Byline.text().size(), 60);
}

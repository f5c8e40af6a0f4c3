#include "solving/clocktime.h"
#include "solving/scoring.h"
#include "testsupport.h"

#include <gtest/gtest.h>

namespace {

const char *const Solved =
    "size 3\ngrid\nCAT\nA#E\nTEN\n"
    "entries\nCAT\nA.E\nTEN\n";

}  // namespace

TEST(Scoring, EverySquareMustMatchByteForByte)
{
    TPuzzle p = PuzzleFrom(QString::fromLatin1(Solved));
    EXPECT_TRUE(IsPuzzleCorrect(p)) << "black squares need no entry";

    p.Entries(3, 3) = 0;
    EXPECT_FALSE(IsPuzzleCorrect(p)) << "an empty square is an error, there is no 'incomplete'";
    p.Entries(1, 1) = 'c';
    EXPECT_EQ(ErrorSquares(p), (QList<QPoint>{QPoint(1, 1), QPoint(3, 3)}));

    p.Entries(1, 1) = 'C';
    p.Entries(3, 3) = 'N';
    p.Cells(2, 2) = OpenChar;  // an undecided square must hold a space to be right
    EXPECT_EQ(ErrorSquares(p), QList<QPoint>{QPoint(2, 2)});
    p.Size = 2;  // squares outside the grid are never judged
    EXPECT_EQ(ErrorSquares(p), QList<QPoint>{QPoint(2, 2)});
}

TEST(Scoring, ClearEntriesEmptiesTheGridOnly)
{
    TPuzzle p = PuzzleFrom(QString::fromLatin1(Solved));
    p.Entries(5, 5) = 'Z';
    ClearEntries(p);
    for (int c = 1; c <= 3; ++c)
        for (int r = 1; r <= 3; ++r)
            EXPECT_EQ(p.Entries(c, r), 0);
    EXPECT_EQ(p.Cells(1, 1), 'C') << "the solution stays";
    EXPECT_FALSE(IsPuzzleCorrect(p));
}

TEST(Scoring, ErrorCrossSitsInsideItsSquare)
{
    const auto cross = ErrorCross(2, 3, 30);
    EXPECT_EQ(cross[0], QLine(36, 66, 55, 85));
    EXPECT_EQ(cross[1], QLine(55, 66, 36, 85));
}

TEST(ClockTime, CountsToTheHourAndWrapsAtTen)
{
    TClockTime clock;
    EXPECT_EQ(clock.Text(), "0:00:00");
    for (int i = 0; i < 65; ++i)
        clock.Tick();
    EXPECT_EQ(clock.Text(), "0:01:05");
    clock.Reset();
    for (int i = 0; i < 3599; ++i)
        clock.Tick();
    EXPECT_EQ(clock.Text(), "0:59:59");
    clock.Tick();
    EXPECT_EQ(clock.Text(), "1:00:00");
    for (int i = 0; i < 3600 * 9 - 1; ++i)
        clock.Tick();
    EXPECT_EQ(clock.Text(), "9:59:59");
    clock.Tick();
    EXPECT_EQ(clock.Text(), "0:00:00");
}

#include "solving/clocktime.h"
#include "solving/scoring.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <array>

namespace {

const char *const Solved =
    "size 3\ngrid\nCAT\nA#E\nTEN\n"
    "entries\nCAT\nA.E\nTEN\n";

}  // namespace

TEST(Scoring, EverySquareMustMatchByteForByteAndClearingEmptiesTheGridOnly)
{
    TPuzzle p = PuzzleFrom(QString::fromLatin1(Solved));
    EXPECT_TRUE(IsPuzzleCorrect(p)) << "black squares need no entry";
    EXPECT_EQ(ErrorCross(2, 3, 30), (std::array{QLine(36, 66, 55, 85), QLine(55, 66, 36, 85)})) << "inside its square";

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

    // Clearing the entries empties the grid only.
    p = PuzzleFrom(QString::fromLatin1(Solved));
    p.Entries(5, 5) = 'Z';
    ClearEntries(p);
    for (int c = 1; c <= 3; ++c)
        for (int r = 1; r <= 3; ++r)
            EXPECT_EQ(p.Entries(c, r), 0);
    EXPECT_EQ(p.Cells(1, 1), 'C') << "the solution stays";
    EXPECT_FALSE(IsPuzzleCorrect(p));
}


TEST(ClockTime, CountsToTheHourAndWrapsAtTen)
{
    TClockTime clock;
    const auto after = [&clock](int seconds) {
        for (int i = 0; i < seconds; ++i)
            clock.Tick();
        return clock.Text();
    };
    EXPECT_EQ(after(65), "0:01:05");
    clock.Reset();
    EXPECT_EQ(after(0), "0:00:00");
    EXPECT_EQ(after(3599), "0:59:59");
    EXPECT_EQ(after(1), "1:00:00");
    EXPECT_EQ(after(3600 * 9 - 1), "9:59:59");
    EXPECT_EQ(after(1), "0:00:00");
}

#include "mainwindow/specifications.h"
#include "testsupport.h"

#include <gtest/gtest.h>

TEST(PuzzleSpecText, ThreeLinesJoinedByCrLf)
{
    TPuzzle p;
    p.ClearPuzzle(15, 'N', {}, 0);
    p.Cells(1, 1) = p.Cells(15, 15) = BlockChar;
    EXPECT_EQ(PuzzleSpecText(p), QStringLiteral(" Size of Grid: 15×\r\n"
                                                 " Black Squares: 2  Par: 37\r\n"
                                                 " Word Count: 30  Par: 78"));
}

// The pars are published figures, not derived ones: a mistyped entry shows only here.
TEST(Pars, MatchThePublishedTableForEverySize)
{
    const int table[][3] = {{11, 40, 20}, {13, 56, 28}, {15, 78, 37}, {17, 96, 48}, {19, 120, 60},
                            {21, 146, 73}, {23, 170, 88}, {12, 0, 24}, {0, 0, 0}};
    for (const auto &[size, words, black] : table) {
        EXPECT_EQ(WordPar(size), words) << "size " << size;
        EXPECT_EQ(BlackPar(size), black) << "size " << size;
    }
}

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

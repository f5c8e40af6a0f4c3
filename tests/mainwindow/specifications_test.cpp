#include "mainwindow/specifications.h"
#include "testsupport.h"

#include <gtest/gtest.h>

struct ParCase {
    int size;
    int words;
    int black;
};

class ParsBySize : public ::testing::TestWithParam<ParCase> {};

TEST_P(ParsBySize, MatchThePublishedTable)
{
    EXPECT_EQ(WordPar(GetParam().size), GetParam().words);
    EXPECT_EQ(BlackPar(GetParam().size), GetParam().black);
}

INSTANTIATE_TEST_SUITE_P(AllSizes, ParsBySize,
                         ::testing::Values(ParCase{11, 40, 20}, ParCase{13, 56, 28}, ParCase{15, 78, 37},
                                           ParCase{17, 96, 48}, ParCase{19, 120, 60}, ParCase{21, 146, 73},
                                           ParCase{23, 170, 88}, ParCase{12, 0, 24}, ParCase{0, 0, 0}));

TEST(PuzzleSpecText, ThreeLinesJoinedByCrLf)
{
    TPuzzle p;
    p.ClearPuzzle(15, 'N', {}, 0);
    p.Cells(1, 1) = BlockChar;
    p.Cells(15, 15) = BlockChar;
    EXPECT_EQ(PuzzleSpecText(p), QStringLiteral(" Size of Grid: 15×\r\n"
                                                 " Black Squares: 2  Par: 37\r\n"
                                                 " Word Count: 30  Par: 78"));
}

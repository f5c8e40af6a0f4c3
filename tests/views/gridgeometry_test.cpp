#include "views/gridgeometry.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(GridGeometry, PixelsBelongToSquaresCountedFromOne)
{
    EXPECT_EQ(CellAt({0, 0}, 20), QPoint(1, 1));
    EXPECT_EQ(CellAt({19, 19}, 20), QPoint(1, 1));
    EXPECT_EQ(CellAt({299, 40}, 20), QPoint(15, 3));
    EXPECT_EQ(CellAt({-5, 3}, 20), QPoint(1, 1)) << "the division truncates toward zero";
    EXPECT_EQ(CellAt({10, 10}, 0), QPoint(0, 0)) << "no square size, no square";
    EXPECT_EQ(CellTopLeft(3, 2, 20), QPoint(40, 20));
    EXPECT_EQ(CellOrigin({57, 33}, 20), QPoint(40, 20));
    EXPECT_EQ(CellOutline(2, 3, 20), QRect(20, 40, 21, 21));
    EXPECT_EQ(CellOutline(2, 3, 20).right(), CellOutline(3, 3, 20).left()) << "neighbours share their outline";
}

TEST(GridGeometry, SymmetryPartners)
{
    EXPECT_EQ(SymmetryPartner(1, 2, 15, 1), QPoint(15, 14));
    EXPECT_EQ(SymmetryPartner(8, 8, 15, 1), QPoint(8, 8)) << "the centre is its own partner";
    EXPECT_EQ(SymmetryPartner(2, 3, 11, 1), QPoint(10, 9));
    EXPECT_EQ(SymmetryPartner(1, 2, 15, 2), QPoint(15, 2));
    EXPECT_EQ(SymmetryPartner(8, 5, 15, 2), QPoint(8, 5)) << "the middle column mirrors onto itself";
    EXPECT_FALSE(SymmetryPartner(1, 2, 15, 0));
}

TEST(GridGeometry, WordsRunOnFromTheSquareAndBackToTheirStart)
{
    const TPuzzle p = PuzzleFrom(QStringLiteral("size 5\ngrid\nAB#CD\nE.F..\n#....\n.#...\n....#\n"));
    using Squares = QList<QPoint>;
    EXPECT_EQ(HighlightSquares(p, 1, 1, 1), (Squares{{1, 1}, {2, 1}})) << "stops before the black square";
    EXPECT_EQ(HighlightSquares(p, 4, 1, 1), (Squares{{4, 1}, {5, 1}})) << "stops at the edge";
    EXPECT_EQ(HighlightSquares(p, 3, 2, 1), (Squares{{3, 2}, {4, 2}, {5, 2}})) << "not the part before the square";
    EXPECT_EQ(HighlightSquares(p, 3, 2, 2), (Squares{{3, 2}, {3, 3}, {3, 4}, {3, 5}}));
    EXPECT_EQ(HighlightSquares(p, 2, 2, 0), (Squares{{2, 2}, {2, 3}})) << "any direction but across runs down";
    EXPECT_EQ(HighlightSquares(p, 5, 5, 1), (Squares{{5, 5}})) << "the first square is always taken";

    EXPECT_EQ(WordStart(p, 5, 1, 1), QPoint(4, 1));
    EXPECT_EQ(WordStart(p, 5, 2, 1), QPoint(1, 2));
    EXPECT_EQ(WordStart(p, 1, 5, 2), QPoint(1, 4));
    EXPECT_EQ(WordStart(p, 4, 5, 2), QPoint(4, 1));
}

TEST(GridGeometry, WindowSizePlaceAndFont)
{
    // Never below one pixel; a snapped small grid stays snapped; no grid keeps the size.
    for (const auto &[width, size, side] : {std::tuple{10 * 15 + 9, 15, 10}, {329, 15, 21}, {3, 15, 1},
                                            {5 * 20 + 9, 5, 20}, {5 * 20 + 10, 5, 22}, {300, 0, 20}})
        EXPECT_EQ(SquareSizeForWidth(width, size, 20), side) << width << " for " << size;
    // 2.75 rounds to 3 and 5.5 up; never below one point; no reference size, unscaled.
    for (const auto &[square, reference, points] : {std::tuple{10, 40, 3}, {20, 40, 6}, {1, 40, 1}, {20, 0, 11}})
        EXPECT_EQ(ScaledFontSize(11, square, reference), points) << square << " of " << reference;

    EXPECT_EQ(GridWindowOrigin(QStringLiteral("-4, 7,300,400")), QPoint(-4, 7));
    for (const char *unreadable : {"", "left,top", "15"})
        EXPECT_EQ(GridWindowOrigin(QString::fromLatin1(unreadable)), QPoint(2, 2)) << unreadable;
}

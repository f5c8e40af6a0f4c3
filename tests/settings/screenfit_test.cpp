#include "settings/screenfit.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

namespace {

const QRect Screen(0, 0, 1600, 1000);
const QRect RightScreen(1600, 0, 1280, 1024);

}  // namespace

TEST(FitBoundsToScreen, BoundsOnTheScreenAreKeptAndAWindowOffItComesBackWhole)
{
    EXPECT_EQ(FitBoundsToScreen(QRect(10, 20, 300, 400), Screen), QRect(10, 20, 300, 400));
    EXPECT_EQ(FitBoundsToScreen(QRect(1700, 10, 300, 400), RightScreen), QRect(1700, 10, 300, 400));
    // Saved on a second monitor that is gone, or dragged far past the left edge.
    EXPECT_EQ(FitBoundsToScreen(100000, 50, 300, 400, Screen), QRect(1300, 50, 300, 400));
    EXPECT_EQ(FitBoundsToScreen(-5000, -5000, 300, 400, Screen), QRect(0, 0, 300, 400));
    EXPECT_EQ(FitBoundsToScreen(1500, 900, 300, 400, Screen), QRect(1300, 600, 300, 400)) << "half past the corner";
    EXPECT_EQ(FitBoundsToScreen(0, 0, 300, 400, RightScreen), QRect(1600, 0, 300, 400));
}

TEST(FitBoundsToScreen, SizesShrinkToTheScreenWithoutOverflow)
{
    EXPECT_EQ(FitBoundsToScreen(INT_MAX, INT_MAX, INT_MAX, INT_MAX, Screen), QRect(0, 0, 1600, 1000));
    EXPECT_EQ(FitBoundsToScreen(INT_MIN, INT_MIN, INT_MAX, INT_MAX, RightScreen), RightScreen);
    EXPECT_EQ(FitBoundsToScreen(5, 5, 0, -20, Screen), QRect(5, 5, 1, 1));
}

TEST(FitSquareSize, TheGridWindowFitsTheScreenAndFontsStayBetweenOneAndTheLargestSize)
{
    // 1000 high, less a title bar and the 9-pixel margin: 959 pixels for the squares.
    EXPECT_EQ(FitSquareSize(INT_MAX, 40, 23, 9, Screen), 959 / 23);
    EXPECT_EQ(FitSquareSize(INT_MAX, 40, 11, 9, Screen), 959 / 11);
    EXPECT_EQ(FitSquareSize(30, 40, 23, 9, Screen), 30);
    EXPECT_EQ(FitSquareSize(0, 40, 23, 9, Screen), 40) << "no setting: the fallback";
    EXPECT_EQ(FitSquareSize(-7, 400, 23, 9, Screen), 959 / 23) << "the fallback fits too";
    EXPECT_EQ(FitSquareSize(50, 40, 23, 9, QRect(0, 0, 20, 20)), 1);
    // Fonts stay between one point and the largest size.
    for (const auto &[size, fallback, fitted] : {std::tuple{11, 9, 11}, {700, 9, MaxFontPointSize}, {INT_MAX, 9, MaxFontPointSize},
                                                 {0, 9, 9}, {-3, 900, MaxFontPointSize}})
        EXPECT_EQ(FitFontSize(size, fallback), fitted) << size << " falling back to " << fallback;
}

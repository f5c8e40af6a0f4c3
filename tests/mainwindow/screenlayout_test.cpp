#include "mainwindow/screenlayout.h"

#include <gtest/gtest.h>

TEST(ScreenLayout, EveryArrangementKeepsTheWindowsApartAndOnTheScreen)
{
    const QRect screen(0, 0, 1600, 1000);
    for (int code = 1; code <= ArrangementCount; ++code) {
        SCOPED_TRACE(code);
        const TScreenLayout layout = ArrangementLayout(code, screen, QSize(280, 200), QSize(600, 600));
        for (const QRect &window : {layout.Main, layout.Grid, layout.Clues})
            EXPECT_TRUE(screen.contains(window)) << window.x() << "," << window.y() << " " << window.width() << "x"
                                                 << window.height();
        EXPECT_FALSE(layout.Main.intersects(layout.Grid));
        EXPECT_FALSE(layout.Main.intersects(layout.Clues));
        EXPECT_FALSE(layout.Grid.intersects(layout.Clues));
        EXPECT_EQ(layout.Grid.size(), QSize(600, 600));
    }
}

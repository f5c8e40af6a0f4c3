#include "mainwindow/screenlayout.h"

#include <algorithm>

TScreenLayout ArrangementLayout(int code, const QRect &screen, const QSize &main, const QSize &grid)
{
    constexpr int gap = 4;
    const int left = screen.left() + gap;
    const int top = screen.top() + gap;
    const int right = screen.right() - gap;
    // Beside the grid the clue list stands in one column with the main window, as wide as it.
    const int sideWidth = main.width();
    TScreenLayout layout;
    switch (code) {
    case 2:
        layout.Grid = QRect(QPoint(right - grid.width() + 1, top), grid);
        layout.Main = QRect(QPoint(left, top), main);
        layout.Clues = QRect(left, layout.Main.bottom() + gap, sideWidth,
                             std::max(80, screen.bottom() - layout.Main.bottom() - 2 * gap));
        break;
    case 3: {
        layout.Main = QRect(QPoint(left, top), QSize(screen.width() - 2 * gap, main.height()));
        const int below = layout.Main.bottom() + gap;
        layout.Grid = QRect(QPoint(left, below), grid);
        layout.Clues = QRect(layout.Grid.right() + gap, below, std::max(80, right - layout.Grid.right() - gap),
                             std::max(80, screen.bottom() - below - gap));
        break;
    }
    case 4:
        layout.Grid = QRect(QPoint(left, top), grid);
        layout.Main = QRect(QPoint(right - sideWidth + 1, screen.bottom() - main.height() - gap), QSize(sideWidth, main.height()));
        layout.Clues = QRect(right - sideWidth + 1, top, sideWidth, std::max(80, layout.Main.top() - top - gap));
        break;
    default:
        layout.Grid = QRect(QPoint(left, top), grid);
        layout.Main = QRect(QPoint(right - main.width() + 1, top), main);
        layout.Clues = QRect(right - sideWidth + 1, layout.Main.bottom() + gap, sideWidth,
                             std::max(80, screen.bottom() - layout.Main.bottom() - 2 * gap));
        break;
    }
    return layout;
}

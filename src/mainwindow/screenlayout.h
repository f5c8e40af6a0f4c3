#pragma once
// The window layouts the preferences offer (arrangement codes 1 to 4): where the main,
// grid and clue list windows go on the screen. The preferences draw their pictures of the
// layouts from the same rectangles, so a picture always shows what will be chosen.

#include <QRect>
#include <QSize>

struct TScreenLayout {
    QRect Main;
    QRect Grid;
    QRect Clues;
};

constexpr int ArrangementCount = 4;

// Code 1: grid at the left, main window and clue list stacked at the right.
// Code 2: the mirror of 1. Code 3: main window across the top, grid and clue list below.
// Code 4: grid at the left, clue list and main window stacked at the right, clues first.
// Everything follows from the screen's available area, the main window's fitted (smallest)
// size and the grid's size, never from where the windows stand now: each layout looks like
// its picture whatever layout came before.
TScreenLayout ArrangementLayout(int code, const QRect &screen, const QSize &main, const QSize &grid);

#pragma once
// Judging a solve: the solver's letters against the solution, square by square.

#include "model/puzzle.h"

#include <QColor>
#include <QLine>
#include <QList>
#include <QPoint>

#include <array>

// Correct when every square of the grid is black or holds the solution's byte exactly; an
// empty entry where the solution has a letter is an error.
bool IsPuzzleCorrect(const TPuzzle &p);
// The (column, row) of every wrong or empty square, rows outer, columns inner.
QList<QPoint> ErrorSquares(const TPuzzle &p);
// The red cross drawn inside square (c, r) to mark an error.
std::array<QLine, 2> ErrorCross(int c, int r, int squareSize);
// Empties the solver's letters of every square of the grid.
void ClearEntries(TPuzzle &p);
// The celebration's colours, index 1 to 8: maroon, purple, teal, red, lime, blue, fuchsia, aqua.
QColor CelebrateColor(int index);

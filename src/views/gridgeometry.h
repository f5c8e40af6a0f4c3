#pragma once
// Where the squares of the grid are on screen and which squares a word or a symmetric
// partner covers: shared by the grid window, the clue list and every painter of a grid.

#include "model/puzzle.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

// The side of one grid square in pixels, shared by the whole program; 0 until the grid
// window has been shown.
extern int SquareSize;

// Spare pixels around the squares of the grid window (its client area is this much larger).
constexpr int GridWindowMargin = 9;

// The colour the grid's highlight takes to mean "restore the blank colour" (0x00BBGGRR).
constexpr uint32_t RestoreColorRef = 0xFFFFFF;

// The (column, row) of a pixel point: x div squareSize + 1, y div squareSize + 1, with the
// division truncating toward zero. A square size below 1 gives (0, 0), outside every grid.
QPoint CellAt(QPoint point, int squareSize = SquareSize);
// The top-left pixel of the square at column c, row r.
QPoint CellTopLeft(int c, int r, int squareSize = SquareSize);
// The top-left pixel of the square that holds `point`.
QPoint CellOrigin(QPoint point, int squareSize = SquareSize);
// The square's rectangle, one pixel larger than the square on the right and bottom, so
// that neighbours share their outline.
QRect CellOutline(int c, int r, int squareSize = SquareSize);

// The square that changes with (c, r) when a black square is set: symmetry 1 turns the
// grid half a turn about its centre, 2 mirrors it across the vertical centre line; 0 (or
// any other value) has no partner. A square may be its own partner.
std::optional<QPoint> SymmetryPartner(int c, int r, int size, int symmetry);

// The squares the highlight of a word covers from (c, r): that square, then onward along
// the direction (1 across, anything else down) until a black square or the grid's edge.
// The first square is always included.
QList<QPoint> HighlightSquares(const TPuzzle &p, int c, int r, int wordDirection);

// The first square of the word through (c, r): back along the direction (1 across,
// anything else down) while the square before exists and is not black.
QPoint WordStart(const TPuzzle &p, int c, int r, int wordDirection);

// The middle column and row, through which the guidelines run.
constexpr int MiddleLine(int size)
{
    return size / 2 + 1;
}

// The letter size for a square size: round(fontSize x squareSize / maxSquareSize), at
// least 1 point. Without a reference size the font is used as it is.
int ScaledFontSize(int fontSize, int squareSize, int maxSquareSize);

// The grid window's client width and height: the squares and the margin.
constexpr int GridWindowExtent(int size, int squareSize)
{
    return size * squareSize + GridWindowMargin;
}

// The square size for a new window width: width div size; at least 1. A width that is
// already the snapped extent of `current` keeps it, so a small grid (whose margin is a
// whole square or more) does not creep wider with each snap.
int SquareSizeForWidth(int width, int size, int current);

// The window's top-left from a bounds setting "left,top,width,height"; (2, 2) when the
// setting is empty or unreadable.
QPoint GridWindowOrigin(const QString &bounds);

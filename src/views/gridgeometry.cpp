#include "views/gridgeometry.h"

#include "settings/txwdprocs.h"

#include <algorithm>
#include <cmath>

int SquareSize = 0;

QPoint CellAt(QPoint point, int squareSize)
{
    if (squareSize < 1)
        return {0, 0};
    return {point.x() / squareSize + 1, point.y() / squareSize + 1};
}

QPoint CellTopLeft(int c, int r, int squareSize)
{
    return {(c - 1) * squareSize, (r - 1) * squareSize};
}

QPoint CellOrigin(QPoint point, int squareSize)
{
    const QPoint cell = CellAt(point, squareSize);
    return CellTopLeft(cell.x(), cell.y(), squareSize);
}

QRect CellOutline(int c, int r, int squareSize)
{
    return QRect(CellTopLeft(c, r, squareSize), QSize(squareSize + 1, squareSize + 1));
}

std::optional<QPoint> SymmetryPartner(int c, int r, int size, int symmetry)
{
    switch (symmetry) {
    case 1: return QPoint(size - c + 1, size - r + 1);
    case 2: return QPoint(size - c + 1, r);
    default: return std::nullopt;
    }
}

QList<QPoint> HighlightSquares(const TPuzzle &p, int c, int r, int wordDirection)
{
    QList<QPoint> squares;
    const bool across = wordDirection == 1;
    for (;;) {
        squares.append({c, r});
        if (across)
            ++c;
        else
            ++r;
        if (c > p.Size || r > p.Size || p.isBlock(c, r))
            break;
    }
    return squares;
}

QPoint WordStart(const TPuzzle &p, int c, int r, int wordDirection)
{
    if (wordDirection == 1) {
        while (c > 1 && !p.isBlock(c - 1, r))
            --c;
    } else {
        while (r > 1 && !p.isBlock(c, r - 1))
            --r;
    }
    return {c, r};
}

int ScaledFontSize(int fontSize, int squareSize, int maxSquareSize)
{
    if (maxSquareSize < 1)
        return std::max(1, fontSize);
    const long scaled = std::lround(double(fontSize) * squareSize / maxSquareSize);
    return std::max(1, int(scaled));
}

int SquareSizeForWidth(int width, int size, int current)
{
    if (size < 1)
        return current;
    if (current >= 1 && width == GridWindowExtent(size, current))
        return current;
    return std::max(1, width / size);
}

QPoint GridWindowOrigin(const QString &bounds)
{
    const std::optional<QRect> rect = ParseBounds(bounds);
    return rect ? rect->topLeft() : QPoint(2, 2);
}

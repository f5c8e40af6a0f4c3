#include "solving/scoring.h"

bool IsPuzzleCorrect(const TPuzzle &p)
{
    return ErrorSquares(p).isEmpty();
}

QList<QPoint> ErrorSquares(const TPuzzle &p)
{
    QList<QPoint> errors;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c)
            if (!p.isBlock(c, r) && p.Entries(c, r) != p.Cells(c, r))
                errors.append(QPoint(c, r));
    return errors;
}

std::array<QLine, 2> ErrorCross(int c, int r, int squareSize)
{
    const int left = (c - 1) * squareSize + 6, top = (r - 1) * squareSize + 6;
    const int right = c * squareSize - 5, bottom = r * squareSize - 5;
    return {QLine(left, top, right, bottom), QLine(right, top, left, bottom)};
}

void ClearEntries(TPuzzle &p)
{
    for (int c = 1; c <= p.Size; ++c)
        for (int r = 1; r <= p.Size; ++r)
            p.Entries(c, r) = 0;
}

QColor CelebrateColor(int index)
{
    static const QColor colors[] = {QColor(0x80, 0, 0),    QColor(0x80, 0, 0x80), QColor(0, 0x80, 0x80),
                                    QColor(0xFF, 0, 0),    QColor(0, 0xFF, 0),    QColor(0, 0, 0xFF),
                                    QColor(0xFF, 0, 0xFF), QColor(0, 0xFF, 0xFF)};
    return index >= 1 && index <= 8 ? colors[index - 1] : QColor();
}

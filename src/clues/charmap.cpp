#include "clues/charmap.h"

#include <QtMath>

namespace {

struct SpecialCell {
    int col;
    int row;
    const char *text;
};

// The cells whose plain code would be a less useful character.
constexpr SpecialCell SpecialCells[] = {
    {0, 0, "___"},  {3, 0, "\xA1"}, {5, 0, "\x85"}, {7, 0, "\x96"}, {8, 0, "\x97"}, {9, 0, "\xA9"},
    {1, 1, "\x91"}, {2, 1, "\x92"}, {3, 1, "\x93"}, {4, 1, "\x94"}, {9, 1, "\xAE"}, {2, 2, "\x9A"},
    {3, 2, "\x8A"}, {5, 9, "\x83"}, {6, 9, "\x8C"}, {7, 9, "\x9C"}, {8, 9, "\x9F"}, {9, 9, "\x99"},
};

}  // namespace

QByteArray CharMapCell(int col, int row)
{
    for (const SpecialCell &cell : SpecialCells)
        if (cell.col == col && cell.row == row)
            return QByteArray(cell.text);
    return QByteArray(1, char((161 + col + 10 * row) % 256));
}

int CharMapScaled(int pixels, qreal dpi)
{
    return qRound(pixels * dpi / 96.0);
}

QString InsertBeforeSelection(const QString &text, int start, int length, const QString &insertion, int *caret)
{
    start = qBound(0, start, int(text.size()));
    length = qBound(0, length, int(text.size()) - start);
    const QString selected = text.mid(start, length);
    if (caret)
        *caret = start + int(insertion.size() + selected.size());
    return text.left(start) + insertion + selected + text.mid(start + length);
}

#include "fill/slots.h"

#include "fill/patternindex.h"

QList<TFillSlot> FillSlots(const TPuzzle &p)
{
    QList<TFillSlot> all;
    for (const TWordRef &w : WordsInSlotOrder(p))
        all.append(SlotThrough(p, w.Column, w.Row, w.Dir));
    return all;
}

TFillSlot SlotThrough(const TPuzzle &p, int c, int r, Direction d)
{
    if (!p.inGrid(c, r) || p.isBlock(c, r))
        return {};
    const int dc = d == Direction::Across ? 1 : 0;
    const int dr = 1 - dc;
    while (p.inGrid(c - dc, r - dr) && !p.isBlock(c - dc, r - dr)) {
        c -= dc;
        r -= dr;
    }
    TFillSlot slot{c, r, d, 0};
    while (p.inGrid(c, r) && !p.isBlock(c, r)) {
        ++slot.Length;
        c += dc;
        r += dr;
    }
    if (slot.Length < 2)
        return {};
    return slot;
}

QByteArray SlotPattern(const TPuzzle &p, const TFillSlot &slot)
{
    QByteArray pattern(slot.Length, AnyLetter);
    for (int i = 0; i < slot.Length; ++i) {
        const QPoint sq = slot.square(i);
        const uint8_t cell = p.Cells(sq.x(), sq.y());
        if (cell != 0 && cell != OpenChar)
            pattern[i] = char(cell);
    }
    return pattern;
}

#pragma once
// The grid's words as fill slots: where each starts, its direction and length, the squares
// it crosses, and its letters as a pattern for the index.

#include "fill/wordlist.h"
#include "model/puzzle.h"

#include <QByteArray>
#include <QList>
#include <QPoint>

struct TFillSlot {
    int Column = 0;
    int Row = 0;
    Direction Dir = Direction::Across;
    int Length = 0;  // 0: no word (a black square, or a single open square)

    bool isValid() const { return Length >= 2; }
    // The i-th square (from 0) as (column, row).
    QPoint square(int i) const
    {
        return Dir == Direction::Across ? QPoint(Column + i, Row) : QPoint(Column, Row + i);
    }
    bool contains(int c, int r) const
    {
        const int i = Dir == Direction::Across ? c - Column : r - Row;
        return isValid() && i >= 0 && i < Length && square(i) == QPoint(c, r);
    }
    bool operator==(const TFillSlot &) const = default;
};

// Every word of the grid, in slot order.
QList<TFillSlot> FillSlots(const TPuzzle &p);
// The word through square (c, r) in direction d; an invalid slot when there is none.
TFillSlot SlotThrough(const TPuzzle &p, int c, int r, Direction d);
// The slot's letters, "?" for an empty or open square.
QByteArray SlotPattern(const TPuzzle &p, const TFillSlot &slot);

#pragma once
// The definition list's lines: every clue beside its printed number and its answer, one
// list across and one down, and the way a clicked line leads back to its word. Lines are
// puzzle bytes (Windows-1252); the window converts them for display.

#include "model/puzzle.h"

#include <QByteArray>
#include <QList>

// The printed number right-aligned for a proportional font, where a digit is about two
// spaces wide: four spaces and 1 to 9, two spaces and 10 to 99, 100 and above alone.
QByteArray PadNumber(int number);
// "    7  Feline  | CAT": padded number, two spaces, the clue, "  | ", the answer.
QByteArray DefLine(int number, const QByteArray &clue, const QByteArray &answer);

struct TDefLists {
    QList<QByteArray> Across;
    QList<QByteArray> Down;
};
// Both lists in reading order, each line with the clue of the slot stored at its square.
TDefLists FillDefLists(const TPuzzle &p);

// What a line names: the number read back from its leading spaces and the answer after
// its "| " (at most 23 characters).
struct TDefLineRef {
    int Number = 0;
    QByteArray Answer;
};
TDefLineRef ReadDefLine(const QByteArray &line);

// Where a clicked line leads: the walk state Autoclue takes.
struct TDefListTarget {
    bool Found = false;
    int Col = 0;
    int Row = 0;
    int Number = 0;
    int Slot = 0;
    char Dir = 'a';
};
// Walks every square in reading order with a number counter and a slot counter; the last
// square whose word in direction `d` has the line's answer and whose number counter equals
// the line's number wins.
TDefListTarget FindDefLineWord(const TPuzzle &p, const QByteArray &line, Direction d);

// The first line that begins with PadNumber(number), or -1.
int FindDefLineIndex(const QList<QByteArray> &lines, int number);

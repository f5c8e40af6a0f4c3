#include "clues/autocluewalk.h"

#include "mainwindow/puzzlesession.h"

namespace {

bool startsAcross(int c, int r)
{
    return Puzzle.IsAcrossStart(c, r);
}

bool startsDown(int c, int r)
{
    return Puzzle.IsDownStart(c, r);
}

// A slot outside the record, or 0 (not attached yet), reads as an empty clue.
QByteArray clueInSlot(int slot)
{
    return slot >= 1 && slot <= ClueSlots ? Puzzle.clue(slot) : QByteArray();
}

}  // namespace

QString WalkNumberCaption(int number, char dir)
{
    return QString::number(number) + (dir == 'a' ? QStringLiteral("  Across") : QStringLiteral("  Down"));
}

void TAutoclueWalk::Reset()
{
    WalkCol = 0;
    WalkRow = 1;
    WalkNumber = 0;
    WalkSlot = 0;
    WalkDir = ClueAcrossThenDown ? 'a' : 'd';
}

void TAutoclueWalk::ResetForGrid()
{
    WalkCol = 0;
    WalkRow = 1;
    WalkNumber = 0;
    WalkSlot = 0;
    WalkDir = 'd';
}

QByteArray TAutoclueWalk::ChooseTarget(int gridDirection, int cursorCol, int cursorRow)
{
    if (gridDirection == 1 && startsAcross(cursorCol, cursorRow))
        return Puzzle.GetWord(cursorCol, cursorRow, 'a');
    if (gridDirection == 2 && startsDown(cursorCol, cursorRow))
        return Puzzle.GetWord(cursorCol, cursorRow, 'd');
    return AnyWord;
}

void TAutoclueWalk::WalkTo(const QByteArray &target)
{
    if (ClueAcrossThenDown)
        ThreadForward(target);
    else
        StepForward(target);
}

bool TAutoclueWalk::advanceSquare()
{
    if (++WalkCol > Puzzle.Size) {
        WalkCol = 1;
        ++WalkRow;
    }
    return WalkRow <= Puzzle.Size;
}

bool TAutoclueWalk::retreatSquare()
{
    if (--WalkCol < 1) {
        WalkCol = Puzzle.Size;
        --WalkRow;
    }
    return WalkRow >= 1;
}

bool TAutoclueWalk::matches(const QByteArray &target, Direction d) const
{
    if (target == AnyWord)
        return true;
    if (target.isEmpty())
        return clueInSlot(Puzzle.slotAt(WalkCol, WalkRow, d)).isEmpty();
    // A word target only ever matches in the direction the user is typing in the grid.
    const int wordDirection = d == Direction::Across ? 1 : 2;
    return listener_.GridWordDirection() == wordDirection
           && Puzzle.GetWord(WalkCol, WalkRow, char(d)) == target;
}

void TAutoclueWalk::StepForward(const QByteArray &target)
{
    WalkFound = false;
    for (;;) {
        if (WalkDir == 'd') {
            if (!advanceSquare())
                RestartWalk(false);
            WalkDir = 'a';
            if (startsAcross(WalkCol, WalkRow)) {
                if (++WalkSlot > MaxWords) {
                    listener_.WordLimitExceeded();
                    return;
                }
                ++WalkNumber;
                if (matches(target, Direction::Across))
                    WalkFound = true;
            }
        }
        if (WalkDir == 'a' && !WalkFound) {
            WalkDir = 'd';
            if (startsDown(WalkCol, WalkRow)) {
                if (++WalkSlot > MaxWords) {
                    listener_.WordLimitExceeded();
                    return;
                }
                // A square that starts both words carries one number.
                if (!startsAcross(WalkCol, WalkRow))
                    ++WalkNumber;
                if (matches(target, Direction::Down))
                    WalkFound = true;
            }
        }
        if (WalkFound) {
            listener_.ShowCurrentWord(WalkDir);
            return;
        }
    }
}

void TAutoclueWalk::StepBack()
{
    WalkFound = false;
    for (;;) {
        if (WalkDir == 'a') {
            if (!retreatSquare())
                break;
            WalkDir = 'd';
            if (startsDown(WalkCol, WalkRow)) {
                --WalkSlot;
                --WalkNumber;
                WalkFound = true;
            }
        }
        if (WalkDir == 'd' && !WalkFound) {
            WalkDir = 'a';
            if (startsAcross(WalkCol, WalkRow)) {
                --WalkSlot;
                if (!startsDown(WalkCol, WalkRow))
                    --WalkNumber;
                WalkFound = true;
            }
        }
        if (WalkFound) {
            listener_.ShowCurrentWord(WalkDir);
            return;
        }
    }
    // Before the first word: back to it, and the display stays as it is.
    RestartWalk(true);
    listener_.FirstWordPassed();
}

void TAutoclueWalk::ThreadForward(const QByteArray &target)
{
    WalkFound = false;
    while (!WalkFound) {
        if (WalkDir == 'a') {
            // The down word of the square being left keeps its place in the slot count.
            if (startsAcross(WalkCol, WalkRow) && startsDown(WalkCol, WalkRow))
                ++WalkSlot;
            if (!advanceSquare()) {
                WalkDir = 'd';
                WalkCol = 0;
                WalkRow = 1;
                WalkSlot = 0;
                WalkNumber = 0;
                continue;
            }
            const bool across = startsAcross(WalkCol, WalkRow);
            if (across || startsDown(WalkCol, WalkRow)) {
                ++WalkSlot;
                ++WalkNumber;
            }
            if (WalkSlot > MaxWords) {
                listener_.WordLimitExceeded();
                return;
            }
            if (across && matches(target, Direction::Across))
                WalkFound = true;
        } else {
            if (!advanceSquare()) {
                // Past the last square: back to the last down word, with its slot found
                // again from the clue on display and its number from the number label.
                while (retreatSquare() && !startsDown(WalkCol, WalkRow)) {
                }
                const QByteArray shown = listener_.ClueText();
                while (WalkSlot > 0) {
                    --WalkSlot;
                    if (Puzzle.clue(WalkSlot + 1) == shown)
                        break;
                }
                WalkNumber = listener_.NumberCaption().section(u' ', 0, 0).toInt() - 1;
                listener_.NoMoreClues();
                WalkFound = true;
            }
            const bool across = startsAcross(WalkCol, WalkRow);
            const bool down = startsDown(WalkCol, WalkRow);
            WalkSlot += int(across) + int(down);
            if (across || down)
                ++WalkNumber;
            if (WalkSlot > MaxWords) {
                listener_.WordLimitExceeded();
                return;
            }
            if (down && matches(target, Direction::Down))
                WalkFound = true;
        }
    }
    listener_.ShowCurrentWord(WalkDir);
}

void TAutoclueWalk::ThreadBack()
{
    if (WalkDir == 'a') {
        for (;;) {
            if (!retreatSquare()) {
                // Before the first across word: back to it, counters as they are.
                WalkCol = 0;
                WalkRow = 1;
                while (advanceSquare() && !startsAcross(WalkCol, WalkRow)) {
                }
                listener_.FirstWordPassed();
                break;
            }
            const bool across = startsAcross(WalkCol, WalkRow);
            const bool down = startsDown(WalkCol, WalkRow);
            WalkSlot -= int(across) + int(down);
            if (across || down)
                --WalkNumber;
            if (across)
                break;
        }
        listener_.ShowCurrentWord(WalkDir);
        return;
    }

    for (;;) {
        if (startsAcross(WalkCol, WalkRow))
            --WalkSlot;
        if (!retreatSquare())
            break;
        const bool across = startsAcross(WalkCol, WalkRow);
        const bool down = startsDown(WalkCol, WalkRow);
        if (down)
            --WalkSlot;
        if (across || down)
            --WalkNumber;
        if (down) {
            listener_.ShowCurrentWord('d');
            return;
        }
    }

    // Before the first down word: on to the last across word, its slot read from the grid
    // and its number counted afresh.
    WalkDir = 'a';
    WalkRow = Puzzle.Size;
    WalkCol = Puzzle.Size;
    while (WalkCol > 0 && !startsAcross(WalkCol, WalkRow))
        --WalkCol;
    WalkSlot = Puzzle.slotAt(WalkCol, WalkRow, Direction::Across);
    WalkNumber = 0;
    bool counted = false;
    for (int r = 1; r <= Puzzle.Size && !counted; ++r)
        for (int c = 1; c <= Puzzle.Size && !counted; ++c) {
            if (startsAcross(c, r) || startsDown(c, r))
                ++WalkNumber;
            counted = Puzzle.slotAt(c, r, Direction::Across) == WalkSlot;
        }
    listener_.ShowCurrentWord(WalkDir);
}

void TAutoclueWalk::RestartWalk(bool atStart)
{
    if (atStart) {
        WalkRow = 1;
        WalkCol = 0;
        do
            ++WalkCol;
        while (WalkCol < Puzzle.Size && !startsAcross(WalkCol, 1) && !startsDown(WalkCol, 1));
        WalkDir = startsAcross(WalkCol, WalkRow) ? 'a' : 'd';
        WalkNumber = 1;
        WalkSlot = 1;
        return;
    }

    WalkCol = Puzzle.Size;
    WalkRow = Puzzle.Size;
    while (!startsAcross(WalkCol, WalkRow) && retreatSquare()) {
    }
    // The caller's across test counts them up again, so the walk ends on this word.
    --WalkNumber;
    --WalkSlot;
    listener_.NoMoreClues();
    WalkFound = true;
}

bool TAutoclueWalk::StoreClue(const QByteArray &text)
{
    if (!Puzzle.inGrid(WalkCol, WalkRow))
        return false;
    const Direction d = CurrentDirection();
    if (clueInSlot(Puzzle.slotAt(WalkCol, WalkRow, d)) == text)
        return false;
    if (WalkSlot < 1 || WalkSlot > ClueSlots)
        return false;
    Session().SetClue(WalkCol, WalkRow, d, WalkSlot, text.left(MaxClueLength));
    return true;
}

QByteArray TAutoclueWalk::CurrentWord() const
{
    return Puzzle.GetWord(WalkCol, WalkRow, WalkDir);
}

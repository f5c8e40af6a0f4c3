#include "model/puzzle.h"

TPuzzle Puzzle;

bool TPuzzle::IsAcrossStart(int c, int r) const
{
    if (isBlock(c, r))
        return false;
    if (c == 1 && !isBlock(2, r))
        return true;
    return isBlock(c - 1, r) && !isBlock(c + 1, r) && c < Size;
}

bool TPuzzle::IsDownStart(int c, int r) const
{
    if (isBlock(c, r))
        return false;
    if (r == 1 && !isBlock(c, 2))
        return true;
    return isBlock(c, r - 1) && !isBlock(c, r + 1) && r < Size;
}

QByteArray TPuzzle::GetWord(int c, int r, char direction) const
{
    const bool across = direction == 'a';
    QByteArray word;
    for (;;) {
        if (word.size() < MaxClueLength) {
            const uint8_t cell = Cells(c, r);
            word.append(cell == OpenChar ? '?' : char(cell));
        }
        if (across)
            ++c;
        else
            ++r;
        if (isBlock(c, r) || c > Size || (!across && r > Size))
            return word;
    }
}

bool TPuzzle::IsGridFull() const
{
    for (int c = 1; c <= Size; ++c)
        for (int r = 1; r <= Size; ++r)
            if (Cells(c, r) == 0)
                return false;
    return true;
}

void TPuzzle::ClearPuzzle(int size, char variant, const QByteArray &byline, uint8_t language)
{
    Size = int16_t(size);
    for (int i = 0; i < MaxGrid * MaxGrid; ++i) {
        if (!(variant == 'C' && Cells.Data[i] == BlockChar))
            Cells.Data[i] = 0;
        Entries.Data[i] = 0;
        CellWords.Data[i] = TCellWords{};
    }
    for (auto &clue : Clues)
        clue.setText({});
    Byline.setText(byline);
    Language = language;
}

TGridArray<int> SquareNumbers(const TPuzzle &p)
{
    TGridArray<int> numbers;
    for (const TWordRef &w : WordsInSlotOrder(p))
        numbers(w.Column, w.Row) = w.Number;
    return numbers;
}

QList<TWordRef> WordsInSlotOrder(const TPuzzle &p)
{
    QList<TWordRef> words;
    int number = 0;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            const bool across = p.IsAcrossStart(c, r);
            const bool down = p.IsDownStart(c, r);
            if (across || down)
                ++number;
            if (across)
                words.append({number, Direction::Across, c, r, int(words.size()) + 1});
            if (down)
                words.append({number, Direction::Down, c, r, int(words.size()) + 1});
        }
    return words;
}

int WordCount(const TPuzzle &p)
{
    return int(WordsInSlotOrder(p).size());
}

int BlackSquareCount(const TPuzzle &p)
{
    int count = 0;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c)
            count += int(p.isBlock(c, r));
    return count;
}

#include "clues/deflist.h"

namespace {

constexpr int LongestAnswer = MaxGrid;

}  // namespace

QByteArray PadNumber(int number)
{
    const QByteArray digits = QByteArray::number(number);
    if (number >= 1 && number <= 9)
        return "    " + digits;
    if (number >= 10 && number <= 99)
        return "  " + digits;
    return digits;
}

QByteArray DefLine(int number, const QByteArray &clue, const QByteArray &answer)
{
    return PadNumber(number) + "  " + clue + "  | " + answer;
}

TDefLists FillDefLists(const TPuzzle &p)
{
    TDefLists lists;
    for (const TWordRef &w : WordsInSlotOrder(p))
        (w.Dir == Direction::Across ? lists.Across : lists.Down)
            .append(DefLine(w.Number, p.wordClue(w.Column, w.Row, w.Dir), p.GetWord(w.Column, w.Row, char(w.Dir))));
    return lists;
}

TDefLineRef ReadDefLine(const QByteArray &line)
{
    TDefLineRef ref;
    const int bar = line.indexOf("| ");
    if (bar >= 0)
        ref.Answer = line.mid(bar + 2, LongestAnswer);
    QByteArray digits;
    if (line.startsWith("    "))
        digits = line.mid(4, 1);
    else if (line.startsWith("  "))
        digits = line.mid(2, 2);
    else
        digits = line.left(3);
    ref.Number = digits.trimmed().toInt();
    return ref;
}

TDefListTarget FindDefLineWord(const TPuzzle &p, const QByteArray &line, Direction d)
{
    const TDefLineRef ref = ReadDefLine(line);
    const char dir = char(d);
    TDefListTarget target;
    int number = 0;
    int slot = 0;
    // Every square is tested, not only word starts, and the walk goes on after a match.
    for (int r = 1; r <= p.Size; ++r) {
        for (int c = 1; c <= p.Size; ++c) {
            const bool across = p.IsAcrossStart(c, r);
            const bool down = p.IsDownStart(c, r);
            if (across || down)
                ++number;
            if (across)
                ++slot;
            if (down && d == Direction::Down)
                ++slot;
            if (p.GetWord(c, r, dir) == ref.Answer && number == ref.Number)
                target = {true, c, r, number, slot, dir};
            if (down && d == Direction::Across)
                ++slot;
        }
    }
    return target;
}

int FindDefLineIndex(const QList<QByteArray> &lines, int number)
{
    const QByteArray prefix = PadNumber(number);
    for (int i = 0; i < lines.size(); ++i)
        if (lines[i].startsWith(prefix))
            return i;
    return -1;
}

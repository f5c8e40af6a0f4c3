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
    const QList<TWordRef> words = WordsInSlotOrder(p);
    qsizetype reached = 0;  // words starting at or before the square tested
    int number = 0;         // the last number met, carried over the squares that start nothing
    // Every square is tested, not only word starts, and the walk goes on after a match.
    for (int r = 1; r <= p.Size; ++r) {
        for (int c = 1; c <= p.Size; ++c) {
            const qsizetype before = reached;
            while (reached < words.size() && words[reached].Column == c && words[reached].Row == r)
                ++reached;
            if (reached > before)
                number = words[before].Number;
            // An across list's slot leaves out the down word of the square it tests.
            int slot = int(reached);
            if (d == Direction::Across && reached > before && words[reached - 1].Dir == Direction::Down)
                --slot;
            if (p.GetWord(c, r, dir) == ref.Answer && number == ref.Number)
                target = {true, c, r, number, slot, dir};
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

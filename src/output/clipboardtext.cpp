#include "output/clipboardtext.h"

QByteArray ClueListLine(int number, const QByteArray &clue)
{
    return QByteArray::number(number).rightJustified(3, ' ') + ' ' + clue;
}

QByteArray ClueListText(const TPuzzle &p)
{
    QByteArray lists[2];
    for (const TWordRef &w : WordsInSlotOrder(p))
        lists[w.Dir == Direction::Down] += ClueListLine(w.Number, p.wordClue(w.Column, w.Row, w.Dir)).left(255) + "\r\n";
    return "ACROSS\r\n" + lists[0] + "DOWN\r\n" + lists[1];
}

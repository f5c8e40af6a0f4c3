#include "output/clipboardtext.h"

namespace {

QByteArray slotClue(const TPuzzle &p, int slot)
{
    return slot >= 1 && slot <= ClueSlots ? p.clue(slot) : QByteArray();
}

}  // namespace

QByteArray ClueListLine(int number, const QByteArray &clue)
{
    return QByteArray::number(number).rightJustified(3, ' ') + ' ' + clue;
}

QByteArray ClueListText(const TPuzzle &p)
{
    QByteArray text = "ACROSS\r\n";
    QByteArray downs;
    int number = 0;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            const bool across = p.IsAcrossStart(c, r);
            const bool down = p.IsDownStart(c, r);
            if (!across && !down)
                continue;
            ++number;
            if (across)
                text += ClueListLine(number, slotClue(p, p.CellWords(c, r).AcrossSlot)).left(255) + "\r\n";
            if (down)
                downs += ClueListLine(number, slotClue(p, p.CellWords(c, r).DownSlot)).left(255) + "\r\n";
        }
    return text + "DOWN\r\n" + downs;
}

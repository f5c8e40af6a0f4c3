#include "views/cluelayout.h"

#include <algorithm>

namespace {

const QString Space = QStringLiteral(" ");
const QString Em = QStringLiteral("M");

// Moves the last character of `from` to the front of `to`.
void moveLastChar(QString &from, QString &to)
{
    to.prepend(from.back());
    from.chop(1);
}

void dropLeadingSpace(QString &line)
{
    if (line.startsWith(u' '))
        line.remove(0, 1);
}

}  // namespace

TTextMeasure MeasureOf(const QFontMetrics &metrics)
{
    return TTextMeasure{[metrics](const QString &text) { return metrics.horizontalAdvance(text); },
                        metrics.height()};
}

QList<QByteArray> ClueListItems(const TPuzzle &p)
{
    QList<QByteArray> items;
    for (const TWordRef &w : WordsInSlotOrder(p))
        items.append(p.wordClue(w.Column, w.Row, w.Dir));
    return items;
}

int ClueListMeasureItem(const QString &text, const TTextMeasure &measure, int listWidth, int scrollBarWidth,
                        int lineHeight)
{
    const int available = listWidth - scrollBarWidth;
    lineHeight = std::max(lineHeight, measure.Height);
    int height = lineHeight;
    if (measure.Width(text) > available) {
        height += lineHeight;
        QString first = text;
        QString second;
        const int slack = available + measure.Width(Space);
        while (first.contains(u' ') && !(first.endsWith(u' ') && measure.Width(first) <= slack))
            moveLastChar(first, second);
        if (measure.Width(Em + second) > available)
            height += lineHeight;
    }
    return height + 2;
}

TClueItemLayout ClueListDrawLayout(const QString &text, const TTextMeasure &measure, int listWidth,
                                   int scrollBarWidth, int itemHeight, int lineHeight)
{
    const int available = listWidth - scrollBarWidth - 4;
    const int em = measure.Width(Em);
    TClueItemLayout layout;
    QString &first = layout.Lines[0];
    QString &second = layout.Lines[1];
    QString &third = layout.Lines[2];
    first = text;

    if (itemHeight > std::max(lineHeight, measure.Height) + 2) {
        if (measure.Width(first) > available) {
            while (first.contains(u' ')
                   && !(measure.Width(first) < available && second.startsWith(u' ')))
                moveLastChar(first, second);
            dropLeadingSpace(second);
        }
        if (measure.Width(second) > available) {
            while (second.contains(u' ')
                   && !(measure.Width(second) < available - em && third.startsWith(u' ')))
                moveLastChar(second, third);
            dropLeadingSpace(third);
        }
    }

    // Continuation lines hang one "M" in from the first.
    const int lineStep = measure.Height;
    layout.Origins[0] = QPoint(2, 0);
    layout.Origins[1] = QPoint(2 + em, lineStep - 1);
    layout.Origins[2] = QPoint(2 + em, 2 * lineStep - 1);
    return layout;
}

TClueListPick ClueListPickWord(const TPuzzle &p, int slot, int wordDirection, int squareSize)
{
    TClueListPick pick{QPoint(0, 0), wordDirection};
    int r = 1;
    do {
        int c = 1;
        do {
            const TCellWords words = p.CellWords(c, r);
            if (words.AcrossSlot == slot || words.DownSlot == slot) {
                pick.Point = QPoint((c - 1) * squareSize, (r - 1) * squareSize);
                pick.WordDirection = words.AcrossSlot == slot ? 1 : 2;
            }
            ++c;
        } while (c <= p.Size && pick.WordDirection == 0);
        ++r;
    } while (r <= p.Size && pick.WordDirection == 0);
    return pick;
}

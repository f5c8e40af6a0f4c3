#include "inspect/scangrid.h"

namespace {

// A word start in scan order: rows from the top, columns from the left, across first.
struct TStart {
    int Column;
    int Row;
    int Direction;
};

QList<TStart> startsInScanOrder(const TPuzzle &p)
{
    QList<TStart> starts;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            if (p.IsAcrossStart(c, r))
                starts.append({c, r, 1});
            if (p.IsDownStart(c, r))
                starts.append({c, r, 2});
        }
    return starts;
}

QByteArray wordAt(const TPuzzle &p, const TStart &s)
{
    return p.GetWord(s.Column, s.Row, s.Direction == 1 ? 'a' : 'd');
}

}  // namespace

QList<TScanItem> ScanFor(const TPuzzle &p, const QByteArray &text)
{
    QList<TScanItem> items;
    // A typed text never holds an empty square, so nothing matches one that claims to.
    if (text.isEmpty() || text.contains('\0'))
        return items;
    for (const TStart &s : startsInScanOrder(p)) {
        const QByteArray word = wordAt(p, s);
        if (word.contains(text))
            items.append({word, s.Column, s.Row, s.Direction});
    }
    return items;
}

bool WordsAlike(const QByteArray &a, const QByteArray &b)
{
    if (a.contains('\0') || b.contains('\0'))
        return false;
    return a.left(3) == b.left(3) || a.right(3) == b.right(3);
}

TScanResult ScanAll(const TPuzzle &p)
{
    TScanResult result;
    // Each word is compared with the words after it only (its own square's down word
    // counts as after its across word), so no pair is listed twice.
    const QList<TStart> starts = startsInScanOrder(p);
    QList<QByteArray> words;
    words.reserve(starts.size());
    for (const TStart &s : starts)
        words.append(wordAt(p, s));
    for (qsizetype i = 0; i < starts.size(); ++i) {
        bool listed = false;
        for (qsizetype j = i + 1; j < starts.size(); ++j) {
            if (!WordsAlike(words[i], words[j]))
                continue;
            if (!listed) {
                result.Items.append({words[i], starts[i].Column, starts[i].Row, starts[i].Direction});
                listed = true;
            }
            QByteArray text = "    " + words[j];
            if (words[j] == words[i]) {
                text += ' ';
                result.Repeats = true;
            }
            result.Items.append({text, starts[j].Column, starts[j].Row, starts[j].Direction});
        }
    }
    return result;
}

#include "inspect/scangrid.h"

namespace {

QByteArray wordAt(const TPuzzle &p, const TWordRef &w)
{
    return p.GetWord(w.Column, w.Row, char(w.Dir));
}

TScanItem itemAt(const QByteArray &text, const TWordRef &w)
{
    return {text, w.Column, w.Row, w.Dir == Direction::Across ? 1 : 2};
}

}  // namespace

QList<TScanItem> ScanFor(const TPuzzle &p, const QByteArray &text)
{
    QList<TScanItem> items;
    // A typed text never holds an empty square, so nothing matches one that claims to.
    if (text.isEmpty() || text.contains('\0'))
        return items;
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QByteArray word = wordAt(p, w);
        if (word.contains(text))
            items.append(itemAt(word, w));
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
    const QList<TWordRef> starts = WordsInSlotOrder(p);
    QList<QByteArray> words;
    words.reserve(starts.size());
    for (const TWordRef &s : starts)
        words.append(wordAt(p, s));
    for (qsizetype i = 0; i < starts.size(); ++i) {
        bool listed = false;
        for (qsizetype j = i + 1; j < starts.size(); ++j) {
            if (!WordsAlike(words[i], words[j]))
                continue;
            if (!listed) {
                result.Items.append(itemAt(words[i], starts[i]));
                listed = true;
            }
            QByteArray text = "    " + words[j];
            if (words[j] == words[i]) {
                text += ' ';
                result.Repeats = true;
            }
            result.Items.append(itemAt(text, starts[j]));
        }
    }
    return result;
}

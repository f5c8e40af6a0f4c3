#include "inspect/analysis.h"

#include "clues/gridlanguage.h"

namespace {

bool blockAt(const TPuzzle &p, int c, int r)
{
    return p.inGrid(c, r) && p.isBlock(c, r);
}

void countWord(TAnalysis &a, const QByteArray &word, int &letters)
{
    if (word.size() == 2)
        ++a.TwoLetterWords;
    if (word.size() == 3)
        ++a.ThreeLetterWords;
    if (word.endsWith('S'))
        ++a.WordsEndingInS;
    letters += int(word.size());
}

}  // namespace

bool IsUnkeyed(const TPuzzle &p, int c, int r)
{
    if (p.isBlock(c, r))
        return false;
    const int last = p.Size;
    const bool across = (c == 1 && blockAt(p, 2, r)) || (c == last && blockAt(p, c - 1, r)) ||
                        (blockAt(p, c - 1, r) && blockAt(p, c + 1, r));
    const bool down = (r == 1 && blockAt(p, c, 2)) || (r == last && blockAt(p, c, r - 1)) ||
                      (blockAt(p, c, r - 1) && blockAt(p, c, r + 1));
    return across || down;
}

TAnalysis AnalysePuzzle(const TPuzzle &p)
{
    TAnalysis a;
    int letters = 0;
    QByteArray first;
    QByteArray second;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            if (IsUnkeyed(p, c, r))
                ++a.UnkeyedSquares;
            const uint8_t ch = p.Cells(c, r);
            if (ch == OpenChar)
                ++a.OpenSquares;
            else if (ch == BlockChar)
                ++a.BlackSquares;
            else if (ch >= 'A' && ch <= 'Z')
                ++a.Letters[ch - 'A'];
            if (ch == BlockChar && !p.isBlock(p.Size - c + 1, p.Size - r + 1))
                a.Symmetric = false;
        }
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QByteArray word = p.GetWord(w.Column, w.Row, char(w.Dir));
        if (w.Dir == Direction::Down) {
            ++a.DownWords;
        } else {
            if (a.AcrossWords == 0)
                first = word;
            else if (a.AcrossWords == 1)
                second = word;
            ++a.AcrossWords;
        }
        countWord(a, word, letters);
    }
    a.Words = a.AcrossWords + a.DownWords;
    a.AverageLength = a.Words > 0 ? letters / a.Words : 0;
    a.Identifier = first.contains('\0') ? QByteArray("INCOMPLETE")
                                        : first + " - " + second + "    " + QByteArray::number(p.Size) + "x";
    a.Caption = QStringLiteral("Puzzle Analysis") + GridLanguageSuffix(p.Language);
    return a;
}

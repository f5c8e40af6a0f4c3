#include "inspect/transforms.h"

#include <memory>

namespace {

// The target word read raw: an open square stays a space, so a word with one never
// matches its old reading, where it is "?".
QByteArray rawWord(const TPuzzle &p, int c, int r, bool across)
{
    QByteArray word;
    while (p.inGrid(c, r) && !p.isBlock(c, r) && word.size() < MaxClueLength) {
        word += char(p.Cells(c, r));
        across ? ++c : ++r;
    }
    return word;
}

// Gives the clue to the first target word in reading order that reads `word`.
void placeClue(TPuzzle &target, const QByteArray &word, const QByteArray &clue)
{
    for (const TWordRef &w : WordsInSlotOrder(target)) {
        if (target.Cells(w.Column, w.Row) == 0 || w.Index > ClueSlots)
            continue;
        if (rawWord(target, w.Column, w.Row, w.Dir == Direction::Across) == word) {
            target.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
            target.setClue(w.Index, clue);
            return;
        }
    }
}

}  // namespace

void TransformPuzzle(TPuzzle &p, TTransformKind kind)
{
    const int s = p.Size;
    auto target = std::make_unique<TPuzzle>();
    target->Size = p.Size;
    for (int r = 1; r <= s; ++r)
        for (int c = 1; c <= s; ++c) {
            const uint8_t ch = p.Cells(c, r);
            switch (kind) {
            case TTransformKind::Invert: target->Cells(r, c) = ch; break;
            case TTransformKind::Rotate: target->Cells(s + 1 - r, c) = ch; break;
            case TTransformKind::Flip: target->Cells(c, s + 1 - r) = ch; break;
            }
        }

    // Old clues are found by counting words in reading order, not by the slots stored in
    // the grid.
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const int k = w.Index;
        if (p.Cells(w.Column, w.Row) == 0 || k > ClueSlots || p.Clues[k - 1].isEmpty())
            continue;
        placeClue(*target, p.GetWord(w.Column, w.Row, char(w.Dir)), p.clue(k));
    }

    for (int slot = 1; slot <= MaxWords; ++slot)
        p.Clues[slot - 1] = target->Clues[slot - 1];
    for (int r = 1; r <= s; ++r)
        for (int c = 1; c <= s; ++c) {
            p.Cells(c, r) = target->Cells(c, r);
            p.CellWords(c, r) = target->CellWords(c, r);
        }
}

#include "fill/wordfinder.h"

#include <algorithm>

namespace {

Direction crossDirection(Direction d)
{
    return d == Direction::Across ? Direction::Down : Direction::Across;
}

int positionIn(const TFillSlot &slot, QPoint square)
{
    return slot.Dir == Direction::Across ? square.x() - slot.Column : square.y() - slot.Row;
}

}  // namespace

TFinderList FindCandidates(const TPatternIndex &index, const TPuzzle &grid, const TFillSlot &slot, QByteArray pattern)
{
    TFinderList list;
    const bool inGrid = slot.isValid() && pattern.size() == slot.Length;
    list.Pattern = pattern;
    list.Count = index.count(pattern);
    const int length = int(pattern.size());
    list.Possible.assign(size_t(std::max(length, 0)), TCharSet());
    if (list.Count == 0)
        return list;

    // Per square the candidate decides, how many words each letter leaves the crossing.
    struct Crossing {
        int Position;
        std::array<int, 256> Options;
    };
    std::vector<Crossing> crossings;
    if (inGrid) {
        TPuzzle p = grid;  // the typed pattern's letters stand in for the grid's
        for (int i = 0; i < length; ++i) {
            const QPoint sq = slot.square(i);
            p.Cells(sq.x(), sq.y()) = pattern[i] == AnyLetter ? 0 : uint8_t(pattern[i]);
        }
        for (int i = 0; i < length; ++i) {
            if (pattern[i] != AnyLetter)
                continue;
            const QPoint sq = slot.square(i);
            const TFillSlot cross = SlotThrough(p, sq.x(), sq.y(), crossDirection(slot.Dir));
            if (cross.isValid())
                crossings.push_back({i, index.letterCounts(SlotPattern(p, cross), positionIn(cross, sq))});
        }
    }

    list.Candidates.reserve(size_t(list.Count));
    TWordMask mask;
    index.matchMask(pattern, mask);
    for (size_t block = 0; block < mask.size(); ++block)
        for (uint64_t bits = mask[block]; bits; bits &= bits - 1) {
            TCandidate c;
            c.Id = int(block * 64) + std::countr_zero(bits);
            c.Score = index.score(length, c.Id);
            const std::string_view w = index.word(length, c.Id);
            for (const Crossing &x : crossings) {
                const int options = x.Options[uint8_t(w[size_t(x.Position)])];
                c.CrossOptions = c.CrossOptions < 0 ? options : std::min(c.CrossOptions, options);
            }
            c.DeadEnd = c.CrossOptions == 0;
            if (!c.DeadEnd) {
                ++list.Viable;
                for (int i = 0; i < length; ++i)
                    list.Possible[size_t(i)].set(uint8_t(w[size_t(i)]));
            }
            list.Candidates.push_back(c);
        }
    // The index gives them by score, then alphabetically; that order is kept on ties.
    std::stable_sort(list.Candidates.begin(), list.Candidates.end(), [](const TCandidate &a, const TCandidate &b) {
        if (a.DeadEnd != b.DeadEnd)
            return b.DeadEnd;
        if (a.Score != b.Score)
            return a.Score > b.Score;
        return a.CrossOptions > b.CrossOptions;
    });
    return list;
}

QList<QPoint> DeadSquares(const TPatternIndex &index, const TPuzzle &p)
{
    // The letters each square's across and down words allow there.
    TGridArray<TCharSet> across, down;
    TGridArray<bool> hasAcross, hasDown;
    for (const TFillSlot &slot : FillSlots(p)) {
        const QByteArray pattern = SlotPattern(p, slot);
        if (!pattern.contains(AnyLetter))
            continue;
        const std::vector<TCharSet> allowed = index.allowedLetters(pattern);
        for (int i = 0; i < slot.Length; ++i) {
            const QPoint sq = slot.square(i);
            (slot.Dir == Direction::Across ? across : down)(sq.x(), sq.y()) = allowed[size_t(i)];
            (slot.Dir == Direction::Across ? hasAcross : hasDown)(sq.x(), sq.y()) = true;
        }
    }
    QList<QPoint> dead;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            const uint8_t cell = p.Cells(c, r);
            if ((cell != 0 && cell != OpenChar) || (!hasAcross(c, r) && !hasDown(c, r)))
                continue;
            TCharSet letters;
            letters.set();
            if (hasAcross(c, r))
                letters &= across(c, r);
            if (hasDown(c, r))
                letters &= down(c, r);
            if (letters.none())
                dead.append(QPoint(c, r));
        }
    return dead;
}

std::optional<TFillSlot> MostConstrainedSlot(const TPatternIndex &index, const TPuzzle &p)
{
    std::optional<TFillSlot> best;
    int bestCount = 0;
    for (const TFillSlot &slot : FillSlots(p)) {
        const QByteArray pattern = SlotPattern(p, slot);
        if (!pattern.contains(AnyLetter))
            continue;
        const int n = index.count(pattern);
        if (!best || n < bestCount || (n == bestCount && slot.Length > best->Length)) {
            best = slot;
            bestCount = n;
        }
    }
    return best;
}

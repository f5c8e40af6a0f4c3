#pragma once
// The word finder's list for one slot: the words that fit, each checked against the words
// that cross it, viable ones first; the letters still possible under each square; the
// grid's dead squares and its most constrained word.

#include "fill/patternindex.h"
#include "fill/slots.h"

#include <QList>
#include <QPoint>

#include <optional>
#include <vector>

struct TCandidate {
    int Id = 0;  // among the index's words of the pattern's length
    int Score = 0;
    // The fewest words it leaves any crossing it decides a letter of; -1 when it decides none.
    int CrossOptions = -1;
    bool DeadEnd = false;  // some crossing is left with no possible word
};

struct TFinderList {
    QByteArray Pattern;
    int Count = 0;   // the words that fit the pattern
    int Viable = 0;  // of them, the ones that are no dead end
    std::vector<TCandidate> Candidates;  // viable first, then by score, then by crossing options
    // Under each square, the letters the viable candidates have there.
    std::vector<TCharSet> Possible;
};

// The list for `slot`. A `pattern` of the slot's length stands in for the grid's letters
// (and is checked against the crossings); of another length it is matched alone.
TFinderList FindCandidates(const TPatternIndex &index, const TPuzzle &p, const TFillSlot &slot, QByteArray pattern);
// The empty or open squares where no letter fits both the across and the down word.
QList<QPoint> DeadSquares(const TPatternIndex &index, const TPuzzle &p);
// The unfilled word with the fewest words that fit (the longer one on a tie).
std::optional<TFillSlot> MostConstrainedSlot(const TPatternIndex &index, const TPuzzle &p);

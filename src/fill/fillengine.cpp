#include "fill/fillengine.h"

#include "settings/txwdprocs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace {

// Masks of letters are 64 bits wide: every grid language's letters fit, and a list with
// more distinct letters than that has its further words left out.
constexpr int MaxLetters = 64;

// splitmix64: small, fast and the same on every platform, unlike the standard distributions.
struct TRandom {
    quint64 State;
    quint64 next()
    {
        quint64 z = (State += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    double unit() { return double(next() >> 11) * 0x1.0p-53; }
};

quint64 HashBytes(std::string_view bytes, quint64 seed)
{
    quint64 h = 1469598103934665603ULL ^ seed;
    for (char c : bytes)
        h = (h ^ uint8_t(c)) * 1099511628211ULL;
    return TRandom{h}.next();
}

// 1, 1, 2, 1, 1, 2, 4, 1, 1, 2, 1, 1, 2, 4, 8, ...: the budget of failures of each run
// between restarts, so that short runs are tried often and long runs now and then.
quint64 Luby(quint64 i)
{
    for (quint64 k = 1;; ++k) {
        if (i == (quint64(1) << k) - 1)
            return quint64(1) << (k - 1);
        if (i >= (quint64(1) << (k - 1)) && i < (quint64(1) << k) - 1)
            return Luby(i - (quint64(1) << (k - 1)) + 1);
    }
}

// The list words of one length, best first, with a bitset per (position, letter) of the
// words that have that letter there.
struct TLengthTable {
    int Count = 0;
    int Blocks = 0;
    std::vector<uint8_t> Letters;  // Count x Length letter numbers
    std::vector<int> Scores;
    std::vector<int> Source;  // index into the request's words
    std::vector<uint64_t> Bits;
    const uint64_t *with(int p, int a, int letters) const { return Bits.data() + size_t(p * letters + a) * Blocks; }
};

struct TSquare {
    int Col = 0;
    int Row = 0;
    uint64_t Mask = 0;
    int Slot[2] = {-1, -1};
    int Pos[2] = {0, 0};
    bool Fillable = false;
};

struct TSlot {
    int Ref = 0;  // index in the grid's words in slot order
    int Length = 0;
    std::vector<int> Squares;
    std::vector<int> CrossSlot;  // per position: the other open slot through the square, or -1
    std::vector<int> CrossPos;
    const TLengthTable *Table = nullptr;
    std::vector<uint64_t> Domain;  // the words that still fit, as bits
    int Size = 0;
    bool Assigned = false;
    bool Queued = false;
    int Word = -1;
    double Weight = 1;
    quint64 Rank = 0;  // random tie-break, drawn anew at each restart
};

// What a step changed, so that backtracking restores it without copying any domain.
enum class TTrailKind : uint8_t { Block, Size, Mask, Assign };
struct TTrailEntry {
    TTrailKind Kind;
    int Index;
    int Block;
    uint64_t Old;
};

enum class TOutcome { Solved, Exhausted, Budget, Stop };

class TEngine {
public:
    explicit TEngine(const TFillRequest &request) : request_(request), rng_{request.Seed * 0x2545f4914f6cdd1dULL + 1} {}
    TFillResult run();

private:
    bool setUp();
    void buildTables(const std::vector<bool> &fillable);
    bool restrict(int s, const uint64_t *keep, bool remove);
    bool removeWord(int s, int w);
    bool narrowSquare(int q, uint64_t keep, int from);
    bool revise(int s);
    bool propagate();
    bool assign(int s, int w);
    void undo(size_t mark);
    void fail(int s);
    int selectSlot() const;
    int pickWord(const TSlot &slot);
    TOutcome search();
    bool stopRequested();
    QList<TWordRef> faultySlots() const;

    const TFillRequest &request_;
    TRandom rng_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::array<int, 256> letterOf_;
    int letters_ = 0;
    uint64_t allLetters_ = 0;
    std::vector<TLengthTable> tables_;  // by length
    std::vector<TSquare> squares_;
    std::vector<TSlot> slots_;
    QList<TWordRef> refs_;
    std::vector<TTrailEntry> trail_;
    std::vector<int> queue_;
    std::vector<uint64_t> scratch_;
    int rootFailSlot_ = -1;
    int assignedCount_ = 0;
    double noise_ = 0;
    qint64 nodes_ = 0;
    qint64 failures_ = 0;
    qint64 runFailures_ = 0;
    qint64 budget_ = 0;
    bool timedOut_ = false;
    bool cancelled_ = false;
};

void TEngine::fail(int s)
{
    slots_[s].Weight += 1;
    rootFailSlot_ = s;
    for (int t : queue_)
        slots_[t].Queued = false;
    queue_.clear();
}

// The domain of s keeps only the words in `keep` (or, with `remove`, loses them).
bool TEngine::restrict(int s, const uint64_t *keep, bool remove)
{
    TSlot &slot = slots_[s];
    const uint64_t flip = remove ? ~uint64_t(0) : 0;
    int size = 0;
    bool changed = false;
    for (int b = 0; b < slot.Table->Blocks; ++b) {
        const uint64_t old = slot.Domain[b];
        const uint64_t now = old & (keep[b] ^ flip);
        if (now != old) {
            trail_.push_back({TTrailKind::Block, s, b, old});
            slot.Domain[b] = now;
            changed = true;
        }
        size += std::popcount(now);
    }
    if (!changed)
        return true;
    trail_.push_back({TTrailKind::Size, s, 0, uint64_t(slot.Size)});
    slot.Size = size;
    if (size == 0) {
        fail(s);
        return false;
    }
    if (!slot.Queued) {
        slot.Queued = true;
        queue_.push_back(s);
    }
    return true;
}

bool TEngine::removeWord(int s, int w)
{
    TSlot &slot = slots_[s];
    const int b = w >> 6;
    const uint64_t bit = uint64_t(1) << (w & 63);
    if (!(slot.Domain[b] & bit))
        return true;
    trail_.push_back({TTrailKind::Block, s, b, slot.Domain[b]});
    trail_.push_back({TTrailKind::Size, s, 0, uint64_t(slot.Size)});
    slot.Domain[b] &= ~bit;
    if (--slot.Size == 0) {
        fail(s);
        return false;
    }
    if (!slot.Queued) {
        slot.Queued = true;
        queue_.push_back(s);
    }
    return true;
}

// Square q keeps only the letters of `keep`; the open slot crossing there (other than
// `from`) loses the words with a letter that went.
bool TEngine::narrowSquare(int q, uint64_t keep, int from)
{
    TSquare &sq = squares_[q];
    const uint64_t gone = sq.Mask & ~keep;
    if (!gone)
        return true;
    trail_.push_back({TTrailKind::Mask, q, 0, sq.Mask});
    sq.Mask &= keep;
    for (int k = 0; k < 2; ++k) {
        const int u = sq.Slot[k];
        if (u < 0 || u == from || slots_[u].Assigned)
            continue;
        const TLengthTable &table = *slots_[u].Table;
        const int pos = sq.Pos[k];
        // Join the bitsets of whichever side has fewer letters.
        const bool byGone = std::popcount(gone) <= std::popcount(sq.Mask);
        uint64_t letters = byGone ? gone : sq.Mask;
        if (std::popcount(letters) == 1) {
            if (!restrict(u, table.with(pos, std::countr_zero(letters), letters_), byGone))
                return false;
            continue;
        }
        scratch_.assign(table.Blocks, 0);
        while (letters) {
            const uint64_t *with = table.with(pos, std::countr_zero(letters), letters_);
            for (int b = 0; b < table.Blocks; ++b)
                scratch_[b] |= with[b];
            letters &= letters - 1;
        }
        if (!restrict(u, scratch_.data(), byGone))
            return false;
    }
    return true;
}

// Each square of s keeps only the letters some word of s still has there.
bool TEngine::revise(int s)
{
    TSlot &slot = slots_[s];
    const TLengthTable &table = *slot.Table;
    std::array<uint64_t, MaxGrid> support{};
    if (slot.Size * 2 < letters_ * table.Blocks) {
        // Few words: read their letters.
        for (int b = 0; b < table.Blocks; ++b) {
            uint64_t bits = slot.Domain[b];
            while (bits) {
                const int w = b * 64 + std::countr_zero(bits);
                bits &= bits - 1;
                const uint8_t *word = table.Letters.data() + size_t(w) * slot.Length;
                for (int p = 0; p < slot.Length; ++p)
                    support[p] |= uint64_t(1) << word[p];
            }
        }
    } else {
        for (int p = 0; p < slot.Length; ++p) {
            uint64_t letters = squares_[slot.Squares[p]].Mask;
            while (letters) {
                const int a = std::countr_zero(letters);
                letters &= letters - 1;
                const uint64_t *with = table.with(p, a, letters_);
                for (int b = 0; b < table.Blocks; ++b)
                    if (slot.Domain[b] & with[b]) {
                        support[p] |= uint64_t(1) << a;
                        break;
                    }
            }
        }
    }
    for (int p = 0; p < slot.Length; ++p)
        if (!narrowSquare(slot.Squares[p], support[p], s))
            return false;
    return true;
}

bool TEngine::propagate()
{
    for (size_t head = 0; head < queue_.size(); ++head) {
        const int s = queue_[head];
        slots_[s].Queued = false;
        if (!slots_[s].Assigned && !revise(s))
            return false;  // fail() has emptied the queue
    }
    queue_.clear();
    return true;
}

bool TEngine::assign(int s, int w)
{
    TSlot &slot = slots_[s];
    trail_.push_back({TTrailKind::Assign, s, 0, 0});
    slot.Assigned = true;
    slot.Word = w;
    ++assignedCount_;
    const uint8_t *word = slot.Table->Letters.data() + size_t(w) * slot.Length;
    for (int p = 0; p < slot.Length; ++p)
        if (!narrowSquare(slot.Squares[p], uint64_t(1) << word[p], s))
            return false;
    // No entry twice: the word leaves every other open slot of its length.
    for (int t = 0; t < int(slots_.size()); ++t)
        if (t != s && !slots_[t].Assigned && slots_[t].Table == slot.Table && !removeWord(t, w))
            return false;
    return propagate();
}

void TEngine::undo(size_t mark)
{
    while (trail_.size() > mark) {
        const TTrailEntry e = trail_.back();
        trail_.pop_back();
        switch (e.Kind) {
        case TTrailKind::Block:
            slots_[e.Index].Domain[e.Block] = e.Old;
            break;
        case TTrailKind::Size:
            slots_[e.Index].Size = int(e.Old);
            break;
        case TTrailKind::Mask:
            squares_[e.Index].Mask = e.Old;
            break;
        case TTrailKind::Assign:
            slots_[e.Index].Assigned = false;
            slots_[e.Index].Word = -1;
            --assignedCount_;
            break;
        }
    }
}

// The open slot with the fewest words for its weight of past dead ends; a slot down to
// one word goes first, since it costs no choice.
int TEngine::selectSlot() const
{
    int best = -1;
    double bestKey = 0;
    for (int s = 0; s < int(slots_.size()); ++s) {
        const TSlot &slot = slots_[s];
        if (slot.Assigned)
            continue;
        if (slot.Size == 1)
            return s;
        const double key = slot.Size / slot.Weight;
        if (best < 0 || key < bestKey || (key == bestKey && slot.Rank < slots_[best].Rank)) {
            best = s;
            bestKey = key;
        }
    }
    return best;
}

// Among the best-scoring words left, the one that leaves the crossing slots the most words
// (the product of their counts, as a sum of logarithms), with the score and a little noise.
int TEngine::pickWord(const TSlot &slot)
{
    constexpr int Sample = 128;
    const TLengthTable &table = *slot.Table;
    // How many words each crossing keeps with a given letter, counted once per call.
    std::array<std::array<float, MaxLetters>, MaxGrid> logCount;
    for (int p = 0; p < slot.Length; ++p)
        logCount[p].fill(-1);
    int best = -1;
    double bestValue = 0;
    int seen = 0;
    for (int b = 0; b < table.Blocks && seen < Sample; ++b) {
        uint64_t bits = slot.Domain[b];
        while (bits && seen < Sample) {
            const int w = b * 64 + std::countr_zero(bits);
            bits &= bits - 1;
            ++seen;
            const uint8_t *word = table.Letters.data() + size_t(w) * slot.Length;
            double value = 0.03 * table.Scores[w] + noise_ * rng_.unit();
            for (int p = 0; p < slot.Length; ++p) {
                const int t = slot.CrossSlot[p];
                if (t < 0 || slots_[t].Assigned)
                    continue;
                float &cached = logCount[p][word[p]];
                if (cached < 0) {
                    const TSlot &cross = slots_[t];
                    const uint64_t *with = cross.Table->with(slot.CrossPos[p], word[p], letters_);
                    int count = 0;
                    for (int k = 0; k < cross.Table->Blocks; ++k)
                        count += std::popcount(cross.Domain[k] & with[k]);
                    cached = std::log2(float(std::max(count, 1)));
                }
                value += cached;
            }
            if (best < 0 || value > bestValue) {
                best = w;
                bestValue = value;
            }
        }
    }
    return best;
}

bool TEngine::stopRequested()
{
    if (request_.Cancel && request_.Cancel->load(std::memory_order_relaxed)) {
        cancelled_ = true;
        return true;
    }
    if ((nodes_ & 15) == 0 && request_.TimeLimit > 0) {
        const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
        if (elapsed >= request_.TimeLimit) {
            timedOut_ = true;
            return true;
        }
    }
    if ((nodes_ & 255) == 0 && request_.Progress)
        request_.Progress(assignedCount_, int(slots_.size()));
    return false;
}

TOutcome TEngine::search()
{
    const int s = selectSlot();
    if (s < 0)
        return TOutcome::Solved;
    for (;;) {
        ++nodes_;
        if (stopRequested())
            return TOutcome::Stop;
        const int w = pickWord(slots_[s]);
        const size_t mark = trail_.size();
        if (assign(s, w)) {
            const TOutcome outcome = search();
            if (outcome != TOutcome::Exhausted)
                return outcome;
        }
        undo(mark);
        ++failures_;
        if (++runFailures_ > budget_)
            return TOutcome::Budget;
        // Having failed, the word is out of this slot for the rest of this branch.
        if (!removeWord(s, w) || !propagate())
            return TOutcome::Exhausted;
    }
}

void TEngine::buildTables(const std::vector<bool> &fillable)
{
    letterOf_.fill(-1);
    auto letterNumber = [this](uint8_t byte) {
        if (letterOf_[byte] < 0 && letters_ < MaxLetters)
            letterOf_[byte] = letters_++;
        return letterOf_[byte];
    };
    // Preset letters first, so that a letter of the grid always has a number.
    for (const TWordRef &ref : std::as_const(refs_)) {
        const QByteArray text = request_.Grid.GetWord(ref.Column, ref.Row, char(ref.Dir));
        for (int i = 0; i < text.size(); ++i) {
            const uint8_t byte = uint8_t(text[i]);
            if (byte != 0 && byte != '?')
                letterNumber(byte);
        }
    }
    std::vector<bool> lengthNeeded(MaxGrid + 1, false);
    for (const TSlot &slot : slots_)
        lengthNeeded[slot.Length] = true;

    // The words of each needed length, a repeat dropped, best score first; ties in an order
    // drawn from the seed so that lists without scores still give varied fills.
    static const TWordList none;
    const TWordList &words = request_.Words ? *request_.Words : none;
    std::vector<std::vector<int>> byLength(MaxGrid + 1);
    for (int i = 0; i < words.size(); ++i) {
        const std::string_view word = words.word(i);
        const int n = int(word.size());
        if (n < 2 || n > MaxGrid || !lengthNeeded[n] || words.score(i) < request_.MinScore)
            continue;
        bool ok = true;
        for (char c : word) {
            const uint8_t byte = uint8_t(c);
            if (byte == 0 || byte == OpenChar || byte == BlockChar || byte == '?' || letterNumber(byte) < 0) {
                ok = false;
                break;
            }
        }
        if (ok)
            byLength[n].push_back(i);
    }
    // Words already complete in the grid outside the open slots are taken.
    std::vector<std::string> taken;
    for (const TWordRef &ref : std::as_const(refs_)) {
        const QByteArray text = request_.Grid.GetWord(ref.Column, ref.Row, char(ref.Dir));
        bool complete = !text.contains('\0') && !text.contains('?');
        int c = ref.Column, r = ref.Row;
        for (int i = 0; i < text.size() && complete; ++i) {
            if (fillable[(c - 1) * MaxGrid + (r - 1)])
                complete = false;
            ref.Dir == Direction::Across ? ++c : ++r;
        }
        if (complete)
            taken.push_back(text.toStdString());
    }
    std::sort(taken.begin(), taken.end());

    tables_.assign(MaxGrid + 1, {});
    for (int n = 2; n <= MaxGrid; ++n) {
        if (!lengthNeeded[n])
            continue;
        std::vector<int> &ids = byLength[n];
        if (!taken.empty())
            std::erase_if(ids, [&](int i) { return std::binary_search(taken.begin(), taken.end(), std::string(words.word(i))); });
        // One key per word: the score above, the seed's order of ties below; a list's own
        // order settles the (vanishingly rare) equal keys, so the order is the same every time.
        std::vector<std::pair<quint64, int>> keyed;
        keyed.reserve(ids.size());
        for (int i : ids) {
            const quint64 score = quint64(std::clamp(words.score(i), 0, 127));
            keyed.emplace_back(((127 - score) << 57) | (HashBytes(words.word(i), request_.Seed) >> 7), i);
        }
        std::sort(keyed.begin(), keyed.end());
        TLengthTable &table = tables_[n];
        table.Count = int(keyed.size());
        table.Blocks = (table.Count + 63) / 64;
        table.Letters.resize(size_t(table.Count) * n);
        table.Scores.resize(table.Count);
        table.Source.resize(table.Count);
        table.Bits.assign(size_t(n) * letters_ * table.Blocks, 0);
        for (int w = 0; w < table.Count; ++w) {
            const std::string_view word = words.word(keyed[w].second);
            table.Source[w] = keyed[w].second;
            table.Scores[w] = words.score(keyed[w].second);
            for (int p = 0; p < n; ++p)
                table.Letters[size_t(w) * n + p] = uint8_t(letterOf_[uint8_t(word[p])]);
        }
        // Position by position, so that the writes run along a few rows of bits at a time.
        for (int p = 0; p < n; ++p) {
            uint64_t *rows = table.Bits.data() + size_t(p * letters_) * table.Blocks;
            for (int w = 0; w < table.Count; ++w)
                rows[size_t(table.Letters[size_t(w) * n + p]) * table.Blocks + (w >> 6)] |= uint64_t(1) << (w & 63);
        }
    }
}

bool TEngine::setUp()
{
    const TPuzzle &grid = request_.Grid;
    refs_ = WordsInSlotOrder(grid);
    std::vector<bool> fillable(MaxGrid * MaxGrid, false);
    for (int c = 1; c <= grid.Size; ++c)
        for (int r = 1; r <= grid.Size; ++r) {
            const int i = (c - 1) * MaxGrid + (r - 1);
            const uint8_t cell = grid.Cells(c, r);
            fillable[i] = (cell == 0 || cell == OpenChar) && (request_.Fillable.empty() || request_.Fillable[i]);
        }

    std::vector<int> squareAt(MaxGrid * MaxGrid, -1);
    for (int k = 0; k < int(refs_.size()); ++k) {
        const TWordRef &ref = refs_[k];
        std::vector<int> cells;
        bool open = false;
        for (int c = ref.Column, r = ref.Row; grid.inGrid(c, r) && !grid.isBlock(c, r);
             ref.Dir == Direction::Across ? ++c : ++r) {
            cells.push_back((c - 1) * MaxGrid + (r - 1));
            open = open || fillable[cells.back()];
        }
        if (!open)
            continue;
        TSlot slot;
        slot.Ref = k;
        slot.Length = int(cells.size());
        for (int p = 0; p < slot.Length; ++p) {
            const int i = cells[p];
            if (squareAt[i] < 0) {
                squareAt[i] = int(squares_.size());
                TSquare sq;
                sq.Col = i / MaxGrid + 1;
                sq.Row = i % MaxGrid + 1;
                sq.Fillable = fillable[i];
                squares_.push_back(sq);
            }
            TSquare &sq = squares_[squareAt[i]];
            const int k2 = sq.Slot[0] < 0 ? 0 : 1;
            sq.Slot[k2] = int(slots_.size());
            sq.Pos[k2] = p;
            slot.Squares.push_back(squareAt[i]);
        }
        slots_.push_back(std::move(slot));
    }
    buildTables(fillable);
    allLetters_ = letters_ == 64 ? ~uint64_t(0) : (uint64_t(1) << letters_) - 1;

    for (int s = 0; s < int(slots_.size()); ++s) {
        TSlot &slot = slots_[s];
        slot.CrossSlot.assign(slot.Length, -1);
        slot.CrossPos.assign(slot.Length, 0);
        for (int p = 0; p < slot.Length; ++p) {
            const TSquare &sq = squares_[slot.Squares[p]];
            for (int k = 0; k < 2; ++k)
                if (sq.Slot[k] >= 0 && sq.Slot[k] != s) {
                    slot.CrossSlot[p] = sq.Slot[k];
                    slot.CrossPos[p] = sq.Pos[k];
                }
        }
        slot.Table = &tables_[slot.Length];
        const TLengthTable &table = *slot.Table;
        slot.Domain.assign(table.Blocks, ~uint64_t(0));
        if (table.Count % 64)
            slot.Domain.back() = (uint64_t(1) << (table.Count % 64)) - 1;
        slot.Size = table.Count;
        if (slot.Size == 0) {
            fail(s);
            return false;
        }
    }
    for (TSquare &sq : squares_)
        sq.Mask = allLetters_;
    // Preset letters narrow their squares; then every slot trims the letters it lacks.
    for (int q = 0; q < int(squares_.size()); ++q) {
        const uint8_t cell = grid.Cells(squares_[q].Col, squares_[q].Row);
        if (!squares_[q].Fillable && cell != 0 && cell != OpenChar && !narrowSquare(q, letterOf_[cell] < 0 ? 0 : uint64_t(1) << letterOf_[cell], -1))
            return false;
    }
    for (int s = 0; s < int(slots_.size()); ++s)
        if (!slots_[s].Queued) {
            slots_[s].Queued = true;
            queue_.push_back(s);
        }
    return propagate();
}

QList<TWordRef> TEngine::faultySlots() const
{
    std::vector<int> order;
    for (int s = 0; s < int(slots_.size()); ++s)
        if (slots_[s].Weight > 1)
            order.push_back(s);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return slots_[a].Weight > slots_[b].Weight; });
    QList<TWordRef> out;
    for (int i = 0; i < int(order.size()) && i < 5; ++i)
        out.append(refs_[slots_[order[i]].Ref]);
    return out;
}

TFillResult TEngine::run()
{
    TFillResult result;
    result.Grid = request_.Grid;
    auto finish = [&](TFillStatus status) {
        result.Status = status;
        result.Nodes = nodes_;
        result.Failures = failures_;
        result.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
        return result;
    };
    if (!setUp()) {
        if (rootFailSlot_ >= 0)
            result.Faulty.append(refs_[slots_[rootFailSlot_].Ref]);
        return finish(TFillStatus::Impossible);
    }
    const size_t root = trail_.size();
    constexpr qint64 BaseBudget = 128;
    for (quint64 run = 1;; ++run) {
        for (TSlot &slot : slots_)
            slot.Rank = rng_.next();
        noise_ = run == 1 ? 0.5 : 1.5;
        runFailures_ = 0;
        budget_ = BaseBudget * qint64(Luby(run));
        const TOutcome outcome = search();
        if (outcome == TOutcome::Solved) {
            double scores = 0;
            for (const TSlot &slot : slots_) {
                scores += slot.Table->Scores[slot.Word];
                const std::string_view word = request_.Words->word(slot.Table->Source[slot.Word]);
                for (int p = 0; p < slot.Length; ++p) {
                    const TSquare &sq = squares_[slot.Squares[p]];
                    if (sq.Fillable)
                        result.Grid.Cells(sq.Col, sq.Row) = uint8_t(word[p]);
                }
            }
            result.AverageScore = slots_.empty() ? 0 : scores / double(slots_.size());
            return finish(TFillStatus::Filled);
        }
        if (outcome == TOutcome::Exhausted) {
            result.Faulty = faultySlots();
            return finish(TFillStatus::Impossible);
        }
        if (outcome == TOutcome::Stop)
            return finish(cancelled_ ? TFillStatus::Cancelled : TFillStatus::TimedOut);
        undo(root);
        ++result.Restarts;
    }
}

}  // namespace

TFillResult FillGrid(const TFillRequest &request)
{
    TEngine engine(request);
    return engine.run();
}

int FillTimeLimitSetting()
{
    return std::clamp(ReadSetting(QStringLiteral("FillTimeLimit"), DefaultFillTimeLimit).toInt(), 1, 3600);
}

void WriteFillTimeLimitSetting(int seconds)
{
    WriteSetting(QStringLiteral("FillTimeLimit"), std::clamp(seconds, 1, 3600));
}

std::vector<bool> FillRegion(const TPuzzle &grid, int c, int r, Direction d)
{
    std::vector<bool> region(MaxGrid * MaxGrid, false);
    auto isOpen = [&](int x, int y) { return grid.inGrid(x, y) && (grid.Cells(x, y) == 0 || grid.Cells(x, y) == OpenChar); };
    std::vector<std::pair<int, int>> pending;
    // Every open square of the word through (x, y) in direction dir joins the region.
    auto spread = [&](int x, int y, Direction dir) {
        const int dx = dir == Direction::Across ? 1 : 0, dy = 1 - dx;
        while (grid.inGrid(x - dx, y - dy) && !grid.isBlock(x - dx, y - dy)) {
            x -= dx;
            y -= dy;
        }
        if (!grid.inGrid(x + dx, y + dy) || grid.isBlock(x + dx, y + dy))
            return;  // a lone square is no word
        for (; grid.inGrid(x, y) && !grid.isBlock(x, y); x += dx, y += dy)
            if (isOpen(x, y) && !region[(x - 1) * MaxGrid + (y - 1)]) {
                region[(x - 1) * MaxGrid + (y - 1)] = true;
                pending.emplace_back(x, y);
            }
    };
    spread(c, r, d);
    while (!pending.empty()) {
        const auto [x, y] = pending.back();
        pending.pop_back();
        spread(x, y, Direction::Across);
        spread(x, y, Direction::Down);
    }
    return region;
}

QString SlotName(const TWordRef &word)
{
    return QStringLiteral("%1 %2").arg(word.Number).arg(word.Dir == Direction::Across ? QStringLiteral("Across")
                                                                                          : QStringLiteral("Down"));
}

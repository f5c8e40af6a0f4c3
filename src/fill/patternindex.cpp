#include "fill/patternindex.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace {

// At most one fixed letter per position of the longest word.
struct FixedLetters {
    std::array<const uint64_t *, MaxWordLength> Masks{};
    std::array<int, MaxWordLength> Counts{};
    std::array<int, MaxWordLength> Cells{};
    std::array<int, MaxWordLength> Positions{};
    std::array<char, MaxWordLength> Chars{};
    int Size = 0;
};

// The hot loop of a count, built twice so that processors with a popcount instruction use it.
__attribute__((target_clones("arch=x86-64-v3", "popcnt", "default"), optimize("O3"))) int andCount(const uint64_t *const *masks, int n, int blocks)
{
    int total = 0;
    if (n == 2) {
        const uint64_t *a = masks[0], *b = masks[1];
        for (int i = 0; i < blocks; ++i)
            total += std::popcount(a[i] & b[i]);
        return total;
    }
    for (int i = 0; i < blocks; ++i) {
        uint64_t w = masks[0][i];
        for (int k = 1; w && k < n; ++k)
            w &= masks[k][i];
        total += std::popcount(w);
    }
    return total;
}

void fullMask(TWordMask &mask, int count, int blocks)
{
    mask.assign(size_t(blocks), ~uint64_t(0));
    if (count % 64)
        mask.back() = (uint64_t(1) << (count % 64)) - 1;
}

}  // namespace

TPatternIndex::TPatternIndex(const TWordList &words)
{
    letterIndex_.fill(-1);
    for (int i = 0; i < words.size(); ++i)
        for (char c : words.word(i))
            if (letterIndex_[uint8_t(c)] < 0) {
                letterIndex_[uint8_t(c)] = int16_t(letterCode_.size());
                letterCode_.push_back(uint8_t(c));
            }
    letters_ = int(letterCode_.size());

    std::array<std::vector<int>, MaxWordLength + 1> byLength;
    for (int i = 0; i < words.size(); ++i)
        if (valid(int(words.word(i).size())))
            byLength[words.word(i).size()].push_back(i);
    for (int length = MinWordLength; length <= MaxWordLength; ++length) {
        std::vector<int> &ids = byLength[size_t(length)];
        // Alphabetical, so that the words sharing a first letter are one run of ids.
        std::sort(ids.begin(), ids.end(), [&](int a, int b) { return words.word(a) < words.word(b); });
        Bucket &b = buckets_[size_t(length)];
        b.Count = int(ids.size());
        b.Blocks = (b.Count + 63) / 64;
        total_ += b.Count;
        b.Chars.resize(size_t(b.Count) * size_t(length));
        b.Scores.resize(size_t(b.Count));
        for (int id = 0; id < b.Count; ++id) {
            const std::string_view w = words.word(ids[size_t(id)]);
            std::copy(w.begin(), w.end(), b.Chars.begin() + ptrdiff_t(size_t(id) * size_t(length)));
            b.Scores[size_t(id)] = uint8_t(words.score(ids[size_t(id)]));
        }
        const size_t cells = size_t(length) * size_t(letters_);
        b.MaskCount.assign(cells, 0);
        b.MaskAt.assign(cells, -1);
        for (int id = 0; id < b.Count; ++id)
            for (int p = 0; p < length; ++p)
                ++b.MaskCount[size_t(p * letters_ + letterIndex_[uint8_t(b.Chars[size_t(id * length + p)])])];
        int64_t used = 0;
        for (size_t cell = 0; cell < cells; ++cell)
            if (b.MaskCount[cell] > 0) {
                b.MaskAt[cell] = used;
                used += b.Blocks;
            }
        b.FirstFrom.assign(size_t(letters_), 0);
        b.FirstTo.assign(size_t(letters_), 0);
        for (int id = b.Count - 1; id >= 0; --id)
            b.FirstFrom[size_t(letterIndex_[uint8_t(b.Chars[size_t(id * length)])])] = id;
        for (int id = 0; id < b.Count; ++id)
            b.FirstTo[size_t(letterIndex_[uint8_t(b.Chars[size_t(id * length)])])] = id + 1;
        b.Bits.assign(size_t(used), 0);
        b.IdsAt.assign(cells, 0);
        for (size_t cell = 1; cell < cells; ++cell)
            b.IdsAt[cell] = b.IdsAt[cell - 1] + b.MaskCount[cell - 1];
        b.Ids.resize(size_t(b.Count) * size_t(length));
        std::vector<int64_t> filled = b.IdsAt;
        for (int id = 0; id < b.Count; ++id)
            for (int p = 0; p < length; ++p) {
                const size_t cell = size_t(p * letters_ + letterIndex_[uint8_t(b.Chars[size_t(id * length + p)])]);
                b.Bits[size_t(b.MaskAt[cell] + id / 64)] |= uint64_t(1) << (id % 64);
                b.Ids[size_t(filled[cell]++)] = id;
            }
    }
}

int TPatternIndex::find(std::string_view word) const
{
    const int length = int(word.size());
    if (!valid(length))
        return -1;
    std::vector<int> ids = match(QByteArrayView(word.data(), qsizetype(word.size())), 1);
    return ids.empty() ? -1 : ids.front();
}

bool TPatternIndex::fixedMasks(QByteArrayView pattern, std::vector<const uint64_t *> &masks) const
{
    masks.clear();
    const Bucket &b = buckets_[size_t(pattern.size())];
    std::vector<int> counts;
    for (int p = 0; p < int(pattern.size()); ++p) {
        const char c = pattern[p];
        if (c == AnyLetter)
            continue;
        const int letter = letterIndex_[uint8_t(c)];
        if (letter < 0 || !mask(b, p, letter))
            return false;
        masks.push_back(mask(b, p, letter));
        counts.push_back(b.MaskCount[size_t(p * letters_ + letter)]);
    }
    // Rarest first, so that a mask that is mostly zero ends the AND early.
    std::vector<size_t> order(masks.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](size_t x, size_t y) { return counts[x] < counts[y]; });
    std::vector<const uint64_t *> sorted;
    for (size_t i : order)
        sorted.push_back(masks[i]);
    masks = std::move(sorted);
    return true;
}

int TPatternIndex::count(QByteArrayView pattern) const
{
    const int length = int(pattern.size());
    if (!valid(length))
        return 0;
    const Bucket &b = buckets_[size_t(length)];
    // No allocation here: the bench asks millions of these a second.
    FixedLetters fixed;
    int rarest = 0;
    for (int p = 0; p < length; ++p) {
        const char c = pattern[p];
        if (c == AnyLetter)
            continue;
        const int letter = letterIndex_[uint8_t(c)];
        const uint64_t *m = letter < 0 ? nullptr : mask(b, p, letter);
        if (!m)
            return 0;
        const int k = fixed.Size++;
        fixed.Masks[size_t(k)] = m;
        fixed.Cells[size_t(k)] = p * letters_ + letter;
        fixed.Counts[size_t(k)] = b.MaskCount[size_t(fixed.Cells[size_t(k)])];
        fixed.Positions[size_t(k)] = p;
        fixed.Chars[size_t(k)] = c;
        if (fixed.Counts[size_t(k)] < fixed.Counts[size_t(rarest)])
            rarest = k;
    }
    if (fixed.Size == 0)
        return b.Count;
    if (fixed.Size == 1)
        return fixed.Counts[0];
    // Only the blocks of the words with the given first letter, when it is given.
    int from = 0, to = b.Blocks;
    if (fixed.Positions[0] == 0) {
        const int letter = letterIndex_[uint8_t(fixed.Chars[0])];
        from = b.FirstFrom[size_t(letter)] / 64;
        to = (b.FirstTo[size_t(letter)] + 63) / 64;
    }
    std::swap(fixed.Masks[0], fixed.Masks[size_t(rarest)]);
    std::swap(fixed.Positions[0], fixed.Positions[size_t(rarest)]);
    std::swap(fixed.Chars[0], fixed.Chars[size_t(rarest)]);
    const int few = fixed.Counts[size_t(rarest)];
    if (few * 3 < (to - from) * fixed.Size) {
        // A rare letter: check its few words' other letters directly.
        const int32_t *ids = b.Ids.data() + b.IdsAt[size_t(fixed.Cells[size_t(rarest)])];
        int total = 0;
        for (int i = 0; i < few; ++i) {
            const char *w = b.Chars.data() + size_t(ids[i]) * size_t(length);
            bool fits = true;
            for (int k = 1; fits && k < fixed.Size; ++k)
                fits = w[fixed.Positions[size_t(k)]] == fixed.Chars[size_t(k)];
            total += fits;
        }
        return total;
    }
    for (int k = 0; k < fixed.Size; ++k)
        fixed.Masks[size_t(k)] += from;
    return andCount(fixed.Masks.data(), fixed.Size, to - from);
}

bool TPatternIndex::matchMask(QByteArrayView pattern, TWordMask &result) const
{
    const int length = int(pattern.size());
    result.clear();
    if (!valid(length) || buckets_[size_t(length)].Count == 0)
        return false;
    const Bucket &b = buckets_[size_t(length)];
    std::vector<const uint64_t *> masks;
    if (!fixedMasks(pattern, masks))
        return false;
    fullMask(result, b.Count, b.Blocks);
    bool any = false;
    for (int i = 0; i < b.Blocks; ++i) {
        uint64_t w = result[size_t(i)];
        for (const uint64_t *m : masks)
            w &= m[i];
        result[size_t(i)] = w;
        any = any || w;
    }
    return any;
}

std::vector<int> TPatternIndex::match(QByteArrayView pattern, int limit) const
{
    std::vector<int> ids;
    TWordMask m;
    if (!matchMask(pattern, m))
        return ids;
    for (size_t i = 0; i < m.size(); ++i)
        for (uint64_t w = m[i]; w; w &= w - 1) {
            ids.push_back(int(i * 64) + std::countr_zero(w));
        }
    const Bucket &b = buckets_[size_t(pattern.size())];
    std::stable_sort(ids.begin(), ids.end(), [&](int x, int y) { return b.Scores[size_t(x)] > b.Scores[size_t(y)]; });
    if (limit >= 0 && int(ids.size()) > limit)
        ids.resize(size_t(limit));
    return ids;
}

std::vector<TCharSet> TPatternIndex::allowedLetters(QByteArrayView pattern) const
{
    const int length = int(pattern.size());
    std::vector<TCharSet> allowed(size_t(std::max(length, 0)));
    TWordMask m;
    if (!matchMask(pattern, m))
        return allowed;
    const Bucket &b = buckets_[size_t(length)];
    for (int p = 0; p < length; ++p) {
        if (pattern[p] != AnyLetter) {
            allowed[size_t(p)].set(uint8_t(pattern[p]));
            continue;
        }
        for (int a = 0; a < letters_; ++a) {
            const uint64_t *lm = mask(b, p, a);
            if (!lm)
                continue;
            for (int i = 0; i < b.Blocks; ++i)
                if (m[size_t(i)] & lm[i]) {
                    allowed[size_t(p)].set(letterCode_[size_t(a)]);
                    break;
                }
        }
    }
    return allowed;
}

std::array<int, 256> TPatternIndex::letterCounts(QByteArrayView pattern, int position) const
{
    std::array<int, 256> counts{};
    TWordMask m;
    if (position < 0 || position >= pattern.size() || !matchMask(pattern, m))
        return counts;
    const Bucket &b = buckets_[size_t(pattern.size())];
    for (int a = 0; a < letters_; ++a) {
        const uint64_t *lm = mask(b, position, a);
        if (!lm)
            continue;
        int n = 0;
        for (int i = 0; i < b.Blocks; ++i)
            n += std::popcount(m[size_t(i)] & lm[i]);
        counts[letterCode_[size_t(a)]] = n;
    }
    return counts;
}

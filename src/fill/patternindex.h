#pragma once
// The pattern index: which words of a list fit a pattern of letters and "?" (any letter),
// how many, best first, and which letters each position still allows. One bit set per
// length, position and letter, so a count is a few ANDs and popcounts over the words of
// that length.

#include "clues/gridlanguage.h"
#include "fill/wordlist.h"

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

// The character of a pattern that stands for any letter.
constexpr char AnyLetter = '?';

// The matching words of one length as bits, one a word in the index's order.
using TWordMask = std::vector<uint64_t>;

class TPatternIndex {
public:
    TPatternIndex() = default;
    explicit TPatternIndex(const TWordList &words);

    int size() const { return total_; }
    // The words of one length, alphabetical.
    int wordsOfLength(int length) const { return valid(length) ? buckets_[size_t(length)].Count : 0; }
    std::string_view word(int length, int id) const
    {
        const Bucket &b = buckets_[size_t(length)];
        return {b.Chars.data() + size_t(id) * size_t(length), size_t(length)};
    }
    int score(int length, int id) const { return buckets_[size_t(length)].Scores[size_t(id)]; }
    // The word's id among the words of its length, or -1.
    int find(std::string_view word) const;

    // How many words fit; 0 for a pattern of a length no word has or with a letter no word
    // has there.
    int count(QByteArrayView pattern) const;
    // The ids of the words that fit, best first; at most `limit` (-1: all).
    std::vector<int> match(QByteArrayView pattern, int limit = -1) const;
    // The words that fit as a mask over the words of the pattern's length; false when none can.
    bool matchMask(QByteArrayView pattern, TWordMask &mask) const;
    // For every position, the letters that some fitting word has there (a fixed letter
    // allows itself when any word fits, nothing otherwise).
    std::vector<TCharSet> allowedLetters(QByteArrayView pattern) const;
    // The number of fitting words with `letter` at `position`, for every letter; indexed by
    // Windows-1252 code.
    std::array<int, 256> letterCounts(QByteArrayView pattern, int position) const;

private:
    struct Bucket {
        int Count = 0;
        int Blocks = 0;                 // 64-bit words per mask
        std::vector<char> Chars;        // Count words of the bucket's length, back to back
        std::vector<uint8_t> Scores;
        // For position p and letter index a, the offset of its mask in Bits, or -1.
        std::vector<int64_t> MaskAt;    // [p * letters + a]
        std::vector<int> MaskCount;     // [p * letters + a]
        std::vector<uint64_t> Bits;
        // The same sets as lists of ids, for letters rare enough that checking their few
        // words beats a pass over the masks.
        std::vector<int64_t> IdsAt;     // [p * letters + a], into Ids; MaskCount ids from there
        std::vector<int32_t> Ids;
        // The run of ids whose first letter is a given letter index.
        std::vector<int> FirstFrom, FirstTo;
    };
    static bool valid(int length) { return length >= MinWordLength && length <= MaxWordLength; }
    // The masks a pattern's fixed letters need, rarest first; false when a letter cannot fit.
    bool fixedMasks(QByteArrayView pattern, std::vector<const uint64_t *> &masks) const;
    const uint64_t *mask(const Bucket &b, int position, int letter) const
    {
        const int64_t at = b.MaskAt[size_t(position * letters_ + letter)];
        return at < 0 ? nullptr : b.Bits.data() + at;
    }

    std::array<Bucket, MaxWordLength + 1> buckets_;
    std::array<int16_t, 256> letterIndex_{};  // -1 for a character no word has
    std::vector<uint8_t> letterCode_;         // letter index back to its code
    int letters_ = 0;
    int total_ = 0;
};

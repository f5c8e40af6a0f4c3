#include "fill/patternindex.h"
#include "fill/wordfinder.h"
#include "model/cp1252.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace {

TWordList listOf(const char *text)
{
    return ParseWordList(QByteArray(text), 0).Words;
}

bool fits(std::string_view word, const QByteArray &pattern)
{
    if (word.size() != size_t(pattern.size()))
        return false;
    for (size_t i = 0; i < word.size(); ++i)
        if (pattern[qsizetype(i)] != AnyLetter && pattern[qsizetype(i)] != word[i])
            return false;
    return true;
}

}  // namespace

TEST(PatternIndex, RandomPatternsAgreeWithAScanOfTheList)
{
    // A list dense enough that the index's two ways of counting (masks, and the few words of
    // a rare letter) are both taken: letters from a small alphabet, lengths 2 to 9.
    std::mt19937 random(7);
    TWordList words;
    for (int i = 0; i < 6000; ++i) {
        const int length = 2 + int(random() % 8);
        std::string w;
        for (int k = 0; k < length; ++k)
            w += char('A' + (random() % 3 == 0 ? random() % 26 : random() % 5));
        words.add(w, int(random() % 101));
    }
    const TPatternIndex index(words);
    ASSERT_EQ(index.size(), words.size());
    for (int round = 0; round < 3000; ++round) {
        const int at = int(random() % uint32_t(words.size()));
        QByteArray pattern(words.word(at).data(), qsizetype(words.word(at).size()));
        for (char &c : pattern)
            c = random() % 3 == 0 ? char('A' + random() % 26) : random() % 2 ? AnyLetter : c;
        std::vector<int> expected;  // list positions, best first, then alphabetical
        for (int i = 0; i < words.size(); ++i)
            if (fits(words.word(i), pattern))
                expected.push_back(i);
        std::sort(expected.begin(), expected.end(), [&](int x, int y) {
            return words.score(x) != words.score(y) ? words.score(x) > words.score(y) : words.word(x) < words.word(y);
        });
        ASSERT_EQ(index.count(pattern), int(expected.size())) << pattern.toStdString();
        const std::vector<int> found = index.match(pattern);
        ASSERT_EQ(found.size(), expected.size()) << pattern.toStdString();
        for (size_t i = 0; i < found.size(); ++i)
            ASSERT_EQ(index.word(int(pattern.size()), found[i]), words.word(expected[i])) << pattern.toStdString();
        const std::vector<TCharSet> allowed = index.allowedLetters(pattern);
        for (int p = 0; p < int(pattern.size()); ++p) {
            TCharSet letters;
            for (int i : expected)
                letters.set(uint8_t(words.word(i)[size_t(p)]));
            ASSERT_EQ(allowed[size_t(p)], letters) << pattern.toStdString() << " position " << p;
        }
    }
}

TEST(PatternIndex, PatternsNoWordCanFitCountNothing)
{
    const TPatternIndex index(listOf("cat;60\ncot;70\ndog;10\n"));
    EXPECT_EQ(index.count("C?T"), 2);
    EXPECT_EQ(index.match("C?T"), (std::vector{index.find("COT"), index.find("CAT")})) << "the better score first";
    EXPECT_EQ(index.count("???"), 3);
    // No word of that length, a letter no word has, shorter or longer than any word can be.
    for (const QByteArray &none : {QByteArray("????"), QByteArray("Q??"), QByteArray("?"), QByteArray(24, AnyLetter)})
        EXPECT_EQ(index.count(none), 0) << none.toStdString();
    EXPECT_EQ(index.find("DOG"), index.match("DOG").front());
    EXPECT_EQ(index.find("DIG"), -1);
}

// The open 4 x 4 corner of an 11 x 11 grid: the finder's slot is row 1, each of its squares
// crossed by a down word.
TEST(WordFinder, ACandidateThatLeavesACrossingWithoutWordsIsADeadEnd)
{
    const TPatternIndex index(listOf("abcd;50\nabce;90\naxya;40\nbxyz;40\ncxyz;40\ndxyz;40\naxyz;40\n"));
    TPuzzle p = PuzzleFrom("size 11\ngrid\n" + GridRows({"ABC.#######", "....#######", "....#######", "....#######"}));
    const TFillSlot slot = SlotThrough(p, 2, 1, Direction::Across);
    ASSERT_EQ(slot, (TFillSlot{1, 1, Direction::Across, 4}));
    ASSERT_EQ(SlotPattern(p, slot), "ABC?");
    const TFinderList list = FindCandidates(index, p, slot, SlotPattern(p, slot));
    ASSERT_EQ(std::pair(list.Count, list.Viable), std::pair(2, 1));
    // ABCE scores higher but no down word starts with E.
    const auto candidate = [&](int i) { return std::pair(index.word(4, list.Candidates[i].Id), list.Candidates[i].DeadEnd); };
    EXPECT_EQ(candidate(0), std::pair(std::string_view("ABCD"), false));
    EXPECT_EQ(list.Candidates[0].CrossOptions, 1);
    EXPECT_EQ(candidate(1), std::pair(std::string_view("ABCE"), true));
    EXPECT_TRUE(list.Possible[3].test('D'));
    EXPECT_FALSE(list.Possible[3].test('E')) << "a dead end's letters are not possible";

    // A typed pattern of another length is matched alone.
    EXPECT_EQ(FindCandidates(index, p, slot, "ABC??").Count, 0);
    // With ABCE in row 1 the down word at column 4 reads E??? and no word fits, so its
    // squares are dead.
    p.Cells(4, 1) = 'E';
    EXPECT_TRUE(DeadSquares(index, p).contains(QPoint(4, 2)));
    EXPECT_FALSE(DeadSquares(index, p).contains(QPoint(1, 2)));
    const std::optional<TFillSlot> tight = MostConstrainedSlot(index, p);
    ASSERT_TRUE(tight);
    EXPECT_EQ(*tight, (TFillSlot{4, 1, Direction::Down, 4}));
}

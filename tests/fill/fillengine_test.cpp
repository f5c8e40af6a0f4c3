#include "fill/fillengine.h"
#include "testsupport.h"

#include <QSet>

#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <utility>

namespace {

TPuzzle grid(const QStringList &rows)
{
    return PuzzleFrom(QStringLiteral("size %1\ngrid\n%2\nclues\n").arg(rows.size()).arg(rows.join(u'\n')));
}

using TWords = std::shared_ptr<TWordList>;

TWords list(const QList<QByteArray> &words, int score = 50)
{
    auto out = std::make_shared<TWordList>();
    for (const QByteArray &w : words)
        out->add(w.toStdString(), score);
    return out;
}

QList<QByteArray> entries(const TPuzzle &p)
{
    QList<QByteArray> out;
    for (const TWordRef &w : WordsInSlotOrder(p))
        out.append(p.GetWord(w.Column, w.Row, char(w.Dir)));
    return out;
}

// Every square written, every entry from the list and none twice, the given letters kept.
void expectValidFill(const TPuzzle &before, const TPuzzle &after, const TWordList &words)
{
    QSet<QByteArray> known;
    for (int i = 0; i < words.size(); ++i)
        known.insert(words.wordBytes(i));
    for (int c = 1; c <= before.Size; ++c)
        for (int r = 1; r <= before.Size; ++r) {
            const uint8_t was = before.Cells(c, r);
            if (was != 0 && was != OpenChar)
                EXPECT_EQ(after.Cells(c, r), was) << "square " << c << "," << r << " changed";
            else
                EXPECT_TRUE(after.Cells(c, r) >= 'A' && after.Cells(c, r) <= 'Z') << "square " << c << "," << r << " left open";
        }
    QSet<QByteArray> seen;
    for (const QByteArray &e : entries(after)) {
        EXPECT_TRUE(known.contains(e)) << e.constData() << " is not in the list";
        EXPECT_FALSE(seen.contains(e)) << e.constData() << " is used twice";
        seen.insert(e);
    }
}

// A 7 x 7 pattern filled with random letters: its entries plus random decoys make a list
// with at least one fill, which the search has to find among the decoys. The empty grid, the list.
std::pair<TPuzzle, TWords> planted()
{
    const QStringList rows = {"....#..", ".......", "..#....", "...#...", "....#..", ".......", "..#...."};
    TPuzzle solution = grid(rows);
    std::mt19937 random(7);
    for (int c = 1; c <= 7; ++c)
        for (int r = 1; r <= 7; ++r)
            if (!solution.isBlock(c, r))
                solution.Cells(c, r) = uint8_t('A' + random() % 26);
    std::pair out{grid(rows), list(entries(solution))};
    for (int i = 0; i < 1000; ++i) {
        QByteArray decoy;
        for (int n = 2 + int(random() % 6); n > 0; --n)
            decoy.append(char('A' + random() % 26));
        out.second->add(decoy.toStdString(), int(random() % 101));
    }
    return out;
}

TFillRequest request(const TPuzzle &p, TWords words)
{
    TFillRequest r;
    r.Grid = p;
    r.Words = std::move(words);
    r.TimeLimit = 20;
    return r;
}

// 24 separate two-letter slots and 23 two-letter words: no fill, but no proof within reach
// either, since every order of the words has to be tried.
TFillRequest endless()
{
    QList<QByteArray> words;
    for (char a = 'A'; a < 'A' + 23; ++a)
        words.append(QByteArray(1, a) + 'Z');
    QStringList rows = {QStringLiteral("..#..#..#..")};
    while (rows.size() < 11)
        rows << QStringLiteral("###########") << rows.first();
    return request(grid(rows), list(words));
}

}  // namespace

TEST(FillEngine, FillsAPlantedGridValidlyAndTheSameSeedGivesTheSameFill)
{
    const auto [empty, words] = planted();
    for (quint64 seed : {1, 2, 3}) {
        TFillRequest r = request(empty, words);
        r.Seed = seed;
        const TFillResult first = FillGrid(r);
        ASSERT_EQ(first.Status, TFillStatus::Filled) << "seed " << seed;
        expectValidFill(empty, first.Grid, *words);
        const TFillResult again = FillGrid(r);
        EXPECT_EQ(entries(again.Grid), entries(first.Grid)) << "seed " << seed;
    }
}

TEST(FillEngine, KeepsGivenLettersAndFillsOpenSquares)
{
    // The given T and the open square (?) both have to be honoured: only BAT/ORE/WED across
    // and BOW/ARE/TED down fit.
    const TPuzzle p = grid({"..T", "?..", "..."});
    const auto words = list({"BAT", "ORE", "WED", "BOW", "ARE", "TED", "CAB", "OAR", "BAD", "CAT"});
    const TFillResult r = FillGrid(request(p, words));
    ASSERT_EQ(r.Status, TFillStatus::Filled);
    EXPECT_EQ(entries(r.Grid), (QList<QByteArray>{"BAT", "BOW", "ARE", "TED", "ORE", "WED"}));
}

TEST(FillEngine, NeverRepeatsAnEntryNorReusesOneAlreadyInTheGrid)
{
    // A word square of CAT ARE TEN needs each word twice.
    const TFillResult square = FillGrid(request(grid({"...", "...", "..."}), list({"CAT", "ARE", "TEN"})));
    EXPECT_TRUE(square.Status == TFillStatus::Impossible && !square.Faulty.isEmpty());

    // BAT stands complete in the grid, so the open slot may not take it.
    const TPuzzle taken = grid({"BAT", "###", "..."});
    EXPECT_EQ(FillGrid(request(taken, list({"BAT"}))).Status, TFillStatus::Impossible);
    const TFillResult other = FillGrid(request(taken, list({"BAT", "CAT"})));
    ASSERT_EQ(other.Status, TFillStatus::Filled);
    EXPECT_EQ(entries(other.Grid), (QList<QByteArray>{"BAT", "CAT"}));
}

TEST(FillEngine, LeavesOutWordsBelowTheMinimumScore)
{
    TWords words = list({"CAT"}, 80);
    words->add("DOG", 20);
    TFillRequest r = request(grid({"...", "###", "..."}), words);
    EXPECT_EQ(FillGrid(r).Status, TFillStatus::Filled);
    r.MinScore = 30;
    EXPECT_EQ(FillGrid(r).Status, TFillStatus::Impossible);
}

TEST(FillEngine, AGridWithoutAFillIsProvedSoAndTheSlotAtFaultNamed)
{
    // No two-letter words: 1 Down can never be filled, whatever the rest does.
    const TPuzzle p = grid({"...", ".##", "###"});
    const TFillResult r = FillGrid(request(p, list({"CAT", "COT", "TEA", "TOE", "ACE"})));
    EXPECT_EQ(r.Status, TFillStatus::Impossible);
    ASSERT_FALSE(r.Faulty.isEmpty());
    EXPECT_EQ(SlotName(r.Faulty.first()), "1 Down");
    EXPECT_EQ(r.Grid.Cells(1, 1), 0);

    // The crossing letters rule out every pairing only once the search tries them.
    const TFillResult crossing = FillGrid(request(grid({"...", ".#.", "..."}), list({"ABC", "DEF", "AXD", "CYG"})));
    EXPECT_TRUE(crossing.Status == TFillStatus::Impossible && !crossing.Faulty.isEmpty());
}

TEST(FillEngine, StopsAtTheTimeLimitOrACancelAndLeavesTheGridAsItWas)
{
    TFillRequest r = endless();
    r.TimeLimit = 0.2;
    const TFillResult timed = FillGrid(r);
    EXPECT_TRUE(timed.Status == TFillStatus::TimedOut && SameRecord(timed.Grid, r.Grid));

    std::atomic<bool> cancel = false;
    r.TimeLimit = 0;
    r.Cancel = &cancel;
    TFillResult cancelled;
    std::thread worker([&] { cancelled = FillGrid(r); });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    cancel = true;
    worker.join();  // a search that missed the flag would never return
    EXPECT_TRUE(cancelled.Status == TFillStatus::Cancelled && SameRecord(cancelled.Grid, r.Grid));
}

TEST(FillEngine, ARegionFillWritesOnlyTheEmptyAreaConnectedToTheWord)
{
    // Two open areas kept apart by black squares and the given word CAT.
    const TPuzzle p = grid({"...#...", "...#...", "...#...", "CAT####", "...#...", "...#...", "...#..."});
    const std::vector<bool> region = FillRegion(p, 1, 1, Direction::Across);
    auto inRegion = [&](int c, int r) { return bool(region[(c - 1) * MaxGrid + (r - 1)]); };
    EXPECT_TRUE(inRegion(3, 3));
    EXPECT_FALSE(inRegion(5, 1)) << "across the black column";
    EXPECT_FALSE(inRegion(1, 4)) << "a given letter";
    EXPECT_TRUE(inRegion(1, 5)) << "reached through the down word that runs through CAT";

    TFillRequest r = request(p, list({"ABC", "DEF", "GHI", "JKL", "MNO", "PQR", "ADGCJMP", "BEHAKNQ", "CFITLOR", "XYZ", "ZZZ"}));
    r.Fillable = region;
    const TFillResult filled = FillGrid(r);
    ASSERT_EQ(filled.Status, TFillStatus::Filled);
    for (int c = 1; c <= 7; ++c)
        for (int row = 1; row <= 7; ++row)
            EXPECT_TRUE(inRegion(c, row) || filled.Grid.Cells(c, row) == p.Cells(c, row)) << "square " << c << "," << row;
    EXPECT_EQ(filled.Grid.GetWord(1, 1, 'd'), "ADGCJMP");
}

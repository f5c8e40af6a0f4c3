// The clue-writing walk without a window: a recording listener stands in for the window,
// showing what the number label, the word label and the clue box would read.

#include "clues/autocluewalk.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <string>
#include <tuple>

namespace {

// 1A and 1D share the top-left square; the last word in reading order is 7A.
const char *const Shared = "size 5\ngrid\nABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n"
                           "clues\n1A c1\n1D c2\n2D c3\n3D c4\n4D c5\n5A c6\n6A c7\n7A c8\n";

// Its last two words are down words that start below the last across word.
const char *const DownLast = "size 5\ngrid\nABCDE\nFGHIJ\nK#L#M\n#N#O#\n#P#Q#\n"
                             "clues\n1A c1\n1D c2\n2D c3\n3D c4\n4D c5\n5D c6\n6A c7\n7D c8\n8D c9\n";

// The window as the walk sees it. The labels read as the window's do; each refresh is
// recorded as "12a LETTERS slot" (number, direction, the word's letters, the walk's slot).
class TRecordingWindow : public TAutoclueWalkListener {
public:
    TAutoclueWalk Walk{*this};
    QStringList Shown;
    QString Caption;
    QByteArray Clue;
    int GridDirection = 0, NoMoreCluesFlashes = 0, WordLimitWarnings = 0, FirstWordSounds = 0;

    int GridWordDirection() const override { return GridDirection; }
    QByteArray ClueText() const override { return Clue; }
    QString NumberCaption() const override { return Caption; }
    void ShowCurrentWord(char dir) override
    {
        Caption = WalkNumberCaption(Walk.WalkNumber, dir);
        Clue = Walk.WalkSlot >= 1 && Walk.WalkSlot <= ClueSlots ? Puzzle.clue(Walk.WalkSlot) : QByteArray();
        const QString word = QString::fromLatin1(Puzzle.GetWord(Walk.WalkCol, Walk.WalkRow, dir));
        Shown << QStringLiteral("%1%2 %3 %4").arg(Walk.WalkNumber).arg(QChar::fromLatin1(dir), word).arg(Walk.WalkSlot);
    }
    void WordLimitExceeded() override { ++WordLimitWarnings; }
    void NoMoreClues() override { ++NoMoreCluesFlashes; Caption = QString::fromLatin1(NoMoreCluesText); }
    void FirstWordPassed() override { ++FirstWordSounds; }
    std::string all() const { return Shown.join(QStringLiteral(", ")).toStdString(); }
    std::string last() const { return Shown.isEmpty() ? std::string() : Shown.last().toStdString(); }

    // Opens on the first word, as the window does when shown without a grid word.
    void Open(bool threading)
    {
        Walk.ClueAcrossThenDown = threading;
        Walk.Reset();
        Walk.WalkTo(TAutoclueWalk::ChooseTarget(GridDirection, 1, 1));
    }
    // Next (n > 0) or Previous (n < 0), pressed |n| times.
    void Press(qsizetype n)
    {
        const QByteArray any = TAutoclueWalk::AnyWord;
        for (; n > 0; --n)
            Walk.ClueAcrossThenDown ? Walk.ThreadForward(any) : Walk.StepForward(any);
        for (; n < 0; ++n)
            Walk.ClueAcrossThenDown ? Walk.ThreadBack() : Walk.StepBack();
    }
};

class AutoclueWalk : public ::testing::Test {
protected:
    void TearDown() override { Puzzle = TPuzzle{}; }
    TRecordingWindow window;
};

}  // namespace

TEST_F(AutoclueWalk, EveryWordShowsItsNumberDirectionAndSlotBothWays)
{
    // Each grid's words from the first, as Next shows them, then what Next from the last leaves.
    const struct {
        const char *Grid;
        bool Threading;
        const char *Words, *AtEnd;
    } cases[] = {
        {Shared, false, "1a ABC 1, 1d AEINQ 2, 2d BFJ 3, 3d CGKOS 4, 4d DHMPT 5, 5a EFG 6, 6a IJKLM 7, 7a QRS 8",
         "7a QRS 8"},
        // The end of the walk looks back for across words only, and keeps the last count.
        {DownLast, false, "1a ABCDE 1, 1d AFK 2, 2d BG 3, 3d CHL 4, 4d DI 5, 5d EJM 6, 6a FGHIJ 7, 7d NP 8, 8d OQ 9",
         "8a FGHIJ 9"},
        // Threaded, the down words keep their reading-order slots; the end is found again
        // from the clue box and the number label.
        {Shared, true, "1a ABC 1, 5a EFG 6, 6a IJKLM 7, 7a QRS 8, 1d AEINQ 2, 2d BFJ 3, 3d CGKOS 4, 4d DHMPT 5",
         "4d DHMPT 5"},
        {DownLast, true, "1a ABCDE 1, 6a FGHIJ 7, 1d AFK 2, 2d BG 3, 3d CHL 4, 4d DI 5, 5d EJM 6, 7d NP 8, 8d OQ 9",
         "8d OQ 9"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.Grid << (c.Threading ? "threaded" : "reading order"));
        Puzzle = PuzzleFrom(QString::fromLatin1(c.Grid));
        const QStringList words = QString::fromLatin1(c.Words).split(QStringLiteral(", "));
        const qsizetype steps = words.size() - 1;
        TRecordingWindow w;
        w.Open(c.Threading);
        w.Press(steps);
        EXPECT_EQ(w.all(), c.Words);
        w.Press(1);
        EXPECT_EQ(w.NoMoreCluesFlashes, 1);
        EXPECT_EQ(w.last(), c.AtEnd);

        // Back to the first word, and Previous from the first sounds and stays. (The threaded
        // walk back looks for the last across word in the last row, and DownLast has none.)
        if (c.Grid != Shared)
            continue;
        w.Shown.clear();
        w.Press(-steps);
        EXPECT_EQ(w.all(), QStringList(words.rbegin() + 1, words.rend()).join(QStringLiteral(", ")).toStdString());
        EXPECT_EQ(w.FirstWordSounds, 0);
        w.Press(-1);
        EXPECT_EQ(w.FirstWordSounds, 1);
        EXPECT_EQ(w.last(), words.first().toStdString());
        w.Press(1);
        EXPECT_EQ(w.last(), words[1].toStdString());
    }
}

TEST_F(AutoclueWalk, NextUndefinedWordSkipsWrittenClues)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    Puzzle.setClue(5, {});  // 4D
    window.Open(true);
    window.Walk.StepForward({});
    EXPECT_EQ(window.last(), "4d DHMPT 5") << "in reading order, even when threading";

    // A word without a slot counts as unwritten, whatever its slot's text.
    Puzzle.setSlotAt(1, 3, Direction::Across, 0);
    window.Walk.StepForward({});
    EXPECT_EQ(window.last(), "6a IJKLM 7");

    // With every clue written it runs to the end: the message, then the last word.
    Puzzle.setSlotAt(1, 3, Direction::Across, 7);
    Puzzle.setClue(5, "c5");
    window.Walk.StepForward({});
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.last(), "7a QRS 8");
}

TEST_F(AutoclueWalk, TheGridWordIsFoundByItsLettersInTheGridDirection)
{
    // AB is the across word at (1, 1) and again at (4, 3); XYBWZ is the down word at (5, 1).
    Puzzle = PuzzleFrom(QStringLiteral("size 5\ngrid\nAB#CX\n##Q#Y\nRS#AB\nTU#VW\nZZ#ZZ\n"));
    // (4, 1) starts no down word, (2, 1) is inside a word, and direction 0 types nowhere.
    for (auto [dir, c, r, target] : {std::tuple{1, 4, 3, "AB"}, {2, 5, 1, "XYBWZ"}, {2, 4, 1, ">"}, {1, 2, 1, ">"},
                                     {0, 4, 3, ">"}})
        EXPECT_EQ(TAutoclueWalk::ChooseTarget(dir, c, r), QByteArray(target)) << dir << " " << c << "," << r;

    // Threaded, a down word is found only while the grid types down.
    window.Walk.ClueAcrossThenDown = true;
    window.GridDirection = 2;
    window.Walk.Reset();
    window.Walk.WalkTo("XYBWZ");
    EXPECT_EQ(window.last(), "3d XYBWZ 3");
    window.GridDirection = 1;
    window.Walk.Reset();
    window.Walk.WalkTo("XYBWZ");
    EXPECT_EQ(window.NoMoreCluesFlashes, 1) << "no across word reads XYBWZ";

    // A grid click restarts the reading-order walk wherever the threaded walk was.
    window.GridDirection = 2;
    window.Walk.ResetForGrid();
    window.Walk.StepForward("XYBWZ");
    EXPECT_EQ(window.last(), "3d XYBWZ 3");
}

TEST_F(AutoclueWalk, TheWalkStopsAtTheWordLimit)
{
    // Black in every fourth column and row: 216 words of three letters.
    const QString open = QStringLiteral("ABC#").repeated(5) + QStringLiteral("ABC\n");
    const QString rows = (open.repeated(3) + QString(23, u'#') + u'\n').repeated(5) + open.repeated(3);
    Puzzle = PuzzleFrom(QStringLiteral("size 23\ngrid\n") + rows);
    ASSERT_EQ(WordCount(Puzzle), 216);

    // Threaded, the limit still counts every word in reading order, so it stops on the
    // 90th across word: the last of row 19, the 180th word.
    for (const auto &[threading, shown] : {std::pair{false, MaxWords}, std::pair{true, 89}}) {
        SCOPED_TRACE(threading);
        TRecordingWindow w;
        w.Open(threading);
        while (w.WordLimitWarnings == 0 && w.Shown.size() < 200)
            w.Press(1);
        EXPECT_EQ(std::pair(w.WordLimitWarnings, w.NoMoreCluesFlashes), std::pair(1, 0));
        ASSERT_EQ(w.Shown.size(), shown);
        const QStringList last = w.Shown.last().split(u' ');
        EXPECT_TRUE(last[0].endsWith(u'a')) << w.last();
        EXPECT_EQ(last[2].toInt(), MaxWords) << w.last();
    }
}

TEST_F(AutoclueWalk, StoringAClueGivesTheWordTheWalksSlot)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    Puzzle.setSlotAt(3, 1, Direction::Down, 0);
    Puzzle.setClue(4, {});
    window.Open(false);
    window.Walk.StepForward({});
    ASSERT_EQ(window.last(), "3d CGKOS 4");

    EXPECT_FALSE(window.Walk.StoreClue({})) << "the stored text again changes nothing";
    EXPECT_EQ(Puzzle.slotAt(3, 1, Direction::Down), 0);
    EXPECT_TRUE(window.Walk.StoreClue("Bread maker"));
    EXPECT_EQ(std::pair(int(Puzzle.slotAt(3, 1, Direction::Down)), Puzzle.clue(4)), std::pair(4, QByteArray("Bread maker")));
    EXPECT_EQ(Puzzle.slotAt(3, 1, Direction::Across), 0) << "the other direction is left alone";
    EXPECT_TRUE(window.Walk.StoreClue(QByteArray(95, 'x')));
    EXPECT_EQ(Puzzle.clue(4), QByteArray(80, 'x'));
}

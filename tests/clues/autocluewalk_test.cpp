// The clue-writing walk without a window: a recording listener stands in for the window,
// showing what the number label, the word label and the clue box would read.

#include "clues/autocluewalk.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

// 1A and 1D share the top-left square; 2D, 3D and 4D start only down, 5A, 6A and 7A only
// across; the last word in reading order is 7A.
const char *const Shared =
    "size 5\ngrid\n"
    "ABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n"
    "clues\n1A c1\n1D c2\n2D c3\n3D c4\n4D c5\n5A c6\n6A c7\n7A c8\n";

// Its last two words are down words that start below the last across word.
const char *const DownLast =
    "size 5\ngrid\n"
    "ABCDE\nFGHIJ\nK#L#M\n#N#O#\n#P#Q#\n"
    "clues\n1A c1\n1D c2\n2D c3\n3D c4\n4D c5\n5D c6\n6A c7\n7D c8\n8D c9\n";

struct TShown {
    QString Caption;
    QByteArray Word;
    int Slot = 0;
};

// The window as the walk sees it: ShowCurrentWord puts the word's number and direction
// in the label and the clue of the walk's slot in the clue box.
class TRecordingWindow : public TAutoclueWalkListener {
public:
    TAutoclueWalk Walk{*this};
    QList<TShown> Shown;
    QString Caption;
    QByteArray Clue;
    int GridDirection = 0;
    int NoMoreCluesFlashes = 0;
    int WordLimitWarnings = 0;
    int FirstWordSounds = 0;

    int GridWordDirection() const override { return GridDirection; }
    QByteArray ClueText() const override { return Clue; }
    QString NumberCaption() const override { return Caption; }

    void ShowCurrentWord(char dir) override
    {
        Caption = WalkNumberCaption(Walk.WalkNumber, dir);
        Clue = Walk.WalkSlot >= 1 && Walk.WalkSlot <= ClueSlots ? Puzzle.clue(Walk.WalkSlot) : QByteArray();
        Shown.append({Caption, Puzzle.GetWord(Walk.WalkCol, Walk.WalkRow, dir), Walk.WalkSlot});
    }
    void WordLimitExceeded() override { ++WordLimitWarnings; }
    void NoMoreClues() override
    {
        ++NoMoreCluesFlashes;
        Caption = QString::fromLatin1(NoMoreCluesText);
    }
    void FirstWordPassed() override { ++FirstWordSounds; }

    // Opens on the first word, as the window does when shown without a grid word.
    void Open(bool threading)
    {
        Walk.ClueAcrossThenDown = threading;
        Walk.Reset();
        Walk.WalkTo(TAutoclueWalk::ChooseTarget(GridDirection, 1, 1));
    }
    void Next()
    {
        if (Walk.ClueAcrossThenDown)
            Walk.ThreadForward(TAutoclueWalk::AnyWord);
        else
            Walk.StepForward(TAutoclueWalk::AnyWord);
    }
    void Previous()
    {
        if (Walk.ClueAcrossThenDown)
            Walk.ThreadBack();
        else
            Walk.StepBack();
    }
    QString Last() const
    {
        if (Shown.isEmpty())
            return {};
        const TShown &s = Shown.last();
        return QStringLiteral("%1 %2 s%3").arg(s.Caption, QString::fromLatin1(s.Word)).arg(s.Slot);
    }
    QStringList All() const
    {
        QStringList out;
        for (const TShown &s : Shown)
            out << QStringLiteral("%1 %2 s%3").arg(s.Caption, QString::fromLatin1(s.Word)).arg(s.Slot);
        return out;
    }
};

class AutoclueWalk : public ::testing::Test {
protected:
    void SetUp() override { Puzzle = TPuzzle{}; }
    void TearDown() override { Puzzle = TPuzzle{}; }
    TRecordingWindow window;
};

QStringList shared(std::initializer_list<const char *> lines)
{
    QStringList out;
    for (const char *line : lines)
        out << QString::fromLatin1(line);
    return out;
}

// Every square black in column 4, 8, ... and in row 4, 8, ...: 216 words of three letters.
TPuzzle manyWords()
{
    QString text = QStringLiteral("size 23\ngrid\n");
    for (int r = 1; r <= 23; ++r) {
        for (int c = 1; c <= 23; ++c)
            text += c % 4 == 0 || r % 4 == 0 ? u'#' : QChar(u'A' + (c + r) % 26);
        text += u'\n';
    }
    return PuzzleFrom(text);
}

}  // namespace

TEST_F(AutoclueWalk, ReadingOrderGivesEveryWordItsNumberDirectionAndSlot)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    window.Open(false);
    for (int i = 0; i < 7; ++i)
        window.Next();
    EXPECT_EQ(window.All(), shared({"1  Across ABC s1", "1  Down AEINQ s2", "2  Down BFJ s3", "3  Down CGKOS s4",
                                    "4  Down DHMPT s5", "5  Across EFG s6", "6  Across IJKLM s7",
                                    "7  Across QRS s8"}));
    EXPECT_EQ(window.NoMoreCluesFlashes, 0);

    // Next from the last word flashes the message and stays there.
    window.Next();
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("7  Across QRS s8"));
    window.Next();
    EXPECT_EQ(window.NoMoreCluesFlashes, 2);
    EXPECT_EQ(window.Last(), QStringLiteral("7  Across QRS s8"));

    // Back through every word in reverse order.
    window.Shown.clear();
    for (int i = 0; i < 7; ++i)
        window.Previous();
    EXPECT_EQ(window.All(), shared({"6  Across IJKLM s7", "5  Across EFG s6", "4  Down DHMPT s5", "3  Down CGKOS s4",
                                    "2  Down BFJ s3", "1  Down AEINQ s2", "1  Across ABC s1"}));

    // Previous from the first word: the sound, no refresh, and the walk stays on it.
    window.Previous();
    EXPECT_EQ(window.FirstWordSounds, 1);
    EXPECT_EQ(window.Shown.size(), 7);
    EXPECT_EQ(window.Walk.WalkDir, 'a');
    EXPECT_EQ(window.Walk.WalkSlot, 1);
    EXPECT_EQ(window.Walk.WalkNumber, 1);
    window.Next();
    EXPECT_EQ(window.Last(), QStringLiteral("1  Down AEINQ s2"));
}

TEST_F(AutoclueWalk, ReadingOrderPastALastDownWordEndsOnTheLastAcrossWord)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(DownLast));
    window.Open(false);
    for (int i = 0; i < 8; ++i)
        window.Next();
    EXPECT_EQ(window.All(), shared({"1  Across ABCDE s1", "1  Down AFK s2", "2  Down BG s3", "3  Down CHL s4",
                                    "4  Down DI s5", "5  Down EJM s6", "6  Across FGHIJ s7", "7  Down NP s8",
                                    "8  Down OQ s9"}));
    // The end of the walk looks back for across words only, and keeps the last count.
    window.Next();
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("8  Across FGHIJ s9"));
}

TEST_F(AutoclueWalk, ThreadingWalksTheAcrossWordsThenTheDownWords)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    window.Open(true);
    for (int i = 0; i < 7; ++i)
        window.Next();
    EXPECT_EQ(window.All(), shared({"1  Across ABC s1", "5  Across EFG s6", "6  Across IJKLM s7", "7  Across QRS s8",
                                    "1  Down AEINQ s2", "2  Down BFJ s3", "3  Down CGKOS s4", "4  Down DHMPT s5"}));

    // Next from the last down word: found again from the clue box and the number label.
    window.Next();
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("4  Down DHMPT s5"));

    // Previous from the first down word goes to the last across word, then on back.
    window.Shown.clear();
    for (int i = 0; i < 7; ++i)
        window.Previous();
    EXPECT_EQ(window.All(), shared({"3  Down CGKOS s4", "2  Down BFJ s3", "1  Down AEINQ s2", "7  Across QRS s8",
                                    "6  Across IJKLM s7", "5  Across EFG s6", "1  Across ABC s1"}));
    EXPECT_EQ(window.FirstWordSounds, 0);
    window.Previous();
    EXPECT_EQ(window.FirstWordSounds, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("1  Across ABC s1"));
}

TEST_F(AutoclueWalk, ThreadingWithTheLastWordDown)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(DownLast));
    window.Open(true);
    for (int i = 0; i < 8; ++i)
        window.Next();
    EXPECT_EQ(window.All(), shared({"1  Across ABCDE s1", "6  Across FGHIJ s7", "1  Down AFK s2", "2  Down BG s3",
                                    "3  Down CHL s4", "4  Down DI s5", "5  Down EJM s6", "7  Down NP s8",
                                    "8  Down OQ s9"}));
    window.Next();
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("8  Down OQ s9"));
    window.Previous();
    EXPECT_EQ(window.Last(), QStringLiteral("7  Down NP s8"));
}

TEST_F(AutoclueWalk, NextUndefinedWordSkipsWrittenClues)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    Puzzle.setClue(5, {});  // 4D
    window.Open(false);
    window.Walk.StepForward({});
    EXPECT_EQ(window.Last(), QStringLiteral("4  Down DHMPT s5"));

    // A word without a slot counts as unwritten, whatever its slot's text.
    Puzzle.setSlotAt(1, 3, Direction::Across, 0);
    window.Walk.StepForward({});
    EXPECT_EQ(window.Last(), QStringLiteral("6  Across IJKLM s7"));

    // With every clue written it runs to the end: the message, then the last word.
    Puzzle.setSlotAt(1, 3, Direction::Across, 7);
    Puzzle.setClue(5, "c5");
    window.Walk.StepForward({});
    EXPECT_EQ(window.NoMoreCluesFlashes, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("7  Across QRS s8"));
}

TEST_F(AutoclueWalk, TheGridWordIsFoundByItsLettersInTheGridDirection)
{
    // AB is the across word at (1, 1) and again at (4, 3); XYBWZ is the down word at (5, 1).
    Puzzle = PuzzleFrom(QStringLiteral("size 5\ngrid\nAB#CX\n##Q#Y\nRS#AB\nTU#VW\nZZ#ZZ\n"));
    window.GridDirection = 1;
    EXPECT_EQ(TAutoclueWalk::ChooseTarget(1, 4, 3), QByteArray("AB"));
    EXPECT_EQ(TAutoclueWalk::ChooseTarget(2, 5, 1), QByteArray("XYBWZ"));
    EXPECT_EQ(TAutoclueWalk::ChooseTarget(2, 4, 1), TAutoclueWalk::AnyWord) << "(4, 1) starts no down word";
    EXPECT_EQ(TAutoclueWalk::ChooseTarget(1, 2, 1), TAutoclueWalk::AnyWord) << "inside a word";
    EXPECT_EQ(TAutoclueWalk::ChooseTarget(0, 4, 3), TAutoclueWalk::AnyWord);

    // The earlier of two equal words wins.
    window.Walk.Reset();
    window.Walk.WalkTo(TAutoclueWalk::ChooseTarget(1, 4, 3));
    EXPECT_EQ(window.Walk.WalkCol, 1);
    EXPECT_EQ(window.Walk.WalkRow, 1);
    EXPECT_EQ(window.Last(), QStringLiteral("1  Across AB s1"));

    // Threaded, and for a down word only while the grid types down.
    window.Walk.ClueAcrossThenDown = true;
    window.Walk.Reset();
    window.GridDirection = 2;
    window.Walk.WalkTo("XYBWZ");
    EXPECT_EQ(window.Last(), QStringLiteral("3  Down XYBWZ s3"));
    window.GridDirection = 1;
    window.Walk.Reset();
    window.Walk.WalkTo("XYBWZ");
    EXPECT_EQ(window.NoMoreCluesFlashes, 1) << "no across word reads XYBWZ";

    // A grid click restarts the reading-order walk wherever the threaded walk was.
    window.GridDirection = 2;
    window.Walk.ResetForGrid();
    window.Walk.StepForward("XYBWZ");
    EXPECT_EQ(window.Last(), QStringLiteral("3  Down XYBWZ s3"));
    EXPECT_TRUE(window.Walk.ClueAcrossThenDown);
}

TEST_F(AutoclueWalk, TheWalkStopsAtTheWordLimit)
{
    Puzzle = manyWords();
    ASSERT_EQ(WordCount(Puzzle), 216);
    window.Open(false);
    while (window.WordLimitWarnings == 0 && window.Shown.size() < 200)
        window.Next();
    EXPECT_EQ(window.WordLimitWarnings, 1);
    ASSERT_EQ(window.Shown.size(), MaxWords);
    EXPECT_EQ(window.Shown.last().Slot, MaxWords);
    EXPECT_EQ(window.NoMoreCluesFlashes, 0);

    // Threaded, the limit counts every word in reading order, the down words too.
    window.Shown.clear();
    window.WordLimitWarnings = 0;
    window.Open(true);
    while (window.WordLimitWarnings == 0 && window.Shown.size() < 200)
        window.Next();
    // Word 180 is the last across word of row 19: the 90th across word.
    EXPECT_EQ(window.WordLimitWarnings, 1);
    EXPECT_EQ(window.Shown.size(), 89);
    EXPECT_EQ(window.Shown.last().Slot, MaxWords);
    EXPECT_EQ(window.Shown.last().Caption.section(u' ', 2), QStringLiteral("Across"));
}

TEST_F(AutoclueWalk, TypingStoresTheClueInTheWalksSlot)
{
    Puzzle = PuzzleFrom(QString::fromLatin1(Shared));
    Puzzle.setSlotAt(3, 1, Direction::Down, 0);
    Puzzle.setClue(4, {});
    window.Open(false);
    window.Walk.StepForward({});
    ASSERT_EQ(window.Last(), QStringLiteral("3  Down CGKOS s4"));

    // The same text as the stored clue changes nothing.
    EXPECT_FALSE(window.Walk.StoreClue({}));
    EXPECT_EQ(Puzzle.slotAt(3, 1, Direction::Down), 0);

    EXPECT_TRUE(window.Walk.StoreClue("Bread maker"));
    EXPECT_EQ(Puzzle.slotAt(3, 1, Direction::Down), 4);
    EXPECT_EQ(Puzzle.clue(4), QByteArray("Bread maker"));
    EXPECT_EQ(Puzzle.slotAt(3, 1, Direction::Across), 0) << "the other direction is left alone";
    EXPECT_FALSE(window.Walk.StoreClue("Bread maker"));

    const QByteArray longClue(95, 'x');
    EXPECT_TRUE(window.Walk.StoreClue(longClue));
    EXPECT_EQ(Puzzle.clue(4), longClue.left(80));
}

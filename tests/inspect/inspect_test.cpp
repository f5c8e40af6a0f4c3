#include "inspect/analysis.h"
#include "inspect/scangrid.h"
#include "inspect/transforms.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TPuzzle grid11(const QStringList &rows, const QString &clues = {}, QChar fill = u'.')
{
    return PuzzleFrom(QStringLiteral("size 11\ngrid\n") + GridRows(rows, 11, fill) + QStringLiteral("clues\n") + clues);
}

QList<QByteArray> texts(const QList<TScanItem> &items)
{
    QList<QByteArray> out;
    for (const TScanItem &i : items)
        out.append(i.Text);
    return out;
}

// The clues kept, in slot order.
QStringList clues(const TPuzzle &p)
{
    QStringList out;
    for (int k = 1; k <= MaxWords; ++k)
        if (!p.Clues[k - 1].isEmpty())
            out << QString::fromLatin1(p.clue(k));
    return out;
}

}  // namespace

TEST(ScanGrid, ScanForOrderAcrossBeforeDownAndRowByRow)
{
    const TPuzzle p = grid11({"CART#######", "#R#########", "#C#########", "#H#########"}, {}, u'#');
    const QList<TScanItem> items = ScanFor(p, "AR");
    EXPECT_EQ(texts(items), (QList<QByteArray>{"CART", "ARCH"}));
    EXPECT_EQ(std::tuple(items[0].Direction, items[1].Direction, items[1].Column, items[1].Row), std::tuple(1, 2, 2, 1));
    // A run across an empty square never matches; an empty text lists nothing.
    TPuzzle gap = p;
    gap.Cells(2, 1) = 0;
    EXPECT_TRUE(ScanFor(gap, "AR").isEmpty() && ScanFor(gap, QByteArray("\0R", 2)).isEmpty() && ScanFor(p, "").isEmpty());
}

// Look-alikes share the first or last three letters and are complete.
TEST(ScanGrid, ScanAllGroupsLaterLookAlikesAndFlagsARepeat)
{
    EXPECT_TRUE(WordsAlike("STONE", "STORM") && WordsAlike("STONE", "PHONE"));
    EXPECT_FALSE(WordsAlike("STORM", "PHONE"));
    EXPECT_FALSE(WordsAlike(QByteArray("STO\0E", 5), "STORM") || WordsAlike("STONE", QByteArray("STO\0M", 5)));
    const TPuzzle p = grid11({"STONE######", "###########", "STORM######", "###########", "PHONE######",
                              "###########", "STONE######", "###########", "ST.RE######"}, {}, u'#');
    const TScanResult r = ScanAll(p);
    EXPECT_EQ(texts(r.Items), (QList<QByteArray>{"STONE", "    STORM", "    PHONE", "    STONE ", "STORM",
                                                 "    STONE", "PHONE", "    STONE"}));
    EXPECT_TRUE(r.Repeats);
    EXPECT_EQ(r.Items[3].Row, 7);
    EXPECT_FALSE(ScanAll(grid11({"STONE######", "###########", "PLANK######"}, {}, u'#')).Repeats);
}

// (across, down, words, two-letter, three-letter, ending in S, average, unkeyed, black, open squares)
auto counts(const TAnalysis &a)
{
    return std::tuple(a.AcrossWords, a.DownWords, a.Words, a.TwoLetterWords, a.ThreeLetterWords, a.WordsEndingInS,
                      a.AverageLength, a.UnkeyedSquares, a.BlackSquares, a.OpenSquares);
}

TEST(Analysis, AnOpenGridIsOneWordPerRowAndColumnSymmetryIsTheHalfTurnAndNoWordsAverageZero)
{
    TPuzzle p;
    p.Size = 15;
    const TAnalysis a = AnalysePuzzle(p);
    EXPECT_EQ(counts(a), std::tuple(15, 15, 30, 0, 0, 0, 15, 0, 0, 0));
    EXPECT_TRUE(a.Symmetric);
    EXPECT_EQ(a.Identifier, "INCOMPLETE");
    EXPECT_EQ(a.Caption, "Puzzle Analysis");

    // Symmetry is the half-turn test only.
    p.Cells(1, 1) = p.Cells(15, 15) = BlockChar;
    EXPECT_TRUE(AnalysePuzzle(p).Symmetric);
    p.Cells(15, 15) = 0;
    p.Cells(15, 1) = BlockChar;  // mirrored across the vertical centre line only
    EXPECT_FALSE(AnalysePuzzle(p).Symmetric);
    for (int r = 1; r <= 15; ++r)
        for (int c = 1; c <= 15; ++c)
            p.Cells(c, r) = BlockChar;
    EXPECT_EQ(std::pair(AnalysePuzzle(p).Words, AnalysePuzzle(p).AverageLength), std::pair(0, 0)) << "no words average zero";
}

TEST(Analysis, FinishedGridCountsWordsLettersAndNamesItself)
{
    QStringList rows = {"ABACK#TOAST", "B#CCCCCCCCC"};
    for (int r = 3; r <= 10; ++r)
        rows << "CCCCCCCCCCC";
    rows << "?AS#SSSSS#S";
    TPuzzle p = grid11(rows);
    p.Language = 1;
    const TAnalysis a = AnalysePuzzle(p);
    EXPECT_EQ(a.Identifier, "ABACK - TOAST    11x");
    // Unkeyed: (1, 2) and (11, 11) beside a black square and the edge, (2, 1) above one.
    EXPECT_EQ(counts(a), std::tuple(13, 11, 24, 0, 1, 9, 231 / 24, 3, 4, 1));
    EXPECT_EQ(std::pair(a.Letters['C' - 'A'], a.Letters['S' - 'A']), std::pair(98, 8));
    EXPECT_FALSE(a.Symmetric);
    EXPECT_EQ(a.Caption, "Puzzle Analysis (French)");
    p.Cells(3, 1) = 0;
    EXPECT_EQ(AnalysePuzzle(p).Identifier, "INCOMPLETE");
}

TEST(Transforms, InvertTwiceIsTheIdentityFourRotationsKeepTheSquaresButNotTheDownClues)
{
    const TPuzzle start = grid11({"CAT#DOG#EEL", "ARE#ONE#ARE"}, QStringLiteral("1A Pet\n1D Boat\n4A Hound\n"));
    TPuzzle p = start;
    TransformPuzzle(p, TTransformKind::Invert);
    EXPECT_EQ(p.GetWord(1, 1, 'd'), "CAT");
    EXPECT_EQ(p.clue(p.slotAt(1, 1, Direction::Down)), "Pet");
    TransformPuzzle(p, TTransformKind::Invert);
    EXPECT_TRUE(SameRecord(p, start));

    TransformPuzzle(p, TTransformKind::Rotate);
    // The across words now run down the right-hand columns; the old down clue is gone.
    EXPECT_EQ(p.GetWord(11, 1, 'd'), "CAT");
    EXPECT_EQ(p.clue(p.slotAt(11, 1, Direction::Down)), "Pet");
    EXPECT_EQ(clues(p), (QStringList{"Pet", "Hound"}));
    for (int i = 0; i < 3; ++i)
        TransformPuzzle(p, TTransformKind::Rotate);
    EXPECT_EQ(QByteArray(reinterpret_cast<const char *>(&p.Cells), sizeof p.Cells),
              QByteArray(reinterpret_cast<const char *>(&start.Cells), sizeof start.Cells));
}

TEST(Transforms, OnlyTheFirstDuplicateGetsTheClueAndOpenOrEmptyStartsLoseIt)
{
    // Flip swaps rows 1 and 11. Both old EELs find the first EEL of the new grid (now in
    // row 1), so the later one's clue is the one it keeps, and the other EEL gets none.
    TPuzzle p = grid11(QStringList{"EEL#?AT#.OG"} + QStringList(9, QStringLiteral("###########")) + QStringList{"EEL########"},
                       QStringLiteral("1A First eel\n2A Open\n3A Empty start\n4A Second eel\n"));
    TransformPuzzle(p, TTransformKind::Flip);
    EXPECT_EQ(p.clue(p.slotAt(1, 1, Direction::Across)), "Second eel");
    EXPECT_EQ(p.slotAt(1, 11, Direction::Across), 0);
    EXPECT_EQ(p.slotAt(5, 11, Direction::Across), 0);  // ?AT: an open square never matches
    EXPECT_EQ(p.slotAt(9, 11, Direction::Across), 0);  // .OG: its first square is empty
    EXPECT_EQ(clues(p), QStringList{"Second eel"});
}

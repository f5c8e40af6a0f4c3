#include "inspect/analysis.h"
#include "inspect/scangrid.h"
#include "inspect/transforms.h"
#include "testsupport.h"

#include <QPoint>

#include <gtest/gtest.h>

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

}  // namespace

TEST(ScanGrid, ScanForOrderAcrossBeforeDownAndRowByRow)
{
    const TPuzzle p = grid11({"CART#######", "#R#########", "#C#########", "#H#########"}, {}, u'#');
    const QList<TScanItem> items = ScanFor(p, "AR");
    EXPECT_EQ(texts(items), (QList<QByteArray>{"CART", "ARCH"}));
    EXPECT_EQ(items[0].Direction, 1);
    EXPECT_EQ(items[1].Direction, 2);
    EXPECT_EQ((QPoint(items[1].Column, items[1].Row)), QPoint(2, 1));
    // A run across an empty square never matches; an empty text lists nothing.
    TPuzzle gap = p;
    gap.Cells(2, 1) = 0;
    EXPECT_TRUE(ScanFor(gap, "AR").isEmpty());
    EXPECT_TRUE(ScanFor(gap, QByteArray("\0R", 2)).isEmpty());
    EXPECT_TRUE(ScanFor(p, "").isEmpty());
}

TEST(ScanGrid, LookAlikesShareTheFirstOrLastThreeLettersAndAreComplete)
{
    EXPECT_TRUE(WordsAlike("STONE", "STORM"));
    EXPECT_TRUE(WordsAlike("STONE", "PHONE"));
    EXPECT_FALSE(WordsAlike("STORM", "PHONE"));
    EXPECT_FALSE(WordsAlike(QByteArray("STO\0E", 5), "STORM"));
    EXPECT_FALSE(WordsAlike("STONE", QByteArray("STO\0M", 5)));
}

TEST(ScanGrid, ScanAllGroupsLaterLookAlikesAndFlagsARepeat)
{
    const TPuzzle p = grid11({"STONE######", "###########", "STORM######", "###########", "PHONE######",
                              "###########", "STONE######", "###########", "ST.RE######"}, {}, u'#');
    const TScanResult r = ScanAll(p);
    EXPECT_EQ(texts(r.Items), (QList<QByteArray>{"STONE", "    STORM", "    PHONE", "    STONE ", "STORM",
                                                 "    STONE", "PHONE", "    STONE"}));
    EXPECT_TRUE(r.Repeats);
    EXPECT_EQ(r.Items[3].Row, 7);
    EXPECT_FALSE(ScanAll(grid11({"STONE######", "###########", "PLANK######"}, {}, u'#')).Repeats);
}

TEST(Analysis, EmptyGridIsOneWordPerRowAndColumn)
{
    TPuzzle p;
    p.Size = 15;
    const TAnalysis a = AnalysePuzzle(p);
    EXPECT_EQ(a.AcrossWords, 15);
    EXPECT_EQ(a.DownWords, 15);
    EXPECT_EQ(a.Words, 30);
    EXPECT_EQ(a.AverageLength, 15);
    EXPECT_EQ(a.TwoLetterWords, 0);
    EXPECT_EQ(a.UnkeyedSquares, 0);
    EXPECT_EQ(a.BlackSquares, 0);
    EXPECT_TRUE(a.Symmetric);
    EXPECT_EQ(a.Identifier, "INCOMPLETE");
    EXPECT_EQ(a.Caption, "Puzzle Analysis");
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
    EXPECT_EQ(a.BlackSquares, 4);
    EXPECT_EQ(a.AcrossWords, 13);
    EXPECT_EQ(a.DownWords, 11);
    EXPECT_EQ(a.Words, 24);
    EXPECT_EQ(a.TwoLetterWords, 0);
    EXPECT_EQ(a.ThreeLetterWords, 1);
    EXPECT_EQ(a.WordsEndingInS, 9);
    EXPECT_EQ(a.AverageLength, 231 / 24);
    // (1, 2) and (11, 11) beside a black square and the edge, (2, 1) above one.
    EXPECT_EQ(a.UnkeyedSquares, 3);
    EXPECT_EQ(a.Letters['C' - 'A'], 98);
    EXPECT_EQ(a.Letters['S' - 'A'], 8);
    EXPECT_EQ(a.OpenSquares, 1);
    EXPECT_FALSE(a.Symmetric);
    EXPECT_EQ(a.Caption, "Puzzle Analysis (French)");
    p.Cells(3, 1) = 0;
    EXPECT_EQ(AnalysePuzzle(p).Identifier, "INCOMPLETE");
}

TEST(Analysis, SymmetryIsTheHalfTurnTestOnlyAndNoWordsAverageZero)
{
    TPuzzle p;
    p.Size = 15;
    p.Cells(1, 1) = BlockChar;
    p.Cells(15, 15) = BlockChar;
    EXPECT_TRUE(AnalysePuzzle(p).Symmetric);
    // Mirrored across the vertical centre line, but not half-turn symmetric.
    p.Cells(15, 15) = 0;
    p.Cells(15, 1) = BlockChar;
    EXPECT_FALSE(AnalysePuzzle(p).Symmetric);

    // A grid without words averages zero.
    for (int r = 1; r <= 15; ++r)
        for (int c = 1; c <= 15; ++c)
            p.Cells(c, r) = BlockChar;
    EXPECT_EQ(AnalysePuzzle(p).Words, 0);
    EXPECT_EQ(AnalysePuzzle(p).AverageLength, 0);
}

TEST(Transforms, InvertTwiceIsTheIdentityWithCluesKept)
{
    const TPuzzle start = grid11({"CAT#DOG#EEL", "ARE#ONE#ARE"}, QStringLiteral("1A Pet\n1D Boat\n4A Hound\n"));
    TPuzzle p = start;
    TransformPuzzle(p, TTransformKind::Invert);
    EXPECT_EQ(p.Cells(1, 2), 'A');  // CAT now runs down column 1
    EXPECT_EQ(p.GetWord(1, 1, 'd'), "CAT");
    EXPECT_EQ(p.clue(p.slotAt(1, 1, Direction::Down)), "Pet");
    TransformPuzzle(p, TTransformKind::Invert);
    EXPECT_TRUE(SameRecord(p, start));
}

TEST(Transforms, FourRotationsGiveBackTheSquaresButNotTheDownClues)
{
    const TPuzzle start = grid11({"CAT#DOG#EEL", "ARE#ONE#ARE"}, QStringLiteral("1A Pet\n1D Boat\n4A Hound\n"));
    TPuzzle p = start;
    const auto kept = [&p] {
        QStringList clues;
        for (int k = 1; k <= MaxWords; ++k)
            if (!p.Clues[k - 1].isEmpty())
                clues << QString::fromLatin1(p.clue(k));
        return clues;
    };
    TransformPuzzle(p, TTransformKind::Rotate);
    // The across words now run down the right-hand columns; the old down clue is gone.
    EXPECT_EQ(p.GetWord(11, 1, 'd'), "CAT");
    EXPECT_EQ(p.clue(p.slotAt(11, 1, Direction::Down)), "Pet");
    EXPECT_EQ(kept(), (QStringList{"Pet", "Hound"}));
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
    int clued = 0;
    for (int k = 1; k <= MaxWords; ++k)
        clued += p.Clues[k - 1].isEmpty() ? 0 : 1;
    EXPECT_EQ(clued, 1);
}

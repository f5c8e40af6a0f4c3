#include "model/puzzlefile.h"
#include "model/puzzletext.h"

#include <QDir>

#include "testsupport.h"

#include <gtest/gtest.h>

// The shipped puzzles are built from their text; a stale .xwd would show users old work.
TEST(Examples, EachPuzzleIsItsSourceBuiltAgain)
{
    const QDir sources(QStringLiteral(QUILLMARK_EXAMPLES "/sources"));
    const QStringList texts = sources.entryList({"*.txt"});
    ASSERT_GE(texts.size(), 2);
    for (const QString &text : texts) {
        const QString xwd = QStringLiteral(QUILLMARK_EXAMPLES "/") + QString(text).replace(".txt", ".xwd");
        const TPuzzle built = PuzzleFromText(QString::fromUtf8(ReadFileBytes(sources.filePath(text))));
        EXPECT_EQ(ReadFileBytes(xwd), EncodePuzzle(built)) << xwd.toStdString() << ": run scripts/make-examples";
    }
}

TEST(Examples, TheFinishedPuzzleIsFullAndEveryWordClued)
{
    const TPuzzle p = SamplePuzzle();
    EXPECT_TRUE(p.IsGridFull());
    EXPECT_LE(WordCount(p), MaxWords);
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const int slot = p.slotAt(w.Column, w.Row, w.Dir);
        EXPECT_EQ(slot, w.Index) << w.Number;
        EXPECT_FALSE(p.clue(slot).isEmpty()) << w.Number << char(w.Dir);
        EXPECT_FALSE(p.GetWord(w.Column, w.Row, char(w.Dir)).contains('?'));
    }
    const TPuzzle half = LoadPuzzleFile(QStringLiteral(QUILLMARK_EXAMPLES "/harbour-lights.xwd")).Puzzle;
    EXPECT_FALSE(half.IsGridFull());
}

#include "model/puzzletext.h"
#include "model/cp1252.h"

#include <gtest/gtest.h>

namespace {

const char *const Text =
    "; a comment\n"
    "size 11\nbyline Zoë Maker\nlanguage 1\ngrid\n"
    "ÉTÉ#DOG#EEL\n...........\n...........\n...........\n...........\n"
    "...........\n...........\n...........\n...........\n...........\n?..........\n"
    "entries\n"
    "É..........\n...........\n...........\n...........\n...........\n"
    "...........\n...........\n...........\n...........\n...........\n...........\n"
    "clues\n1A Summer, in Lyon\n4A Barking pet\n3D Third down\n";

}  // namespace

TEST(PuzzleText, CluesTakeTheSlotOfTheirPlaceInReadingOrder)
{
    const TPuzzle p = PuzzleFromText(QString::fromUtf8(Text));
    EXPECT_EQ(p.Size, 11);
    EXPECT_EQ(p.Language, 1);
    EXPECT_EQ(FromCp1252(p.Byline.text()), QString::fromUtf8("Zoë Maker"));
    EXPECT_EQ(p.Cells(1, 1), 201);
    EXPECT_EQ(p.Cells(4, 1), BlockChar);
    EXPECT_EQ(p.Cells(1, 11), OpenChar);
    EXPECT_EQ(p.Entries(1, 1), 201);
    // Reading order: 1A, 1D, 2D, 3D, then 4A at (5, 1): 3D is word 4, 4A word 5.
    EXPECT_EQ(p.slotAt(1, 1, Direction::Across), 1);
    EXPECT_EQ(p.slotAt(1, 1, Direction::Down), 0) << "an unclued word has no slot";
    EXPECT_EQ(p.slotAt(3, 1, Direction::Down), 4);
    EXPECT_EQ(p.clue(4), "Third down");
    EXPECT_EQ(p.slotAt(5, 1, Direction::Across), 5);
    EXPECT_EQ(p.clue(5), "Barking pet");
}

TEST(PuzzleText, WritesWhatItReads)
{
    const TPuzzle p = PuzzleFromText(QString::fromUtf8(Text));
    const TPuzzle again = PuzzleFromText(PuzzleToText(p));
    EXPECT_EQ(PuzzleToText(again), PuzzleToText(p));
    EXPECT_EQ(again.clue(5), "Barking pet");
}

TEST(PuzzleText, MistakesAreReportedWithTheirLine)
{
    EXPECT_THROW(PuzzleFromText("grid\nABC\n"), TPuzzleTextError);
    EXPECT_THROW(PuzzleFromText("size 3\ngrid\nABC\nA C\nABC\n"), TPuzzleTextError);
    EXPECT_THROW(PuzzleFromText("size 3\ngrid\nABC\nABC\nABC\nclues\n9A No such word\n"), TPuzzleTextError);
    EXPECT_THROW(PuzzleFromText("size 3\ncolour red\n"), TPuzzleTextError);
    try {
        PuzzleFromText("size 3\ngrid\nABC\nAB\nABC\n");
        FAIL();
    } catch (const TPuzzleTextError &e) {
        EXPECT_STREQ(e.what(), "line 4: the grid must be 3 rows of 3 squares");
    }
}

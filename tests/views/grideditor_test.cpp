#include "mainwindow/puzzlestate.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"
#include "views/grideditor.h"
#include "views/gridgeometry.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr int Side = 20;

// A pixel point inside the square, off its top-left corner like a real click.
QPoint at(int c, int r)
{
    return {(c - 1) * Side + 5, (r - 1) * Side + 7};
}

const char *const OpenFive = "size 5\ngrid\n.....\n.....\n.....\n.....\n.....\n";

class GridEditing : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetSettings();
        SquareSize = Side;
        PuzzleMode = ConstructMode;
        PuzzleChanged = false;
        editor.LoadGridCharSet();
    }
    void TearDown() override
    {
        ResetSettings();
        SquareSize = 0;
        PuzzleMode = ConstructMode;
        PuzzleChanged = false;
    }

    static void load(const char *text) { Puzzle = PuzzleFrom(QString::fromUtf8(text)); }
    static void openGrid(int size) { Puzzle.ClearPuzzle(size, 'N', {}, 0); }
    static int blackSquares()
    {
        int n = 0;
        for (int c = 1; c <= MaxGrid; ++c)
            for (int r = 1; r <= MaxGrid; ++r)
                n += Puzzle.Cells(c, r) == BlockChar;
        return n;
    }
    static bool unchangedSince(const TPuzzle &before) { return std::memcmp(&before, &Puzzle, sizeof(TPuzzle)) == 0; }

    QPoint cursorCell() const { return CellAt(editor.CursorPos); }
    void click(int c, int r, bool left = true) { editor.ClickCell(at(c, r).x(), at(c, r).y(), left); }
    TSolvingStatus type(const char *keys)
    {
        TSolvingStatus last;
        for (const char *k = keys; *k; ++k)
            last = editor.KeyPress(uchar(*k));
        return last;
    }

    TGridEditor editor;
};

}  // namespace

TEST_F(GridEditing, DesignClicksSetThePartnerOfTheSymmetry)
{
    PuzzleMode = DesignMode;
    openGrid(15);
    editor.Symmetry = 1;
    editor.SetSquare(at(1, 2).x(), at(1, 2).y(), false);
    EXPECT_EQ(Puzzle.Cells(1, 2), BlockChar);
    EXPECT_EQ(Puzzle.Cells(15, 14), BlockChar);
    EXPECT_EQ(blackSquares(), 2);
    EXPECT_TRUE(PuzzleChanged);

    openGrid(15);
    editor.Symmetry = 2;
    editor.SetSquare(at(1, 2).x(), at(1, 2).y(), false);
    EXPECT_EQ(Puzzle.Cells(15, 2), BlockChar);
    EXPECT_EQ(blackSquares(), 2);

    openGrid(15);
    editor.Symmetry = 0;
    editor.SetSquare(at(1, 2).x(), at(1, 2).y(), false);
    EXPECT_EQ(Puzzle.Cells(1, 2), BlockChar);
    EXPECT_EQ(blackSquares(), 1);

    openGrid(15);
    editor.Symmetry = 1;
    editor.SetSquare(at(8, 8).x(), at(8, 8).y(), false);
    EXPECT_EQ(blackSquares(), 1) << "the centre is its own partner";
}

TEST_F(GridEditing, ClearingEmptiesThePartnerEvenWhenItHeldALetter)
{
    load("size 5\ngrid\n#....\n.....\n.....\n.....\n....X\n");
    editor.Symmetry = 1;
    editor.SetSquare(at(1, 1).x(), at(1, 1).y(), true);
    EXPECT_EQ(Puzzle.Cells(1, 1), 0);
    EXPECT_EQ(Puzzle.Cells(5, 5), 0);
}

TEST_F(GridEditing, ChangingASquareErasesTheCluesOfTheWordsStartingThere)
{
    // Slots in reading order: 1A = 1, 1D = 2, 2D = 3, ..., 6A = 7.
    load("size 5\ngrid\n.....\n.....\n.....\n.....\n.....\n"
         "clues\n1A one across\n1D one down\n2D two down\n6A six across\n");
    ASSERT_EQ(Puzzle.slotAt(1, 2, Direction::Across), 7);

    editor.Symmetry = 1;
    editor.SetSquare(at(1, 1).x(), at(1, 1).y(), false);
    EXPECT_EQ(Puzzle.clue(1), "");
    EXPECT_EQ(Puzzle.clue(2), "");
    EXPECT_EQ(Puzzle.slotAt(1, 1, Direction::Across), 0);
    EXPECT_EQ(Puzzle.slotAt(1, 1, Direction::Down), 0);
    EXPECT_EQ(Puzzle.clue(3), "two down");
    EXPECT_EQ(Puzzle.slotAt(2, 1, Direction::Down), 3) << "numbering is not recomputed";
    EXPECT_EQ(Puzzle.clue(7), "six across");

    // The partner's words lose their clues too.
    editor.Symmetry = 2;
    editor.SetSquare(at(5, 2).x(), at(5, 2).y(), true);
    EXPECT_EQ(Puzzle.clue(7), "");
    EXPECT_EQ(Puzzle.Cells(1, 2), 0);

    PuzzleChanged = false;
    const TPuzzle before = Puzzle;
    editor.SetSquare(at(7, 1).x(), at(7, 1).y(), false);
    EXPECT_TRUE(unchangedSince(before)) << "outside the grid";
    EXPECT_TRUE(PuzzleChanged);
}

TEST_F(GridEditing, ClickChoosesTheWordByButtonAndSwap)
{
    load("size 5\ngrid\n.....\n.....\n..#..\n.....\n.....\n");
    const TSolvingStatus status = editor.ClickCell(at(2, 2).x(), at(2, 2).y(), true);
    EXPECT_EQ(editor.WordDirection, 1);
    EXPECT_EQ(editor.CursorPos, at(2, 2)) << "the raw click point";
    EXPECT_FALSE(status.Cleared) << "the solving status is left alone while constructing";
    EXPECT_FALSE(status.SelectedSlot);
    EXPECT_EQ(editor.HighlightedSquares(), (QList<QPoint>{{2, 2}, {3, 2}, {4, 2}, {5, 2}}));

    click(2, 2, false);
    EXPECT_EQ(editor.WordDirection, 2);
    EXPECT_EQ(editor.HighlightedSquares(), (QList<QPoint>{{2, 2}, {2, 3}, {2, 4}, {2, 5}}));

    editor.MouseSwapped = true;
    click(4, 4, true);
    EXPECT_EQ(editor.WordDirection, 2);
    click(4, 4, false);
    EXPECT_EQ(editor.WordDirection, 1);

    click(3, 3);
    EXPECT_EQ(editor.WordDirection, 0) << "a black square";
    EXPECT_TRUE(editor.HighlightedSquares().isEmpty());
    click(2, 2);
    click(6, 2);
    EXPECT_EQ(editor.WordDirection, 0) << "outside the grid";
}

TEST_F(GridEditing, SolvingClickSelectsTheClueOfTheWordsFirstSquare)
{
    load("size 5\ngrid\n.....\n.....\n.....\n....#\n.....\n"
         "clues\n1A one across\n1D one down\n2D two down\n6A six across\n");
    PuzzleMode = SolveMode;

    TSolvingStatus status = editor.ClickCell(at(3, 1).x(), at(3, 1).y(), true);
    EXPECT_TRUE(status.Cleared);
    EXPECT_EQ(status.SelectedSlot, 1);
    EXPECT_EQ(editor.HighlightedSquares().first(), QPoint(3, 1)) << "the highlight still starts at the click";

    status = editor.ClickCell(at(1, 3).x(), at(1, 3).y(), false);
    EXPECT_EQ(status.SelectedSlot, 2);
    status = editor.ClickCell(at(4, 2).x(), at(4, 2).y(), true);
    EXPECT_EQ(status.SelectedSlot, 7);
    status = editor.ClickCell(at(2, 5).x(), at(2, 5).y(), false);
    EXPECT_EQ(status.SelectedSlot, 3);
    status = editor.ClickCell(at(3, 3).x(), at(3, 3).y(), false);
    EXPECT_EQ(status.SelectedSlot, 0) << "a word without a clue selects nothing";

    status = editor.ClickCell(at(5, 4).x(), at(5, 4).y(), true);
    EXPECT_TRUE(status.Cleared);
    EXPECT_FALSE(status.SelectedSlot) << "a black square";
    EXPECT_EQ(editor.WordDirection, 0);
}

TEST_F(GridEditing, RestoreDropsTheWordOnlyWithAPureWhiteBlankColour)
{
    load(OpenFive);
    click(2, 2);
    editor.RestoreHighlight();
    EXPECT_EQ(editor.WordDirection, 0);

    editor.BlankSqColor = QColor(250, 250, 250);
    click(2, 2, false);
    editor.RestoreHighlight();
    EXPECT_EQ(editor.WordDirection, 2);
    EXPECT_FALSE(editor.HighlightedSquares().isEmpty()) << "the next paint shows the word again";

    editor.BlankSqColor = Qt::white;
    editor.HiliteSqColor = Qt::white;
    click(2, 2);
    EXPECT_EQ(editor.WordDirection, 0) << "a highlight in white on white drops the word as well";
}

TEST_F(GridEditing, AFixedHighlightColourLastsUntilTheNextClick)
{
    load(OpenFive);
    editor.HiliteSqColor = QColor(0, 255, 0);
    click(1, 1);
    EXPECT_EQ(editor.HighlightColor(), QColor(0, 255, 0));

    editor.WordDirection = 2;
    editor.HighlightWord(at(3, 1), QColor(255, 255, 0));
    EXPECT_EQ(editor.CursorPos, at(3, 1));
    EXPECT_EQ(editor.HighlightColor(), QColor(255, 255, 0));
    editor.HiliteSqColor = Qt::red;
    EXPECT_EQ(editor.HighlightColor(), QColor(255, 255, 0));
    editor.RestoreHighlight();
    editor.WordDirection = 2;
    EXPECT_EQ(editor.HighlightColor(), QColor(255, 255, 0)) << "a restore does not change the colour";

    click(4, 4);
    EXPECT_EQ(editor.HighlightColor(), QColor(Qt::red));
    editor.SetHighlightColor(Qt::cyan);
    EXPECT_EQ(editor.HighlightColor(), QColor(Qt::cyan));
}

TEST_F(GridEditing, TypedCharactersFollowTheGridLanguage)
{
    EXPECT_EQ(editor.FilterTypedChar('e'), uchar('E'));
    EXPECT_EQ(editor.FilterTypedChar('Z'), uchar('Z'));
    for (uchar accepted : {uchar(8), uchar(13), uchar(' '), uchar('+')})
        EXPECT_EQ(editor.FilterTypedChar(accepted), accepted);
    for (uchar refused : {uchar(233), uchar(201), uchar('?'), uchar('1'), uchar(127)})
        EXPECT_FALSE(editor.FilterTypedChar(refused)) << int(refused);

    WriteSetting(QStringLiteral("GridLanguage"), 1);
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(201), uchar(201)) << "French É";
    EXPECT_FALSE(editor.FilterTypedChar(233)) << "a small é is not turned into a capital";

    WriteSetting(QStringLiteral("GridLanguage"), 9);
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(201), uchar(201)) << "an unknown language leaves the set";

    PuzzleMode = SolveMode;
    Puzzle.Language = 4;
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(196), uchar(196)) << "solving uses the puzzle's language: German Ä";
    EXPECT_FALSE(editor.FilterTypedChar(201));

    Puzzle.Language = 8;
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(BlockChar), BlockChar) << "Multilingual admits the black square's byte";

    editor.GridCharSet.set(7);
    editor.GridCharSet.set(230);
    EXPECT_FALSE(editor.FilterTypedChar(7)) << "below 8";
    EXPECT_FALSE(editor.FilterTypedChar(230)) << "above 223";
}

TEST_F(GridEditing, ConstructionTypingFillsTheWordAndStopsAtItsEnd)
{
    load("size 5\ngrid\n...#.\nQ....\nR....\n?....\n.....\n");
    click(1, 1);
    type("c+");
    EXPECT_EQ(Puzzle.Cells(1, 1), 'C');
    EXPECT_EQ(Puzzle.Cells(2, 1), OpenChar) << "\"+\" enters the open-letter mark";
    EXPECT_EQ(cursorCell(), QPoint(3, 1));
    EXPECT_EQ(editor.HighlightedSquares(), (QList<QPoint>{{3, 1}})) << "the highlight shrinks from the front";
    EXPECT_TRUE(PuzzleChanged);

    const TSolvingStatus last = type("t");
    EXPECT_EQ(Puzzle.Cells(3, 1), 'T');
    EXPECT_EQ(editor.WordDirection, 0) << "the last square ends the word";
    EXPECT_FALSE(last.Cleared);
    const TPuzzle before = Puzzle;
    type("x");
    EXPECT_TRUE(unchangedSince(before)) << "keys do nothing until the next click";

    click(1, 2, false);
    type(" \r\r");
    EXPECT_EQ(Puzzle.Cells(1, 2), 0) << "a space empties the square";
    EXPECT_EQ(Puzzle.Cells(1, 3), 'R') << "Enter moves on without changing the square";
    EXPECT_EQ(Puzzle.Cells(1, 4), OpenChar);
    EXPECT_EQ(cursorCell(), QPoint(1, 5));
    type("\r");
    EXPECT_EQ(Puzzle.Cells(1, 5), 0);
    EXPECT_EQ(editor.WordDirection, 0);

    click(2, 2);
    PuzzleMode = DesignMode;
    type("z");
    EXPECT_EQ(Puzzle.Cells(2, 2), 0) << "no typing while designing";
}

TEST_F(GridEditing, SolvingTypingWritesEntriesAndPlusRevealsTheLetter)
{
    load("size 5\ngrid\nCAT#.\n.....\n.....\n.....\n.....\n");
    PuzzleMode = SolveMode;
    Puzzle.Entries(4, 1) = 'Z';  // stray entry on a black square: black squares come from the solution
    editor.LoadGridCharSet();
    click(1, 1);
    type("x");
    EXPECT_EQ(Puzzle.Entries(1, 1), 'X');
    EXPECT_EQ(Puzzle.Cells(1, 1), 'C');
    EXPECT_FALSE(editor.Cheated);
    type("+");
    EXPECT_EQ(Puzzle.Entries(2, 1), 'A');
    EXPECT_TRUE(editor.Cheated);
    const TSolvingStatus last = type("q");
    EXPECT_EQ(Puzzle.Entries(3, 1), 'Q');
    EXPECT_EQ(editor.WordDirection, 0);
    EXPECT_TRUE(last.Cleared) << "the finished word's clue is no longer current";

    click(1, 2);
    type("\r");
    EXPECT_EQ(Puzzle.Entries(1, 2), 0) << "Enter on an empty entry leaves it empty";
    type("\b \b");
    EXPECT_EQ(Puzzle.Entries(1, 2), 0);
}

TEST_F(GridEditing, BackspaceStepsBackWithoutErasing)
{
    load("size 5\ngrid\nABCD#\nE....\nF....\nG....\n.....\n");
    click(3, 1);
    const TPuzzle before = Puzzle;
    type("\b");
    EXPECT_EQ(cursorCell(), QPoint(2, 1));
    EXPECT_EQ(editor.CursorPos, at(2, 1)) << "moved by whole squares";
    type("\b\b");
    EXPECT_EQ(cursorCell(), QPoint(1, 1)) << "the first square is as far back as it goes";
    EXPECT_EQ(editor.WordDirection, 1);
    EXPECT_TRUE(unchangedSince(before));

    click(1, 4, false);
    type("\b\b\b\b");
    EXPECT_EQ(cursorCell(), QPoint(1, 1));
    EXPECT_EQ(editor.HighlightedSquares().size(), 5);
    type("z");
    EXPECT_EQ(Puzzle.Cells(1, 1), 'Z');
    EXPECT_EQ(cursorCell(), QPoint(1, 2));
}

TEST_F(GridEditing, ArrowsSkipBlackSquaresAndReselectAtTheEdge)
{
    load("size 5\ngrid\n#.#..\n.....\n..#.#\n.....\n.....\n");
    click(4, 1);
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(cursorCell(), QPoint(2, 1)) << "over the black square";
    EXPECT_EQ(editor.CursorPos, at(2, 1));
    EXPECT_EQ(editor.WordDirection, 1);
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(cursorCell(), QPoint(2, 1)) << "the edge square is black: back to the open one";

    click(1, 2, false);
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(cursorCell(), QPoint(1, 2));
    EXPECT_EQ(editor.WordDirection, 1) << "the edge re-selects the square across";

    click(2, 3);
    editor.KeyDown(TGridKey::Right);
    EXPECT_EQ(cursorCell(), QPoint(4, 3));
    editor.KeyDown(TGridKey::Right);
    EXPECT_EQ(cursorCell(), QPoint(4, 3));

    editor.MouseSwapped = true;
    click(3, 2, true);  // swapped: the down word
    editor.KeyDown(TGridKey::Down);
    EXPECT_EQ(cursorCell(), QPoint(3, 4));
    EXPECT_EQ(editor.WordDirection, 2) << "arrows ignore the swapped buttons";
    editor.KeyDown(TGridKey::Up);
    EXPECT_EQ(cursorCell(), QPoint(3, 2));
    editor.KeyDown(TGridKey::Up);
    EXPECT_EQ(cursorCell(), QPoint(3, 2));
    editor.KeyDown(TGridKey::Right);
    EXPECT_EQ(editor.WordDirection, 1);
    EXPECT_EQ(cursorCell(), QPoint(4, 2));
    EXPECT_TRUE(editor.MouseSwapped) << "restored afterwards";

    editor.WordDirection = 0;
    editor.KeyDown(TGridKey::Right);
    EXPECT_EQ(cursorCell(), QPoint(4, 2)) << "no current word, no arrows";
}

TEST_F(GridEditing, DeleteEmptiesTheSquareAndAdvances)
{
    load("size 5\ngrid\nABCDE\n.....\n.....\n.....\n.....\n");
    click(2, 1);
    editor.KeyDown(TGridKey::Delete);
    EXPECT_EQ(Puzzle.Cells(2, 1), 0);
    EXPECT_EQ(Puzzle.Cells(3, 1), 'C');
    EXPECT_EQ(cursorCell(), QPoint(3, 1));

    PuzzleMode = DesignMode;
    editor.KeyDown(TGridKey::Delete);
    EXPECT_EQ(Puzzle.Cells(3, 1), 'C') << "not while designing";
}

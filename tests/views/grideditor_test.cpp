#include "mainwindow/puzzlestate.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"
#include "views/grideditor.h"
#include "views/gridgeometry.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr int Side = 20;
const char *const OpenFive = "size 5\ngrid\n.....\n.....\n.....\n.....\n.....\n";
// Slots in reading order: 1A = 1, 1D = 2, 2D = 3, ..., 6A = 7.
const char *const Clued = "size 5\ngrid\n.....\n.....\n.....\n....#\n.....\n"
                          "clues\n1A one across\n1D one down\n2D two down\n6A six across\n";

// A pixel point inside the square, off its top-left corner like a real click.
QPoint at(int c, int r)
{
    return {(c - 1) * Side + 5, (r - 1) * Side + 7};
}

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
    void TearDown() override { ResetSettings(); SquareSize = 0; PuzzleMode = ConstructMode; }

    static void load(const char *text) { Puzzle = PuzzleFrom(QString::fromUtf8(text)); }
    static QList<QPoint> blackSquares()
    {
        QList<QPoint> squares;
        for (int c = 1; c <= MaxGrid; ++c)
            for (int r = 1; r <= MaxGrid; ++r)
                if (Puzzle.Cells(c, r) == BlockChar)
                    squares.append({c, r});
        return squares;
    }

    QPoint cursorCell() const { return CellAt(editor.CursorPos); }
    void set(int c, int r, bool clear = false) { editor.SetSquare(at(c, r).x(), at(c, r).y(), clear); }
    TSolvingStatus click(int c, int r, bool left = true) { return editor.ClickCell(at(c, r).x(), at(c, r).y(), left); }
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
    const struct { int symmetry; QPoint square; QList<QPoint> black; } cases[] = {
        {1, {1, 2}, {{1, 2}, {15, 14}}},
        {2, {1, 2}, {{1, 2}, {15, 2}}},
        {0, {1, 2}, {{1, 2}}},
        {1, {8, 8}, {{8, 8}}},  // the centre is its own partner
    };
    for (const auto &test : cases) {
        Puzzle.ClearPuzzle(15, 'N', {}, 0);
        PuzzleChanged = false;
        editor.Symmetry = test.symmetry;
        set(test.square.x(), test.square.y());
        EXPECT_EQ(blackSquares(), test.black) << "symmetry " << test.symmetry;
        EXPECT_TRUE(PuzzleChanged);
    }
}

TEST_F(GridEditing, ChangedSquaresAndTheirPartnersLoseTheCluesOfTheirWords)
{
    load(Clued);
    ASSERT_EQ(Puzzle.slotAt(1, 2, Direction::Across), 7);
    set(1, 1);
    EXPECT_EQ(std::tuple(Puzzle.clue(1), Puzzle.clue(2), Puzzle.clue(3), Puzzle.clue(7)), std::tuple("", "", "two down", "six across"));
    EXPECT_EQ(Puzzle.slotAt(1, 1, Direction::Down), 0);
    EXPECT_EQ(Puzzle.slotAt(2, 1, Direction::Down), 3) << "numbering is not recomputed";

    Puzzle.Cells(5, 5) = 'X';
    set(1, 1, true);
    EXPECT_TRUE(Puzzle.Cells(1, 1) == 0 && Puzzle.Cells(5, 5) == 0) << "the partner is cleared though it held a letter";
    editor.Symmetry = 2;
    set(5, 2, true);
    EXPECT_EQ(Puzzle.clue(7), "") << "the partner's words lose their clues too";

    PuzzleChanged = false;
    const TPuzzle before = Puzzle;
    set(7, 1);
    EXPECT_TRUE(SameRecord(before, Puzzle) && PuzzleChanged) << "outside the grid: nothing changes, yet it counts as a change";
}

TEST_F(GridEditing, ClickChoosesTheWordAndWhileSolvingItsClue)
{
    load(Clued);
    const TSolvingStatus status = click(2, 2);
    EXPECT_EQ(editor.CursorPos, at(2, 2)) << "the raw click point";
    EXPECT_FALSE(status.Cleared || status.SelectedSlot) << "no solving status while constructing";
    const struct { bool swapped, left; int direction; } buttons[] = {
        {false, true, 1}, {false, false, 2}, {true, true, 2}, {true, false, 1}};
    for (const auto &test : buttons) {
        editor.MouseSwapped = test.swapped;
        click(4, 4, test.left);
        EXPECT_EQ(editor.WordDirection, test.direction) << test.swapped << test.left;
    }
    for (const QPoint off : {QPoint(5, 4), QPoint(6, 2)}) {  // a black square, outside the grid
        click(2, 2);
        click(off.x(), off.y());
        EXPECT_EQ(editor.WordDirection, 0);
    }

    // The clue of the word's first square, found by walking back; 3D has no clue.
    PuzzleMode = SolveMode;
    editor.MouseSwapped = false;
    const struct { int c, r; bool left; int slot; } words[] = {
        {3, 1, true, 1}, {1, 3, false, 2}, {4, 2, true, 7}, {2, 5, false, 3}, {3, 3, false, 0}};
    for (const auto &test : words) {
        const TSolvingStatus status = click(test.c, test.r, test.left);
        EXPECT_TRUE(status.Cleared);
        EXPECT_EQ(status.SelectedSlot, test.slot) << test.c << "," << test.r;
    }
    EXPECT_EQ(editor.HighlightedSquares().first(), QPoint(3, 3)) << "the highlight still starts at the click";
}

TEST_F(GridEditing, RestoreAndFixedHighlightColours)
{
    load(OpenFive);
    click(2, 2);
    editor.RestoreHighlight();
    EXPECT_EQ(editor.WordDirection, 0) << "a restore drops the word with a pure white blank colour";
    editor.BlankSqColor = QColor(250, 250, 250);
    click(2, 2, false);
    editor.RestoreHighlight();
    EXPECT_EQ(editor.WordDirection, 2) << "but not with any other: the next paint shows the word again";

    // A colour of its own (a clue-list pick's yellow) is shown by the next paint only.
    editor.HighlightWord(at(3, 1), Qt::cyan);
    EXPECT_EQ(editor.CursorPos, at(3, 1));
    editor.HiliteSqColor = Qt::red;
    EXPECT_EQ(editor.TakeHighlightColor(), QColor(Qt::cyan));
    EXPECT_EQ(editor.TakeHighlightColor(), QColor(Qt::red));

    editor.BlankSqColor = editor.HiliteSqColor = Qt::white;
    click(2, 2);
    EXPECT_EQ(editor.WordDirection, 0) << "a highlight in white on white drops the word as well";
}

TEST_F(GridEditing, TypedCharactersFollowTheGridLanguage)
{
    // Which letters each language admits is the languages' own test; here the setting reaches the editor.
    EXPECT_EQ(editor.FilterTypedChar('e'), uchar('E'));
    EXPECT_FALSE(editor.FilterTypedChar(201)) << "English has no É";
    WriteSetting(QStringLiteral("GridLanguage"), 8);
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(201), uchar(201));
    EXPECT_FALSE(editor.FilterTypedChar(233)) << "a small é is not made a capital";
    EXPECT_EQ(editor.FilterTypedChar(BlockChar), BlockChar) << "Multilingual admits the black square's byte";
    WriteSetting(QStringLiteral("GridLanguage"), 9);
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(201), uchar(201)) << "an unknown language leaves the set";

    PuzzleMode = SolveMode;
    Puzzle.Language = 4;
    editor.LoadGridCharSet();
    EXPECT_EQ(editor.FilterTypedChar(196), uchar(196)) << "solving uses the puzzle's language: German Ä";
    EXPECT_FALSE(editor.FilterTypedChar(201));
    editor.GridCharSet.set(7).set(230);
    EXPECT_FALSE(editor.FilterTypedChar(7) || editor.FilterTypedChar(230)) << "only 8 to 223 pass";
}

TEST_F(GridEditing, ConstructionTypingFillsTheWordAndStopsAtItsEnd)
{
    load("size 5\ngrid\n...#.\nQ....\nR....\n?....\n.....\n");
    click(1, 1);
    type("c+");
    EXPECT_EQ(Puzzle.Cells(1, 1), 'C');
    EXPECT_EQ(Puzzle.Cells(2, 1), OpenChar) << "\"+\" enters the open-letter mark";
    EXPECT_EQ(editor.HighlightedSquares(), (QList<QPoint>{{3, 1}})) << "the highlight shrinks from the front";
    EXPECT_TRUE(PuzzleChanged);
    EXPECT_FALSE(type("t").Cleared);
    EXPECT_EQ(Puzzle.Cells(3, 1), 'T');
    EXPECT_EQ(editor.WordDirection, 0) << "the last square ends the word";
    const TPuzzle before = Puzzle;
    type("x");
    EXPECT_TRUE(SameRecord(before, Puzzle)) << "keys do nothing until the next click";

    click(1, 2, false);
    type(" \r\r");
    EXPECT_EQ(Puzzle.Cells(1, 2), 0) << "a space empties the square";
    EXPECT_EQ(Puzzle.Cells(1, 3), 'R') << "Enter moves on without changing the square";
    EXPECT_EQ(Puzzle.Cells(1, 4), OpenChar);
    EXPECT_EQ(cursorCell(), QPoint(1, 5));

    click(1, 3);
    PuzzleMode = DesignMode;
    type("z");
    editor.KeyDown(TGridKey::Delete);
    EXPECT_EQ(Puzzle.Cells(1, 3), 'R') << "no typing while designing";
}

TEST_F(GridEditing, SolvingTypingWritesEntriesAndPlusRevealsTheLetter)
{
    load("size 5\ngrid\nCAT#.\n.....\n.....\n.....\n.....\n");
    PuzzleMode = SolveMode;
    Puzzle.Entries(4, 1) = 'Z';  // black squares come from the solution, whatever the entries hold
    click(1, 1);
    type("x");
    EXPECT_FALSE(editor.Cheated);
    const TSolvingStatus last = type("+q");
    EXPECT_EQ(std::tuple(Puzzle.Entries(1, 1), Puzzle.Cells(1, 1)), std::tuple('X', 'C'));
    EXPECT_EQ(Puzzle.Entries(2, 1), 'A') << "\"+\" reveals the letter";
    EXPECT_TRUE(editor.Cheated);
    EXPECT_EQ(editor.WordDirection, 0);
    EXPECT_TRUE(last.Cleared) << "the finished word's clue is no longer current";
    click(1, 2);
    type("\r");
    EXPECT_EQ(Puzzle.Entries(1, 2), 0) << "Enter on an empty entry leaves it empty";
}

TEST_F(GridEditing, BackspaceStepsBackWithoutErasing)
{
    load("size 5\ngrid\nAB#DE\nF....\nG....\nH....\n.....\n");
    const TPuzzle before = Puzzle;
    click(5, 1);
    type("\b\b");
    EXPECT_EQ(editor.CursorPos, at(4, 1)) << "back by whole squares, no further than the word's first square";
    click(2, 1);
    type("\b\b");
    EXPECT_EQ(editor.CursorPos, at(1, 1)) << "nor past the edge";
    EXPECT_EQ(editor.WordDirection, 1);
    EXPECT_TRUE(SameRecord(before, Puzzle));
    click(1, 4, false);
    type("\b\b\b\bz");
    EXPECT_EQ(Puzzle.Cells(1, 1), 'Z') << "down as well";
    EXPECT_EQ(cursorCell(), QPoint(1, 2));
}

TEST_F(GridEditing, ArrowsSkipBlackSquaresAndReselectAtTheEdge)
{
    load("size 5\ngrid\n#.#..\n.....\n..#.#\n.....\n.....\n");
    click(4, 1);
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(editor.CursorPos, at(2, 1)) << "over the black square";
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(cursorCell(), QPoint(2, 1)) << "the edge square is black: back to the open one";

    editor.MouseSwapped = true;
    click(1, 2);  // swapped: the down word
    editor.KeyDown(TGridKey::Left);
    EXPECT_EQ(cursorCell(), QPoint(1, 2));
    EXPECT_EQ(editor.WordDirection, 1) << "the edge re-selects the square across, whatever the swap";
    click(3, 2);
    editor.KeyDown(TGridKey::Down);
    EXPECT_EQ(cursorCell(), QPoint(3, 4));
    EXPECT_EQ(editor.WordDirection, 2) << "arrows ignore the swapped buttons";
    EXPECT_TRUE(editor.MouseSwapped) << "restored afterwards";

    editor.WordDirection = 0;
    editor.KeyDown(TGridKey::Right);
    EXPECT_EQ(cursorCell(), QPoint(3, 4)) << "no current word, no arrows";
}

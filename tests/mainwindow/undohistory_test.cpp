#include "inspect/transforms.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/undohistory.h"
#include "model/puzzlefile.h"
#include "scriptedprompts.h"
#include "testsupport.h"
#include "views/grideditor.h"
#include "views/gridgeometry.h"

#include <gtest/gtest.h>

namespace {

// (6, 1) starts 5D; its diagonal partner is (6, 11).
const char *const Clued = "size 11\nbyline Ann Setter\ngrid\n"
                          "CAT#.......\n...........\n...........\n...........\n...........\n"
                          "...........\n...........\n...........\n...........\n...........\n..........#\n"
                          "clues\n1A Pet\n1D One down\n5D Five down\n";

}  // namespace

TEST(UndoHistory, TheBoundsDropTheOldestStepsFirst)
{
    TPuzzle p = PuzzleFrom(Clued);
    const auto record = [&p](TUndoHistory &history, const QString &caption, auto change) {
        const TPuzzle before = p;
        change(p);
        history.Record(before, p, caption);
    };
    TUndoHistory byCount(3);
    for (char letter : {'A', 'B', 'C', 'D', 'E'})
        record(byCount, QString(QChar(letter)), [letter](TPuzzle &q) { q.Cells(5, 5) = uint8_t(letter); });
    QStringList kept;
    while (byCount.CanUndo()) {
        kept.append(byCount.UndoCaption());
        byCount.Undo(p);
    }
    EXPECT_EQ(kept, QStringList({"E", "D", "C"}));
    EXPECT_EQ(p.Cells(5, 5), 'B') << "the record as the oldest step kept found it";

    // Steps that rewrite every clue are large: the byte bound keeps only the last few.
    TUndoHistory byBytes(1000, 100 * 1024);
    for (int i = 0; i < 20; ++i)
        record(byBytes, QString::number(i), [i](TPuzzle &q) {
            for (int slot = 1; slot <= ClueSlots; ++slot)
                q.setClue(slot, QByteArray(MaxClueLength, char('a' + i)));
        });
    EXPECT_GT(byBytes.Count(), 0);
    EXPECT_LT(byBytes.Count(), 20);
    EXPECT_LE(byBytes.Bytes(), 100 * 1024);
    EXPECT_EQ(byBytes.UndoCaption(), "19");
}

// The history as the session keeps it: every change through the session is a step.
class SessionUndo : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetSettings();
        auto yes = std::make_shared<TScriptedPrompts>();
        yes->Otherwise = TAnswer::Yes;
        Session().SetPrompts(yes);
        Session().Reset();
        PuzzleMode = ConstructMode;
        path = dir.path("clued.xwd");
        WriteFileAtomically(path, EncodePuzzle(PuzzleFrom(Clued)));
        ASSERT_TRUE(Session().OpenFile(path, false));
        original = Puzzle;
        editor.Symmetry = 1;
        SquareSize = 20;
    }
    void TearDown() override
    {
        Session().SetPrompts(nullptr);
        Session().Reset();
        PuzzleChanged = false;
        CurrentPuzzlePath.clear();
        SquareSize = 0;
    }
    void blackSquareAt(int c, int r) { editor.SetSquare((c - 1) * 20 + 4, (r - 1) * 20 + 4, false); }
    static QStringList undoAll()
    {
        QStringList captions;
        while (Session().History().CanUndo()) {
            captions.append(Session().History().UndoCaption());
            Session().Undo();
        }
        return captions;
    }

    TScratchDir dir;
    QString path;
    TPuzzle original;
    TGridEditor editor;
};

TEST_F(SessionUndo, MixedEditsUndoneToTheStartAndRedoneGiveBothRecordsByteForByte)
{
    Session().SetCell(5, 2, 'X');
    blackSquareAt(2, 3);
    TPuzzle flipped = Puzzle;
    TransformPuzzle(flipped, TTransformKind::Flip);
    Session().Replace(QStringLiteral("Flip"), flipped);
    Session().SetByline("Someone Else");
    Session().SetLanguageMark(3);
    Session().SetEntry(7, 7, 'Q');
    const TPuzzle final = Puzzle;

    EXPECT_EQ(undoAll(), QStringList({"Typing", "Grid Language", "Byline", "Flip", "Black Square", "Typing"}));
    EXPECT_TRUE(SameRecord(Puzzle, original));
    EXPECT_FALSE(PuzzleChanged) << "back to the puzzle as it was opened";
    EXPECT_EQ(Session().Redo(), (TUndoPlace{{5, 2}, 0})) << "the cursor goes to the typed square";
    while (Session().History().CanRedo())
        Session().Redo();
    EXPECT_TRUE(SameRecord(Puzzle, final));
    EXPECT_TRUE(PuzzleChanged);
}

TEST_F(SessionUndo, ASymmetricBlackPairWithItsLostCluesComesBackInOneUndo)
{
    const int slot = Puzzle.slotAt(6, 1, Direction::Down);
    blackSquareAt(6, 1);
    ASSERT_TRUE(Puzzle.isBlock(6, 1) && Puzzle.isBlock(6, 11));
    ASSERT_TRUE(Puzzle.clue(slot).isEmpty());
    EXPECT_EQ(Session().History().UndoCaption(), "Black Square");

    EXPECT_EQ(Session().Undo()->Square, QPoint(6, 1)) << "the cursor goes to the first square of the pair";
    EXPECT_TRUE(SameRecord(Puzzle, original));
    EXPECT_EQ(Puzzle.clue(slot), "Five down");
    EXPECT_FALSE(Session().History().CanUndo());
}

TEST_F(SessionUndo, UndoingToTheSavedRecordClearsPuzzleChanged)
{
    Session().SetCell(2, 2, 'A');
    ASSERT_TRUE(Session().Save());
    Session().SetCell(2, 3, 'B');
    Session().Undo();
    EXPECT_FALSE(PuzzleChanged) << "the record is the saved one";
    Session().Undo();
    EXPECT_TRUE(PuzzleChanged) << "before the save is a change too";
    Session().Redo();
    EXPECT_FALSE(PuzzleChanged);

    // Undone past the save and changed otherwise: the saved record is out of reach.
    Session().Undo();
    Session().SetCell(9, 9, 'Z');
    Session().Undo();
    Session().Redo();
    EXPECT_TRUE(PuzzleChanged);

    // Revert and another open start the history afresh.
    ASSERT_TRUE(Session().Revert());
    EXPECT_FALSE(Session().History().CanUndo() || Session().History().CanRedo());
    Session().SetCell(2, 4, 'C');
    ASSERT_TRUE(Session().OpenFile(path, true));
    EXPECT_FALSE(Session().History().CanUndo());
}

TEST_F(SessionUndo, AClueIsOneStepAndEmptyingItAnother)
{
    for (const char *text : {"P", "Pu", "Purr"})
        Session().SetClue(1, 1, Direction::Across, 1, text);
    Session().SetClue(1, 1, Direction::Across, 1, {});  // Ctrl+Y
    Session().Undo();
    EXPECT_EQ(Puzzle.clue(1), "Purr");
    EXPECT_EQ(Session().Undo(), (TUndoPlace{{1, 1}, 1})) << "the cursor goes to the clue's word";
    EXPECT_EQ(Puzzle.clue(1), "Pet");
    EXPECT_FALSE(Session().History().CanUndo());

    // Once the next clue's step is undone, the first clue's keystroke is a step of its own.
    Session().SetClue(1, 1, Direction::Across, 1, "Purr");
    Session().SetClue(1, 1, Direction::Down, 2, "Down");
    Session().Undo();
    Session().SetClue(1, 1, Direction::Across, 1, "Purrs");
    Session().Undo();
    EXPECT_EQ(Puzzle.clue(1), "Purr");
}

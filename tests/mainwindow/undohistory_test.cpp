#include "inspect/transforms.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/undohistory.h"
#include "model/puzzlefile.h"
#include "testsupport.h"
#include "views/grideditor.h"
#include "views/gridgeometry.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

const char *const Clued = "size 11\nbyline Ann Setter\ngrid\n"
                          "CAT#.......\n...........\n...........\n...........\n...........\n"
                          "...........\n...........\n...........\n...........\n...........\n..........#\n"
                          "clues\n1A Pet\n1D One down\n5D Five down\n";

class TYesPrompts : public TSessionPrompts {
public:
    TAnswer Ask(const QString &, bool, bool) override { return TAnswer::Yes; }
    std::optional<TFileChoice> ChooseFile(const TFileRequest &) override { return std::nullopt; }
    void Error(const QString &) override {}
    void Inform(const QString &) override {}
};

bool same(const TPuzzle &a, const TPuzzle &b)
{
    return std::memcmp(&a, &b, sizeof(TPuzzle)) == 0;
}

// One edit as a window makes it: the record changes, the history is told.
template <typename Edit>
void edit(TUndoHistory &history, TPuzzle &p, const QString &caption, Edit change, const QString &mergeKey = {})
{
    const TPuzzle before = p;
    change(p);
    history.Record(before, p, caption, mergeKey);
}

}  // namespace

TEST(UndoHistory, MixedEditsUndoneToTheStartAndRedoneGiveBothRecordsByteForByte)
{
    TPuzzle p = PuzzleFrom(Clued);
    const TPuzzle original = p;
    TUndoHistory history;
    edit(history, p, "Typing", [](TPuzzle &q) { q.Cells(5, 1) = 'X'; });
    edit(history, p, "Black Square", [](TPuzzle &q) {
        q.Cells(1, 3) = BlockChar;
        q.Cells(11, 9) = BlockChar;
    });
    edit(history, p, "Flip", [](TPuzzle &q) { TransformPuzzle(q, TTransformKind::Flip); });
    edit(history, p, "Byline", [](TPuzzle &q) { q.Byline.setText("Someone Else"); });
    edit(history, p, "Clear Puzzle", [](TPuzzle &q) { q.ClearPuzzle(13, 'N', "--", 2); });
    const TPuzzle final = p;
    ASSERT_EQ(history.Count(), 5);

    QStringList undone;
    while (history.CanUndo()) {
        undone.append(history.UndoCaption());
        history.Undo(p);
    }
    EXPECT_EQ(undone, QStringList({"Clear Puzzle", "Byline", "Flip", "Black Square", "Typing"}));
    EXPECT_TRUE(same(p, original));
    EXPECT_FALSE(history.Undo(p)) << "nothing further back";

    EXPECT_EQ(history.RedoCaption(), "Typing");
    EXPECT_EQ(history.Redo(p), (TUndoPlace{{5, 1}, 0})) << "the cursor goes to the typed square";
    while (history.CanRedo())
        history.Redo(p);
    EXPECT_TRUE(same(p, final));
}

TEST(UndoHistory, TheKeystrokesOfOneClueEditAreOneStepUntilTheEditEnds)
{
    TPuzzle p = PuzzleFrom(Clued);
    const TPuzzle original = p;
    TUndoHistory history;
    for (const char *text : {"P", "Pu", "Pur", "Purr"})
        edit(history, p, "Clue", [text](TPuzzle &q) { q.setClue(1, text); }, "clue 1");
    EXPECT_EQ(history.Count(), 1);
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(2, "Down"); }, "clue 2");
    history.EndMerge();
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(2, "Downs"); }, "clue 2");
    EXPECT_EQ(history.Count(), 3) << "another clue, then the same clue edited again";

    history.Undo(p);
    history.Undo(p);
    EXPECT_EQ(history.Undo(p), (TUndoPlace{{1, 1}, 1})) << "the cursor goes to the clue's word";
    EXPECT_TRUE(same(p, original));

    // Typing a clue back to what it was leaves nothing to undo.
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(1, "Pets"); }, "clue 1");
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(1, "Pet"); }, "clue 1");
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo()) << "a new edit drops what could have been redone";

    // Once undone, the clue's next keystroke is a step of its own.
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(1, "Pets"); }, "clue 1");
    history.EndMerge();
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(1, "Petso"); }, "clue 1");
    history.Undo(p);
    edit(history, p, "Clue", [](TPuzzle &q) { q.setClue(1, "Petsy"); }, "clue 1");
    history.Undo(p);
    EXPECT_EQ(p.clue(1), "Pets");
}

TEST(UndoHistory, TheBoundsDropTheOldestStepsFirst)
{
    TPuzzle p = PuzzleFrom(Clued);
    TUndoHistory byCount(3);
    for (char letter : {'A', 'B', 'C', 'D', 'E'})
        edit(byCount, p, QString(QChar(letter)), [letter](TPuzzle &q) { q.Cells(5, 5) = uint8_t(letter); });
    EXPECT_EQ(byCount.Count(), 3);
    QStringList left;
    while (byCount.CanUndo()) {
        left.append(byCount.UndoCaption());
        byCount.Undo(p);
    }
    EXPECT_EQ(left, QStringList({"E", "D", "C"}));
    EXPECT_EQ(p.Cells(5, 5), 'B') << "the record as the oldest step kept found it";

    // Steps that rewrite every clue are large: the byte bound keeps only the last few.
    TUndoHistory byBytes(1000, 100 * 1024);
    for (int i = 0; i < 20; ++i)
        edit(byBytes, p, QString::number(i), [i](TPuzzle &q) {
            for (int slot = 1; slot <= ClueSlots; ++slot)
                q.setClue(slot, QByteArray(MaxClueLength, char('a' + i)));
        });
    EXPECT_GT(byBytes.Count(), 0);
    EXPECT_LT(byBytes.Count(), 20);
    EXPECT_LE(byBytes.Bytes(), 100 * 1024);
    EXPECT_EQ(byBytes.UndoCaption(), "19");
}

TEST(UndoHistory, TheSavedPointIsFoundAgainUntilItsStepsAreGone)
{
    TPuzzle p = PuzzleFrom(Clued);
    TUndoHistory history(3);
    EXPECT_TRUE(history.IsAtSavedPoint());
    edit(history, p, "Typing", [](TPuzzle &q) { q.Cells(2, 2) = 'A'; });
    history.MarkSaved();
    edit(history, p, "Typing", [](TPuzzle &q) { q.Cells(2, 3) = 'B'; });
    EXPECT_FALSE(history.IsAtSavedPoint());
    history.Undo(p);
    EXPECT_TRUE(history.IsAtSavedPoint());
    history.Undo(p);
    EXPECT_FALSE(history.IsAtSavedPoint()) << "before the save is changed too";
    history.Redo(p);
    EXPECT_TRUE(history.IsAtSavedPoint());

    // Undone past the save and then changed otherwise: the saved record is out of reach.
    history.Undo(p);
    edit(history, p, "Typing", [](TPuzzle &q) { q.Cells(9, 9) = 'Z'; });
    EXPECT_FALSE(history.IsAtSavedPoint()) << "another change where the saved one was";

    history.Clear();
    EXPECT_TRUE(history.IsAtSavedPoint());
    EXPECT_FALSE(history.CanUndo());
}

// The history as the session keeps it: every change through the session is a step.
class SessionUndo : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetSettings();
        Session().SetPrompts(std::make_shared<TYesPrompts>());
        Session().Reset();
        PuzzleMode = ConstructMode;
        path = dir.path("clued.xwd");
        WriteFileAtomically(path, EncodePuzzle(PuzzleFrom(Clued)));
        ASSERT_TRUE(Session().OpenFile(path, false));
        original = Puzzle;
    }
    void TearDown() override
    {
        Session().SetPrompts(nullptr);
        Session().Reset();
        PuzzleChanged = false;
        CurrentPuzzlePath.clear();
        SquareSize = 0;
    }

    TScratchDir dir;
    QString path;
    TPuzzle original;
};

TEST_F(SessionUndo, ASymmetricBlackPairWithItsLostCluesComesBackInOneUndo)
{
    TGridEditor editor;
    editor.Symmetry = 1;
    SquareSize = 20;
    // (6, 1) starts 5D; its diagonal partner is (6, 11).
    const int slot = Puzzle.slotAt(6, 1, Direction::Down);
    ASSERT_GT(slot, 0);
    editor.SetSquare(5 * 20 + 4, 4, false);
    ASSERT_TRUE(Puzzle.isBlock(6, 1) && Puzzle.isBlock(6, 11));
    ASSERT_TRUE(Puzzle.clue(slot).isEmpty());
    EXPECT_EQ(Session().History().UndoCaption(), "Black Square");

    EXPECT_EQ(Session().Undo()->Square, QPoint(6, 1)) << "the cursor goes to the first square of the pair";
    EXPECT_TRUE(same(Puzzle, original));
    EXPECT_EQ(Puzzle.clue(slot), "Five down");
    EXPECT_FALSE(Session().History().CanUndo());
    EXPECT_FALSE(PuzzleChanged) << "back to the puzzle as it was opened";
}

TEST_F(SessionUndo, UndoingToTheSavedRecordClearsPuzzleChanged)
{
    Session().SetCell(2, 2, 'A');
    ASSERT_TRUE(Session().Save());
    Session().SetCell(2, 3, 'B');
    ASSERT_TRUE(PuzzleChanged);
    Session().Undo();
    EXPECT_FALSE(PuzzleChanged) << "the record is the saved one";
    Session().Undo();
    EXPECT_TRUE(PuzzleChanged) << "before the save is a change too";
    Session().Redo();
    EXPECT_FALSE(PuzzleChanged);
    EXPECT_EQ(Session().History().RedoCaption(), "Typing");

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
    Session().Undo();
    EXPECT_EQ(Puzzle.clue(1), "Pet");
    EXPECT_FALSE(Session().History().CanUndo());
}

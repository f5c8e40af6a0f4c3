#include "inspect/transforms.h"
#include "interchange/interchange.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/undohistory.h"
#include "model/puzzlefile.h"
#include "settings/txwdprocs.h"
#include "scriptedprompts.h"
#include "testsupport.h"
#include "views/grideditor.h"
#include "views/gridgeometry.h"

#include <gtest/gtest.h>

#include <QDir>

#include <tuple>

namespace {

const QString Grid = "size 11\ngrid\n" + GridRows({}, 11, u'.') + "clues\n1A first\n";

class PuzzleSession : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetSettings();
        prompts = std::make_shared<TScriptedPrompts>();
        Session().SetPrompts(prompts);
        Session().Reset();
        PuzzleChanged = false;
        CurrentPuzzlePath.clear();
        Puzzle = PuzzleFrom(Grid);
        editor.Symmetry = 1;
        SquareSize = 20;
        connections = {
            QObject::connect(&Session(), &TPuzzleSession::opened, [this] { events.append("opened"); }),
            QObject::connect(&Session(), &TPuzzleSession::saved,
                             [this](const QString &, bool v5) { events.append(v5 ? "saved v5" : "saved"); }),
            QObject::connect(&Session(), &TPuzzleSession::changed,
                             [this](TChangeKind, TSquareHint) { events.append("changed " + Session().LastEdit().Caption); }),
        };
    }
    void TearDown() override
    {
        for (const auto &c : connections)
            QObject::disconnect(c);
        Session().SetPrompts(nullptr);
        Session().Reset();
        PuzzleMode = ConstructMode;
        SquareSize = 0;
    }

    // A puzzle written to `name` and opened from it.
    QString openFile(const QString &name, bool solving = false)
    {
        const QString path = dir.path(name);
        WriteFileAtomically(path, EncodePuzzle(Puzzle));
        EXPECT_TRUE(Session().OpenFile(path, solving));
        events.clear();
        return path;
    }
    void answer(std::initializer_list<TAnswer> answers) { prompts->Answers.assign(answers); }
    void chooseFile(const QString &path, int filter = 1) { prompts->Files.push_back(TFileChoice{path, filter}); }

    TScratchDir dir;
    std::shared_ptr<TScriptedPrompts> prompts;
    QStringList events;
    std::vector<QMetaObject::Connection> connections;
    TGridEditor editor;
};

// The history as the session keeps it: every change through the session is a step.
// (6, 1) starts 5D; its diagonal partner is (6, 11).
class SessionUndo : public PuzzleSession {
protected:
    void SetUp() override
    {
        PuzzleSession::SetUp();
        prompts->Otherwise = TAnswer::Yes;
        Puzzle = PuzzleFrom("size 11\nbyline Ann Setter\ngrid\nCAT#.......\n" + QStringLiteral("...........\n").repeated(9)
                            + "..........#\nclues\n1A Pet\n1D One down\n5D Five down\n");
        path = openFile("clued.xwd");
        original = Puzzle;
    }
    void blackSquareAt(int c, int r) { editor.SetSquare((c - 1) * 20 + 4, (r - 1) * 20 + 4, false); }

    QString path;
    TPuzzle original;
};

const QString Question = QStringLiteral("Puzzle has changed. Save current changes?");

}  // namespace

// Every way of leaving a changed puzzle asks the same question with the same answers.
TEST_F(PuzzleSession, OneSaveChangesPathForEveryWayOut)
{
    const QString path = openFile("a.xwd");
    const std::vector<std::pair<const char *, std::function<bool()>>> ways = {
        {"open", [] { return Session().Open(false); }},
        {"new", [] { return Session().New(13); }},
        {"history", [] { return Session().OpenHistory(2); }},
        {"close", [] { return Session().Close(); }},
    };
    for (const auto &[name, leave] : ways) {
        SCOPED_TRACE(name);
        Session().SetCell(1, 1, 'Q');
        prompts->Asked.clear();
        answer({TAnswer::Cancel});
        EXPECT_FALSE(leave()) << "Cancel stays with the puzzle";
        EXPECT_EQ(prompts->Asked, QStringList{Question}) << "asked once, and nothing else";
        EXPECT_TRUE(PuzzleChanged && Session().IsOpen());

        answer({TAnswer::No});
        leave();
        EXPECT_FALSE(PuzzleChanged) << "No drops the changes";
        EXPECT_NE(ReadPuzzleRecord(path).Cells(1, 1), 'Q');
        Session().Reset();
        ASSERT_TRUE(Session().OpenFile(path, false));
    }

    Session().SetCell(1, 1, 'Q');
    answer({TAnswer::Yes});
    EXPECT_TRUE(Session().Close());
    EXPECT_EQ(ReadPuzzleRecord(path).Cells(1, 1), 'Q') << "Yes writes the file";
    EXPECT_FALSE(PuzzleChanged);
}

TEST_F(PuzzleSession, SolvingSavesUnaskedUnlessThePuzzleHasNoFile)
{
    const QString path = openFile("s.xwd", true);
    Session().SetEntry(2, 1, 'E');
    EXPECT_TRUE(Session().Close());
    EXPECT_TRUE(prompts->Asked.isEmpty());
    EXPECT_EQ(ReadPuzzleRecord(path).Entries(2, 1), 'E');

    // An imported puzzle has no file: even solving, the question comes first, and
    // saving asks for a name.
    const QString ipuz = dir.path("from elsewhere.ipuz");
    WriteFileAtomically(ipuz, ExportPuzzle(Puzzle, TFileKind::Ipuz, QStringLiteral("t")));
    ASSERT_TRUE(Session().Import(ipuz, true));
    EXPECT_TRUE(PuzzleChanged && !Session().HasFile());
    EXPECT_EQ(Session().Title(), "FROM ELSEWHERE (not saved)");
    prompts->Asked.clear();
    answer({TAnswer::Yes});
    EXPECT_FALSE(Session().Close()) << "no name chosen: the puzzle stays";
    EXPECT_EQ(prompts->Asked, (QStringList{Question, "Save puzzle as..."}));
    answer({TAnswer::Yes});
    chooseFile(dir.path("kept.xwd"));
    EXPECT_TRUE(Session().Close());
    EXPECT_EQ(CurrentPuzzlePath, dir.path("kept.xwd"));
    EXPECT_TRUE(QFile::exists(CurrentPuzzlePath));
}

// A write that fails leaves the record, the flag, the file name and the mode as they were.
TEST_F(PuzzleSession, FailedWritesChangeNothing)
{
    const QString path = openFile("keep.xwd");
    Session().SetCell(3, 3, 'Z');
    const QByteArray before = EncodePuzzle(Puzzle);
    const QString nowhere = dir.path("no/such/folder/x.xwd");
    const std::vector<std::pair<const char *, std::function<bool()>>> commands = {
        {"new", [] { return Session().New(15); }},
        {"save as", [] { return Session().SaveAs(); }},
        {"copy grid as", [] { return Session().CopyGridAs(); }},
        {"version 5 copy", [] { return Session().SaveAs(); }},
    };
    for (const auto &[name, command] : commands) {
        SCOPED_TRACE(name);
        chooseFile(nowhere, std::string(name) == "version 5 copy" ? 2 : 1);
        events.clear();
        prompts->Errors.clear();
        // (New would ask about the changes first.)
        PuzzleChanged = std::string(name) != "new";
        EXPECT_FALSE(command());
        EXPECT_EQ(EncodePuzzle(Puzzle), before);
        EXPECT_EQ(std::tuple(CurrentPuzzlePath, PuzzleMode, PuzzleChanged), std::tuple(path, ConstructMode, std::string(name) != "new"));
        EXPECT_TRUE(events.isEmpty()) << events.join(", ").toStdString();
        EXPECT_EQ(prompts->Errors.size(), 1);
    }

    // The file's folder is gone: leaving asks whether to go on without the changes.
    QDir(dir.path("")).removeRecursively();
    PuzzleChanged = true;
    answer({TAnswer::Yes, TAnswer::No});
    EXPECT_FALSE(Session().Close()) << "No to going on stays";
    EXPECT_TRUE(PuzzleChanged);
    answer({TAnswer::Yes, TAnswer::Yes});
    EXPECT_TRUE(Session().Close());
    EXPECT_FALSE(PuzzleChanged);
}

TEST_F(PuzzleSession, SaveAsCarriesTheNameAVersion5CopyDoesNot)
{
    const QString path = openFile("first.xwd");
    chooseFile(dir.path("old"), 2);
    EXPECT_TRUE(Session().SaveAs());
    EXPECT_EQ(QFileInfo(dir.path("old.xwd")).size(), PuzzleFile5Size);
    EXPECT_EQ(CurrentPuzzlePath, path);

    chooseFile(dir.path("grid.xwd"));
    Session().SetCell(1, 1, 'Q');
    EXPECT_TRUE(Session().CopyGridAs());
    EXPECT_EQ(CurrentPuzzlePath, dir.path("grid.xwd"));
    EXPECT_EQ(Puzzle.Cells(1, 1), 0) << "the copy keeps only black squares";
    EXPECT_EQ(Puzzle.clue(1), "");
    EXPECT_FALSE(PuzzleChanged);
    EXPECT_EQ(events, (QStringList{"saved v5", "changed Typing", "saved", "opened"}));

    chooseFile(dir.path("notes.txt"));
    EXPECT_FALSE(Session().SaveAs());
    EXPECT_EQ(prompts->Errors, QStringList{"Not a valid Quillmark puzzle."});
    EXPECT_FALSE(QFile::exists(dir.path("notes.txt")));
}

TEST_F(PuzzleSession, RevertReadsTheFileAgainAsOneChange)
{
    const QString path = openFile("r.xwd");
    Session().SetCell(1, 1, 'Q');
    answer({TAnswer::No});
    EXPECT_FALSE(Session().Revert());
    EXPECT_EQ(Puzzle.Cells(1, 1), 'Q');
    answer({TAnswer::Yes});
    EXPECT_TRUE(Session().Revert());
    EXPECT_EQ(EncodePuzzle(Puzzle), ReadFileBytes(path));
    EXPECT_FALSE(PuzzleChanged);
    EXPECT_EQ(events, (QStringList{"changed Typing", "changed Revert"}));
    EXPECT_EQ(Session().LastEdit().Before.Cells(1, 1), 'Q') << "the record before is kept for undo";
}

// Every change names its step once, keeps the record before it and marks the puzzle changed.
TEST_F(PuzzleSession, EveryChangeIsAnnouncedOnce)
{
    const struct {
        const char *caption;
        std::function<void()> change;
        std::function<bool()> done;
    } changes[] = {
        {"Typing", [] { Session().SetCell(2, 2, 'A'); }, [] { return Puzzle.Cells(2, 2) == 'A'; }},
        // A black square and its partner are one step.
        {"Black Square", [this] { editor.SetSquare(5, 5, false); }, [] { return Puzzle.isBlock(1, 1) && Puzzle.isBlock(11, 11); }},
        {"Typing", [] { Session().SetEntry(2, 2, 'B'); }, [] { return Puzzle.Entries(2, 2) == 'B'; }},
        {"Clue", [] { Session().SetClue(1, 2, Direction::Across, 4, "New clue"); },
         [] { return Puzzle.clue(4) == "New clue" && Puzzle.slotAt(1, 2, Direction::Across) == 4; }},
        {"Byline", [] { Session().SetByline("Ann"); }, [] { return Puzzle.Byline.text() == "Ann"; }},
        {"Flip", [] { TPuzzle other = Puzzle; other.Size = 13; Session().Replace(QStringLiteral("Flip"), other); },
         [] { return Puzzle.Size == 13; }},
    };
    for (const auto &c : changes) {
        SCOPED_TRACE(c.caption);
        PuzzleChanged = false;
        events.clear();
        const QByteArray before = EncodePuzzle(Puzzle);
        c.change();
        EXPECT_TRUE(c.done() && PuzzleChanged);
        EXPECT_EQ(events, QStringList{QStringLiteral("changed ") + c.caption});
        EXPECT_EQ(EncodePuzzle(Session().LastEdit().Before), before);
    }
}

TEST(UndoHistory, TheBoundsDropTheOldestStepsFirst)
{
    TPuzzle p = PuzzleFrom(Grid);
    const auto record = [&p](TUndoHistory &history, const QString &caption, auto change) {
        const TPuzzle before = p;
        change(p);
        history.Record(before, p, caption);
    };
    TUndoHistory byCount(3);
    for (char letter : {'A', 'B', 'C', 'D', 'E'})
        record(byCount, QString(QChar(letter)), [letter](TPuzzle &q) { q.Cells(5, 5) = uint8_t(letter); });
    QStringList kept;
    for (; byCount.CanUndo(); byCount.Undo(p))
        kept.append(byCount.UndoCaption());
    EXPECT_EQ(kept, QStringList({"E", "D", "C"}));
    EXPECT_EQ(p.Cells(5, 5), 'B') << "the record as the oldest step kept found it";

    // Steps that rewrite every clue are large: the byte bound keeps only the last few.
    TUndoHistory byBytes(1000, 100 * 1024);
    for (int i = 0; i < 20; ++i)
        record(byBytes, QString::number(i), [i](TPuzzle &q) {
            for (int slot = 1; slot <= ClueSlots; ++slot)
                q.setClue(slot, QByteArray(MaxClueLength, char('a' + i)));
        });
    EXPECT_TRUE(byBytes.Count() > 0 && byBytes.Count() < 20) << byBytes.Count();
    EXPECT_LE(byBytes.Bytes(), 100 * 1024);
    EXPECT_EQ(byBytes.UndoCaption(), "19");
}

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
    QStringList captions;
    for (; Session().History().CanUndo(); Session().Undo())
        captions.append(Session().History().UndoCaption());
    EXPECT_EQ(captions, QStringList({"Typing", "Grid Language", "Byline", "Flip", "Black Square", "Typing"}));
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

#pragma once
// The puzzle session: the one owner of the open puzzle's lifecycle (new, open, import,
// save, save as, copy grid as, revert, history, close, delete a solved puzzle) and the one
// door through which every change to the Puzzle record passes.
//
// The contract:
// - The session is the only writer of Puzzle (as a whole or in part), PuzzleMode,
//   PuzzleChanged and CurrentPuzzlePath. Windows read those globals freely, and change the
//   record only by calling Edit or one of its named wrappers.
// - Every change is announced: Edit keeps the record as it was before (LastEdit), applies
//   the change, sets PuzzleChanged and emits `changed`. A change that alters nothing (a
//   click outside the grid) is still announced and still marks the puzzle changed, as it
//   always did. One user step is one Edit: a black square and its symmetric partner are
//   one change, so undoing it later takes back both.
// - Every question goes through the TSessionPrompts given with SetPrompts. A session
//   without prompts answers every question with Cancel (or No) and chooses no file.
// - A write that fails leaves the record, PuzzleChanged, CurrentPuzzlePath and the mode as
//   they were before the command, and the user is told why.
// - "Save changes?" is asked in one place, SaveChangesQuery, by every command that leaves
//   the open puzzle (open, new, history, close).

#include "mainwindow/sessionprompts.h"
#include "mainwindow/undohistory.h"
#include "model/puzzle.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

// What a change touched, so that each window repaints only what it shows.
enum class TChangeKind {
    Grid,      // letters and black squares of the solution (and the clues a black square drops)
    Entries,   // the solver's letters
    Clues,     // clue texts and their slots
    Byline,
    Language,  // the grid language or its mark
    Whole,     // anything else: transforms, clear, a record read or imported
};

// The square the cursor stood on when the change was made (1-based); 0, 0 for none.
struct TSquareHint {
    int Column = 0;
    int Row = 0;
    bool isValid() const { return Column > 0 && Row > 0; }
};

// One announced change: what it was called, what it touched and the record before it.
struct TEditRecord {
    QString Caption;  // the step as an undo menu names it: "Typing", "Black Square", ...
    TChangeKind Kind = TChangeKind::Whole;
    TSquareHint Cursor;
    TPuzzle Before;
};

class TPuzzleSession : public QObject {
    Q_OBJECT
public:
    explicit TPuzzleSession(QObject *parent = nullptr);
    ~TPuzzleSession() override;

    // The questions are asked through `prompts`; the session keeps it.
    void SetPrompts(std::shared_ptr<TSessionPrompts> prompts);

    // --- State -------------------------------------------------------------------------
    bool IsOpen() const { return open_; }
    bool IsSolving() const;
    // Constructing in either sub-mode (designing the grid or entering letters).
    bool IsConstructing() const { return open_ && !IsSolving(); }
    // An imported puzzle has no .xwd file until it is saved under a name.
    bool HasFile() const;
    // The grid window's caption: the file's name, or "NAME (not saved)" for an import.
    QString Title() const;

    // --- Lifecycle: each returns false when it did not happen (cancelled or failed; a
    // failure has been reported). `opened` follows every success that opens a puzzle.
    // A new puzzle of side `size`, named first and written at once, for constructing.
    bool New(int size);
    // Asks for a file (.xwd, .puz, .ipuz) and opens it for solving or constructing.
    bool Open(bool solving);
    // Opens the file (an import when it is .puz or .ipuz) without asking for changes:
    // the command line's puzzle, and Open's chosen file. A .xwd that cannot be read
    // leaves the open puzzle as it is on disk.
    bool OpenFile(const QString &path, bool solving);
    // A .puz or .ipuz puzzle: open with no file, and changed, so that nothing is lost.
    bool Import(const QString &path, bool solving);
    // History entry k (1 to 3) as stored in the settings.
    bool OpenHistory(int k);
    // A puzzle kept from a run that did not end well, under its own path (none for one
    // never saved) and in its mode, marked changed: the recovered work is not on disk yet.
    bool OpenRecovered(const TPuzzle &record, const QString &path, uint8_t mode);
    // Writes the open puzzle to its file; a puzzle with no file asks for a name (SaveAs).
    bool Save();
    // "Save puzzle as...": the puzzle under a new name, which it then carries; the
    // version-5 choice writes a copy and leaves the open puzzle as it was.
    bool SaveAs();
    // "Copy grid as...": a new puzzle with the black squares only, written and opened.
    bool CopyGridAs();
    // Asks, then reads the puzzle's file again.
    bool Revert();
    // The one "save changes?" path: asks (constructing, or a puzzle with no file), then
    // writes when told to; a failed write asks whether to go on without saving. False
    // when the user stays with the puzzle. Without changes it returns true at once.
    bool SaveChangesQuery();
    // Leaving the program: SaveChangesQuery, then `closed`.
    bool Close();
    // The score card's delete choice: the file goes to the trash and nothing is open.
    bool DeleteSolved();
    // Forgets the open puzzle without a word: a fresh start of the program's windows.
    void Reset();
    // Designing the grid (DesignMode) or entering letters (ConstructMode) while constructing.
    void SetMode(uint8_t mode);
    // The history entries to show (at most three), written back to the settings.
    QStringList RebuildHistory();

    // --- Changes -----------------------------------------------------------------------
    // The one choke point: records the record before, applies `change` to Puzzle, sets
    // PuzzleChanged and emits `changed(kind, cursor)`.
    void Edit(const QString &caption, TChangeKind kind, const std::function<void(TPuzzle &)> &change,
              TSquareHint cursor = {});
    // The last change announced (valid while handling `changed`, and after it). An empty
    // caption marks a change that is no step of the user's: the file read again after a
    // failed open, PuzzleChanged left as it was.
    const TEditRecord &LastEdit() const { return *last_; }

    // Named changes.
    void SetCell(int c, int r, uchar ch, const QString &caption = QStringLiteral("Typing"));
    void SetEntry(int c, int r, uchar ch);
    // The clue `text` in `slot`, which the word starting at (c, r) in direction `d` takes.
    void SetClue(int c, int r, Direction d, int slot, const QByteArray &text);
    void SetByline(const QByteArray &byline);
    // Replaces the whole record (a transform's result, a cleared puzzle).
    void Replace(const QString &caption, const TPuzzle &record, TChangeKind kind = TChangeKind::Whole);
    // The preferences' last chosen grid language, kept in the clue slot no word uses. It is
    // no edit of the puzzle (nothing reads it back): no announcement, and PuzzleChanged
    // stays as it is; but it is an undo step (one for a row of clicks), so that undo gives
    // the record back byte for byte.
    void SetLanguageMark(int language);

    // --- Undo --------------------------------------------------------------------------
    // Every change with a caption is a step of the history, which a new, opened, reverted
    // or closed puzzle empties. Undo and Redo take the record one step back or forward,
    // announce it as a change with no caption, and clear PuzzleChanged when the record is
    // the one on disk again; the place of the step, or nothing when there is no step.
    std::optional<TUndoPlace> Undo();
    std::optional<TUndoPlace> Redo();
    const TUndoHistory &History() const { return history_; }

signals:
    // A puzzle was opened or created: every window starts over with it.
    void opened();
    void changed(TChangeKind kind, TSquareHint cursor);
    // The puzzle was written to `path` (a version-5 copy too).
    void saved(const QString &path, bool version5);
    void modeChanged(uint8_t mode);
    // No puzzle is open any more (deleted, or the program is leaving).
    void closed();
    // What Undo and Redo would do changed, or PuzzleChanged may have.
    void historyChanged();
    // Undo or Redo took the record a step back or forward (after `changed`): every window
    // shows the puzzle afresh, also those that otherwise wait for the user to ask.
    void restored();

private:
    TAnswer ask(const QString &text, bool withCancel, bool warning = false) const;
    void error(const QString &text) const;
    std::optional<TFileChoice> chooseSaveName(const QString &title, const QString &filter) const;
    // Writes `record` to `path`; on success it becomes the open puzzle, unchanged. On
    // failure nothing changes and the user is told.
    bool commit(const QString &path, const TPuzzle &record);
    bool writeOrGoOn();
    void reread(const TPuzzle &record);
    void becomeOpen(const QString &path, uint8_t mode, const QString &untitledName = {});

    std::shared_ptr<TSessionPrompts> prompts_;
    // A step taken back or made again, announced as a change.
    std::optional<TUndoPlace> step(bool back);
    void clearHistory();

    std::unique_ptr<TEditRecord> last_;
    TUndoHistory history_;
    bool open_ = false;
    QString untitledName_;
    // The name Save As offers a puzzle with no file yet: an imported puzzle's title.
    QString suggestedName_;
};

// The program's one session (the one puzzle has one owner).
TPuzzleSession &Session();

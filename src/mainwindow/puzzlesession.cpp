#include "mainwindow/puzzlesession.h"

#include "clues/gridlanguage.h"
#include "interchange/interchange.h"
#include "mainwindow/history.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/trash.h"
#include "model/clearpuzzle.h"
#include "model/puzzlefile.h"
#include "settings/settingkeys.h"
#include "settings/txwdprocs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QString OpenFilter = QStringLiteral("Quillmark Crossword Puzzle |*.xwd");
const QString ImportFilter = QStringLiteral("|Across Lite Puzzle|*.puz|ipuz Puzzle|*.ipuz");
const QString SaveAsFilter =
    QStringLiteral("Quillmark Crossword Puzzle|*.xwd|Quillmark 5 Crossword Puzzle|*.xwd");
const QString CopyGridFilter = QStringLiteral("Quillmark Crossword Puzzle|*.xwd");
const QString CorruptMessage = QStringLiteral("Puzzle not in Quillmark format or is corrupt.");
const QString ForeignMessage = QStringLiteral("Not a valid Quillmark puzzle.");
const QString ChangedQuestion = QStringLiteral("Puzzle has changed. Save current changes?");
const QString GoOnQuestion = QStringLiteral("The changes to the puzzle were not saved. Go on without saving them?");
const QString RevertQuestion = QStringLiteral("Discard all recent changes and return to last saved puzzle?");
const QString LostMessage = QStringLiteral("Unable to locate this puzzle from path in history list.");

bool isImport(const QString &path)
{
    const TFileKind kind = FileKindOf(path);
    return kind == TFileKind::Puz || kind == TFileKind::Ipuz;
}

}  // namespace

TPuzzleSession::TPuzzleSession(QObject *parent) : QObject(parent), last_(std::make_unique<TEditRecord>()) {}

TPuzzleSession::~TPuzzleSession() = default;

void TPuzzleSession::SetPrompts(std::shared_ptr<TSessionPrompts> prompts)
{
    prompts_ = std::move(prompts);
}

bool TPuzzleSession::IsSolving() const
{
    return PuzzleMode == SolveMode;
}

bool TPuzzleSession::HasFile() const
{
    return !CurrentPuzzlePath.isEmpty();
}

QString TPuzzleSession::Title() const
{
    if (!untitledName_.isEmpty())
        return QStringLiteral("%1 (not saved)").arg(untitledName_);
    return QFileInfo(CurrentPuzzlePath).fileName();
}

TAnswer TPuzzleSession::ask(const QString &text, bool withCancel, bool warning) const
{
    if (!prompts_)
        return withCancel ? TAnswer::Cancel : TAnswer::No;
    return prompts_->Ask(text, withCancel, warning);
}

void TPuzzleSession::error(const QString &text) const
{
    if (prompts_)
        prompts_->Error(text);
}

std::optional<TFileChoice> TPuzzleSession::chooseSaveName(const QString &title, const QString &filter) const
{
    if (!prompts_)
        return std::nullopt;
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = title;
    request.Filter = filter;
    request.FileName = CurrentPuzzlePath.isEmpty() && !suggestedName_.isEmpty() ? suggestedName_ + QStringLiteral(".xwd")
                                                                                 : QStringLiteral("untitled.xwd");
    request.DefaultExtension = QStringLiteral("xwd");
    request.Directory = QDir::currentPath();
    auto choice = prompts_->ChooseFile(request);
    if (!choice)
        return std::nullopt;
    choice->Path = WithPuzzleExtension(choice->Path);
    if (HasForeignExtension(choice->Path)) {
        error(ForeignMessage);
        return std::nullopt;
    }
    return choice;
}

bool TPuzzleSession::commit(const QString &path, const TPuzzle &record)
{
    try {
        WritePuzzleBytes(path, EncodePuzzle(record));
    } catch (const TPuzzleIOError &e) {
        error(QStringLiteral("The puzzle could not be saved.\n%1").arg(QString::fromStdString(e.what())));
        return false;
    }
    if (&record != &Puzzle)
        Puzzle = record;
    PuzzleChanged = false;
    history_.MarkSaved();
    emit saved(path, false);
    emit historyChanged();
    return true;
}

void TPuzzleSession::becomeOpen(const QString &path, uint8_t mode, const QString &untitledName)
{
    CurrentPuzzlePath = path;
    PuzzleMode = mode;
    untitledName_ = untitledName;
    suggestedName_.clear();
    open_ = true;
    history_.Clear();
    // A puzzle with no file yet is changed whatever is undone.
    if (path.isEmpty())
        history_.MarkDifferentFromFile();
    WriteSetting(Setting::CurrentPuzzle, CurrentPuzzlePath);
    emit opened();
    emit historyChanged();
}

bool TPuzzleSession::New(int size)
{
    if (!SaveChangesQuery())
        return false;
    const auto choice = chooseSaveName(QStringLiteral("New %1x puzzle for constructing").arg(size), OpenFilter);
    if (!choice)
        return false;
    TPuzzle fresh = Puzzle;
    ClearPuzzle(fresh, size, 'N');
    if (!commit(choice->Path, fresh))
        return false;
    becomeOpen(choice->Path, ConstructMode);
    return true;
}

bool TPuzzleSession::Open(bool solving)
{
    if (!SaveChangesQuery() || !prompts_)
        return false;
    TFileRequest request;
    request.Kind = TFileRequest::Open;
    request.Title = solving ? QStringLiteral("Open puzzle for solving") : QStringLiteral("Open puzzle for constructing");
    request.Directory = QDir::currentPath();
    request.Filter = OpenFilter + ImportFilter;
    request.DefaultExtension = QStringLiteral("xwd");
    const auto choice = prompts_->ChooseFile(request);
    if (!choice)
        return false;
    return OpenFile(choice->Path, solving);
}

bool TPuzzleSession::OpenFile(const QString &path, bool solving)
{
    if (isImport(path))
        return Import(path, solving);
    // Absolute, so that the history still finds it from another working folder.
    const QString absolute = QFileInfo(path).absoluteFilePath();
    try {
        Puzzle = OpenPuzzleRecord(absolute);
    } catch (const TPuzzleIOError &) {
        // What is shown is what is on disk: the open puzzle read again.
        if (open_ && HasFile()) {
            try {
                reread(OpenPuzzleRecord(CurrentPuzzlePath));
            } catch (const TPuzzleIOError &) {
            }
        }
        // The command line's puzzle that cannot be read leaves none open.
        if (!open_)
            CurrentPuzzlePath.clear();
        error(CorruptMessage);
        return false;
    }
    PuzzleChanged = false;
    becomeOpen(absolute, solving ? SolveMode : ConstructMode);
    return true;
}

bool TPuzzleSession::Import(const QString &path, bool solving)
{
    TImportedPuzzle imported;
    try {
        try {
            imported = ImportPuzzleFile(path);
        } catch (const TLongTextError &e) {
            if (ask(e.message() + QStringLiteral("\n\nCut them to fit and open the puzzle?"), false) != TAnswer::Yes)
                return false;
            imported = ImportPuzzleFile(path, {true});
        }
    } catch (const TInterchangeError &e) {
        error(e.message());
        return false;
    }
    Puzzle = imported.Puzzle;
    // No .xwd file yet: Save asks for one, and leaving asks before anything is lost.
    PuzzleChanged = true;
    becomeOpen({}, solving ? SolveMode : ConstructMode, QFileInfo(path).completeBaseName().toUpper());
    // The file's title is the name the first Save offers, less what file names cannot hold.
    static const QRegularExpression unsafe(QStringLiteral(R"([/\\:*?"<>|\x00-\x1f]+)"));
    suggestedName_ = imported.Title.replace(unsafe, QStringLiteral(" ")).simplified();
    if (!imported.Warnings.isEmpty() && prompts_)
        prompts_->Inform(QStringLiteral("%1 was opened, but:\n\n%2")
                             .arg(QFileInfo(path).fileName(), imported.Warnings.join(QStringLiteral("\n\n"))));
    return true;
}

bool TPuzzleSession::OpenHistory(int k)
{
    if (!SaveChangesQuery())
        return false;
    const QString entry = k >= 1 && k <= HistorySize ? ReadText(Setting::HistoryPuzzle[k - 1]) : QString();
    if (entry.size() < 3)
        return false;
    const QString path = HistoryPath(entry);
    const bool solving = HistoryIsSolving(entry);
    if (path == CurrentPuzzlePath && open_ && solving == IsSolving())
        return false;

    const QString previousDir = QDir::currentPath();
    QDir::setCurrent(QFileInfo(path).absolutePath());
    if (!QFileInfo::exists(path)) {
        QDir::setCurrent(previousDir);
        error(LostMessage);
        return false;
    }
    try {
        Puzzle = OpenPuzzleRecord(path);
    } catch (const TPuzzleIOError &) {
        // The open puzzle stays tied to its own file, so that a later save cannot write it
        // over the path that failed.
        QDir::setCurrent(previousDir);
        error(CorruptMessage);
        return false;
    }
    PuzzleChanged = false;
    becomeOpen(path, solving ? SolveMode : ConstructMode);
    return true;
}

bool TPuzzleSession::OpenRecovered(const TPuzzle &record, const QString &path, uint8_t mode)
{
    if (!SaveChangesQuery())
        return false;
    Puzzle = record;
    PuzzleChanged = true;
    becomeOpen(path, mode == SolveMode ? SolveMode : ConstructMode,
               path.isEmpty() ? QStringLiteral("RECOVERED") : QString());
    history_.MarkDifferentFromFile();
    return true;
}

bool TPuzzleSession::Save()
{
    if (!open_)
        return false;
    // A puzzle with no file is saved only when it gets one (a version-5 copy is not one).
    if (!HasFile())
        return SaveAs() && HasFile();
    return commit(CurrentPuzzlePath, Puzzle);
}

bool TPuzzleSession::SaveAs()
{
    const auto choice = chooseSaveName(QStringLiteral("Save puzzle as..."), SaveAsFilter);
    if (!choice)
        return false;
    if (choice->FilterIndex == 2) {
        // A version-5 copy is an export: the open puzzle stays as it is.
        try {
            WritePuzzleBytes(choice->Path, EncodePuzzle5(Puzzle));
        } catch (const TPuzzleIOError &e) {
            error(QStringLiteral("The puzzle could not be saved.\n%1").arg(QString::fromStdString(e.what())));
            return false;
        }
        emit saved(choice->Path, true);
        return true;
    }
    if (!commit(choice->Path, Puzzle))
        return false;
    // The same record under another name: its steps can still be taken back.
    TUndoHistory kept = history_;
    becomeOpen(choice->Path, PuzzleMode);
    history_ = std::move(kept);
    emit historyChanged();
    return true;
}

bool TPuzzleSession::CopyGridAs()
{
    const auto choice = chooseSaveName(QStringLiteral("Copy grid as..."), CopyGridFilter);
    if (!choice)
        return false;
    TPuzzle copy = Puzzle;
    ClearPuzzle(copy, Puzzle.Size, 'C');
    if (!commit(choice->Path, copy))
        return false;
    becomeOpen(choice->Path, PuzzleMode);
    return true;
}

bool TPuzzleSession::Revert()
{
    if (ask(RevertQuestion, false) != TAnswer::Yes)
        return false;
    TPuzzle onDisk;
    try {
        onDisk = ReadPuzzleRecord(CurrentPuzzlePath);
    } catch (const TPuzzleIOError &) {
        error(CorruptMessage);
        return false;
    }
    Replace(QStringLiteral("Revert"), onDisk);
    PuzzleChanged = false;
    clearHistory();
    return true;
}

bool TPuzzleSession::SaveChangesQuery()
{
    if (!PuzzleChanged)
        return true;
    // Solving saves the entries unasked; a puzzle with no file yet is never saved unasked.
    if (!IsSolving() || !HasFile()) {
        switch (ask(ChangedQuestion, true)) {
        case TAnswer::Cancel:
            return false;
        case TAnswer::No:
            PuzzleChanged = false;
            return true;
        case TAnswer::Yes:
            break;
        }
    }
    return writeOrGoOn();
}

bool TPuzzleSession::writeOrGoOn()
{
    if (Save())
        return true;
    // An imported puzzle with its name cancelled stays; No to the question is the way to
    // leave without it.
    if (!HasFile())
        return false;
    // The user has been told why; the changes are dropped only when they say so, and a
    // folder that has become read-only does not trap them in the program.
    if (ask(GoOnQuestion, false, true) != TAnswer::Yes)
        return false;
    PuzzleChanged = false;
    return true;
}

bool TPuzzleSession::Close()
{
    if (!SaveChangesQuery())
        return false;
    if (open_) {
        open_ = false;
        clearHistory();
        emit closed();
    }
    return true;
}

bool TPuzzleSession::DeleteSolved()
{
    // The trash first: if it cannot take the file, nothing else changes and nothing is lost.
    if (!MoveToTrash(CurrentPuzzlePath) && QFile::exists(CurrentPuzzlePath)) {
        error(QStringLiteral("The puzzle could not be moved to the trash. It is still at %1.")
                  .arg(QDir::toNativeSeparators(CurrentPuzzlePath)));
        return false;
    }
    open_ = false;
    PuzzleChanged = false;
    CurrentPuzzlePath.clear();
    untitledName_.clear();
    WriteSetting(Setting::CurrentPuzzle, QString());
    WriteSetting(Setting::HistoryPuzzle[0], QString());
    clearHistory();
    emit closed();
    return true;
}

void TPuzzleSession::Reset()
{
    open_ = false;
    untitledName_.clear();
    history_.Clear();
}

void TPuzzleSession::reread(const TPuzzle &record)
{
    *last_ = {QString(), TChangeKind::Whole, {}, Puzzle};
    Puzzle = record;
    // The steps led to a record that is gone.
    history_.Clear();
    emit changed(TChangeKind::Whole, {});
    emit historyChanged();
}

void TPuzzleSession::SetMode(uint8_t mode)
{
    PuzzleMode = mode;
    emit modeChanged(mode);
}

QStringList TPuzzleSession::RebuildHistory()
{
    QStringList stored;
    for (int k = 1; k <= HistorySize; ++k)
        stored.append(ReadText(Setting::HistoryPuzzle[k - 1]));
    const QStringList entries = HistoryEntries(ReadText(Setting::CurrentPuzzle), open_, IsSolving(), stored);
    for (int k = 1; k <= int(entries.size()) && k <= HistorySize; ++k)
        WriteSetting(Setting::HistoryPuzzle[k - 1], entries[k - 1]);
    return entries;
}

void TPuzzleSession::Edit(const QString &caption, TChangeKind kind, const std::function<void(TPuzzle &)> &change,
                          TSquareHint cursor)
{
    last_->Caption = caption;
    last_->Kind = kind;
    last_->Cursor = cursor;
    last_->Before = Puzzle;
    change(Puzzle);
    PuzzleChanged = true;
    if (!caption.isEmpty()) {
        // The keystrokes of one clue are one step; emptying a clue (Ctrl+Y) is a step of its own.
        QString mergeKey;
        if (kind == TChangeKind::Clues) {
            const TUndoPlace word = ChangedPlace(last_->Before, Puzzle);
            const Direction d = word.WordDirection == 2 ? Direction::Down : Direction::Across;
            if (!Puzzle.wordClue(word.Square.x(), word.Square.y(), d).isEmpty())
                mergeKey = QStringLiteral("%1 %2 %3,%4")
                               .arg(caption)
                               .arg(word.WordDirection)
                               .arg(word.Square.x())
                               .arg(word.Square.y());
        }
        history_.Record(last_->Before, Puzzle, caption, mergeKey);
    }
    emit changed(kind, cursor);
    emit historyChanged();
}

void TPuzzleSession::SetCell(int c, int r, uchar ch, const QString &caption)
{
    Edit(caption, TChangeKind::Grid, [&](TPuzzle &p) { p.Cells(c, r) = ch; }, {c, r});
}

void TPuzzleSession::SetEntry(int c, int r, uchar ch)
{
    Edit(QStringLiteral("Typing"), TChangeKind::Entries, [&](TPuzzle &p) { p.Entries(c, r) = ch; }, {c, r});
}

void TPuzzleSession::SetClue(int c, int r, Direction d, int slot, const QByteArray &text)
{
    Edit(QStringLiteral("Clue"), TChangeKind::Clues,
         [&](TPuzzle &p) {
             p.setSlotAt(c, r, d, uint16_t(slot));
             p.setClue(slot, text);
         },
         {c, r});
}

void TPuzzleSession::SetByline(const QByteArray &byline)
{
    Edit(QStringLiteral("Byline"), TChangeKind::Byline, [&](TPuzzle &p) { p.Byline.setText(byline); });
}

void TPuzzleSession::SetLanguageMark(int language)
{
    const TPuzzle before = Puzzle;
    MarkLanguageChoice(Puzzle, language);
    // Still a change of the record's bytes: a step, so that undo gives the record back whole.
    history_.Record(before, Puzzle, QStringLiteral("Grid Language"), QStringLiteral("Grid Language"));
    emit historyChanged();
}

void TPuzzleSession::Replace(const QString &caption, const TPuzzle &record, TChangeKind kind)
{
    Edit(caption, kind, [&](TPuzzle &p) { p = record; });
}

std::optional<TUndoPlace> TPuzzleSession::Undo()
{
    return step(true);
}

std::optional<TUndoPlace> TPuzzleSession::Redo()
{
    return step(false);
}

std::optional<TUndoPlace> TPuzzleSession::step(bool back)
{
    const TPuzzle before = Puzzle;
    const std::optional<TUndoPlace> place = back ? history_.Undo(Puzzle) : history_.Redo(Puzzle);
    if (!place)
        return std::nullopt;
    PuzzleChanged = !history_.IsAtSavedPoint();
    const TSquareHint cursor{place->Square.x(), place->Square.y()};
    *last_ = {QString(), TChangeKind::Whole, cursor, before};
    emit changed(TChangeKind::Whole, cursor);
    emit historyChanged();
    emit restored();
    return place;
}

void TPuzzleSession::clearHistory()
{
    history_.Clear();
    emit historyChanged();
}

TPuzzleSession &Session()
{
    static TPuzzleSession session;
    return session;
}

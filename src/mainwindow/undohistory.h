#pragma once
// The undo history of the one puzzle: every change to the record is kept as the bytes it
// changed, before and after, so that undo and redo give back the record byte for byte.
// A step names what it did ("Typing", "Black Square", "Flip") and where the cursor goes
// when it is undone or redone.

#include "model/puzzle.h"

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QString>

#include <deque>
#include <optional>

// The square (column, row) a step changed, and the word through it: 0 no word, 1 across,
// 2 down. A null square means the change has no one place (a transform, a byline).
struct TUndoPlace {
    QPoint Square;
    int WordDirection = 0;
    bool operator==(const TUndoPlace &) const = default;
};

// Where a change happened, for the cursor: the first square in reading order whose content
// changed (with the direction of the row or column all the changed squares share), else
// the word whose clue changed, else no place.
TUndoPlace ChangedPlace(const TPuzzle &before, const TPuzzle &after);

class TUndoHistory {
public:
    static constexpr int DefaultMaxSteps = 1000;
    static constexpr qsizetype DefaultMaxBytes = 32 * 1024 * 1024;

    explicit TUndoHistory(int maxSteps = DefaultMaxSteps, qsizetype maxBytes = DefaultMaxBytes);

    // Records the change from `before` to `after` (nothing when they are equal) and drops
    // what could have been redone. A change with the same non-empty `mergeKey` as the last
    // one joins it as one step (the keystrokes of one clue edit), unless something was
    // undone, saved or ended in between. The oldest steps go when the bounds are passed.
    void Record(const TPuzzle &before, const TPuzzle &after, const QString &caption, const QString &mergeKey = {});
    // The next change starts a step of its own, whatever its merge key.
    void EndMerge() { mergeOpen_ = false; }

    bool CanUndo() const { return position_ > 0; }
    bool CanRedo() const { return position_ < int(steps_.size()); }
    // The caption of the step undo or redo would take back or do again; empty when none.
    QString UndoCaption() const;
    QString RedoCaption() const;

    // Takes `puzzle` (which must be the record as the history left it) one step back or
    // forward; the place of the step, or nothing when there is no step.
    std::optional<TUndoPlace> Undo(TPuzzle &puzzle);
    std::optional<TUndoPlace> Redo(TPuzzle &puzzle);

    // A new puzzle: no steps, and the record as it is now is the saved one.
    void Clear();
    // The record as it is now is the one on disk.
    void MarkSaved();
    // No state the history reaches is the one on disk (a puzzle not saved yet).
    void MarkDifferentFromFile() { savedPosition_ = -1; }
    // Undo and redo have brought the record back to the one on disk. False once the steps
    // that led back there were dropped or replaced.
    bool IsAtSavedPoint() const { return savedPosition_ == position_; }

    int Count() const { return int(steps_.size()); }
    qsizetype Bytes() const { return bytes_; }

private:
    // The bytes of one change: runs of (offset, length) with their old and new contents.
    struct TRun {
        int Offset = 0;
        QByteArray Before;
        QByteArray After;
    };
    struct TStep {
        QString Caption;
        QString MergeKey;
        TUndoPlace UndoPlace;  // where the change began
        TUndoPlace RedoPlace;  // where it ended
        QList<TRun> Runs;
        qsizetype Bytes = 0;
    };

    static QList<TRun> Difference(const TPuzzle &before, const TPuzzle &after);
    static void Apply(TPuzzle &puzzle, const QList<TRun> &runs, bool forward);
    static qsizetype SizeOf(const QList<TRun> &runs);
    void DropOldest();

    int maxSteps_;
    qsizetype maxBytes_;
    std::deque<TStep> steps_;
    int position_ = 0;       // steps done; the rest can be redone
    int savedPosition_ = 0;  // -1 when the saved record can no longer be reached
    bool mergeOpen_ = false;
    qsizetype bytes_ = 0;
};

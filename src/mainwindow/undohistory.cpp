#include "mainwindow/undohistory.h"

#include <algorithm>
#include <cstring>

namespace {

const char *bytesOf(const TPuzzle &p)
{
    return reinterpret_cast<const char *>(&p);
}

char *bytesOf(TPuzzle &p)
{
    return reinterpret_cast<char *>(&p);
}

// Changed bytes closer than this share one run: fewer runs cost less than the few
// unchanged bytes carried along.
constexpr int RunGap = 8;
// What a step costs besides its bytes, so that a thousand one-letter steps are not free.
constexpr qsizetype StepOverhead = 128;

}  // namespace

TUndoHistory::TUndoHistory(int maxSteps, qsizetype maxBytes) : maxSteps_(maxSteps), maxBytes_(maxBytes) {}

QList<TUndoHistory::TRun> TUndoHistory::Difference(const TPuzzle &before, const TPuzzle &after)
{
    QList<TRun> runs;
    const char *a = bytesOf(before);
    const char *b = bytesOf(after);
    const int size = int(sizeof(TPuzzle));
    int i = 0;
    while (i < size) {
        if (a[i] == b[i]) {
            ++i;
            continue;
        }
        const int start = i;
        int end = i + 1;  // one past the last changed byte; grows while changes follow within the gap
        for (int j = end; j < size && j < end + RunGap; ++j)
            if (a[j] != b[j])
                end = j + 1;
        runs.append({start, QByteArray(a + start, end - start), QByteArray(b + start, end - start)});
        i = end;
    }
    return runs;
}

void TUndoHistory::Apply(TPuzzle &puzzle, const QList<TRun> &runs, bool forward)
{
    char *bytes = bytesOf(puzzle);
    for (const TRun &run : runs) {
        const QByteArray &data = forward ? run.After : run.Before;
        std::memcpy(bytes + run.Offset, data.constData(), size_t(data.size()));
    }
}

qsizetype TUndoHistory::SizeOf(const QList<TRun> &runs)
{
    qsizetype size = StepOverhead;
    for (const TRun &run : runs)
        size += 2 * run.Before.size() + qsizetype(sizeof(TRun));
    return size;
}

TUndoPlace ChangedPlace(const TPuzzle &before, const TPuzzle &after)
{
    QList<QPoint> squares;
    for (int r = 1; r <= MaxGrid; ++r)
        for (int c = 1; c <= MaxGrid; ++c)
            if (before.Cells(c, r) != after.Cells(c, r) || before.Entries(c, r) != after.Entries(c, r))
                squares.append({c, r});
    if (!squares.isEmpty()) {
        const auto along = [&](auto coordinate) {
            return std::all_of(squares.begin(), squares.end(),
                               [&](QPoint q) { return coordinate(q) == coordinate(squares.first()); });
        };
        const bool oneRow = along([](QPoint q) { return q.y(); });
        const bool oneColumn = along([](QPoint q) { return q.x(); });
        const int direction = squares.size() < 2 ? 0 : oneRow ? 1 : oneColumn ? 2 : 0;
        return {squares.first(), direction};
    }
    for (int slot = 1; slot <= ClueSlots; ++slot) {
        if (before.clue(slot) == after.clue(slot))
            continue;
        for (const TPuzzle *p : {&after, &before})
            for (int r = 1; r <= p->Size; ++r)
                for (int c = 1; c <= p->Size; ++c)
                    for (Direction d : {Direction::Across, Direction::Down})
                        if (p->slotAt(c, r, d) == slot)
                            return {{c, r}, d == Direction::Across ? 1 : 2};
    }
    return {};
}

void TUndoHistory::Record(const TPuzzle &before, const TPuzzle &after, const QString &caption, const QString &mergeKey)
{
    QList<TRun> runs = Difference(before, after);
    if (runs.isEmpty())
        return;
    const TUndoPlace place = ChangedPlace(before, after);
    while (int(steps_.size()) > position_) {
        bytes_ -= steps_.back().Bytes;
        steps_.pop_back();
    }
    if (savedPosition_ > position_)
        savedPosition_ = -1;

    const bool merge = mergeOpen_ && !mergeKey.isEmpty() && !steps_.empty() && steps_.back().MergeKey == mergeKey &&
                       savedPosition_ != position_;
    if (merge) {
        TStep &top = steps_.back();
        TPuzzle start = before;
        Apply(start, top.Runs, false);
        bytes_ -= top.Bytes;
        top.Runs = Difference(start, after);
        top.RedoPlace = place;
        top.Bytes = SizeOf(top.Runs);
        bytes_ += top.Bytes;
        if (top.Runs.isEmpty()) {
            // The edit came back to where it began: nothing is left to undo.
            bytes_ -= top.Bytes;
            steps_.pop_back();
            --position_;
            mergeOpen_ = false;
        }
    } else {
        TStep step{caption, mergeKey, place, place, std::move(runs), 0};
        step.Bytes = SizeOf(step.Runs);
        bytes_ += step.Bytes;
        steps_.push_back(std::move(step));
        ++position_;
        mergeOpen_ = !mergeKey.isEmpty();
    }
    while (!steps_.empty() && (int(steps_.size()) > maxSteps_ || bytes_ > maxBytes_))
        DropOldest();
}

void TUndoHistory::DropOldest()
{
    bytes_ -= steps_.front().Bytes;
    steps_.pop_front();
    --position_;
    if (savedPosition_ >= 0)
        --savedPosition_;
}

QString TUndoHistory::UndoCaption() const
{
    return CanUndo() ? steps_[size_t(position_ - 1)].Caption : QString();
}

QString TUndoHistory::RedoCaption() const
{
    return CanRedo() ? steps_[size_t(position_)].Caption : QString();
}

std::optional<TUndoPlace> TUndoHistory::Undo(TPuzzle &puzzle)
{
    if (!CanUndo())
        return std::nullopt;
    mergeOpen_ = false;
    const TStep &step = steps_[size_t(--position_)];
    Apply(puzzle, step.Runs, false);
    return step.UndoPlace;
}

std::optional<TUndoPlace> TUndoHistory::Redo(TPuzzle &puzzle)
{
    if (!CanRedo())
        return std::nullopt;
    mergeOpen_ = false;
    const TStep &step = steps_[size_t(position_++)];
    Apply(puzzle, step.Runs, true);
    return step.RedoPlace;
}

void TUndoHistory::Clear()
{
    steps_.clear();
    position_ = 0;
    savedPosition_ = 0;
    mergeOpen_ = false;
    bytes_ = 0;
}

void TUndoHistory::MarkSaved()
{
    savedPosition_ = position_;
    mergeOpen_ = false;
}

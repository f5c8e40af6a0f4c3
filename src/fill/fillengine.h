#pragma once
// Autofill: finds words for the open slots of a grid from a scored word list.
//
// The search keeps, for every slot, the set of list words that still fit and, for every
// square, the set of letters still possible there, and keeps the two consistent with each
// other (a letter stays only while some word of each slot through the square has it there;
// a word stays only while each of its letters is still possible). It branches on the slot
// with the fewest words left, weighted by how often the slot has run dry before, tries
// words by score and by how many words they leave the crossing slots, and restarts with a
// growing failure budget and randomised ties drawn from the seed. All choices depend on the
// seed alone, so one seed always gives one fill.

#include "fill/wordlist.h"
#include "model/puzzle.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

struct TFillRequest {
    TPuzzle Grid;                  // a copy: the worker never reads the shared record
    // The words in the grid's own letters with their scores; shared, never changed, so a
    // worker can read it while the window thread keeps it.
    std::shared_ptr<const TWordList> Words;
    quint64 Seed = 1;
    double TimeLimit = 0;          // seconds; 0 for none
    int MinScore = 0;
    // The squares the fill may write, indexed like the record; empty means every empty or
    // open square of the grid.
    std::vector<bool> Fillable;
    const std::atomic<bool> *Cancel = nullptr;  // polled throughout the search
    // Called now and then from the searching thread with how many of the open slots hold a
    // word; may be empty.
    std::function<void(int filled, int total)> Progress;
};

enum class TFillStatus { Filled, Impossible, TimedOut, Cancelled };

struct TFillResult {
    TFillStatus Status = TFillStatus::Cancelled;
    TPuzzle Grid;  // the filled grid when Filled, otherwise the request's grid untouched
    // When Impossible: the slots that ran out of words most often, worst first.
    QList<TWordRef> Faulty;
    double AverageScore = 0;  // of the words the fill placed
    qint64 Nodes = 0;
    qint64 Failures = 0;
    int Restarts = 0;
    double Seconds = 0;
};

TFillResult FillGrid(const TFillRequest &request);

// The seconds a fill in the program may search (the Word Lists page of the preferences).
// The lowest score it uses is the word lists' own, as the word finder offers them.
constexpr int DefaultFillTimeLimit = 60;
int FillTimeLimitSetting();
void WriteFillTimeLimitSetting(int seconds);

// The squares a region fill may write: the empty and open squares reachable from those of
// the word starting at (c, r) in direction d, passing from a square to every square of each
// word through it.
std::vector<bool> FillRegion(const TPuzzle &grid, int c, int r, Direction d);

// "12 Across"
QString SlotName(const TWordRef &word);

#pragma once
// How good a grid's fill is: every complete entry with its score in the word lists, the
// entries no list has, the weakest entries, repeats, and the average score.

#include "fill/slots.h"
#include "fill/wordlist.h"

#include <QByteArray>
#include <QList>

struct TReportEntry {
    int Number = 0;  // the printed square number
    TFillSlot Slot;
    QByteArray Word;
    int Score = -1;  // -1: in no list
};

struct TFillReport {
    QList<TReportEntry> Entries;   // complete entries in slot order
    QList<TReportEntry> NotInList;
    QList<TReportEntry> Lowest;    // the weakest listed entries, lowest first
    QList<QByteArray> Repeated;    // entries that occur more than once, each named once
    double AverageScore = 0;       // over the listed entries; 0 when there are none
};

// `lowest` is how many of the weakest listed entries to name.
TFillReport MakeFillReport(const TPuzzle &p, const TWordList &words, int lowest = 5);

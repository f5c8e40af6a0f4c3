#pragma once
// The grid's words searched two ways: every word holding a run of letters (Scan For), and
// groups of words that begin or end alike, with the repeated ones flagged (Scan All).

#include "model/puzzle.h"

#include <QByteArray>
#include <QList>

// One listed word: the text as the list shows it, and where its word starts.
struct TScanItem {
    QByteArray Text;
    int Column = 0;
    int Row = 0;
    int Direction = 1;  // 1 across, 2 down
};

struct TScanResult {
    QList<TScanItem> Items;
    bool Repeats = false;  // some word occurs twice: the warning picture is shown
};

// Every word, across before down at a square, whose letters contain `text` (none for an
// empty text or one holding a zero byte).
QList<TScanItem> ScanFor(const TPuzzle &p, const QByteArray &text);
// Both words complete (no empty square) and alike in their first or last three letters.
bool WordsAlike(const QByteArray &a, const QByteArray &b);
// Each word followed by its later look-alikes, indented by four spaces; a repeat of the
// word itself gets a trailing space.
TScanResult ScanAll(const TPuzzle &p);

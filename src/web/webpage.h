#pragma once
// The web page a puzzle is published as, and the player page that opens .xwd files in the
// browser. Both come from one template compiled into the program (:/web/), filled with the
// puzzle as JSON; the page's script does the numbering, the solving and the file decoding.

#include "model/puzzle.h"

#include <QByteArray>
#include <QString>

// The puzzle as the page's script reads it: title, byline, language, size, the pattern of
// black squares, the clues by word, and the answers scrambled so that the page source does
// not give them away.
QByteArray WebPuzzleJson(const TPuzzle &p, const QString &title);

// Why the puzzle cannot be published yet: the squares that have no letter (empty or left
// open), which a solver could fill with anything; empty when every square has its letter.
QString UnfinishedPuzzleMessage(const TPuzzle &p);

// One self-contained page (UTF-8 HTML) for solving the puzzle.
QByteArray WebPage(const TPuzzle &p, const QString &title);
// The same page without a puzzle: the solver opens a .xwd file in it.
QByteArray PlayerPage();

// The title a page takes from the puzzle's file name: "sunday-stroll.xwd" gives "sunday-stroll".
QString WebTitleFor(const QString &puzzlePath);

// Text made safe inside HTML element content and attribute values.
QString HtmlEscaped(const QString &text);

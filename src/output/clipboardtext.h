#pragma once
// The clue lists as plain text: the .TXT file beside the EPS and metafile exports, and
// the text that Clues to Clipboard puts on the clipboard. Both are the same bytes.

#include "model/puzzle.h"

#include <QByteArray>

// One clue line: the printed number right-aligned in three characters, a space, the clue.
QByteArray ClueListLine(int number, const QByteArray &clue);
// "ACROSS", the across lines in scan order, "DOWN", the down lines in scan order; every
// line ends in CR LF. A word whose slot is 0 or out of range gets an empty clue.
QByteArray ClueListText(const TPuzzle &p);

#pragma once
// The open JSON format .ipuz, crossword kind, version 2: dimensions, the puzzle grid with its
// numbers and blocks, the solution, the solver's saved grid, clues by number, and the title,
// author, copyright and notes. Text is plain UTF-8.

#include "interchange/foreignpuzzle.h"

#include <QByteArray>

// Throws TInterchangeError when the bytes are not an ipuz crossword our record can read.
TForeignPuzzle ReadIpuz(const QByteArray &bytes);
QByteArray WriteIpuz(const TForeignPuzzle &f);

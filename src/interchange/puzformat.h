#pragma once
// Across Lite's binary .puz file: a 52-byte header with its checksums, the solution and the
// solver's grid a byte a square, then NUL-terminated strings (title, author, copyright, the
// clues in number order, notes) and optional extra sections (rebus, circles, timer).

#include "interchange/foreignpuzzle.h"

#include <QByteArray>
#include <QStringList>

// Reads a .puz file. Wrong checksums are reported as a notice, not refused: the content is
// still read as it stands. Version 1.x text is read as Windows-1252, the superset of Latin-1
// that Windows programs wrote into it. Throws TInterchangeError when the bytes are not a
// .puz puzzle.
TForeignPuzzle ReadPuz(const QByteArray &bytes);
// Writes version 1.3 (Latin-1) when every text fits Latin-1 or a grid letter is beyond
// ASCII (the text then takes its plain forms, told in `warnings`), else version 2.0
// (UTF-8). Throws TInterchangeError when the grid lacks a letter anywhere or holds one
// Latin-1 lacks.
QByteArray WritePuz(const TForeignPuzzle &f, QStringList *warnings = nullptr);

// The checksum every part of the file is guarded by.
uint16_t PuzChecksum(const QByteArray &bytes, uint16_t start = 0);

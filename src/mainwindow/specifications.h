#pragma once
// The puzzle specifications shown in the main window's status text.

#include "model/puzzle.h"

#include <QString>

// Par word count by grid size; 0 for a size without one.
int WordPar(int size);
// Size x Size / 6.
int BlackPar(int size);
// The three lines " Size of Grid: ...", " Black Squares: ...", " Word Count: ...".
QStringList PuzzleSpecLines(const TPuzzle &p);
// The same lines joined by carriage return and line feed.
QString PuzzleSpecText(const TPuzzle &p);

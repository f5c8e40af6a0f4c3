#pragma once
// Turning the whole grid over: its squares move, and each clue follows the first word of
// the new grid that reads exactly like its old word; the other clues are lost.

#include "model/puzzle.h"

enum class TTransformKind { Invert = 1, Rotate = 2, Flip = 3 };

// Invert swaps rows and columns, Rotate turns a quarter clockwise, Flip turns upside down.
// The solver's letters, byline and language stay as they are.
void TransformPuzzle(TPuzzle &p, TTransformKind kind);

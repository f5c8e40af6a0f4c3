#pragma once
// A readable text form of a puzzle, for fixtures, examples and scripts:
//
//   size 13
//   byline A. Constructor
//   language 0
//   grid
//   CAT#DOG#...      '#' black, '.' empty, '?' open, anything else a letter
//   entries          (optional) the solver's letters, '.' for none
//   clues
//   1A A clue for 1 Across
//
// Clues are keyed by printed number and direction; each clued word gets the slot of its
// place in reading order, as Autoclue would give it.

#include "model/puzzle.h"

#include <stdexcept>

class TPuzzleTextError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

TPuzzle PuzzleFromText(const QString &text);
QString PuzzleToText(const TPuzzle &p);

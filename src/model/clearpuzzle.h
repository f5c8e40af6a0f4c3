#pragma once

struct TPuzzle;

// Makes the one Puzzle a fresh puzzle of side `size`, its byline and language taken from
// the settings `Name` and `GridLanguage`. Variant 'C' keeps the black squares.
void ClearPuzzle(int size, char variant);
// The same on `p`.
void ClearPuzzle(TPuzzle &p, int size, char variant);

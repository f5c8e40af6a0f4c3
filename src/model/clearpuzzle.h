#pragma once

// Makes the one Puzzle a fresh puzzle of side `size`, its byline and language taken from
// the settings `Name` and `GridLanguage`. Variant 'C' keeps the black squares.
void ClearPuzzle(int size, char variant);

#pragma once
// Puzzle-wide state kept with the main window and read by every window.

#include <QString>

#include <cstdint>

constexpr uint8_t SolveMode = 1;
constexpr uint8_t DesignMode = 2;
constexpr uint8_t ConstructMode = 4;

extern uint8_t PuzzleMode;
// Edited since the puzzle was last read or written.
extern bool PuzzleChanged;
extern QString CurrentPuzzlePath;

// The grid and clue windows refuse to close unless this is set: the main window sets it
// when it closes, the score card's delete choice for just as long as it closes them.
extern bool ClosingAllowed;

// Copy of the setting PlaySounds (0 silent; 1 and 2 or more choose the question sound),
// read at start-up and after the preferences.
extern int PlaySounds;

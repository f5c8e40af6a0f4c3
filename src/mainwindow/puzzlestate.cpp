#include "mainwindow/puzzlestate.h"

uint8_t PuzzleMode = ConstructMode;
bool PuzzleChanged = false;
QString CurrentPuzzlePath;
bool ClosingAllowed = false;
int PlaySounds = 1;

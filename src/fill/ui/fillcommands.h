#pragma once
// The word finder's commands in the main window: the Word Finder window, the grid's dead
// squares shaded, and the move to the most constrained word.

class TXwdMainForm;

void InstallFillCommands(TXwdMainForm *form);

#pragma once
// The Puzzle menu's lifecycle commands (Solve, Open, New, Save, Save As, Copy Grid As,
// Revert to Saved and the history): each is the session's call, with what the windows
// show after it.

class TXwdMainForm;

void InstallPuzzleCommands(TXwdMainForm *form);
// The history entries shown under the Puzzle menu, as the session lists them.
void RebuildHistoryMenu(TXwdMainForm *form);

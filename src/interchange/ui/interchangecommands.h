#pragma once
// The program's side of exchanging puzzles: opening .puz and .ipuz files as new, unsaved
// puzzles, and the Export commands that write them.

#include <QString>

class TXwdMainForm;

// Creates ExportPuzAct and ExportIpuzAct in the Export menu.
void InstallInterchangeCommands(TXwdMainForm *form);

// The Open dialog's further choices: "|Across Lite Puzzle|*.puz|ipuz Puzzle|*.ipuz".
QString InterchangeOpenFilter();
// Is this a .puz or .ipuz file, which the interchange opens rather than the .xwd reader?
bool IsInterchangeFile(const QString &path);
// Opens a .puz or .ipuz file as a new puzzle with no file of its own yet; a refusal is
// reported and the open puzzle stays. False when nothing was opened.
bool OpenInterchangeFile(TXwdMainForm *form, const QString &path, bool solving);
// Saves a puzzle that has no .xwd file yet by asking for a name; false when none was written.
bool SaveUntitledPuzzle(TXwdMainForm *form);

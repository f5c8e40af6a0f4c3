#pragma once
// Autofill in the program: Fill Grid, Fill Region, Fill Word and Fill Again under Grid.
// The search runs on a worker thread over a copy of the record while a small window shows
// its progress and offers Cancel; the window thread writes the fill into the puzzle as one
// change, which one Undo takes back.

class TXwdMainForm;

void InstallAutofillCommands(TXwdMainForm *form);

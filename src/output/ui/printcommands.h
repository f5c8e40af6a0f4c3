#pragma once
// The main window's print commands: "&Print..." (Ctrl+P) and the printer setup.

class TXwdMainForm;

void InstallPrintCommands(TXwdMainForm *form);
// The print command: in solving mode one puzzle page straight to the printer, otherwise
// the print options dialog with its preview.
void Print1Click(TXwdMainForm *form);

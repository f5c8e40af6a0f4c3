#pragma once
// The program's side of exchanging puzzles: the Export commands that write .puz and .ipuz
// files (the session opens them).

#include <QString>

class TXwdMainForm;

// Creates ExportPuzAct and ExportIpuzAct in the Export menu.
void InstallInterchangeCommands(TXwdMainForm *form);

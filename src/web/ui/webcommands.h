#pragma once
// The web commands of the Export menu: publish the puzzle as a page, or write the player
// page that opens any puzzle file in a browser.

class TXwdMainForm;

// Creates ExporttoWebAct and GeneratePlayerAct in the form's Export menu.
void InstallWebCommands(TXwdMainForm *form);

// What the actions run: each asks for an .html file and writes its page there.
void ExporttoWebActExecute(TXwdMainForm *form);
void GeneratePlayerActExecute(TXwdMainForm *form);

#pragma once
// The Tools menu with the dictionary button, and the Help menu with the about box.

class TXwdMainForm;

void InstallToolsCommands(TXwdMainForm *form);
void InstallHelpCommands(TXwdMainForm *form);

// Starts or brings forward tool `tool` (0 to 4, as CompanionTools() lists them); tells
// the user when it cannot be started.
void ToolsMenuItemClick(int tool);

#pragma once
// The export and clipboard commands of the main window.

class TXwdMainForm;

// Creates the export object and the actions ExportEPSAct, ExportRTFAct, ExportWMFAct,
// GridtoClipAct, SolutiontoClipAct, RTFGridtoClipAct and CluestoClipAct in the Export and
// Clipboard menus, enabled while a puzzle is open.
void InstallExportCommands(TXwdMainForm *form);

#pragma once
// The main window's commands of grid inspection and transforms: Scan Grid and Analysis
// under Grid, Invert, Rotate and Flip under Transform.

class QAction;
class TXwdMainForm;

void InstallInspectCommands(TXwdMainForm *form);

// Asks first (the sound, then the question naming the transform); on Yes turns the grid
// over, drops the grid window's current word and marks the puzzle changed.
void TransformClick(TXwdMainForm *form, QAction *action);

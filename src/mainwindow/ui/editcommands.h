#pragma once
// The Edit menu: Undo and Redo of every change to the puzzle, named after the step.

class TXwdMainForm;

void InstallEditCommands(TXwdMainForm *form);

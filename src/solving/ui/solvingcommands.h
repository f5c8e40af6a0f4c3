#pragma once
// The solver's commands on the main window: the score card (with its delete choice), the
// clock and the answer button.

class TXwdMainForm;

void InstallSolvingCommands(TXwdMainForm *form);

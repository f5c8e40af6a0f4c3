#pragma once
// A run of the program with its questions answered from the environment, for the tests that
// start the real program (the crash-recovery test kills it and starts it again). Nothing
// happens unless QUILLMARK_TEST_ANSWERS is set, which no user does.

class TProgram;

// When QUILLMARK_TEST_ANSWERS holds answers ("yes,no,cancel"), they answer the program's
// questions in order (Cancel once they run out), every message and question is written to
// standard output, file and other modal windows are cancelled, and the program closes its
// main window as soon as it has started. False when the variable is not set.
bool InstallScriptedRun();
// Closes the program once the event loop runs, after its start-up questions were answered.
void FinishScriptedRun(TProgram &program);

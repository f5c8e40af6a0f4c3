#pragma once
// At start: the puzzles that a run which did not end well left in recovery files.

class TRecoveryKeeper;
class QWidget;

// Each file left behind, newest first: a damaged one is reported and set aside; otherwise
// the user is told which puzzle it was and when it was kept, and asked whether to recover
// it. Yes opens it (and stops: one puzzle at a time, the rest come at the next start); No
// moves the file to the trash.
void OfferRecovery(QWidget *parent, TRecoveryKeeper &keeper);

#pragma once
// The solving status line: while solving, the clue of the word the solver picked, under
// "Across Clue" or "Down Clue", in the main window's status text and mode line.

class QLabel;
class QPlainTextEdit;

class TSolvingStatusLine {
public:
    TSolvingStatusLine(QLabel *modeLine, QPlainTextEdit *statusText) : mode_(modeLine), text_(statusText) {}

    // Selects the clue of `slot` in the clue list and shows it; a word without a clue slot
    // (0) still names its direction, and the status text stays as it was.
    void Show(int slot);
    // Empties the status text (and the mode line while solving) and the clue list's
    // selection.
    void Clear();

private:
    QLabel *mode_;
    QPlainTextEdit *text_;
};

#pragma once
// The word-by-word walk of the clue-writing window over the global Puzzle: which word is
// current, its printed number and its clue slot, and how a clue typed for it is stored.
// The window supplies what it shows (the clue box's text, the number caption, the grid's
// typing direction) and acts on what the walk reports, so every walk runs without a window.

#include "model/puzzle.h"

#include <QByteArray>
#include <QString>

// What the walk needs from the window and tells it.
class TAutoclueWalkListener {
public:
    virtual ~TAutoclueWalkListener() = default;

    // The grid window's typing direction: 0 none, 1 across, 2 down.
    virtual int GridWordDirection() const = 0;
    // The text now in the clue box, as puzzle bytes.
    virtual QByteArray ClueText() const = 0;
    // The caption of the number label ("12  Across").
    virtual QString NumberCaption() const = 0;

    // Refresh the display for the walk state, in direction 'a' or 'd'.
    virtual void ShowCurrentWord(char dir) = 0;
    // A walk counted a word past MaxWords; the display keeps the previous word.
    virtual void WordLimitExceeded() = 0;
    // A forward walk passed the last word: flash "NO MORE CLUES!" with its pauses and sounds.
    virtual void NoMoreClues() = 0;
    // A backward walk passed the first word (the clue-writing sound).
    virtual void FirstWordPassed() = 0;
};

// "12  Across" or "12  Down": what the number label reads for a word.
QString WalkNumberCaption(int number, char dir);
inline constexpr auto NoMoreCluesText = "NO MORE CLUES!";
inline constexpr auto WordLimitText =
    "Maximum word limit has been exceeded! Quillmark does not permit more than 179 words in a puzzle. "
    "Please reconstruct grid accordingly.";

class TAutoclueWalk {
public:
    // A target of ">" matches the next word whatever it is; an empty target the next word
    // whose clue is empty; anything else the next word with exactly these letters in the
    // grid's typing direction.
    static inline const QByteArray AnyWord = QByteArrayLiteral(">");

    explicit TAutoclueWalk(TAutoclueWalkListener &listener) : listener_(listener) {}

    // The walk before the first square, as the window starts it: across first when
    // threading, else the reading-order walk's "d" that makes the first step look across.
    void Reset();
    // The walk as a grid click restarts it: always the reading-order start.
    void ResetForGrid();
    // The word under the grid cursor when the cursor square starts a word in the typing
    // direction (1 across, 2 down), else AnyWord.
    static QByteArray ChooseTarget(int gridDirection, int cursorCol, int cursorRow);
    // The first walk after showing: threaded or in reading order as ClueAcrossThenDown says.
    void WalkTo(const QByteArray &target);

    // Reading order: at each square the across word, then the down word.
    void StepForward(const QByteArray &target);
    void StepBack();
    // All across words in reading order, then all down words.
    void ThreadForward(const QByteArray &target);
    void ThreadBack();
    void RestartWalk(bool atStart);

    // Stores the clue box's text for the current word: a change of text gives the word the
    // walk's slot and puts the text, cut to 80 bytes, into that slot. True when it stored.
    bool StoreClue(const QByteArray &text);

    // The walk's own letters for the current word.
    QByteArray CurrentWord() const;
    Direction CurrentDirection() const { return WalkDir == 'a' ? Direction::Across : Direction::Down; }

    int WalkCol = 0;
    int WalkRow = 1;
    char WalkDir = 'd';
    int WalkNumber = 0;
    int WalkSlot = 0;
    bool WalkFound = false;
    bool ClueAcrossThenDown = false;

private:
    // One square on in reading order; false when the rows are exhausted.
    bool advanceSquare();
    // One square back in reading order; false when it went before the first square.
    bool retreatSquare();
    bool matches(const QByteArray &target, Direction d) const;

    TAutoclueWalkListener &listener_;
};

#pragma once
// The editing state of the grid window and the rules by which mouse clicks and keys edit
// the one Puzzle: black squares with their symmetric partners, the cursor and the current
// word, typing with its advance along the word, arrows and Backspace. Nothing here paints:
// every change to the puzzle goes through the session, whose announcement repaints the
// window, and the window repaints after a move of the cursor or the current word.

#include "clues/gridlanguage.h"

#include <QColor>
#include <QList>
#include <QPoint>

#include <optional>

// What the solving status (the main window's current clue and the clue list's selection)
// has to do after an edit. Only ever set while solving.
struct TSolvingStatus {
    bool Cleared = false;             // clear the current clue and the clue list's selection
    std::optional<int> SelectedSlot;  // then select this slot's clue; 0 selects nothing
};

// The keys the grid handles besides typed characters.
enum class TGridKey { Left, Up, Right, Down, Delete };

class TGridEditor {
public:
    // A pixel point inside the cursor's square: the point of the last click, moved by
    // whole squares by typing and the arrows.
    QPoint CursorPos;
    int WordDirection = 0;  // 0 no current word, 1 across, 2 down
    bool Cheated = false;   // answers were shown or a letter revealed
    bool MouseSwapped = false;
    int Symmetry = 1;       // 0 off, 1 diagonal, 2 horizontal
    TCharSet GridCharSet;   // what typing accepts; empty until first loaded

    QColor BlankSqColor = Qt::white;
    QColor HiliteSqColor = Qt::yellow;

    // The grid language's character set: the puzzle's own language while solving, the
    // GridLanguage setting otherwise. An unknown language leaves the set as it was.
    void LoadGridCharSet();

    // Sets (or with `clear` empties) the square under the pixel point and its symmetric
    // partner, erasing the clues of words that started there. A point outside the grid
    // changes nothing but still marks the puzzle changed.
    void SetSquare(int x, int y, bool clear);

    // Makes the word through the clicked square current: across for the left button,
    // down for any other, the other way round while MouseSwapped.
    TSolvingStatus ClickCell(int x, int y, bool leftButton);

    // Enters one Windows-1252 character at the cursor and advances along the word:
    // Backspace steps back, Enter keeps the square, "+" reveals the letter while solving
    // (and is the open-letter mark "?" while constructing), a space empties the square.
    TSolvingStatus TypeKey(uchar ch);

    // A typed character as the grid takes it: "a" to "z" become capitals, and only members
    // of GridCharSet between 8 and 223 pass.
    std::optional<uchar> FilterTypedChar(uchar ch) const;
    // Typing: only while a word is current and the grid is not being designed.
    TSolvingStatus KeyPress(uchar ch);
    // Arrows move to the next open square (arrows always mean the same direction, whatever
    // MouseSwapped says) and make its word current; Delete empties the square.
    TSolvingStatus KeyDown(TGridKey key);

    // Shows the word from `point` (the cursor goes there) in `colour`. The restore colour
    // 0xFFFFFF means the blank colour; when the colour so used is pure white the current
    // word is dropped, which a restore therefore does only with a pure white blank colour.
    void HighlightWord(QPoint point, const QColor &colour);
    // HighlightWord at the cursor with the restore colour.
    void RestoreHighlight();

    // The colour the current word is shown in this time: a fixed colour (a clue-list pick's
    // yellow) is shown once, and every later paint uses HiliteSqColor.
    QColor TakeHighlightColor();
    void SetHighlightColor(const QColor &colour);
    // The squares shown highlighted: from the cursor to the end of its word; none without
    // a current word.
    QList<QPoint> HighlightedSquares() const;

private:
    // The square's content as Enter re-enters it.
    uchar heldChar(int c, int r) const;
    void BackOneSquare(int &c, int &r, uchar &ch);

    std::optional<QColor> fixedHighlight_;
};

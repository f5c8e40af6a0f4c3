#pragma once
// The clue list beside the grid: its items in slot order, how an item's clue breaks into
// at most three lines with a hanging indent and how high the item is, and which square a
// picked clue's word starts at. Pure functions over the puzzle and a font's metrics, so
// the window's measure and paint handlers only call them.

#include "model/puzzle.h"

#include <QByteArray>
#include <QFontMetrics>
#include <QList>
#include <QPoint>
#include <QString>

#include <functional>

// The text measures the layout needs: a font's metrics give them (MeasureOf); tests may
// use any other rule.
struct TTextMeasure {
    std::function<int(const QString &)> Width;  // the advance of a text
    int Height = 0;                             // the height of a line of text ("H")
};
TTextMeasure MeasureOf(const QFontMetrics &metrics);

// The list box's one-line item height: an item is a whole number of these lines plus 2
// pixels. A solve font taller than the line gets lines of its own height, so that no
// descender is cut.
constexpr int ClueListLineHeight = 17;

// One item per word, in reading order (the across clue before the down clue at a square
// that starts both), each the clue of the slot stored at the word's first square; a slot
// of 0 gives an empty item. Item i is therefore the clue of slot i + 1.
QList<QByteArray> ClueListItems(const TPuzzle &p);

// The height of the item for `text`: one, two or three lines of `lineHeight`, plus 2.
// The text is measured against the list's width less its vertical scroll bar.
int ClueListMeasureItem(const QString &text, const TTextMeasure &measure, int listWidth, int scrollBarWidth,
                        int lineHeight = ClueListLineHeight);

// The lines of an item as they are drawn, and where: each origin is the top-left of the
// line's text relative to the item's top-left. Empty lines are not drawn. Only an item
// measured taller than one line is broken, and only at spaces: a clue without spaces
// stays on one line, and what still does not fit in the third line is clipped.
struct TClueItemLayout {
    QString Lines[3];
    QPoint Origins[3];
};
TClueItemLayout ClueListDrawLayout(const QString &text, const TTextMeasure &measure, int listWidth,
                                   int scrollBarWidth, int itemHeight, int lineHeight = ClueListLineHeight);

// Where a clue picked in the list sends the grid: the top-left pixel of the first square
// (scanned in reading order) whose across or down slot is `slot`, and the direction that
// matched (1 across, 2 down). The scan also stops as soon as the grid still has a typing
// direction; then the point stays at the first square and `wordDirection` is kept.
struct TClueListPick {
    QPoint Point;
    int WordDirection = 0;
};
TClueListPick ClueListPickWord(const TPuzzle &p, int slot, int wordDirection, int squareSize);

#pragma once
// The special characters offered to clue writers: a 10 x 10 table of typographic and
// accented characters, and how a chosen one goes into the clue.

#include <QByteArray>
#include <QString>

inline constexpr int CharMapColumns = 10;
inline constexpr int CharMapRows = 10;
// A cell's size at 96 dots per inch.
inline constexpr int CharMapCellWidth = 16;
inline constexpr int CharMapCellHeight = 19;

// The text of the cell in column `col`, row `row` (both from 0), as puzzle bytes: code
// 161 + col + 10 * row modulo 256, or the typographic character put in its place.
QByteArray CharMapCell(int col, int row);

// A cell's size scaled from 96 dots per inch to `dpi`, to the nearest pixel.
int CharMapScaled(int pixels, qreal dpi);

// The clue after inserting `insertion` in place of the selection [start, start + length),
// followed by the selected text: a blank or a quote mark goes before what was selected.
// `caret` receives the position after the inserted text.
QString InsertBeforeSelection(const QString &text, int start, int length, const QString &insertion, int *caret);

#pragma once
// A puzzle as the exchange formats (.puz, .ipuz) describe one: a grid of any shape, text in
// Unicode and clues by printed number. Both formats read into it and write from it, so the
// mapping to and from our record, and every refusal, lives in one place.

#include "model/puzzle.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <stdexcept>

// A puzzle that cannot be read, or cannot be written in the format asked for. The text is
// the message the user is shown.
class TInterchangeError : public std::runtime_error {
public:
    explicit TInterchangeError(const QString &message) : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromStdString(what()); }
};

// Clues or a byline longer than our record holds: refused until the user agrees to cut them.
class TLongTextError : public TInterchangeError {
public:
    using TInterchangeError::TInterchangeError;
};

struct TImportOptions {
    // Cut clues to 80 characters and the author to 60 instead of refusing the puzzle.
    bool CutLongText = false;
};

// The solution of a square deliberately left open: no letter decided yet, as our grid shows it.
inline const QString OpenSquareLetter = QStringLiteral("?");

struct TForeignSquare {
    bool Block = false;
    QString Solution;  // empty when the file gives no letter, "?" when left open; several letters for a rebus
    QString Entry;     // the solver's letter, empty when none
    bool Circled = false;
};

struct TForeignPuzzle {
    int Width = 0;
    int Height = 0;
    QList<TForeignSquare> Squares;  // row by row, Width * Height
    QMap<int, QString> Across;      // clue text by printed number
    QMap<int, QString> Down;
    QString Title;
    QString Author;
    QString Copyright;
    QString Notes;
    // What the reader noticed for the user: damage, and what our record does not keep.
    QStringList Notices;

    TForeignSquare &at(int column, int row) { return Squares[(row - 1) * Width + (column - 1)]; }
    const TForeignSquare &at(int column, int row) const { return Squares[(row - 1) * Width + (column - 1)]; }
};

// A foreign puzzle made ours, with what it held that we could not keep.
struct TImportedPuzzle {
    TPuzzle Puzzle;
    QString Title;
    QStringList Warnings;
};

// One word of a foreign grid, numbered as every crossword is: reading order, one number
// per square that starts a word, across before down.
struct TForeignWord {
    int Number = 0;
    Direction Dir = Direction::Across;
    int Column = 0;
    int Row = 0;
};
QList<TForeignWord> ForeignWords(const TForeignPuzzle &f);

// Our record from a foreign puzzle; throws TInterchangeError (TLongTextError for long text)
// for anything the record cannot hold.
TImportedPuzzle ToQuillmark(const TForeignPuzzle &f, const TImportOptions &options);
// A foreign puzzle from our record: squares with no letter have an empty solution, the
// byline "--" is no author.
TForeignPuzzle FromQuillmark(const TPuzzle &p, const QString &title);

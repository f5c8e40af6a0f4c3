#pragma once
// The .xwd file: one fixed-size record with no header, told apart from the older
// version 5 by its length alone. Both are little-endian whatever the host.

#include "model/puzzle.h"

#include <QString>

#include <stdexcept>

constexpr int PuzzleFileSize = 17818;
constexpr int PuzzleFile5Size = 14156;
constexpr int Clue5Length = 60;
constexpr int Clue5Slots = 179;

// A file that cannot be opened, read or written, or does not hold a puzzle.
class TPuzzleIOError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Pure conversions between a record and its bytes.
QByteArray EncodePuzzle(const TPuzzle &p);
// At least 17818 bytes, extra bytes ignored; throws unless the size is one the program
// makes (IsPuzzleSize), so no field is ever read past the grid's 23 squares.
TPuzzle DecodePuzzle(const QByteArray &bytes);
QByteArray EncodePuzzle5(const TPuzzle &p);
// The version-5 record converted to the current one; throws when its size is not one the
// program makes or its byline field marks a language that is not a digit.
TPuzzle ConvertPuzzle5(const QByteArray &bytes);

enum class PuzzleFormat { Version5 = 5, Current = 6 };

struct TLoadedPuzzle {
    TPuzzle Puzzle;
    PuzzleFormat Format = PuzzleFormat::Current;
};

// Reads a file as the program opens one, current version first, then version 5, but
// never rewrites it.
TLoadedPuzzle LoadPuzzleFile(const QString &path);

// A current-version file's record; throws TPuzzleIOError.
TPuzzle ReadPuzzleRecord(const QString &path);
// The record as the program opens a file: the current version, else a version-5 file,
// which is rewritten in the current version at once.
TPuzzle OpenPuzzleRecord(const QString &path);

// The operations on the one Puzzle, for the session (which keeps PuzzleChanged) and the
// tools. Every failure throws TPuzzleIOError, and a failed
// read leaves Puzzle as it was.
void ReadPuzzle(const QString &path);
// Atomic: an interrupted or failed write leaves the old file whole.
void WritePuzzle(const QString &path);
void WritePuzzle5(const QString &path);
void OpenPuzzleFile(const QString &path);

// Writes a puzzle file atomically, then removes what an earlier save killed before its
// rename left beside it. Throws TPuzzleIOError.
void WritePuzzleBytes(const QString &path, const QByteArray &bytes);

// Writes bytes atomically, or throws.
void WriteFileAtomically(const QString &path, const QByteArray &bytes);

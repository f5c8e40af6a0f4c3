#pragma once
// Puzzles exchanged with other programs: which format a file name means, and reading and
// writing a whole puzzle in each. Every refusal carries the message the user is shown.

#include "interchange/foreignpuzzle.h"

#include <QByteArray>
#include <QString>

enum class TFileKind { Xwd, Puz, Ipuz, Unknown };

// By the extension, in any case.
TFileKind FileKindOf(const QString &path);
// "Across Lite (.puz)", "ipuz (.ipuz)" for messages.
QString FileKindName(TFileKind kind);

// A .puz or .ipuz puzzle from its bytes; throws TInterchangeError.
TImportedPuzzle ImportPuzzle(const QByteArray &bytes, TFileKind kind, const TImportOptions &options = {});
// Reads the file too; a file that cannot be read throws TInterchangeError as well.
TImportedPuzzle ImportPuzzleFile(const QString &path, const TImportOptions &options = {});

// The puzzle as a .puz or .ipuz file titled `title`; throws TInterchangeError when the
// format cannot hold it (an unfinished grid for .puz). What the file could not keep as it
// was is added to `warnings`.
QByteArray ExportPuzzle(const TPuzzle &p, TFileKind kind, const QString &title, QStringList *warnings = nullptr);

// The title a puzzle carries when written: its file's name without folder or extension.
QString TitleFromPath(const QString &path);

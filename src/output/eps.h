#pragma once
// The EPS export: a numbered and an answer grid as literal PostScript lines, with the
// .TXT clue list beside them, and the file-naming rules the metafile export shares.

#include "model/puzzle.h"

#include <QByteArray>
#include <QList>
#include <QString>

enum class EpsStyle { Regular = 1, Light = 2 };
enum class GridKind { NumberedGrid = 1, AnswerGrid = 2, NumberedAnswerGrid = 3 };

// One EPS file, CR LF lines of at most 255 characters. `date` is today's date as the
// system writes it short; `titlePath`'s file-name part goes on the title line.
QByteArray EpsGridText(const TPuzzle &p, GridKind kind, EpsStyle style, const QString &titlePath,
                       const QString &date);

// The path with its extension (from the last dot of the file name) replaced by `extension`,
// or `extension` appended when the name has none.
QString ChangeFileExt(const QString &path, const QString &extension);
// The chosen name less its last four characters (always the dot and three letters the
// dialog supplies), followed by `suffix`.
QString AnswerFilePath(const QString &path, const QString &suffix);

struct TExportFile {
    QString Path;
    QByteArray Bytes;
};

// The .TXT, .EPS and -A.EPS files for the chosen name, in the order they are written.
QList<TExportFile> EpsExportSet(const TPuzzle &p, const QString &chosen, EpsStyle style, const QString &date);
// Today's date in the system's short format.
QString ShortDateToday();

// Writes each file atomically, in order. On a failure it throws TPuzzleIOError with the
// reason; every file is left as it was before the call (created ones are removed).
void WriteExportSet(const QList<TExportFile> &files);

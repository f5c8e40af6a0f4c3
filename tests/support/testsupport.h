#pragma once
// Shared by the tests: no test touches the user's own settings or folders, and grids are
// written as text.

#include "model/puzzle.h"

#include <QString>
#include <QTemporaryDir>

#include <string_view>

// Points HOME, the XDG folders and the settings store at a fresh temporary folder for the
// whole test program. Call first thing in main, before the application object.
void IsolateUserFolders();

// Empties the settings store and puts the default key path back, for a test's fresh start.
void ResetSettings();

// A file's bytes, empty when it cannot be read; and a file written whole.
QByteArray ReadFileBytes(const QString &path);
bool WriteFileBytes(const QString &path, const QByteArray &bytes);

// The bytes as the word lists' string views.
inline std::string_view View(const QByteArray &bytes) { return {bytes.constData(), size_t(bytes.size())}; }

// Whether two records hold the same bytes, unused ones included.
bool SameRecord(const TPuzzle &a, const TPuzzle &b);

// A puzzle from its text form; see model/puzzletext.h.
TPuzzle PuzzleFrom(const QString &text);
// The text form's grid rows: `top`, then rows of `fill` up to `size` rows, each ending in a newline.
QString GridRows(QStringList top, int size = 11, QChar fill = u'#');
// A puzzle file written at `path` from the text form; the path.
QString WritePuzzleText(const QString &path, const QString &text);
// What an exchange of files must keep and `b` lost from `a`: the grid, the solver's letters,
// each word's clue, the byline (none and "--" alike); empty when nothing.
QString ContentDifference(const TPuzzle &a, const TPuzzle &b);
// The finished sample puzzle the program ships, and the fifteen of tests/data whose clues hold markup.
TPuzzle SamplePuzzle();
TPuzzle Fifteen();

// A folder of the test's own that is removed with the object.
class TScratchDir {
public:
    TScratchDir();
    QString path(const QString &name) const { return dir_.filePath(name); }

private:
    QTemporaryDir dir_;
};

#pragma once
// The printed page formats composed into page objects: manuscript, manuscript grid,
// numbered grid, solution grid and the puzzle page for publication.

#include "model/puzzle.h"
#include "output/pageobjects.h"

#include <QColor>
#include <QList>
#include <QString>

// In the order their pages are produced.
enum class TPageFormat { Manuscript, ManuscriptGridOnly, NumberedGrid, SolutionGrid, PuzzlePage };
constexpr int PageFormatCount = 5;

struct TPrintJob {
    QString Title;
    QColor BlockColor = Qt::black;
    // The main window's puzzle specification, trimmed (see PuzzleSpecText).
    QString SpecText;
    bool Formats[PageFormatCount] = {};
    bool PrintByline = true;

    bool has(TPageFormat f) const { return Formats[int(f)]; }
    void set(TPageFormat f, bool on) { Formats[int(f)] = on; }
    bool any() const;
};

// Black squares print black, or light grey when "Gray Squares" is chosen.
QColor BlockColorFor(bool gray);
// The puzzle page's font step for a grid side: smaller grids leave room for larger text.
int PuzzlePageSizeStep(int size);
// Straight double quotes become opening and closing marks in turn, apostrophes closing
// single marks (Windows-1252 bytes 147, 148, 146).
QByteArray ConvertQuotes(const QByteArray &clue);
// The title for a puzzle file: its name without folder and without its last four characters.
QString TitleForPuzzlePath(const QString &path);
// The format settings "PrintMSS", "PrintMSG", "PrintNGr", "PrintSGr", "PrintPPg".
QString FormatSettingKey(TPageFormat f);

// A font of `points` at the page's resolution, sized in page units.
QFont PageFont(const QString &family, int points, int style = 0);
// A page font whose text cell is `height` page units high.
QFont PageFontOfHeight(const QString &family, int height, int style = 0);

// Every page of the checked formats, each format after the first on a new page, pages
// numbered on from 1 across the whole run. Reads the print settings.
QList<TPage> ComposePages(const TPuzzle &p, const TPrintJob &job);

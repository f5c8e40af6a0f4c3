#pragma once
// The printed page formats composed into page objects: manuscript, manuscript grid,
// numbered grid, solution grid and the puzzle page for publication.

#include "model/puzzle.h"
#include "output/pageobjects.h"
#include "settings/settingkeys.h"

#include <QColor>
#include <QList>
#include <QPageSize>
#include <QString>

// In the order their pages are produced.
enum class TPageFormat { Manuscript, ManuscriptGridOnly, NumberedGrid, SolutionGrid, PuzzlePage };
constexpr int PageFormatCount = 5;

// A font of the printed pages as the print options keep it.
struct TPageFontChoice {
    QString Name;
    int Size = 0;
    int Style = 0;  // bold 1, italic 2, underline 4, strike-out 8
};

TPageFontChoice DefaultPageFont(const TFontKeys &keys);

struct TPrintJob {
    QString Title;
    QColor BlockColor = Qt::black;
    // The main window's puzzle specification, trimmed (see PuzzleSpecText).
    QString SpecText;
    bool Formats[PageFormatCount] = {};
    bool PrintByline = true;

    // The rest of what the pages are laid out with. The print window and the command line
    // fill it from the settings (ReadPrintSettings); a job not given them has the defaults.
    TPageFontChoice ManuscriptFont = DefaultPageFont(Setting::ManuscriptFont);
    TPageFontChoice PuzzlePageFont = DefaultPageFont(Setting::PuzzlePageFont);  // before the grid's step
    // The heading's address block: the name, then four lines, the last of them often empty.
    QString Address[5] = {Setting::NameOnPages.Default.toString(), Setting::Address[0].Default.toString(),
                          Setting::Address[1].Default.toString(), Setting::Address[2].Default.toString(),
                          Setting::Address[3].Default.toString()};
    bool DefsOnLeft = Setting::DefsOnLeft.Default.toInt() != 0;
    int PageBottomMargin = Setting::PageBottomMargin.Default.toInt();  // lines a manuscript page leaves free
    int PageLength = Setting::PageLength.Default.toInt();              // lines the puzzle page leaves free
    // The paper the pages are composed for, always upright (see setPaper).
    int PageWidth = LetterWidth;
    int PageHeight = LetterHeight;

    // Composes for `paper` turned upright, whichever way round it was chosen.
    void setPaper(const QPageSize &paper);

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

// A font of `points` at the page's resolution, sized in page units.
QFont PageFont(const QString &family, int points, int style = 0);
// A page font whose text cell is `height` page units high.
QFont PageFontOfHeight(const QString &family, int height, int style = 0);

// Every page of the checked formats, each format after the first on a new page, pages
// numbered on from 1 across the whole run. Everything they depend on is in the job.
QList<TPage> ComposePages(const TPuzzle &p, const TPrintJob &job);

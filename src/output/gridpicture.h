#pragma once
// The grid as a picture of 30 units a square: laid out once as rectangles and texts, then
// painted through QPainter (SVG, PNG, the screen) or recorded as a Windows metafile.

#include "model/puzzle.h"
#include "output/eps.h"

#include <QByteArray>
#include <QFont>
#include <QList>
#include <QPoint>
#include <QRect>

class QPainter;

struct TPictureItem {
    enum Kind { Box, Text } Kind = Box;
    QRect Rect;              // Box: left, top and the 31-unit extent to the shared right/bottom edge
    bool Black = false;      // Box: fill
    QPoint At;               // Text: top-left of the text cell
    int FontHeight = 12;     // Text: the font's cell height in units
    QByteArray Chars;        // Text: Windows-1252 bytes
    bool Opaque = false;     // Text: on the white brush (letters) or clear (numbers)
};

struct TGridPicture {
    int Extent = 0;  // 30 S + 2, both ways
    QList<TPictureItem> Items;
};

// The font of the picture: bold Arial whose text cell is `height` units high.
QFont GridPictureFont(int height);

// Lays out the picture of `kind`: every square outlined and filled, the numbers at
// (L + 2, T + 1), the letters centred (and moved 4 units right and down under a number).
TGridPicture DrawGridPicture(const TPuzzle &p, GridKind kind);

// Paints the picture at one pixel a unit.
void PaintGridPicture(const TGridPicture &picture, QPainter &painter);
QByteArray GridPicturePng(const TGridPicture &picture);
QByteArray GridPictureSvg(const TGridPicture &picture, const QString &description);
// A plain Windows metafile (no placeable header) with `description` in its comment.
QByteArray GridPictureWmf(const TGridPicture &picture, const QString &description);

// The .TXT, .WMF and -A.WMF files for the chosen name, in the order they are written.
QList<TExportFile> WmfExportSet(const TPuzzle &p, const QString &chosen);

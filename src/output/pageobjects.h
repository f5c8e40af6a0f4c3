#pragma once
// The composed pages: text, lines and rectangles placed in tenths of a millimetre on the
// paper of the print job (US Letter unless it names another). Composed once, then drawn
// alike on the PDF writer, the printer and the preview.

#include <QColor>
#include <QFont>
#include <QList>
#include <QString>

constexpr int LetterWidth = 2159;
constexpr int LetterHeight = 2794;
// Dots per inch at which one device pixel is one tenth of a millimetre.
constexpr int PageUnitsDpi = 254;

struct TPageObject {
    enum TKind { TextItem, LineItem, RectangleItem };
    TKind Kind = TextItem;
    // Text: (X, Y) is the top left of the text's cell; a line runs from (X, Y) to (X2, Y2);
    // a rectangle fills and outlines the box from (X, Y) to (X2, Y2).
    int X = 0;
    int Y = 0;
    int X2 = 0;
    int Y2 = 0;
    QString Text;
    QFont Font;  // sized in pixels, that is in page units
    int Baseline = 0;  // of a text, below Y
    int PenWidth = 1;
    QColor Brush = Qt::white;
};

struct TPage {
    QList<TPageObject> Objects;
    // The paper it was composed for, upright.
    int Width = LetterWidth;
    int Height = LetterHeight;

    // Every text of the page, in the order it was placed.
    QStringList texts() const;
};

#pragma once
// Composed pages written as one PDF file: US Letter, 254 dots per inch so that a device
// pixel is a page unit, with the title, creator and subject in the document information.

#include "model/puzzle.h"
#include "output/pageobjects.h"
#include "output/pagelayout.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>

// The PDF file's bytes for `pages`.
QByteArray PdfDocument(const QList<TPage> &pages, const QString &title, const QString &subject);

// TPrintToPDF: composes the job's pages and writes them atomically to `path`.
// Throws TPuzzleIOError when the file cannot be written; nothing is left behind then.
void PrintToPdf(const TPuzzle &p, const TPrintJob &job, const QString &path);

// The print dialog's PDF writer: the values it hands in, then one run over the formats.
class TPrintToPDF {
public:
    QColor BlockColor = Qt::black;
    QString PuzzleSpecText;
    QString FileName;
    QString Title;

    // Writes the formats checked in `formats` (title, colour and heading from the fields).
    void Run(const TPuzzle &p, const TPrintJob &formats) const;
};

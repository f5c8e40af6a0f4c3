#include "output/pdfoutput.h"

#include "clues/byline.h"
#include "model/puzzlefile.h"
#include "output/pagepainter.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

QString PdfSubject(const TPuzzle &p)
{
    return BylineText(p);
}

namespace {

QByteArray pdfTextString(const QString &text)
{
    QByteArray hex = "<FEFF";
    for (QChar ch : text)
        hex += QByteArray::number(ch.unicode(), 16).rightJustified(4, '0').toUpper();
    return hex + '>';
}

// QPdfWriter has no subject of its own: the entry goes into the information dictionary
// beside the creator, and the cross-reference offsets behind it move on by its length.
QByteArray withSubject(QByteArray pdf, const QString &subject)
{
    if (subject.isEmpty())
        return pdf;
    const qsizetype at = pdf.indexOf("/Creator");
    const qsizetype xref = pdf.lastIndexOf("\nxref\n");
    const qsizetype start = pdf.lastIndexOf("startxref\n");
    if (at < 0 || xref < at || start < xref)
        return pdf;
    const QByteArray entry = "/Subject " + pdfTextString(subject) + "\n";
    const qsizetype delta = entry.size();
    // Entries: "0 N\n" then N lines of "oooooooooo ggggg n \n".
    qsizetype pos = pdf.indexOf('\n', xref + 6) + 1;
    while (pos > 0 && pos + 20 <= start) {
        const char kind = pdf.at(pos + 17);
        if (kind != 'n' && kind != 'f')
            break;
        bool ok = false;
        const qint64 offset = pdf.mid(pos, 10).toLongLong(&ok);
        if (ok && kind == 'n' && offset > at)
            pdf.replace(pos, 10, QByteArray::number(offset + delta).rightJustified(10, '0'));
        pos += 20;
    }
    const qsizetype numberAt = start + 10;
    const qsizetype numberEnd = pdf.indexOf('\n', numberAt);
    const qint64 xrefOffset = pdf.mid(numberAt, numberEnd - numberAt).trimmed().toLongLong();
    pdf.replace(numberAt, numberEnd - numberAt, QByteArray::number(xrefOffset + delta));
    pdf.insert(at, entry);
    return pdf;
}

}  // namespace

QByteArray PdfDocument(const QList<TPage> &pages, const QString &title, const QString &subject)
{
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(PageUnitsDpi);
        writer.setPageSize(QPageSize(QPageSize::Letter));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Quillmark 6"));
        QPainter painter(&writer);
        for (qsizetype i = 0; i < pages.size(); ++i) {
            if (i > 0)
                writer.newPage();
            PaintPage(painter, pages[i], writer.width());
        }
        painter.end();
    }
    return withSubject(bytes, subject);
}

void PrintToPdf(const TPuzzle &p, const TPrintJob &job, const QString &path)
{
    WriteFileAtomically(path, PdfDocument(ComposePages(p, job), job.Title, PdfSubject(p)));
}

void TPrintToPDF::Run(const TPuzzle &p, const TPrintJob &formats) const
{
    TPrintJob job = formats;
    job.Title = Title;
    job.BlockColor = BlockColor;
    job.SpecText = PuzzleSpecText;
    PrintToPdf(p, job, FileName);
}

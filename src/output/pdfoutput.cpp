#include "output/pdfoutput.h"

#include "clues/byline.h"
#include "model/puzzlefile.h"
#include "output/pagepainter.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace {

QByteArray pdfTextString(const QString &text)
{
    QByteArray hex = "<FEFF";
    for (QChar ch : text)
        hex += QByteArray::number(ch.unicode(), 16).rightJustified(4, '0').toUpper();
    return hex + '>';
}

// The closing parenthesis of the literal string opening at `at`: parentheses nest, and a
// backslash escapes the next byte.
qsizetype literalEnd(const QByteArray &pdf, qsizetype at)
{
    int depth = 0;
    for (qsizetype i = at; i < pdf.size(); ++i) {
        const char ch = pdf.at(i);
        if (ch == '\\')
            ++i;
        else if (ch == '(')
            ++depth;
        else if (ch == ')' && --depth == 0)
            return i;
    }
    return -1;
}

// Replaces pdf[at, at + length) with `text` and moves every cross-reference offset behind
// it (and the one startxref names) on by the change in length.
void splice(QByteArray &pdf, qsizetype at, qsizetype length, const QByteArray &text)
{
    const qsizetype xref = pdf.lastIndexOf("\nxref\n");
    const qsizetype start = pdf.lastIndexOf("startxref\n");
    if (at < 0 || xref < at || start < xref)
        return;
    const qsizetype delta = text.size() - length;
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
    pdf.replace(at, length, text);
}

// QPdfWriter names Qt as the producer and has no subject: the information dictionary is
// given ours, and the cross-reference offsets behind it are kept right.
QByteArray withOurInformation(QByteArray pdf, const QString &producer, const QString &subject)
{
    const qsizetype key = pdf.indexOf("/Producer ");
    if (key >= 0) {
        const qsizetype value = key + 10;
        const char open = pdf.at(value);
        const qsizetype end = open == '<' ? pdf.indexOf('>', value) : open == '(' ? literalEnd(pdf, value) : -1;
        if (end > value)
            splice(pdf, value, end + 1 - value, pdfTextString(producer));
    }
    if (!subject.isEmpty())
        splice(pdf, pdf.indexOf("/Creator"), 0, "/Subject " + pdfTextString(subject) + "\n");
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
            PaintPage(painter, pages[i], QSizeF(writer.width(), writer.height()));
        }
        painter.end();
    }
    return withOurInformation(bytes, QStringLiteral("Quillmark 6"), subject);
}

void PrintToPdf(const TPuzzle &p, const TPrintJob &job, const QString &path)
{
    // The PDF is a Letter document whatever paper the printer holds.
    TPrintJob letter = job;
    letter.PageWidth = LetterWidth;
    letter.PageHeight = LetterHeight;
    WriteFileAtomically(path, PdfDocument(ComposePages(p, letter), job.Title, BylineText(p)));
}

void TPrintToPDF::Run(const TPuzzle &p, const TPrintJob &formats) const
{
    TPrintJob job = formats;
    job.Title = Title;
    job.BlockColor = BlockColor;
    job.SpecText = PuzzleSpecText;
    PrintToPdf(p, job, FileName);
}

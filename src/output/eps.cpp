#include "output/eps.h"

#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "output/clipboardtext.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace {

// Every line is assembled in a string of at most 255 characters; longer content is cut.
void addLine(QByteArray &out, const QByteArray &line)
{
    out += line.left(255);
    out += "\r\n";
}

QByteArray num(int v) { return QByteArray::number(v); }

// A grid letter outside A to Z: the font's standard encoding has no glyph (or a wrong one)
// at its byte.
bool holdsLettersBeyondAToZ(const TPuzzle &p)
{
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            const uint8_t cell = p.Cells(c, r);
            if (cell != 0 && cell != BlockChar && cell != OpenChar && (cell < 'A' || cell > 'Z'))
                return true;
        }
    return false;
}

// The lines that give `font` the Windows-1252 layout under the name `font`-1252: Latin-1
// for the upper half, with the characters Windows-1252 keeps in 128 to 159 put in place.
void addCp1252Font(QByteArray &out, const QByteArray &font)
{
    static const std::pair<int, const char *> beyondLatin1[] = {
        {128, "Euro"},         {130, "quotesinglbase"}, {131, "florin"},       {132, "quotedblbase"},
        {133, "ellipsis"},     {134, "dagger"},         {135, "daggerdbl"},    {136, "circumflex"},
        {137, "perthousand"},  {138, "Scaron"},         {139, "guilsinglleft"}, {140, "OE"},
        {142, "Zcaron"},       {145, "quoteleft"},      {146, "quoteright"},   {147, "quotedblleft"},
        {148, "quotedblright"}, {149, "bullet"},        {150, "endash"},       {151, "emdash"},
        {152, "tilde"},        {153, "trademark"},      {154, "scaron"},       {155, "guilsinglright"},
        {156, "oe"},           {158, "zcaron"},         {159, "Ydieresis"},    {39, "quotesingle"},
        {96, "grave"}};
    addLine(out, "/" + font + " findfont dup length dict begin {1 index /FID ne {def} {pop pop} ifelse} forall");
    addLine(out, "/Encoding ISOLatin1Encoding 256 array copy def");
    QByteArray line = "Encoding";
    for (const auto &[code, name] : beyondLatin1) {
        const QByteArray put = " dup " + num(code) + " /" + name + " put";
        if (line.size() + put.size() + 4 > 255) {
            addLine(out, line + " pop");
            line = "Encoding";
        }
        line += put;
    }
    addLine(out, line + " pop");
    addLine(out, "currentdict end /" + font + "-1252 exch definefont pop");
}

}  // namespace

QByteArray EpsGridText(const TPuzzle &p, GridKind kind, EpsStyle style, const QString &titlePath,
                       const QString &date)
{
    const bool light = style == EpsStyle::Light;
    const int s = p.Size;
    const int k = (s - 11) / 2;
    const int x0 = 156 - 23 * k;
    const int y0 = 545 + 23 * k;
    const int fx = x0 + 22;
    const int fy = y0 - 22;
    const int w = 23 * s + 2;

    QByteArray out;
    addLine(out, "%!PS-Adobe-3.0 EPSF-3.0");
    addLine(out, "%%Copyright: Quillmark grid; the puzzle belongs to its constructor");
    addLine(out, "%%Creator: Quillmark for Windows v6.0");
    addLine(out, "%%CreationDate: " + ToCp1252(date));
    addLine(out, "%%Title: " + ToCp1252(QFileInfo(titlePath).fileName()) + (light ? " [light]" : ""));
    addLine(out, "%%BoundingBox: " + num(fx) + ' ' + num(fy - w) + ' ' + num(fx + w) + ' ' + num(fy));
    addLine(out, "/rl {rlineto} def");
    addLine(out, "/mv {moveto} def");
    addLine(out, "/cp {closepath} def");
    addLine(out, "/sh {show} def");
    addLine(out, "/rm {rmoveto} def");
    addLine(out, "/wb {/x x 23 add def x y mv 23 0 rl 0 -23 rl -23 0 rl cp stroke} def");
    addLine(out, "/bb {wb x y mv 23 0 rl 0 -23 rl -23 0 rl cp fill} def");
    if (kind == GridKind::NumberedGrid) {
        addLine(out, light ? "/nb {wb x y mv 2 -8 rm} def" : "/nb {wb x y mv 2 -10 rm} def");
    } else {
        addLine(out, "/lb {wb x y mv 5 -17 rm} def");
        addLine(out, "/ib {wb x y mv 8 -17 rm} def");
        addLine(out, "/ww {wb x y mv 4 -17 rm} def");
    }
    addLine(out, "/nc {/x xx def /y y 23 sub def} def");
    addLine(out, "/xx " + num(x0) + " def /x " + num(x0) + " def /y " + num(y0) + " def");
    if (!light) {
        addLine(out, "2 setlinewidth");
        addLine(out, num(fx) + ' ' + num(fy) + " mv " + num(w) + " 0 rl 0 -" + num(w) + " rl -" + num(w)
                         + " 0 rl cp stroke");
    }
    addLine(out, num(x0 + 23) + ' ' + num(y0 - 23) + " mv");
    addLine(out, light ? ".5 setlinewidth" : "1 setlinewidth");
    if (kind == GridKind::NumberedGrid) {
        addLine(out, light ? "/Helvetica findfont 9 scalefont setfont"
                           : "/Helvetica-Narrow-Bold findfont 10 scalefont setfont");
    } else if (holdsLettersBeyondAToZ(p)) {
        // Outside English the letters must print as stored: the font is given the
        // puzzle's character set. An English grid keeps the plain font line.
        const QByteArray font = light ? "Helvetica" : "Helvetica-Bold";
        addCp1252Font(out, font);
        addLine(out, "/" + font + "-1252 findfont 16 scalefont setfont");
    } else {
        addLine(out, light ? "/Helvetica findfont 16 scalefont setfont"
                           : "/Helvetica-Bold findfont 16 scalefont setfont");
    }

    const TGridArray<int> numbers = SquareNumbers(p);
    for (int r = 1; r <= s; ++r) {
        QByteArray row = "nc";
        for (int c = 1; c <= s; ++c) {
            const uint8_t cell = p.Cells(c, r);
            if (cell == BlockChar) {
                row += " bb";
            } else if (kind == GridKind::NumberedGrid) {
                if (numbers(c, r) > 0)
                    row += " nb (" + num(numbers(c, r)) + ") sh";
                else
                    row += " wb";
            } else {
                const char *box = cell == 'I' ? " ib (" : cell == 'W' ? " ww (" : " lb (";
                row += box;
                row += char(cell);
                row += ") sh";
            }
        }
        addLine(out, row);
    }
    addLine(out, "showpage");
    addLine(out, "%%EndDocument");
    return out;
}

QString ChangeFileExt(const QString &path, const QString &extension)
{
    const qsizetype slash = qMax(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    const qsizetype dot = path.lastIndexOf(u'.');
    return (dot > slash ? path.left(dot) : path) + extension;
}

QString AnswerFilePath(const QString &path, const QString &suffix)
{
    return path.left(qMax<qsizetype>(0, path.size() - 4)) + suffix;
}

QList<TExportFile> EpsExportSet(const TPuzzle &p, const QString &chosen, EpsStyle style, const QString &date)
{
    return {
        {ChangeFileExt(chosen, QStringLiteral(".TXT")), ClueListText(p)},
        {ChangeFileExt(chosen, QStringLiteral(".EPS")), EpsGridText(p, GridKind::NumberedGrid, style, chosen, date)},
        {AnswerFilePath(chosen, QStringLiteral("-A.EPS")), EpsGridText(p, GridKind::AnswerGrid, style, chosen, date)},
    };
}

QString ShortDateToday()
{
    return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
}

void WriteExportSet(const QList<TExportFile> &files)
{
    QStringList created;
    try {
        for (const TExportFile &f : files) {
            const bool existed = QFileInfo::exists(f.Path);
            WriteFileAtomically(f.Path, f.Bytes);
            if (!existed)
                created.append(f.Path);
        }
    } catch (const TPuzzleIOError &) {
        for (const QString &path : std::as_const(created))
            QFile::remove(path);
        throw;
    }
}

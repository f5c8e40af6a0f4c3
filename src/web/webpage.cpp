#include "web/webpage.h"

#include "model/cp1252.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString resourceText(const QString &name)
{
    QFile file(QStringLiteral(":/web/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the web template %s is missing from the program", qPrintable(name));
    return QString::fromUtf8(file.readAll());
}

// The answers travel scrambled: each square's character code (0 for a square with no
// letter) XOR a mask that depends on its place, two bytes each, in base 64. The page's
// script undoes it with the same mask; it keeps the answers out of sight, not secret.
uint16_t scrambleMask(int index, int size)
{
    return uint16_t((index * 97 + size * 31 + 0x2D5B) & 0xFFFF);
}

QString scrambledSolution(const TPuzzle &p)
{
    QByteArray bytes;
    int index = 0;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c, ++index) {
            const uint8_t cell = p.Cells(c, r);
            const bool letter = cell != 0 && cell != BlockChar && cell != OpenChar;
            const uint16_t code = (letter ? Cp1252ToUnicode(cell).unicode() : 0) ^ scrambleMask(index, p.Size);
            bytes.append(char(code >> 8));
            bytes.append(char(code & 0xFF));
        }
    return QString::fromLatin1(bytes.toBase64());
}

QJsonArray patternRows(const TPuzzle &p)
{
    QJsonArray rows;
    for (int r = 1; r <= p.Size; ++r) {
        QString row;
        for (int c = 1; c <= p.Size; ++c)
            row += p.isBlock(c, r) ? u'#' : u'.';
        rows.append(row);
    }
    return rows;
}

QJsonArray clueList(const TPuzzle &p)
{
    QJsonArray clues;
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QString text = FromCp1252(p.wordClue(w.Column, w.Row, w.Dir));
        clues.append(QJsonObject{
            {"direction", w.Dir == Direction::Across ? "across" : "down"},
            {"column", w.Column},
            {"row", w.Row},
            {"text", text},
        });
    }
    return clues;
}

// JSON inside a <script> element: "</script>", "<!--" and the like must not appear in it,
// so the characters that could start them are written as JSON escapes. Compact JSON has
// them only inside strings, where the escapes read back as the same text. U+2028 and
// U+2029 are escaped too, for older script parsers that end lines at them.
QString scriptSafeJson(const QByteArray &json)
{
    QString text = QString::fromUtf8(json);
    QString out;
    out.reserve(text.size() + 64);
    for (const QChar ch : std::as_const(text)) {
        switch (ch.unicode()) {
        case u'<': out += QStringLiteral("\\u003c"); break;
        case u'>': out += QStringLiteral("\\u003e"); break;
        case u'&': out += QStringLiteral("\\u0026"); break;
        case 0x2028: out += QStringLiteral("\\u2028"); break;
        case 0x2029: out += QStringLiteral("\\u2029"); break;
        default: out += ch;
        }
    }
    return out;
}

// Fills the "{{NAME}}" markers of the template in one pass, so that nothing filled in is
// ever read as a marker itself.
QByteArray fillTemplate(const QHash<QString, QString> &values)
{
    const QString page = resourceText(QStringLiteral("player.html"));
    QString out;
    qsizetype at = 0;
    while (true) {
        const qsizetype open = page.indexOf(QStringLiteral("{{"), at);
        const qsizetype close = open < 0 ? -1 : page.indexOf(QStringLiteral("}}"), open);
        if (close < 0) {
            out += page.mid(at);
            break;
        }
        const QString name = page.mid(open + 2, close - open - 2);
        out += page.mid(at, open - at);
        out += values.contains(name) ? values.value(name) : page.mid(open, close + 2 - open);
        at = close + 2;
    }
    return out.toUtf8();
}

QByteArray page(const QString &title, const QString &byline, const QString &puzzleJson)
{
    return fillTemplate({
        {QStringLiteral("TITLE"), HtmlEscaped(title)},
        {QStringLiteral("BYLINE"), HtmlEscaped(byline)},
        {QStringLiteral("STYLE"), resourceText(QStringLiteral("player.css"))},
        {QStringLiteral("SCRIPT"), resourceText(QStringLiteral("player.js"))},
        {QStringLiteral("PUZZLE"), puzzleJson},
    });
}

QString bylineText(const TPuzzle &p)
{
    const QString byline = FromCp1252(p.Byline.text());
    return byline == u"--" ? QString() : byline;
}

}  // namespace

QString HtmlEscaped(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar ch : text) {
        switch (ch.unicode()) {
        case u'&': out += QStringLiteral("&amp;"); break;
        case u'<': out += QStringLiteral("&lt;"); break;
        case u'>': out += QStringLiteral("&gt;"); break;
        case u'"': out += QStringLiteral("&quot;"); break;
        case u'\'': out += QStringLiteral("&#39;"); break;
        default: out += ch;
        }
    }
    return out;
}

QString UnfinishedPuzzleMessage(const TPuzzle &p)
{
    QStringList squares;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c)
            if (const uint8_t cell = p.Cells(c, r); cell == 0 || cell == OpenChar)
                squares.append(QStringLiteral("row %1, column %2").arg(r).arg(c));
    if (squares.isEmpty())
        return {};
    constexpr int Named = 6;
    QString where = squares.mid(0, Named).join(QStringLiteral("; "));
    if (squares.size() > Named)
        where += QStringLiteral("; and %1 more").arg(squares.size() - Named);
    return QStringLiteral("The puzzle is not finished: %1 %2 no letter (%3). A web page checks the solver's letters "
                          "against the answers, so every square needs its letter first.")
        .arg(squares.size())
        .arg(squares.size() == 1 ? QStringLiteral("square has") : QStringLiteral("squares have"))
        .arg(where);
}

QByteArray WebPuzzleJson(const TPuzzle &p, const QString &title)
{
    const QJsonObject puzzle{
        {"title", title},
        {"byline", bylineText(p)},
        {"language", p.Language},
        {"size", p.Size},
        {"pattern", patternRows(p)},
        {"solution", scrambledSolution(p)},
        {"clues", clueList(p)},
    };
    return QJsonDocument(puzzle).toJson(QJsonDocument::Compact);
}

QByteArray WebPage(const TPuzzle &p, const QString &title)
{
    return page(title, bylineText(p), scriptSafeJson(WebPuzzleJson(p, title)));
}

QByteArray PlayerPage()
{
    return page(QStringLiteral("Quillmark Player"), QString(), QStringLiteral("null"));
}

QString WebTitleFor(const QString &puzzlePath)
{
    return QFileInfo(puzzlePath).completeBaseName();
}

#include "model/puzzletext.h"

#include "clues/gridlanguage.h"
#include "model/cp1252.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

[[noreturn]] void fail(int line, const QString &why)
{
    throw TPuzzleTextError(QStringLiteral("line %1: %2").arg(line).arg(why).toStdString());
}

uint8_t cellFromChar(QChar ch, int line)
{
    if (ch == u'#')
        return BlockChar;
    if (ch == u'.')
        return 0;
    if (ch == u'?')
        return OpenChar;
    const int code = UnicodeToCp1252(ch);
    if (code <= 32 || code == BlockChar)
        fail(line, QStringLiteral("'%1' cannot stand in a square").arg(ch));
    return uint8_t(code);
}

// A number of the heading, refused unless it is a whole number within [low, high].
int numberFromText(const QString &value, int low, int high, int line, const QString &what)
{
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok || number < low || number > high)
        fail(line, QStringLiteral("the %1 must be from %2 to %3").arg(what).arg(low).arg(high));
    return number;
}

// Text as the record keeps it: every character must have a Windows-1252 code and the
// whole must fit its field; nothing is replaced or cut.
QByteArray recordText(const QString &value, int maxLength, int line, const QString &what)
{
    for (const QChar ch : value)
        if (UnicodeToCp1252(ch) < 0)
            fail(line, QStringLiteral("'%1' in the %2 is a character a puzzle cannot keep").arg(ch, what));
    if (value.size() > maxLength)
        fail(line, QStringLiteral("the %1 holds at most %2 characters").arg(what).arg(maxLength));
    return ToCp1252(value);
}

QChar charFromCell(uint8_t cell)
{
    switch (cell) {
    case BlockChar: return u'#';
    case 0: return u'.';
    case OpenChar: return u'?';
    default: return Cp1252ToUnicode(cell);
    }
}

}  // namespace

TPuzzle PuzzleFromText(const QString &text)
{
    TPuzzle p;
    p.ClearPuzzle(0, 'N', {}, 0);
    const QStringList lines = text.split(u'\n');
    enum class Section { Header, Grid, Entries, Clues } section = Section::Header;
    int row = 0;
    struct Clue {
        QString Key;  // number and direction, "12A"
        QString Text;
        int Line;
    };
    QList<Clue> clues;
    static const QRegularExpression clueLine(QStringLiteral("^(\\d+)([AaDd])(?:\\s+(.*))?$"));

    for (int i = 0; i < lines.size(); ++i) {
        const int lineNo = i + 1;
        const QString line = lines[i].trimmed();
        if (line.isEmpty() || line.startsWith(u';'))
            continue;
        if (line == u"grid" || line == u"entries") {
            if (p.Size < 1 || p.Size > MaxGrid)
                fail(lineNo, QStringLiteral("the size must come first, from 1 to 23"));
            section = line == u"grid" ? Section::Grid : Section::Entries;
            row = 0;
            continue;
        }
        if (line == u"clues") {
            section = Section::Clues;
            continue;
        }
        switch (section) {
        case Section::Header: {
            const QString key = line.section(u' ', 0, 0);
            const QString value = line.section(u' ', 1).trimmed();
            if (key == u"size")
                p.Size = int16_t(numberFromText(value, 1, MaxGrid, lineNo, QStringLiteral("size")));
            else if (key == u"byline")
                p.Byline.setText(recordText(value, MaxBylineLength, lineNo, QStringLiteral("byline")));
            else if (key == u"language")
                p.Language = uint8_t(numberFromText(value, 0, GridLanguageCount - 1, lineNo, QStringLiteral("language")));
            else
                fail(lineNo, QStringLiteral("unknown heading '%1'").arg(key));
            break;
        }
        case Section::Grid:
        case Section::Entries: {
            if (++row > p.Size || line.size() != p.Size)
                fail(lineNo, QStringLiteral("the grid must be %1 rows of %1 squares").arg(p.Size));
            for (int c = 1; c <= p.Size; ++c) {
                const uint8_t cell = cellFromChar(line[c - 1], lineNo);
                if (section == Section::Grid)
                    p.Cells(c, row) = cell;
                else
                    p.Entries(c, row) = cell == BlockChar ? 0 : cell;
            }
            break;
        }
        case Section::Clues: {
            const auto m = clueLine.match(line);
            if (!m.hasMatch())
                fail(lineNo, QStringLiteral("a clue reads like '1A text'"));
            clues.append({m.captured(1) + m.captured(2).toUpper(), m.captured(3), lineNo});
            break;
        }
        }
    }
    if (p.Size < 1)
        fail(int(lines.size()), QStringLiteral("no grid"));
    // A black square holds no solver's letter, whichever of grid and entries came first.
    for (int c = 1; c <= p.Size; ++c)
        for (int r = 1; r <= p.Size; ++r)
            if (p.isBlock(c, r))
                p.Entries(c, r) = 0;

    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QString key = QString::number(w.Number) + (w.Dir == Direction::Across ? u'A' : u'D');
        for (qsizetype k = 0; k < clues.size(); ++k) {
            if (clues[k].Key != key)
                continue;
            if (w.Index > MaxWords)
                fail(clues[k].Line, QStringLiteral("more than %1 words").arg(MaxWords));
            p.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
            p.setClue(w.Index, recordText(clues[k].Text, MaxClueLength, clues[k].Line, QStringLiteral("clue")));
            clues.removeAt(k);
            break;
        }
    }
    if (!clues.isEmpty())
        fail(clues.first().Line, QStringLiteral("no word %1 for its clue").arg(clues.first().Key));
    return p;
}

QString PuzzleToText(const TPuzzle &p)
{
    QString out;
    out += QStringLiteral("size %1\nbyline %2\nlanguage %3\ngrid\n")
               .arg(p.Size)
               .arg(FromCp1252(p.Byline.text()))
               .arg(p.Language);
    auto layer = [&](const TGridArray<uint8_t> &cells) {
        for (int r = 1; r <= p.Size; ++r) {
            for (int c = 1; c <= p.Size; ++c)
                out += charFromCell(p.isBlock(c, r) ? BlockChar : cells(c, r));
            out += u'\n';
        }
    };
    layer(p.Cells);
    bool anyEntry = false;
    for (int c = 1; c <= p.Size; ++c)
        for (int r = 1; r <= p.Size; ++r)
            anyEntry = anyEntry || p.Entries(c, r) != 0;
    if (anyEntry) {
        out += QStringLiteral("entries\n");
        layer(p.Entries);
    }
    out += QStringLiteral("clues\n");
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const int slot = p.slotAt(w.Column, w.Row, w.Dir);
        if (slot >= 1 && slot <= ClueSlots)
            out += QStringLiteral("%1%2 %3\n")
                       .arg(w.Number)
                       .arg(QChar(w.Dir == Direction::Across ? u'A' : u'D'))
                       .arg(FromCp1252(p.clue(slot)));
    }
    return out;
}

#include "interchange/puzformat.h"

#include "model/cp1252.h"

#include <QMap>

#include <functional>
#include <optional>

namespace {

constexpr int HeaderSize = 0x34;
constexpr int MagicOffset = 0x02;
constexpr int CibChecksumOffset = 0x0E;
constexpr int MaskedOffset = 0x10;
constexpr int VersionOffset = 0x18;
constexpr int CibOffset = 0x2C;  // width, height, clue count, bitmask, scrambled tag
constexpr int CibSize = 8;
constexpr int ScrambledOffset = 0x32;
const QByteArray Magic("ACROSS&DOWN\0", 12);
const QByteArray MaskWord("ICHEATED");

uint16_t u16(const QByteArray &b, int at)
{
    return uint16_t(uint8_t(b[at]) | (uint8_t(b[at + 1]) << 8));
}

void setU16(QByteArray &b, int at, uint16_t v)
{
    b[at] = char(v & 0xFF);
    b[at + 1] = char(v >> 8);
}

// The file's parts as bytes, which is what the checksums cover.
struct TPuzParts {
    QByteArray Header;
    QByteArray Solution;
    QByteArray Fill;
    QByteArray Title, Author, Copyright, Notes;
    QList<QByteArray> Clues;
    bool NotesCounted = true;  // versions before 1.3 leave the notes out of the checksums
};

uint16_t stringsChecksum(const TPuzParts &p, uint16_t c)
{
    for (const QByteArray *s : {&p.Title, &p.Author, &p.Copyright})
        if (!s->isEmpty())
            c = PuzChecksum(*s + '\0', c);
    for (const QByteArray &clue : p.Clues)
        c = PuzChecksum(clue, c);
    if (p.NotesCounted && !p.Notes.isEmpty())
        c = PuzChecksum(p.Notes + '\0', c);
    return c;
}

struct TChecksums {
    uint16_t Overall = 0;
    uint16_t Cib = 0;
    QByteArray Masked;  // 8 bytes: the low bytes, then the high bytes
};

TChecksums checksums(const TPuzParts &p)
{
    TChecksums sums;
    sums.Cib = PuzChecksum(p.Header.mid(CibOffset, CibSize));
    sums.Overall = stringsChecksum(p, PuzChecksum(p.Fill, PuzChecksum(p.Solution, sums.Cib)));
    const uint16_t parts[4] = {sums.Cib, PuzChecksum(p.Solution), PuzChecksum(p.Fill), stringsChecksum(p, 0)};
    sums.Masked = QByteArray(8, '\0');
    for (int i = 0; i < 4; ++i) {
        sums.Masked[i] = char(MaskWord[i] ^ (parts[i] & 0xFF));
        sums.Masked[4 + i] = char(MaskWord[4 + i] ^ (parts[i] >> 8));
    }
    return sums;
}

QString fileDamaged()
{
    return QStringLiteral("The file's checksums do not match its contents, so it may be damaged. It was opened as it "
                          "stands: check the puzzle before you rely on it.");
}

class TCursor {
public:
    explicit TCursor(const QByteArray &bytes, int at) : bytes_(bytes), at_(at) {}
    // The bytes up to the next NUL, which is passed over.
    std::optional<QByteArray> string()
    {
        const qsizetype end = bytes_.indexOf('\0', at_);
        if (end < 0)
            return std::nullopt;
        const QByteArray s = bytes_.mid(at_, end - at_);
        at_ = int(end) + 1;
        return s;
    }
    std::optional<QByteArray> take(int n)
    {
        if (at_ + n > bytes_.size())
            return std::nullopt;
        const QByteArray s = bytes_.mid(at_, n);
        at_ += n;
        return s;
    }
    bool atEnd() const { return at_ >= bytes_.size(); }

private:
    const QByteArray &bytes_;
    int at_;
};

QString cutShort()
{
    return QStringLiteral("The Across Lite file is cut short: part of the puzzle is missing.");
}

// The rebus table: " 1:ABC; 2:DEF;" gives each key its letters.
QMap<int, QString> rebusTable(const QString &text)
{
    QMap<int, QString> table;
    for (const QString &entry : text.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype colon = entry.indexOf(u':');
        if (colon > 0)
            table.insert(entry.left(colon).trimmed().toInt(), entry.mid(colon + 1));
    }
    return table;
}

// The extra sections after the strings: each a 4-letter name, a length, a checksum, the
// data and a NUL. Only what changes the puzzle is taken; the rest becomes a notice.
void readSections(TCursor &in, TForeignPuzzle &f, const std::function<QString(const QByteArray &)> &decode)
{
    QByteArray rebusGrid;
    QMap<int, QString> table;
    bool damaged = false;
    while (!in.atEnd()) {
        const auto head = in.take(8);
        const auto data = head ? in.take(u16(*head, 4)) : std::nullopt;
        const auto nul = data ? in.take(1) : std::nullopt;
        if (!nul) {
            f.Notices.append(QStringLiteral("An extra section at the end of the file is cut short and was skipped."));
            break;
        }
        damaged = damaged || PuzChecksum(*data) != u16(*head, 6);
        const QByteArray name = head->left(4);
        const int squares = f.Width * f.Height;
        if (name == "GRBS" && data->size() == squares) {
            rebusGrid = *data;
        } else if (name == "RTBL") {
            table = rebusTable(decode(*data));
        } else if (name == "GEXT" && data->size() == squares) {
            for (int i = 0; i < squares; ++i)
                f.Squares[i].Circled = (uint8_t((*data)[i]) & 0x80) != 0;
        } else if (name == "LTIM") {
            const int seconds = data->split(',').value(0).toInt();
            if (seconds > 0)
                f.Notices.append(QStringLiteral("The solving time so far (%1:%2) is not kept.")
                                     .arg(seconds / 60)
                                     .arg(seconds % 60, 2, 10, QChar(u'0')));
        } else if (name != "RUSR") {
            // The solver's own rebus entries matter only with rebus squares, which are refused.
            f.Notices.append(QStringLiteral("A section of the file (%1) is not kept.").arg(QString::fromLatin1(name)));
        }
    }
    for (int i = 0; i < rebusGrid.size(); ++i)
        if (const int key = uint8_t(rebusGrid[i]); key != 0)
            f.Squares[i].Solution = table.value(key - 1, QStringLiteral("(rebus)"));
    if (damaged && !f.Notices.contains(fileDamaged()))
        f.Notices.prepend(fileDamaged());
}

}  // namespace

uint16_t PuzChecksum(const QByteArray &bytes, uint16_t start)
{
    uint16_t c = start;
    for (const char b : bytes) {
        c = (c & 1) ? uint16_t((c >> 1) | 0x8000) : uint16_t(c >> 1);
        c = uint16_t(c + uint8_t(b));
    }
    return c;
}

TForeignPuzzle ReadPuz(const QByteArray &bytes)
{
    if (bytes.size() < HeaderSize)
        throw TInterchangeError(bytes.mid(MagicOffset, Magic.size()) == Magic
                                    ? cutShort()
                                    : QStringLiteral("The file is too short to be an Across Lite puzzle (.puz)."));
    if (bytes.mid(MagicOffset, Magic.size()) != Magic)
        throw TInterchangeError(QStringLiteral("The file is not an Across Lite puzzle (.puz): it lacks the "
                                               "ACROSS&DOWN mark."));
    TPuzParts parts;
    parts.Header = bytes.left(HeaderSize);
    TForeignPuzzle f;
    f.Width = uint8_t(bytes[CibOffset]);
    f.Height = uint8_t(bytes[CibOffset + 1]);
    const int clueCount = u16(bytes, CibOffset + 2);
    if (f.Width == 0 || f.Height == 0)
        throw TInterchangeError(QStringLiteral("The Across Lite file has a grid of no squares."));
    if (u16(bytes, ScrambledOffset) != 0)
        throw TInterchangeError(QStringLiteral("The puzzle's answers are locked (scrambled). Unlock it in the program "
                                               "that made it, then open it again."));

    const QByteArray version = bytes.mid(VersionOffset, 4).split('\0').front();
    const bool utf8 = version.startsWith("2.");
    const auto decode = [utf8](const QByteArray &s) { return utf8 ? QString::fromUtf8(s) : FromCp1252(s); };
    const int major = version.split('.').value(0).toInt();
    const int minor = version.split('.').value(1).toInt();
    parts.NotesCounted = major > 1 || (major == 1 && minor >= 3);

    TCursor in(bytes, HeaderSize);
    const int squares = f.Width * f.Height;
    const auto solution = in.take(squares);
    const auto fill = solution ? in.take(squares) : std::nullopt;
    if (!fill)
        throw TInterchangeError(cutShort());
    parts.Solution = *solution;
    parts.Fill = *fill;
    for (QByteArray *s : {&parts.Title, &parts.Author, &parts.Copyright}) {
        const auto text = in.string();
        if (!text)
            throw TInterchangeError(cutShort());
        *s = *text;
    }
    for (int i = 0; i < clueCount; ++i) {
        const auto clue = in.string();
        if (!clue)
            throw TInterchangeError(cutShort());
        parts.Clues.append(*clue);
    }
    // Some writers leave out the notes altogether; that loses nothing.
    parts.Notes = in.string().value_or(QByteArray());

    for (int i = 0; i < squares; ++i) {
        TForeignSquare square;
        const char s = parts.Solution[i];
        const char e = parts.Fill[i];
        square.Block = s == '.' || s == ':';
        if (!square.Block) {
            square.Solution = Cp1252ToUnicode(uint8_t(s));
            if (e != '-' && e != '.' && e != ':' && e != '\0')
                square.Entry = Cp1252ToUnicode(uint8_t(e));
        }
        f.Squares.append(square);
    }
    f.Title = decode(parts.Title);
    f.Author = decode(parts.Author);
    f.Copyright = decode(parts.Copyright);
    f.Notes = decode(parts.Notes);

    const TChecksums sums = checksums(parts);
    if (sums.Overall != u16(bytes, 0) || sums.Cib != u16(bytes, CibChecksumOffset) ||
        sums.Masked != bytes.mid(MaskedOffset, 8))
        f.Notices.append(fileDamaged());
    readSections(in, f, decode);

    const QList<TForeignWord> words = ForeignWords(f);
    if (words.size() != clueCount)
        throw TInterchangeError(QStringLiteral("The Across Lite file has %1 clues for a grid of %2 words.")
                                    .arg(clueCount)
                                    .arg(words.size()));
    for (int i = 0; i < clueCount; ++i)
        (words[i].Dir == Direction::Across ? f.Across : f.Down).insert(words[i].Number, decode(parts.Clues[i]));
    return f;
}

QByteArray WritePuz(const TForeignPuzzle &f)
{
    int missing = 0;
    for (const TForeignSquare &square : f.Squares)
        if (!square.Block && (square.Solution.isEmpty() || square.Solution == OpenSquareLetter))
            ++missing;
    if (missing > 0)
        throw TInterchangeError(
            QStringLiteral("The grid is not finished: %1 %2 no letter yet. An Across Lite file (.puz) needs the answer "
                           "in every square. Fill the grid, or export an .ipuz file, which can hold an unfinished grid.")
                .arg(missing)
                .arg(missing == 1 ? QStringLiteral("square has") : QStringLiteral("squares have")));

    const QList<TForeignWord> words = ForeignWords(f);
    QStringList texts = {f.Title, f.Author, f.Copyright, f.Notes};
    for (const TForeignWord &w : words)
        texts.append((w.Dir == Direction::Across ? f.Across : f.Down).value(w.Number));
    bool latin1 = true;
    for (const QString &text : std::as_const(texts)) {
        if (text.contains(QChar(0)))
            throw TInterchangeError(QStringLiteral("A clue or title holds a NUL character, which an Across Lite file "
                                                   "cannot hold."));
        for (const QChar ch : text)
            latin1 = latin1 && ch.unicode() <= 0xFF && !(ch.unicode() >= 0x80 && ch.unicode() < 0xA0);
    }
    const auto encode = [latin1](const QString &s) { return latin1 ? s.toLatin1() : s.toUtf8(); };

    TPuzParts parts;
    for (const TForeignSquare &square : f.Squares) {
        const auto byteOf = [](const QString &letter) {
            const char16_t u = letter.front().unicode();
            if (letter.size() != 1 || u > 0xFF || (u >= 0x80 && u < 0xA0) || u <= ' ' || u == '.' || u == '-')
                throw TInterchangeError(QStringLiteral("The letter %1 cannot be written to an Across Lite file (.puz), "
                                                       "whose grid holds Latin-1 letters only.")
                                            .arg(letter));
            return char(u);
        };
        parts.Solution.append(square.Block ? '.' : byteOf(square.Solution));
        parts.Fill.append(square.Block ? '.' : square.Entry.isEmpty() ? '-' : byteOf(square.Entry));
    }
    parts.Title = encode(f.Title);
    parts.Author = encode(f.Author);
    parts.Copyright = encode(f.Copyright);
    parts.Notes = encode(f.Notes);
    for (int i = 4; i < texts.size(); ++i)
        parts.Clues.append(encode(texts[i]));

    parts.Header = QByteArray(HeaderSize, '\0');
    parts.Header.replace(MagicOffset, Magic.size(), Magic);
    parts.Header.replace(VersionOffset, 4, latin1 ? QByteArray("1.3\0", 4) : QByteArray("2.0\0", 4));
    parts.Header[CibOffset] = char(f.Width);
    parts.Header[CibOffset + 1] = char(f.Height);
    setU16(parts.Header, CibOffset + 2, uint16_t(words.size()));
    setU16(parts.Header, CibOffset + 4, 0x0001);
    const TChecksums sums = checksums(parts);
    setU16(parts.Header, 0, sums.Overall);
    setU16(parts.Header, CibChecksumOffset, sums.Cib);
    parts.Header.replace(MaskedOffset, 8, sums.Masked);

    QByteArray out = parts.Header + parts.Solution + parts.Fill;
    for (const QByteArray *s : {&parts.Title, &parts.Author, &parts.Copyright})
        out += *s + '\0';
    for (const QByteArray &clue : std::as_const(parts.Clues))
        out += clue + '\0';
    out += parts.Notes + '\0';
    return out;
}

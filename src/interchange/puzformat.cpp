#include "interchange/puzformat.h"

#include "model/cp1252.h"

#include <QHash>
#include <QMap>

#include <algorithm>

#include <array>
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
constexpr int ScrambledChecksumOffset = 0x1E;  // of the answers before they were locked
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

// Locking (Across Lite's "scramble") works on the answer letters read column by column,
// black squares left out: four rounds, one a digit of the key, each shifting every letter
// on by the key's digits in turn, rotating the letters left by the round's digit, and
// interleaving the second half with the first. Undone here in reverse.
QByteArray unscrambled(QByteArray s, const std::array<int, 4> &key)
{
    const int n = int(s.size());
    QByteArray t(n, '\0');
    for (int round = 3; round >= 0; --round) {
        // interleaved: t = s[1::2] + s[::2]
        int k = 0;
        for (int i = 1; i < n; i += 2)
            t[k++] = s[i];
        for (int i = 0; i < n; i += 2)
            t[k++] = s[i];
        // rotated right by the digit
        const int d = key[round] % n;
        for (int i = 0; i < n; ++i)
            s[(i + d) % n] = t[i];
        for (int i = 0; i < n; ++i)
            s[i] = char('A' + (s[i] - 'A' - key[i % 4] + 26 * 10) % 26);
    }
    return s;
}

struct TUnlocked {
    QList<int> Keys;     // every key whose answers match the stored check, lowest first
    QByteArray Answers;  // the solution grid unlocked with the first of them
};

// Tries the 10,000 four-digit keys against the checksum of the unlocked letters.
TUnlocked unlockAnswers(const QByteArray &solution, int width, int height, uint16_t check)
{
    QByteArray letters;
    QList<int> at;  // where each letter stands in the solution grid
    for (int c = 0; c < width; ++c)
        for (int r = 0; r < height; ++r) {
            const int i = r * width + c;
            const char s = solution[i];
            if (s == '.' || s == ':')
                continue;
            if (s < 'A' || s > 'Z')
                return {};  // only the letters A to Z are ever locked
            letters.append(s);
            at.append(i);
        }
    TUnlocked result;
    if (letters.size() < 12)
        return result;
    for (int key = 0; key < 10000; ++key) {
        const QByteArray letters2 = unscrambled(letters, {key / 1000, key / 100 % 10, key / 10 % 10, key % 10});
        if (PuzChecksum(letters2) != check)
            continue;
        if (result.Keys.isEmpty()) {
            result.Answers = solution;
            for (int k = 0; k < at.size(); ++k)
                result.Answers[at[k]] = letters2[k];
        }
        result.Keys.append(key);
    }
    return result;
}

// Latin-1 as an Across Lite file holds it: the C1 controls are no letters.
bool isLatin1(QChar ch)
{
    return ch.unicode() <= 0xFF && !(ch.unicode() >= 0x80 && ch.unicode() < 0xA0);
}

// The text with what Latin-1 lacks in its plain form: curly quotes straight, dashes "-",
// "…" as "...", anything else "?".
QString plainLatin1(const QString &text)
{
    static const QHash<char16_t, QString> plain = {
        {u'\u2018', "'"}, {u'\u2019', "'"}, {u'\u201A', "'"}, {u'\u201C', "\""}, {u'\u201D', "\""},
        {u'\u201E', "\""}, {u'\u2013', "-"}, {u'\u2014', "-"}, {u'\u2026', "..."}, {u'\u2022', "*"},
        {u'\u20AC', "EUR"}, {u'\u2122', "(TM)"}, {u'\u0152', "OE"}, {u'\u0153', "oe"}, {u'\u0160', "S"},
        {u'\u0161', "s"}, {u'\u0178', "Y"}, {u'\u017D', "Z"}, {u'\u017E', "z"}, {u'\u0192', "f"},
        {u'\u2039', "<"}, {u'\u203A', ">"}, {u'\u02C6', "^"}, {u'\u02DC', "~"}, {u'\u2020', "+"},
        {u'\u2021', "+"}, {u'\u2030', "%"},
    };
    QString out;
    out.reserve(text.size());
    for (const QChar ch : text) {
        if (isLatin1(ch))
            out += ch;
        else
            out += plain.value(ch.unicode(), QStringLiteral("?"));
    }
    return out;
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

TForeignPuzzle ReadPuz(const QByteArray &file)
{
    // Some publishers put a preamble before the header, which begins two bytes before its mark.
    const qsizetype mark = file.indexOf(Magic);
    if (mark < MagicOffset)
        throw TInterchangeError(file.size() < HeaderSize
                                    ? QStringLiteral("The file is too short to be an Across Lite puzzle (.puz).")
                                    : QStringLiteral("The file is not an Across Lite puzzle (.puz): it lacks the "
                                                     "ACROSS&DOWN mark."));
    const QByteArray bytes = file.mid(mark - MagicOffset);
    if (bytes.size() < HeaderSize)
        throw TInterchangeError(cutShort());
    TPuzParts parts;
    parts.Header = bytes.left(HeaderSize);
    TForeignPuzzle f;
    f.Width = uint8_t(bytes[CibOffset]);
    f.Height = uint8_t(bytes[CibOffset + 1]);
    const int clueCount = u16(bytes, CibOffset + 2);
    if (f.Width == 0 || f.Height == 0)
        throw TInterchangeError(QStringLiteral("The Across Lite file has a grid of no squares."));
    const bool locked = u16(bytes, ScrambledOffset) != 0;

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

    QByteArray answers = parts.Solution;
    if (locked) {
        const TUnlocked unlocked = unlockAnswers(parts.Solution, f.Width, f.Height, u16(bytes, ScrambledChecksumOffset));
        if (unlocked.Keys.isEmpty())
            throw TInterchangeError(QStringLiteral("The puzzle's answers are locked (scrambled), and no four-digit key "
                                                   "unlocks them. Unlock it in the program that made it, then open it "
                                                   "again."));
        answers = unlocked.Answers;
        f.Notices.append(unlocked.Keys.size() == 1
                             ? QStringLiteral("The puzzle's answers were locked; they were unlocked with the key %1.")
                                   .arg(unlocked.Keys.front(), 4, 10, QChar(u'0'))
                             : QStringLiteral("The puzzle's answers were locked; %1 keys fit its check, and the first, "
                                              "%2, unlocked them. Check the answers before you rely on them.")
                                   .arg(unlocked.Keys.size())
                                   .arg(unlocked.Keys.front(), 4, 10, QChar(u'0')));
    }
    for (int i = 0; i < squares; ++i) {
        TForeignSquare square;
        const char s = answers[i];
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

QByteArray WritePuz(const TForeignPuzzle &f, QStringList *warnings)
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
    for (const QString &text : std::as_const(texts))
        if (text.contains(QChar(0)))
            throw TInterchangeError(QStringLiteral("A clue or title holds a NUL character, which an Across Lite file "
                                                   "cannot hold."));
    bool latin1 = true;
    for (const QString &text : std::as_const(texts))
        latin1 = latin1 && std::all_of(text.begin(), text.end(), isLatin1);
    // Version 2.0 makes the text UTF-8 but leaves the grid a byte a square, so readers take
    // a grid letter beyond ASCII there for broken UTF-8. Such a grid keeps version 1.3, and
    // the text what Latin-1 holds.
    const bool asciiGrid = std::all_of(f.Squares.begin(), f.Squares.end(), [](const TForeignSquare &square) {
        return std::all_of(square.Solution.begin(), square.Solution.end(), [](QChar ch) { return ch.unicode() < 0x80; }) &&
               std::all_of(square.Entry.begin(), square.Entry.end(), [](QChar ch) { return ch.unicode() < 0x80; });
    });
    if (!latin1 && !asciiGrid) {
        QStringList changed;
        for (int i = 0; i < texts.size(); ++i) {
            const QString plain = plainLatin1(texts[i]);
            if (plain == texts[i])
                continue;
            texts[i] = plain;
            static const QStringList names = {QStringLiteral("the title"), QStringLiteral("the author"),
                                              QStringLiteral("the copyright line"), QStringLiteral("the notes")};
            changed.append(i < 4 ? names[i]
                                 : QStringLiteral("%1 %2").arg(words[i - 4].Number).arg(words[i - 4].Dir == Direction::Across
                                                                                            ? QStringLiteral("Across")
                                                                                            : QStringLiteral("Down")));
        }
        latin1 = true;
        if (warnings)
            warnings->append(QStringLiteral("The grid has letters beyond A to Z, which an Across Lite file holds only "
                                            "in its Latin-1 version, so curly quotes, dashes and other characters "
                                            "Latin-1 lacks were written in their plain forms in %1.")
                                 .arg(changed.join(QStringLiteral(", "))));
    }
    const auto encode = [latin1](const QString &s) { return latin1 ? s.toLatin1() : s.toUtf8(); };

    TPuzParts parts;
    for (const TForeignSquare &square : f.Squares) {
        const auto byteOf = [](const QString &letter) {
            const char16_t u = letter.front().unicode();
            if (letter.size() != 1 || !isLatin1(letter.front()) || u <= ' ' || u == '.' || u == '-')
                throw TInterchangeError(QStringLiteral("The letter %1 cannot be written to an Across Lite file (.puz), "
                                                       "whose grid holds Latin-1 letters only.")
                                            .arg(letter));
            return char(u);
        };
        parts.Solution.append(square.Block ? '.' : byteOf(square.Solution));
        parts.Fill.append(square.Block ? '.' : square.Entry.isEmpty() ? '-' : byteOf(square.Entry));
    }
    parts.Title = encode(texts[0]);
    parts.Author = encode(texts[1]);
    parts.Copyright = encode(texts[2]);
    parts.Notes = encode(texts[3]);
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

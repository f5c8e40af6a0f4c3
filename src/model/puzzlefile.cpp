#include "model/puzzlefile.h"


#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

constexpr int CellsOffset = 2;
constexpr int EntriesOffset = CellsOffset + MaxGrid * MaxGrid;
constexpr int CellWordsOffset = EntriesOffset + MaxGrid * MaxGrid;
constexpr int CluesOffset = CellWordsOffset + MaxGrid * MaxGrid * 4;
constexpr int BylineOffset = CluesOffset + ClueSlots * (MaxClueLength + 1);
constexpr int LanguageOffset = BylineOffset + MaxBylineLength + 1;
constexpr int Byline5Offset = CluesOffset + Clue5Slots * (Clue5Length + 1);
static_assert(LanguageOffset + 1 == PuzzleFileSize);
static_assert(Byline5Offset + MaxBylineLength + 1 == PuzzleFile5Size);

class Writer {
public:
    explicit Writer(int size) : bytes_(size, '\0') {}
    void u8(int at, uint8_t v) { bytes_[at] = char(v); }
    void u16(int at, uint16_t v)
    {
        bytes_[at] = char(v & 0xFF);
        bytes_[at + 1] = char(v >> 8);
    }
    void raw(int at, const char *data, int n) { std::copy(data, data + n, bytes_.begin() + at); }
    QByteArray take() { return std::move(bytes_); }

private:
    QByteArray bytes_;
};

class Reader {
public:
    explicit Reader(const QByteArray &bytes) : bytes_(bytes) {}
    uint8_t u8(int at) const { return uint8_t(bytes_[at]); }
    uint16_t u16(int at) const { return uint16_t(u8(at) | (u8(at + 1) << 8)); }
    void raw(int at, char *out, int n) const { std::copy_n(bytes_.constData() + at, n, out); }

private:
    const QByteArray &bytes_;
};

// Size, cells, entries and slot numbers: the part both versions share.
void encodeGrid(const TPuzzle &p, Writer &w)
{
    w.u16(0, uint16_t(p.Size));
    for (int i = 0; i < MaxGrid * MaxGrid; ++i) {
        w.u8(CellsOffset + i, p.Cells.Data[i]);
        w.u8(EntriesOffset + i, p.Entries.Data[i]);
        w.u16(CellWordsOffset + 4 * i, p.CellWords.Data[i].AcrossSlot);
        w.u16(CellWordsOffset + 4 * i + 2, p.CellWords.Data[i].DownSlot);
    }
}

void decodeGrid(const Reader &in, TPuzzle &p)
{
    p.Size = int16_t(in.u16(0));
    for (int i = 0; i < MaxGrid * MaxGrid; ++i) {
        p.Cells.Data[i] = in.u8(CellsOffset + i);
        p.Entries.Data[i] = in.u8(EntriesOffset + i);
        p.CellWords.Data[i].AcrossSlot = in.u16(CellWordsOffset + 4 * i);
        p.CellWords.Data[i].DownSlot = in.u16(CellWordsOffset + 4 * i + 2);
    }
}

template <int N>
void encodeString(Writer &w, int at, const TShortString<N> &s)
{
    w.u8(at, s.Length);
    w.raw(at + 1, s.Chars, N);
}

template <int N>
void decodeString(const Reader &in, int at, TShortString<N> &s)
{
    s.Length = in.u8(at);
    in.raw(at + 1, s.Chars, N);
}

// A length-prefixed field of `width` characters holding the first `width` of `text`.
void encodeShortText(Writer &w, int at, int width, const QByteArray &text)
{
    const int n = std::min<int>(width, int(text.size()));
    w.u8(at, uint8_t(n));
    w.raw(at + 1, text.constData(), n);
}

QByteArray decodeShortText(const Reader &in, int at, int width)
{
    const int n = std::min<int>(width, in.u8(at));
    QByteArray text(n, '\0');
    in.raw(at + 1, text.data(), n);
    return text;
}

// The file's first bytes, up to one current record; what is shorter is the whole file.
QByteArray readHead(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TPuzzleIOError(QStringLiteral("Cannot open %1: %2").arg(path, file.errorString()).toStdString());
    return file.read(PuzzleFileSize);
}

// Only a file of exactly the old length is an old puzzle: one between the two lengths is
// a current file cut short, and converting it would overwrite what is left of it.
QByteArray readVersion5(const QString &path)
{
    const QByteArray bytes = readHead(path);
    if (bytes.size() != PuzzleFile5Size)
        throw TPuzzleIOError(QStringLiteral("%1 is not a puzzle of either length").arg(path).toStdString());
    return bytes;
}

int16_t checkedSize(const Reader &in)
{
    const int16_t size = int16_t(in.u16(0));
    if (!IsPuzzleSize(size))
        throw TPuzzleIOError(QStringLiteral("A grid of %1 squares is not a puzzle").arg(size).toStdString());
    return size;
}

}  // namespace

QByteArray EncodePuzzle(const TPuzzle &p)
{
    Writer w(PuzzleFileSize);
    encodeGrid(p, w);
    for (int k = 0; k < ClueSlots; ++k)
        encodeString(w, CluesOffset + k * (MaxClueLength + 1), p.Clues[k]);
    encodeString(w, BylineOffset, p.Byline);
    w.u8(LanguageOffset, p.Language);
    return w.take();
}

TPuzzle DecodePuzzle(const QByteArray &bytes)
{
    if (bytes.size() < PuzzleFileSize)
        throw TPuzzleIOError("The file is too short to be a puzzle");
    const Reader in(bytes);
    checkedSize(in);
    TPuzzle p;
    decodeGrid(in, p);
    for (int k = 0; k < ClueSlots; ++k)
        decodeString(in, CluesOffset + k * (MaxClueLength + 1), p.Clues[k]);
    decodeString(in, BylineOffset, p.Byline);
    p.Language = in.u8(LanguageOffset);
    return p;
}

QByteArray EncodePuzzle5(const TPuzzle &p)
{
    Writer w(PuzzleFile5Size);
    encodeGrid(p, w);
    for (int k = 0; k < Clue5Slots; ++k)
        encodeShortText(w, CluesOffset + k * (Clue5Length + 1), Clue5Length, p.Clues[k].text());
    // The older version keeps the language after a "|" in the byline; a long byline
    // crowds it out, and that loss is part of the format.
    encodeShortText(w, Byline5Offset, MaxBylineLength, p.Byline.text() + '|' + QByteArray::number(p.Language));
    return w.take();
}

TPuzzle ConvertPuzzle5(const QByteArray &bytes)
{
    if (bytes.size() < PuzzleFile5Size)
        throw TPuzzleIOError("The file is too short to be a puzzle");
    const Reader in(bytes);
    TPuzzle p;
    p.ClearPuzzle(checkedSize(in), 'N', {}, 0);
    decodeGrid(in, p);
    for (int k = 0; k < Clue5Slots; ++k)
        p.Clues[k].setText(decodeShortText(in, CluesOffset + k * (Clue5Length + 1), Clue5Length));

    const QByteArray field = decodeShortText(in, Byline5Offset, MaxBylineLength);
    const qsizetype bar = field.indexOf('|');
    if (bar < 0) {
        p.Byline.setText(field);
        p.Language = 0;
    } else {
        const char last = field.back();
        if (last < '0' || last > '9')
            throw TPuzzleIOError("The byline of the version-5 puzzle carries no language digit");
        p.Byline.setText(field.left(bar));
        p.Language = uint8_t(last - '0');
    }
    return p;
}

TLoadedPuzzle LoadPuzzleFile(const QString &path)
{
    try {
        return {DecodePuzzle(readHead(path)), PuzzleFormat::Current};
    } catch (const TPuzzleIOError &) {
        return {ConvertPuzzle5(readVersion5(path)), PuzzleFormat::Version5};
    }
}

void WriteFileAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // A read-only folder cannot take the temporary file; a writable file in it is then
    // written in place rather than not at all.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw TPuzzleIOError(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()).toStdString());
}

TPuzzle ReadPuzzleRecord(const QString &path)
{
    return DecodePuzzle(readHead(path));
}

TPuzzle OpenPuzzleRecord(const QString &path)
{
    try {
        return ReadPuzzleRecord(path);
    } catch (const TPuzzleIOError &) {
        const TPuzzle converted = ConvertPuzzle5(readVersion5(path));
        WritePuzzleBytes(path, EncodePuzzle(converted));
        return converted;
    }
}

namespace {

// A save killed between writing its temporary file and renaming it leaves NAME.XXXXXX
// beside the puzzle (six letters or digits); the next save of the puzzle removes them.
void removeSaveLeftovers(const QString &path)
{
    const QFileInfo target(path);
    const QRegularExpression leftover(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(target.fileName()) + QStringLiteral("\\.[A-Za-z0-9]{6}")));
    // A temporary file never grows past the record it was writing; anything larger (or a
    // folder) is the user's own, whatever its name.
    const QFileInfoList candidates = target.absoluteDir().entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &file : candidates)
        if (leftover.match(file.fileName()).hasMatch() && !file.isSymLink() && file.size() <= PuzzleFileSize)
            QFile::remove(file.absoluteFilePath());
}

}  // namespace

void WritePuzzleBytes(const QString &path, const QByteArray &bytes)
{
    WriteFileAtomically(path, bytes);
    removeSaveLeftovers(path);
}

void ReadPuzzle(const QString &path)
{
    Puzzle = ReadPuzzleRecord(path);
}

void WritePuzzle(const QString &path)
{
    WritePuzzleBytes(path, EncodePuzzle(Puzzle));
}

void WritePuzzle5(const QString &path)
{
    WritePuzzleBytes(path, EncodePuzzle5(Puzzle));
}

void OpenPuzzleFile(const QString &path)
{
    Puzzle = OpenPuzzleRecord(path);
}

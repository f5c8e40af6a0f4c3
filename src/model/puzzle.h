#pragma once
// The one puzzle record: its fields are, byte for byte, the current .xwd file,
// so order and widths are fixed and the struct is packed.

#include <QByteArray>
#include <QList>
#include <QtGlobal>

#include <cstdint>

constexpr int MaxGrid = 23;
constexpr int MaxWords = 179;
constexpr int ClueSlots = 180;
constexpr int MaxClueLength = 80;
constexpr int MaxBylineLength = 60;
constexpr uint8_t BlockChar = 219;
constexpr uint8_t OpenChar = 32;  // a white square whose letter is left open, shown "?"

// The sides the program makes puzzles with: odd, 11 to 23. A record with any other size
// is not one of ours, whatever its length.
constexpr bool IsPuzzleSize(int size)
{
    return size >= 11 && size <= MaxGrid && size % 2 == 1;
}

enum class Direction : char { Across = 'a', Down = 'd' };

#pragma pack(push, 1)

// A length-prefixed string of at most N bytes. The bytes past the length are kept as
// they were read so that a record round-trips exactly.
template <int N>
struct TShortString {
    uint8_t Length = 0;
    char Chars[N] = {};

    QByteArray text() const { return QByteArray(Chars, Length > N ? N : Length); }
    void setText(const QByteArray &value)
    {
        const int n = value.size() > N ? N : int(value.size());
        Length = uint8_t(n);
        for (int i = 0; i < N; ++i)
            Chars[i] = i < n ? value[i] : '\0';
    }
    bool isEmpty() const { return Length == 0; }
};

struct TCellWords {
    uint16_t AcrossSlot = 0;
    uint16_t DownSlot = 0;
};

// A 23 x 23 array addressed 1-based by (column, row), column-major with stride MaxGrid.
template <typename T>
struct TGridArray {
    T Data[MaxGrid * MaxGrid] = {};

    static bool inRange(int c, int r) { return c >= 1 && c <= MaxGrid && r >= 1 && r <= MaxGrid; }
    T &operator()(int c, int r)
    {
        Q_ASSERT_X(inRange(c, r), "TGridArray", "a square outside the 23 x 23 array");
        return Data[(c - 1) * MaxGrid + (r - 1)];
    }
    // Reads outside the array (the start tests look one square past the edge) give T{}.
    T operator()(int c, int r) const { return inRange(c, r) ? Data[(c - 1) * MaxGrid + (r - 1)] : T{}; }
};

struct TPuzzle {
    int16_t Size = 0;
    TGridArray<uint8_t> Cells;
    TGridArray<uint8_t> Entries;
    TGridArray<TCellWords> CellWords;
    TShortString<MaxClueLength> Clues[ClueSlots];  // slot k is Clues[k - 1]
    TShortString<MaxBylineLength> Byline;
    uint8_t Language = 0;

    bool inGrid(int c, int r) const { return c >= 1 && r >= 1 && c <= Size && r <= Size; }
    bool isBlock(int c, int r) const { return Cells(c, r) == BlockChar; }

    bool IsAcrossStart(int c, int r) const;
    bool IsDownStart(int c, int r) const;
    bool IsWordStart(int c, int r, Direction d) const
    {
        return d == Direction::Across ? IsAcrossStart(c, r) : IsDownStart(c, r);
    }
    // The word from (c, r) to the next black square or the edge; "?" for an open square,
    // a zero byte for an empty one; at most 80 characters. 'a' is across, anything else down.
    QByteArray GetWord(int c, int r, char direction) const;
    bool IsGridFull() const;
    // Variant 'C' keeps the black squares; the byline and language are the caller's.
    void ClearPuzzle(int size, char variant, const QByteArray &byline, uint8_t language);

    QByteArray clue(int slot) const { return Clues[slot - 1].text(); }
    void setClue(int slot, const QByteArray &text) { Clues[slot - 1].setText(text); }
    // The clue in `slot`; a slot outside the record, or 0 (not attached yet), reads as empty.
    QByteArray slotClue(int slot) const { return slot >= 1 && slot <= ClueSlots ? clue(slot) : QByteArray(); }
    // The clue of the word that starts at (c, r) in direction d.
    QByteArray wordClue(int c, int r, Direction d) const { return slotClue(slotAt(c, r, d)); }
    uint16_t slotAt(int c, int r, Direction d) const
    {
        const TCellWords w = CellWords(c, r);
        return d == Direction::Across ? w.AcrossSlot : w.DownSlot;
    }
    void setSlotAt(int c, int r, Direction d, uint16_t slot)
    {
        if (d == Direction::Across)
            CellWords(c, r).AcrossSlot = slot;
        else
            CellWords(c, r).DownSlot = slot;
    }
};

#pragma pack(pop)

static_assert(sizeof(TPuzzle) == 17818, "the puzzle record is the 17818-byte file record");
static_assert(sizeof(TCellWords) == 4);

// One word of the grid, in slot order.
struct TWordRef {
    int Number = 0;  // printed square number
    Direction Dir = Direction::Across;
    int Column = 0;
    int Row = 0;
    int Index = 0;  // 1-based position in reading order: the slot it gets when slots are assigned afresh
};

// Printed numbers: rows top to bottom, columns left to right, one number per square
// that starts any word. Indexed like the record, 0 for an unnumbered square.
TGridArray<int> SquareNumbers(const TPuzzle &p);
// Every word in slot order: reading order, the across word before the down word at a square.
QList<TWordRef> WordsInSlotOrder(const TPuzzle &p);
int WordCount(const TPuzzle &p);
int BlackSquareCount(const TPuzzle &p);

// The process-wide puzzle that every window reads and edits in place.
extern TPuzzle Puzzle;

#pragma once
// A writer of plain Windows metafiles: the header and the handful of records a grid
// picture needs. Objects are numbered as the player numbers them, lowest free slot first.

#include <QByteArray>
#include <QList>

#include <cstdint>

class TWmfWriter {
public:
    enum : uint16_t {
        META_SETBKCOLOR = 0x0201,
        META_SETBKMODE = 0x0102,
        META_SETMAPMODE = 0x0103,
        META_SETTEXTCOLOR = 0x0209,
        META_SETTEXTALIGN = 0x012E,
        META_SETWINDOWORG = 0x020B,
        META_SETWINDOWEXT = 0x020C,
        META_SETVIEWPORTORG = 0x020D,
        META_SETVIEWPORTEXT = 0x020E,
        META_ESCAPE = 0x0626,
        META_SELECTOBJECT = 0x012D,
        META_DELETEOBJECT = 0x01F0,
        META_CREATEPENINDIRECT = 0x02FA,
        META_CREATEFONTINDIRECT = 0x02FB,
        META_CREATEBRUSHINDIRECT = 0x02FC,
        META_RECTANGLE = 0x041B,
        META_TEXTOUT = 0x0521,
    };
    static constexpr int MM_ANISOTROPIC = 8;
    static constexpr int TRANSPARENT = 1;
    static constexpr int OPAQUE = 2;

    // A record: its function and its 16-bit parameters as they are stored.
    void Record(uint16_t function, const QList<uint16_t> &params);
    // Creation records return the object's index.
    int CreatePen(int style, int width, uint32_t colorRef);
    int CreateBrush(int style, uint32_t colorRef);
    // `height` is the cell height, internal leading included.
    int CreateFont(int height, int weight, const QByteArray &face);
    void Select(int object) { Record(META_SELECTOBJECT, {uint16_t(object)}); }
    void Delete(int object);
    void Rectangle(int left, int top, int right, int bottom);
    void TextOut(int x, int y, const QByteArray &chars);
    // A comment record (escape MFCOMMENT) holding `bytes`.
    void Comment(const QByteArray &bytes);

    // The whole file: header, records, end-of-file record.
    QByteArray Bytes() const;

private:
    int allocate();
    QList<QByteArray> records_;
    QList<bool> slots_;
    uint32_t maxRecordWords_ = 3;
};

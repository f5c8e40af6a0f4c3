#include "output/wmf.h"

namespace {

void put16(QByteArray &out, uint16_t v)
{
    out += char(v & 0xFF);
    out += char(v >> 8);
}

void put32(QByteArray &out, uint32_t v)
{
    put16(out, uint16_t(v & 0xFFFF));
    put16(out, uint16_t(v >> 16));
}

QList<uint16_t> words(const QByteArray &bytes)
{
    QByteArray padded = bytes;
    if (padded.size() % 2)
        padded += '\0';
    QList<uint16_t> out;
    for (qsizetype i = 0; i < padded.size(); i += 2)
        out.append(uint16_t(uint8_t(padded[i]) | (uint8_t(padded[i + 1]) << 8)));
    return out;
}

}  // namespace

void TWmfWriter::Record(uint16_t function, const QList<uint16_t> &params)
{
    QByteArray r;
    const uint32_t size = 3 + uint32_t(params.size());
    put32(r, size);
    put16(r, function);
    for (uint16_t p : params)
        put16(r, p);
    maxRecordWords_ = qMax(maxRecordWords_, size);
    records_.append(r);
}

int TWmfWriter::allocate()
{
    for (int i = 0; i < slots_.size(); ++i)
        if (!slots_[i]) {
            slots_[i] = true;
            return i;
        }
    slots_.append(true);
    return int(slots_.size() - 1);
}

int TWmfWriter::CreatePen(int style, int width, uint32_t colorRef)
{
    Record(META_CREATEPENINDIRECT,
           {uint16_t(style), uint16_t(width), 0, uint16_t(colorRef & 0xFFFF), uint16_t(colorRef >> 16)});
    return allocate();
}

int TWmfWriter::CreateBrush(int style, uint32_t colorRef)
{
    Record(META_CREATEBRUSHINDIRECT, {uint16_t(style), uint16_t(colorRef & 0xFFFF), uint16_t(colorRef >> 16), 0});
    return allocate();
}

int TWmfWriter::CreateFont(int height, int weight, const QByteArray &face)
{
    // LOGFONT: height (positive: cell height), width, escapement, orientation, weight,
    // italic/underline, strike-out/charset, out/clip precision, quality/pitch, 32-byte face.
    QList<uint16_t> params = {uint16_t(int16_t(height)), 0, 0, 0, uint16_t(weight), 0, 0, 0, 0};
    params += words(face.left(31).leftJustified(32, '\0'));
    Record(META_CREATEFONTINDIRECT, params);
    return allocate();
}

void TWmfWriter::Delete(int object)
{
    Record(META_DELETEOBJECT, {uint16_t(object)});
    slots_[object] = false;
}

void TWmfWriter::Rectangle(int left, int top, int right, int bottom)
{
    Record(META_RECTANGLE, {uint16_t(bottom), uint16_t(right), uint16_t(top), uint16_t(left)});
}

void TWmfWriter::TextOut(int x, int y, const QByteArray &chars)
{
    QList<uint16_t> params = {uint16_t(chars.size())};
    params += words(chars);
    params += {uint16_t(y), uint16_t(x)};
    Record(META_TEXTOUT, params);
}

void TWmfWriter::Comment(const QByteArray &bytes)
{
    constexpr uint16_t MFCOMMENT = 15;
    QList<uint16_t> params = {MFCOMMENT, uint16_t(bytes.size())};
    params += words(bytes);
    Record(META_ESCAPE, params);
}

QByteArray TWmfWriter::Bytes() const
{
    QByteArray body;
    for (const QByteArray &r : records_)
        body += r;
    put32(body, 3);  // end of file
    put16(body, 0);

    QByteArray out;
    put16(out, 1);       // in memory
    put16(out, 9);       // header size in words
    put16(out, 0x0300);  // version
    put32(out, uint32_t((18 + body.size()) / 2));
    put16(out, uint16_t(slots_.size()));
    put32(out, maxRecordWords_);
    put16(out, 0);
    return out + body;
}

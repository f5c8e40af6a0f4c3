#include "output/gridpicture.h"

#include "model/cp1252.h"
#include "output/clipboardtext.h"
#include "output/wmf.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

namespace {

constexpr int Square = 30;

TPictureItem text(int x, int y, int fontHeight, const QByteArray &chars, bool opaque)
{
    TPictureItem item;
    item.Kind = TPictureItem::Text;
    item.At = QPoint(x, y);
    item.FontHeight = fontHeight;
    item.Chars = chars;
    item.Opaque = opaque;
    return item;
}

// Centred in the square, halves rounded toward zero, as the letters are placed.
QPoint centred(int left, int top, const QFont &font, const QByteArray &chars)
{
    const QFontMetrics fm(font);
    const QString s = FromCp1252(chars);
    return {left + (Square - fm.horizontalAdvance(s)) / 2, top + (Square - fm.height()) / 2};
}

}  // namespace

QFont GridPictureFont(int height)
{
    // The height is the metafile font's cell height (ascent and descent), so the glyphs
    // themselves are somewhat smaller.
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(height);
    const int cell = QFontMetrics(font).height();
    if (cell > 0 && cell != height)
        font.setPixelSize(qMax(1, (height * height + cell / 2) / cell));
    return font;
}

TGridPicture DrawGridPicture(const TPuzzle &p, GridKind kind)
{
    TGridPicture picture;
    picture.Extent = Square * p.Size + 2;
    const int letterHeight = kind == GridKind::AnswerGrid ? 22 : 18;
    const QFont letterFont = GridPictureFont(letterHeight);
    const TGridArray<int> numbers = SquareNumbers(p);
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            const int top = 1 + Square * (r - 1);
            const int left = 1 + Square * (c - 1);
            const uint8_t cell = p.Cells(c, r);
            TPictureItem box;
            box.Rect = QRect(left, top, Square + 1, Square + 1);
            box.Black = cell == BlockChar;
            picture.Items.append(box);
            if (box.Black)
                continue;
            const QByteArray letter(1, char(cell));
            if (kind == GridKind::AnswerGrid && cell != 0) {
                const QPoint at = centred(left, top, letterFont, letter);
                picture.Items.append(text(at.x(), at.y(), letterHeight, letter, true));
            }
            if (kind != GridKind::AnswerGrid && numbers(c, r) > 0)
                picture.Items.append(text(left + 2, top + 1, 12, QByteArray::number(numbers(c, r)), false));
            if (kind == GridKind::NumberedAnswerGrid && cell != 0) {
                const QPoint at = centred(left, top, letterFont, letter) + QPoint(4, 4);
                picture.Items.append(text(at.x(), at.y(), letterHeight, letter, true));
            }
        }
    return picture;
}

void PaintGridPicture(const TGridPicture &picture, QPainter &painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Qt::black, 1));
    for (const TPictureItem &item : picture.Items) {
        if (item.Kind == TPictureItem::Box) {
            painter.setBrush(item.Black ? Qt::black : Qt::white);
            // The metafile rectangle's outline runs inside its right and bottom edge.
            painter.drawRect(item.Rect.adjusted(0, 0, -1, -1));
            continue;
        }
        const QFont font = GridPictureFont(item.FontHeight);
        const QFontMetrics fm(font);
        const QString s = FromCp1252(item.Chars);
        if (item.Opaque)
            painter.fillRect(QRect(item.At, QSize(fm.horizontalAdvance(s), fm.height())), Qt::white);
        painter.setFont(font);
        painter.drawText(item.At + QPoint(0, fm.ascent()), s);
    }
    painter.restore();
}

QByteArray GridPicturePng(const TGridPicture &picture)
{
    QImage image(picture.Extent, picture.Extent, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PaintGridPicture(picture, painter);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray GridPictureSvg(const TGridPicture &picture, const QString &description)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(QSize(picture.Extent, picture.Extent));
    svg.setViewBox(QRect(0, 0, picture.Extent, picture.Extent));
    svg.setTitle(QStringLiteral("Quillmark6"));
    svg.setDescription(description);
    {
        QPainter painter(&svg);
        PaintGridPicture(picture, painter);
    }
    return bytes;
}

QByteArray GridPictureWmf(const TGridPicture &picture, const QString &description)
{
    constexpr uint32_t Black = 0x000000;
    constexpr uint32_t White = 0xFFFFFF;
    constexpr int BS_SOLID = 0;
    constexpr int FW_BOLD = 700;
    TWmfWriter w;
    w.Comment("Quillmark6" + QByteArray(1, '\0') + ToCp1252(description) + QByteArray(2, '\0'));
    w.Record(TWmfWriter::META_SETMAPMODE, {TWmfWriter::MM_ANISOTROPIC});
    w.Record(TWmfWriter::META_SETWINDOWORG, {0, 0});
    w.Record(TWmfWriter::META_SETWINDOWEXT, {uint16_t(picture.Extent), uint16_t(picture.Extent)});
    w.Record(TWmfWriter::META_SETVIEWPORTORG, {0, 0});
    w.Record(TWmfWriter::META_SETVIEWPORTEXT, {uint16_t(picture.Extent), uint16_t(picture.Extent)});
    w.Record(TWmfWriter::META_SETTEXTALIGN, {0});
    w.Record(TWmfWriter::META_SETTEXTCOLOR, {uint16_t(Black & 0xFFFF), uint16_t(Black >> 16)});
    w.Record(TWmfWriter::META_SETBKCOLOR, {uint16_t(White & 0xFFFF), uint16_t(White >> 16)});
    const int pen = w.CreatePen(0, 1, Black);
    w.Select(pen);
    const int blackBrush = w.CreateBrush(BS_SOLID, Black);
    const int whiteBrush = w.CreateBrush(BS_SOLID, White);

    int brush = -1;
    int bkMode = -1;
    int fontHeight = 0;
    int font = -1;
    for (const TPictureItem &item : picture.Items) {
        if (item.Kind == TPictureItem::Box) {
            const int wanted = item.Black ? blackBrush : whiteBrush;
            if (brush != wanted)
                w.Select(brush = wanted);
            w.Rectangle(item.Rect.left(), item.Rect.top(), item.Rect.left() + item.Rect.width(),
                        item.Rect.top() + item.Rect.height());
            continue;
        }
        if (item.FontHeight != fontHeight) {
            const int next = w.CreateFont(item.FontHeight, FW_BOLD, "Arial");
            w.Select(next);
            if (font >= 0)
                w.Delete(font);
            font = next;
            fontHeight = item.FontHeight;
        }
        const int wantedMode = item.Opaque ? TWmfWriter::OPAQUE : TWmfWriter::TRANSPARENT;
        if (bkMode != wantedMode)
            w.Record(TWmfWriter::META_SETBKMODE, {uint16_t(bkMode = wantedMode)});
        w.TextOut(item.At.x(), item.At.y(), item.Chars);
        // A number is drawn clear of its square and the background is solid again after
        // it, so a player that draws on from here meets the state it started with.
        if (bkMode == TWmfWriter::TRANSPARENT)
            w.Record(TWmfWriter::META_SETBKMODE, {uint16_t(bkMode = TWmfWriter::OPAQUE)});
    }
    return w.Bytes();
}

QList<TExportFile> WmfExportSet(const TPuzzle &p, const QString &chosen)
{
    const QString numbered = ChangeFileExt(chosen, QStringLiteral(".WMF"));
    const QString answers = AnswerFilePath(chosen, QStringLiteral("-A.WMF"));
    return {
        {ChangeFileExt(chosen, QStringLiteral(".TXT")), ClueListText(p)},
        {numbered, GridPictureWmf(DrawGridPicture(p, GridKind::NumberedGrid), QFileInfo(numbered).fileName())},
        {answers, GridPictureWmf(DrawGridPicture(p, GridKind::AnswerGrid), QFileInfo(answers).fileName())},
    };
}

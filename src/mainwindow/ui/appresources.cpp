#include "mainwindow/ui/appresources.h"

#include <QFile>
#include <QGuiApplication>
#include <QLatin1StringView>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace {

// Cursors are drawn on a 32 x 32 canvas, the one size every platform accepts.
constexpr int CursorSize = 32;

// Where each cursor points: the pencil's point and the fingertip, as drawn in their pictures.
struct CursorHotSpot {
    QLatin1StringView name;
    QPoint hotSpot;
};
constexpr CursorHotSpot CursorHotSpots[] = {
    {QLatin1StringView("PENCIL"), QPoint(2, 30)},
    {QLatin1StringView("HANDPNT"), QPoint(9, 2)},
};

} // namespace

QIcon Glyph(const QString &name)
{
    return QIcon(QStringLiteral(":/glyphs/%1.svg").arg(name));
}

QCursor AppCursor(const QString &name)
{
    const QString path = QStringLiteral(":/cursors/%1.svg").arg(name);
    QSvgRenderer picture;
    if (!QFile::exists(path) || !picture.load(path))
        return QCursor(Qt::ArrowCursor);

    // Rendered for the screen's pixel density, so the cursor keeps its size and stays sharp.
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
    const int side = qRound(CursorSize * ratio);
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        picture.render(&painter);
    }
    pixmap.setDevicePixelRatio(ratio);

    QPoint hotSpot(CursorSize / 2, CursorSize / 2);
    for (const CursorHotSpot &entry : CursorHotSpots) {
        if (name == entry.name)
            hotSpot = entry.hotSpot;
    }
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

#include "settings/screenfit.h"

#include "settings/txwdprocs.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {

// One side: the length no longer than the room, the start pulled back inside it.
std::pair<int, int> fitSpan(qint64 start, qint64 length, int roomStart, int roomLength)
{
    const qint64 fitted = std::clamp<qint64>(length, 1, std::max(1, roomLength));
    const qint64 last = qint64(roomStart) + std::max(1, roomLength) - fitted;
    return {int(std::clamp<qint64>(start, roomStart, last)), int(fitted)};
}

}  // namespace

QRect FitBoundsToScreen(qint64 left, qint64 top, qint64 width, qint64 height, const QRect &available)
{
    const auto [x, w] = fitSpan(left, width, available.x(), available.width());
    const auto [y, h] = fitSpan(top, height, available.y(), available.height());
    return QRect(x, y, w, h);
}

int FitSquareSize(int square, int fallback, int gridSize, int margin, const QRect &available)
{
    const int wanted = square >= 1 ? square : fallback;
    if (gridSize < 1)
        return std::max(1, wanted);
    const int room = std::min(available.width(), available.height() - TitleBarAllowance) - margin;
    return std::clamp(wanted, 1, std::max(1, room / gridSize));
}

int FitFontSize(int points, int fallback)
{
    return points >= 1 ? std::min(points, MaxFontPointSize) : std::min(fallback, MaxFontPointSize);
}

QRect AvailableScreenArea(const QPoint &point)
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return QRect(0, 0, 1024, 768);
    const QScreen *screen = QGuiApplication::screenAt(point);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
}

std::optional<QRect> ReadScreenBounds(const QString &name)
{
    const std::optional<QRect> bounds = ReadBounds(name);
    if (!bounds)
        return std::nullopt;
    return FitBoundsToScreen(*bounds, AvailableScreenArea(bounds->topLeft()));
}

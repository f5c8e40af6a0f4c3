#pragma once
// Window sizes and places read from the settings may come from another screen (a monitor
// that is gone), another resolution or a hand-edited file. Before a window uses them they
// are brought inside the screen the user has now, so every window can be seen and reached.

#include <QRect>
#include <QString>

#include <optional>

// Room kept for the title bar the window system adds above a window's client area.
constexpr int TitleBarAllowance = 32;
// The largest point size a font (of a window or a printed page) takes from the settings:
// ample for any sensible choice, and small enough that every window still fits an 800 x 600
// screen with it.
constexpr int MaxFontPointSize = 36;

// The bounds moved, and shrunk where they are larger than `available`, so that the whole
// window lies inside it; a width or height below 1 becomes 1. The numbers are taken as read
// from a setting, wide enough that no sum of them overflows.
QRect FitBoundsToScreen(qint64 left, qint64 top, qint64 width, qint64 height, const QRect &available);
inline QRect FitBoundsToScreen(const QRect &bounds, const QRect &available)
{
    return FitBoundsToScreen(bounds.x(), bounds.y(), bounds.width(), bounds.height(), available);
}

// A square size at which `gridSize` squares plus `margin` pixels, and a title bar, fit the
// height and width of `available`; at least 1. A size below 1 means "no setting": `fallback`.
int FitSquareSize(int square, int fallback, int gridSize, int margin, const QRect &available);

// A window font's point size from the settings: below 1 it is `fallback`, above
// MaxFontPointSize it is MaxFontPointSize.
int FitFontSize(int points, int fallback);

// The available area (without task bars) of the screen that holds `point`, or of the
// primary screen when none does.
QRect AvailableScreenArea(const QPoint &point);

// A window's bounds setting (see ReadBounds), brought onto the screen it names.
std::optional<QRect> ReadScreenBounds(const QString &name);

#include "fill/ui/squareoverlay.h"

#include "views/gridgeometry.h"

#include <QEvent>
#include <QPainter>
#include <QVariant>

TSquareOverlay::TSquareOverlay(QWidget *grid, const QString &name, const QColor &tint) : QWidget(grid), tint_(tint)
{
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    grid->installEventFilter(this);
    setGeometry(grid->rect());
}

void TSquareOverlay::setSquares(const QList<QPoint> &squares)
{
    squares_ = squares;
    setProperty("squares", QVariant::fromValue(squares_));
    update();
}

bool TSquareOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return false;
}

void TSquareOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QColor hatch = tint_.darker(125);
    hatch.setAlpha(std::min(255, tint_.alpha() + 40));
    for (const QPoint &sq : std::as_const(squares_)) {
        const QRect r = CellOutline(sq.x(), sq.y()).adjusted(1, 1, -1, -1);
        painter.fillRect(r, tint_);
        painter.fillRect(r, QBrush(hatch, Qt::BDiagPattern));
    }
}

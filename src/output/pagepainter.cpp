#include "output/pagepainter.h"

#include <QPainter>

#include <algorithm>

void PaintPage(QPainter &painter, const TPage &page, const QSizeF &device)
{
    painter.save();
    // The whole page, on paper of its shape or not: nothing may fall off the edge.
    const double scale = std::min(device.width() / page.Width, device.height() / page.Height);
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const TPageObject &o : page.Objects) {
        switch (o.Kind) {
        case TPageObject::TextItem:
            painter.setFont(o.Font);
            painter.setPen(Qt::black);
            painter.drawText(QPoint(o.X, o.Y + o.Baseline), o.Text);
            break;
        case TPageObject::LineItem:
            painter.setPen(QPen(Qt::black, o.PenWidth, Qt::SolidLine, Qt::SquareCap));
            painter.drawLine(o.X, o.Y, o.X2, o.Y2);
            break;
        case TPageObject::RectangleItem:
            painter.setPen(QPen(Qt::black, o.PenWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
            painter.setBrush(o.Brush);
            painter.drawRect(QRectF(o.X, o.Y, o.X2 - o.X - 1, o.Y2 - o.Y - 1));
            break;
        }
    }
    painter.restore();
}

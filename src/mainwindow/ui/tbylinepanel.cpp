#include "mainwindow/ui/tbylinepanel.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

int TBylinePanel::heightForWidth(int width) const
{
    QTextLayout layout(text(), font());
    const int frame = 2 * frameWidth();
    return std::max(fontMetrics().height(), layOut(layout, width - frame - indent())) + frame;
}

void TBylinePanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawFrame(&painter);
    QTextLayout layout(text(), font());
    layOut(layout, contentsRect().width() - indent());
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, contentsRect().topLeft() + QPoint(indent(), 0));
}

int TBylinePanel::layOut(QTextLayout &layout, int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal y = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(1, width));
        line.setPosition(QPointF(0, y));
        y += line.height();
    }
    layout.endLayout();
    return int(std::ceil(y));
}

#pragma once
// A layer over the grid window that shades some of its squares: the dead squares, the words
// an autofill found at fault. It takes no clicks; the grid beneath gets them.

#include <QColor>
#include <QList>
#include <QPoint>
#include <QWidget>

class TSquareOverlay : public QWidget {
public:
    // Named `name`, shaded in `tint` (its alpha as given, hatched a little darker).
    TSquareOverlay(QWidget *grid, const QString &name, const QColor &tint);

    // The squares (column and row from 1) shaded from now on; also the "squares" property.
    void setSquares(const QList<QPoint> &squares);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QList<QPoint> squares_;
    QColor tint_;
};

#pragma once
// The main window's byline panel: as many lines as the whole byline needs in the narrow main
// window, broken at spaces, or within a word too long for a line (a byline may be one long
// word).

#include <QLabel>

class QTextLayout;

class TBylinePanel : public QLabel {
public:
    using QLabel::QLabel;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return {QLabel::sizeHint().width(), heightForWidth(width())}; }
    QSize minimumSizeHint() const override { return {0, heightForWidth(width())}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // Lays the text out in lines of `width`; the height of them all.
    static int layOut(QTextLayout &layout, int width);
};

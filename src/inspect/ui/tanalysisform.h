#pragma once
// The Puzzle Analysis tool window: the grid's statistics, worked out afresh each time it
// is shown.

#include "inspect/analysis.h"

#include <QWidget>

class QLabel;
class QPainter;
class QPushButton;

class TAnalysisForm : public QWidget {
    Q_OBJECT
public:
    explicit TAnalysisForm(QWidget *parent = nullptr);

    void FormShow();
    void LtrBoxPaint(QPainter &painter);

    QLabel *BkSqLbl = nullptr;
    QLabel *AcrLbl = nullptr;
    QLabel *DwnLbl = nullptr;
    QLabel *WdsLbl = nullptr;
    QLabel *Ltr3Lbl = nullptr;
    QLabel *Ltr2Lbl = nullptr;
    QLabel *EndSLbl = nullptr;
    QLabel *AvgLbl = nullptr;
    QLabel *UnkLbl = nullptr;
    QLabel *SymLbl = nullptr;
    QLabel *IDLbl = nullptr;
    QWidget *LtrBox = nullptr;
    QPushButton *CloseBtn = nullptr;
    // The captions that turn grey with their values.
    QLabel *Ltr2Caption = nullptr;
    QLabel *UnkCaption = nullptr;

protected:
    void showEvent(QShowEvent *event) override;

private:
    TAnalysis analysis_;
};

#pragma once
// The solving clock: hours, minutes and seconds since it was shown, with pause and reset.

#include "solving/clocktime.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

class TXwdClockForm : public QWidget {
    Q_OBJECT
public:
    explicit TXwdClockForm(QWidget *parent = nullptr);

    void FormShow();
    void Timer1Timer();
    void ResetBtnClick();
    void ClockBtnClick();

    QLabel *TimeLbl = nullptr;
    QToolButton *ResetBtn = nullptr;
    QToolButton *ClockBtn = nullptr;
    QTimer Timer1;
    TClockTime Time;

protected:
    void showEvent(QShowEvent *event) override;
};

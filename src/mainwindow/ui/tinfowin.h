#pragma once
// The small progress window shown while saving, printing or exporting.

#include <QWidget>

class QLabel;
class QProgressBar;

class TInfoWin : public QWidget {
    Q_OBJECT
public:
    enum Kind { Saving = 1, Printing = 2, Exporting = 3 };

    explicit TInfoWin(QWidget *parent = nullptr);

    // Shows the window for `kind` at `topLeft`, runs the bar in ten steps of 50 ms, closes.
    void ShowProgress(int kind, QPoint topLeft);
    void StepProgress();

    static QString KindText(int kind);

private:
    QLabel *Panel = nullptr;
    QLabel *SavImg = nullptr;
    QLabel *PntImg = nullptr;
    QProgressBar *ProgBar = nullptr;
};

extern TInfoWin *InfoWin;

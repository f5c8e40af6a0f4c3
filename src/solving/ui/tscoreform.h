#pragma once
// The score card: judges the solve and offers what may follow.

#include <QDialog>

class QLabel;
class QPushButton;

class TScoreForm : public QDialog {
    Q_OBJECT
public:
    // The card's results: show the errors, throw the puzzle away, or nothing.
    enum Result { CancelResult = QDialog::Rejected, ShowErrorsResult = 6, DeleteResult = 3 };

    explicit TScoreForm(QWidget *parent = nullptr);

    // Judges the grid and sets the card up; a correct grid is celebrated first.
    void FormShow();
    // Empties every entry, saves at once, and closes the card.
    void StartOverBtnClick();

    bool Correct() const { return correct_; }

    QLabel *BannerLbl = nullptr;
    QLabel *CheatLbl = nullptr;
    QPushButton *ShowErrsBtn = nullptr;
    QPushButton *StartOverBtn = nullptr;
    QPushButton *DeleteBtn = nullptr;
    QPushButton *CancelBtn = nullptr;

private:
    bool correct_ = false;
};

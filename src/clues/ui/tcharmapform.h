#pragma once
// "Special Characters": typographic and accented characters in a 10 x 10 table; a click
// puts the character into the clue being written in Autoclue.

#include <QWidget>

class QTableWidget;

class TCharMapForm : public QWidget {
    Q_OBJECT
public:
    explicit TCharMapForm(QWidget *parent = nullptr);

    QTableWidget *CharGrid = nullptr;

    // The cell's text goes in place of the clue's selection, before the selected text.
    void CharGridSelectCell(int col, int row);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void FormCreate();
    void focusAutoclue();

    bool placed_ = false;
};

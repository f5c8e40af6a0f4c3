#pragma once
// The main window: menus, tool panel, mode line and status text; owner of the puzzle's
// lifecycle.

#include <QMainWindow>

class QLabel;
class QPlainTextEdit;

class TXwdMainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit TXwdMainForm(QWidget *parent = nullptr);

    // Opens the puzzle named on the command line; "-S" as second argument for solving.
    void OpenFromCommandLine(const QStringList &arguments);

private:
    void PuzzleOpened();

    QLabel *ModeLabel = nullptr;
    QPlainTextEdit *DataMemo = nullptr;
    QLabel *Byline = nullptr;
};

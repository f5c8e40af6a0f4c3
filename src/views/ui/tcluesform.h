#pragma once
// The clue list beside the grid while a puzzle is solved: one item per word, in slot order,
// each drawn on up to three lines with a hanging indent. A click on a clue moves the grid's
// cursor to its word; letters typed in the list go to the grid.

#include <QCursor>
#include <QWidget>

class QListWidget;

class TCluesForm : public QWidget {
    Q_OBJECT
public:
    explicit TCluesForm(QWidget *parent = nullptr);
    ~TCluesForm() override;

    // Rebuilds the list from the puzzle and measures every item again; no item is selected
    // afterwards.
    void Fill();
    // Selects item slot - 1; slot 0 selects nothing.
    void SelectSlot(int slot);
    void ClearSelection();
    // The text of the selected item, empty without one.
    QString CurrentLine() const;

    // Fonts and cursor from the settings (also after the preferences), place, fill.
    void FormShow();
    void LoadFonts();
    void FormResize();
    bool FormCloseQuery() const;
    // The user picked a clue: the grid's cursor goes to its word, shown in yellow, and the
    // main window shows the clue.
    void ClueListClick();
    // Letters, "+" and Backspace go to the grid; true when the key was forwarded.
    bool ClueListKeyPress(QChar key);

    QListWidget *ClueList = nullptr;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    // The list's own pointing hand, loaded once with the window.
    QCursor handCursor_;
};

extern TCluesForm *CluesForm;

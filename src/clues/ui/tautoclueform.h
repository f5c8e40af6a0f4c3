#pragma once
// Autoclue: the window in which the constructor writes the clues of a finished grid, one
// word at a time. The walk over the words is TAutoclueWalk; this window shows the current
// word, its number and its clue, and stores whatever is typed at once.

#include "clues/autocluewalk.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolBar;
class QToolButton;
class TCharMapForm;
class TDefListForm;

inline constexpr auto AutoclueQuestion =
    "Running Autoclue before completing puzzle is not recommended. Start Autoclue anyway?";

class TAutoclueForm : public QWidget, private TAutoclueWalkListener {
    Q_OBJECT
public:
    explicit TAutoclueForm(QWidget *parent = nullptr);
    ~TAutoclueForm() override;

    // The walk state (WalkCol, WalkRow, WalkDir, WalkNumber, WalkSlot, WalkFound,
    // ClueAcrossThenDown), also set from outside before ShowCurrentWord.
    TAutoclueWalk Walk{*this};
    // The EntryCounts setting, read when the window is shown.
    bool ShowCounts = false;

    QLabel *ClueLbl = nullptr;
    QLabel *NumLbl = nullptr;
    QLabel *CountLbl = nullptr;
    QToolButton *CtBtn = nullptr;
    QLineEdit *DefEdit = nullptr;
    QPushButton *OkBtn = nullptr;
    QToolBar *ToolBar1 = nullptr;
    QToolButton *PrevBtn = nullptr;
    QToolButton *NextBtn = nullptr;
    QToolButton *BlankBtn = nullptr;
    QToolButton *InsertBtn = nullptr;
    QToolButton *CharsBtn = nullptr;
    QToolButton *ListDefsBtn = nullptr;
    QToolBar *ClueBar = nullptr;
    // The companion windows, made afresh at each showing and released on closing.
    QPointer<TDefListForm> DefListForm;
    QPointer<TCharMapForm> CharMapForm;

    // Settings, place, and a fresh walk to the grid's word or the first word.
    void FormShow();
    // The settings part of showing; the main window repeats it after the preferences.
    void LoadSettings();
    // Restarts the reading-order walk at the grid cursor's word.
    void MoveToGridWord();

    void NextBtnClick();
    void PrevBtnClick();
    void BlankBtnClick();
    void InsertBtnClick();
    void CtBtnClick();
    void CharsBtnClick();
    void ListdefsBtnClick();
    void OkBtnClick();
    void DefEditChange();
    // The clue box's own keys; true when the key was one of them (and so consumed).
    bool DefEditKeyPress(int key, Qt::KeyboardModifiers modifiers);

    // Refreshes the display for the walk state in direction 'a' or 'd'.
    void ShowCurrentWord(char dir) override;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int GridWordDirection() const override;
    QByteArray ClueText() const override;
    QString NumberCaption() const override;
    void WordLimitExceeded() override;
    void NoMoreClues() override;
    void FirstWordPassed() override;

    void FormResize();
    void place();
    void appendCount();
    QByteArray gridTarget() const;
    void setNumberColour(const QColor &colour);
    void createCompanions();
    void releaseCompanions();
    void replaceDefLine();
};

// The one Autoclue window, while it exists.
extern TAutoclueForm *AutoclueForm;

// The main window's AutoclueBtn: on a grid with empty squares, asks first; then shows the
// Autoclue window.
void AutoclueBtnClick(QWidget *parent);
// A grid word picked by a click or an arrow while Autoclue is showing: Autoclue moves to it
// and takes the keyboard.
void MoveAutoclueToGrid();

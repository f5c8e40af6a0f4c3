#pragma once
// The main window: menus, tool panel, mode line, status text and byline; owner of the
// puzzle's lifecycle (new, open, save, save as, copy grid, revert, history, close).

#include "mainwindow/ui/dialogs.h"

#include <QMainWindow>
#include <QPointer>

#include <optional>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class QWidget;
class TXwdClockForm;

class TXwdMainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit TXwdMainForm(QWidget *parent = nullptr);

    // Start-up: the status font, PlaySounds, and the puzzle named on the command line
    // ("-S" after it for solving); without one, the history of the previous run.
    void FormShow(const QStringList &arguments);
    void OpenFromCommandLine(const QStringList &arguments);

    // Commands.
    void Open1Click(bool solving);
    void NewPuzzleClick(QAction *action);
    void Save1Click();
    void CopyGridAs1Click(QAction *action);
    void ReverttoSaved1Click();
    void HistoryClick(int k);
    void Exit1Click();

    void SquaresBtnClick();
    void LettersBtnClick();
    void MouseBtnClick();
    void SymmetryBtnClick();
    void ShowGuidesActExecute();
    void UpdateBtnClick();
    void AutoArrangeActExecute();
    void ScorePuzzle1Click();
    void ClockActExecute();
    void CheatBtnMouseDown();
    void CheatBtnMouseUp();
    // The score card's delete choice: the solved puzzle goes to the trash.
    void DeleteSolvedPuzzle();

    // False when the user cancels.
    bool SaveChangesQuery();
    // Writes the puzzle; when that fails, tells why and asks whether to go on without
    // saving. False when the user stays.
    bool SaveOrGoOn();
    void PuzzleOpened();
    void RebuildHistory();

    // The solving status: the selected clue under "Across Clue" or "Down Clue".
    void ShowSolvingClue(int slot);
    void ClearSolvingClue();

    // Stores the bounds of every window as the preferences' screen layout asks.
    void WriteWindowBounds();
    // After the preferences were saved: the chosen arrangement (1 to 4, or 'c' to keep the
    // windows where the user put them) when `arrange`, then every window's settings again.
    void ApplyPreferences(bool arrange, int code);
    // The status font and PlaySounds from the settings.
    void ReadOwnSettings();

    // The smallest size the window may take once a puzzle is open.
    QSize MinimumFittedSize() const;

    // The menus every subsystem adds its commands to, by object name: "PuzzleMenu",
    // "ExportMenu" and "ClipboardMenu" (under Puzzle), "OptionsMenu", "GridMenu",
    // "TransformMenu" (under Grid), "ToolsMenu", "HelpMenu". A menu with no visible command hides itself.
    QMenu *Menu(const QString &objectName) const;
    bool IsPuzzleOpen() const { return puzzleOpen_; }

    // The name Save As offers for a puzzle with no file yet (an imported puzzle's title);
    // every open, create or save clears it.
    QString SuggestedPuzzleName;

signals:
    // After every change of mode or puzzle: subsystems set their commands' state here.
    void ActionsUpdated();

public:

    // Actions, by the names the menus, buttons and tests know them by.
    QAction *OpenSolveAct = nullptr;
    QAction *ConstructOpenAct = nullptr;
    QList<QAction *> NewActs;  // New11Act .. New23Act
    QAction *SaveAct = nullptr;
    QAction *SavePuzzleAsAct = nullptr;
    QAction *CopyGridAsAct = nullptr;
    QAction *RevertToSavedAct = nullptr;
    QAction *ExitAct = nullptr;
    QAction *History1Act = nullptr;
    QAction *History2Act = nullptr;
    QAction *History3Act = nullptr;
    QAction *ShowGuidesAct = nullptr;
    QAction *AutoArrangeAct = nullptr;
    QAction *ScorePuzzleAct = nullptr;
    QAction *ClockAct = nullptr;

    QWidget *ToolPanel = nullptr;
    QToolButton *MouseBtn = nullptr;
    QToolButton *CheatBtn = nullptr;
    QToolButton *AutoclueBtn = nullptr;
    QToolButton *SquaresBtn = nullptr;
    QToolButton *LettersBtn = nullptr;
    QToolButton *SymmetryBtn = nullptr;
    QLabel *LogoImage = nullptr;
    QLabel *ModeLabel = nullptr;
    QPlainTextEdit *DataMemo = nullptr;
    QPushButton *UpdateBtn = nullptr;
    QLabel *Byline = nullptr;

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createActions();
    void createMenus();
    void createToolPanel();
    void createBody();
    // Sets what is enabled and visible for the current mode and puzzle.
    void updateActions();
    void setButtonHint(QToolButton *button, const QString &hint);
    QAction *historyAct(int k) const;
    // Asks for a puzzle file to write, with ".xwd" added when no extension was typed; a
    // name with another extension is refused with the program's message.
    std::optional<TFileChoice> ChoosePuzzleName(const QString &title, const QString &filter,
                                                const QString &fileName = QStringLiteral("untitled.xwd"));
    // Reads a puzzle; false when it is not one.
    bool tryOpen(const QString &path);
    void showSaving();

    void hideEmptyMenus();

    QMenu *historySeparatorHolder_ = nullptr;
    QAction *historySeparator_ = nullptr;
    QPointer<TXwdClockForm> clock_;
    bool puzzleOpen_ = false;
    bool firstOpenDone_ = false;
};

extern TXwdMainForm *XwdMainForm;

// The one error box of the program: the error sound, then the message with OK.
void ShowPuzzleError(const QString &text);
// Writes Puzzle to `path` in the current version (or version 5); on failure tells the
// user and returns false.
bool WritePuzzleOrReport(const QString &path, bool version5 = false);

#pragma once
// The main window: menus, tool panel, mode line, status text and byline. The puzzle's
// lifecycle is the session's (mainwindow/puzzlesession.h); this window turns its commands
// into the session's calls and starts the windows over when a puzzle is opened.

#include "mainwindow/ui/dialogs.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class QWidget;
class TSolvingStatusLine;
class TWindowArrangement;

class TXwdMainForm : public QMainWindow {
    Q_OBJECT
public:
    explicit TXwdMainForm(QWidget *parent = nullptr);
    ~TXwdMainForm() override;

    // Start-up: the status font, PlaySounds, and the puzzle named on the command line
    // ("-S" after it for solving); without one, the history of the previous run.
    void FormShow(const QStringList &arguments);

    void Exit1Click();

    void SquaresBtnClick();
    void LettersBtnClick();
    void MouseBtnClick();
    void SymmetryBtnClick();
    void ShowGuidesActExecute();
    void UpdateBtnClick();
    void AutoArrangeActExecute();

    // After every open or create (the session's `opened`): the windows start over.
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
    bool IsPuzzleOpen() const;

    // When a command acts and when it shows, stated once as a rule that is asked again
    // after every open, change of mode, close and preferences. A command without a rule
    // stays as it is.
    void EnableWhen(QAction *action, std::function<bool()> rule);
    void EnableWhen(QWidget *widget, std::function<bool()> rule);
    void ShowWhen(QAction *action, std::function<bool()> rule);

signals:
    // After the rules have been applied.
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
    // History entry k (1 to 3) and the separator above the entries.
    QAction *HistoryAct(int k) const;
    QAction *HistorySeparator = nullptr;

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
    void createRules();
    void createMenus();
    void createToolPanel();
    void createBody();
    void connectSession();
    // Applies every rule, then the tool buttons' hints.
    void updateActions();
    void setButtonHint(QToolButton *button, const QString &hint);
    void hideEmptyMenus();
    // The symmetry button's glyph and hint for the grid's symmetry.
    void showSymmetry();

    bool firstOpenDone_ = false;
    std::vector<std::function<void()>> rules_;
    std::unique_ptr<TSolvingStatusLine> status_;
    std::unique_ptr<TWindowArrangement> arrangement_;
};

extern TXwdMainForm *XwdMainForm;

// The one error box of the program: the error sound, then the message with OK.
void ShowPuzzleError(const QString &text);

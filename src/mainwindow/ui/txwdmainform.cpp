#include "mainwindow/ui/txwdmainform.h"

#include "clues/ui/tautoclueform.h"
#include "clues/ui/tbylineform.h"
#include "inspect/ui/inspectcommands.h"
#include "interchange/ui/interchangecommands.h"
#include "mainwindow/history.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/screenlayout.h"
#include "mainwindow/specifications.h"
#include "mainwindow/trash.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/toolscommands.h"
#include "mainwindow/ui/tsoundfx.h"
#include "model/clearpuzzle.h"
#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "output/ui/exportcommands.h"
#include "output/ui/printcommands.h"
#include "settings/screenfit.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "settings/ui/txwdprefform.h"
#include "solving/ui/tscoreform.h"
#include "solving/ui/txwdclockform.h"
#include "views/gridgeometry.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"
#include "web/ui/webcommands.h"

#include <algorithm>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

TXwdMainForm *XwdMainForm = nullptr;

namespace {

const QString OpenFilter = QStringLiteral("Quillmark Crossword Puzzle |*.xwd");
const QString SaveAsFilter =
    QStringLiteral("Quillmark Crossword Puzzle|*.xwd|Quillmark 5 Crossword Puzzle|*.xwd");
const QString CopyGridFilter = QStringLiteral("Quillmark Crossword Puzzle|*.xwd");
const QString CorruptMessage = QStringLiteral("Puzzle not in Quillmark format or is corrupt.");
const QString ForeignMessage = QStringLiteral("Not a valid Quillmark puzzle.");
const QString ChangedQuestion = QStringLiteral("Puzzle has changed. Save current changes?");
const QString GoOnQuestion = QStringLiteral("The changes to the puzzle were not saved. Go on without saving them?");
const QString HideGuides = QStringLiteral("&Hide Guidelines");
const QString ShowGuides = QStringLiteral("S&how Guidelines");
const QString ClockOn = QStringLiteral("&Clock On");
const QString ClockOff = QStringLiteral("&Clock Off");
constexpr int ModeLineHeight = 19;

QAction *makeAction(QObject *parent, const char *name, const QString &caption)
{
    auto *action = new QAction(caption, parent);
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QToolButton *makeButton(QWidget *parent, const char *name, const QString &glyph)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(Glyph(glyph));
    button->setIconSize(QSize(22, 22));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

std::optional<QRect> boundsFromSetting(const QString &name)
{
    const QStringList parts = ReadText(name).split(u',');
    if (parts.size() < 4)
        return std::nullopt;
    int values[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        values[i] = parts[i].trimmed().toInt(&ok);
        if (!ok)
            return std::nullopt;
    }
    return FitBoundsToScreen(values[0], values[1], values[2], values[3], AvailableScreenArea({values[0], values[1]}));
}

void writeBoundsOf(const QString &name, const QWidget *window)
{
    WriteBounds(name, window->x(), window->y(), window->width(), window->height());
}

}  // namespace

void ShowPuzzleError(const QString &text)
{
    PlayErrorSound();
    Dialogs().Error(XwdMainForm, text);
}

bool WritePuzzleOrReport(const QString &path, bool version5)
{
    // A puzzle opened from another format has no file yet: writing it asks for one.
    if (path.isEmpty() && !version5 && XwdMainForm)
        return SaveUntitledPuzzle(XwdMainForm);
    try {
        if (version5)
            WritePuzzle5(path);
        else
            WritePuzzle(path);
        return true;
    } catch (const TPuzzleIOError &e) {
        ShowPuzzleError(QStringLiteral("The puzzle could not be saved.\n%1").arg(QString::fromStdString(e.what())));
        return false;
    }
}

TXwdMainForm::TXwdMainForm(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("XwdMainForm"));
    setWindowTitle(QStringLiteral("Quillmark"));
    if (!XwdMainForm)
        XwdMainForm = this;
    createActions();
    createMenus();
    InstallPrintCommands(this);
    createBody();
    InstallInspectCommands(this);
    InstallExportCommands(this);
    InstallBylineCommands(this);
    InstallToolsCommands(this);
    InstallPreferencesCommand(this);
    InstallHelpCommands(this);
    InstallWebCommands(this);
    InstallInterchangeCommands(this);
    updateActions();
}

void TXwdMainForm::createActions()
{
    OpenSolveAct = makeAction(this, "OpenSolveAct", QStringLiteral("&Solve..."));
    ConstructOpenAct = makeAction(this, "ConstructOpenAct", QStringLiteral("&Open..."));
    connect(OpenSolveAct, &QAction::triggered, this, [this] { Open1Click(true); });
    connect(ConstructOpenAct, &QAction::triggered, this, [this] { Open1Click(false); });

    const QStringList menuCaptions = {QStringLiteral("&11×"), QStringLiteral("1&3×"), QStringLiteral("1&5×"),
                                      QStringLiteral("1&7×"), QStringLiteral("1&9×"), QStringLiteral("2&1×"),
                                      QStringLiteral("2&3×")};
    for (int i = 0; i < 7; ++i) {
        const int size = 11 + 2 * i;
        auto *action = makeAction(this, QStringLiteral("New%1Act").arg(size).toLatin1().constData(), menuCaptions[i]);
        action->setIconText(QStringLiteral("%1×").arg(size));
        connect(action, &QAction::triggered, this, [this, action] { NewPuzzleClick(action); });
        NewActs.append(action);
    }

    SaveAct = makeAction(this, "SaveAct", QStringLiteral("Sa&ve"));
    SaveAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    connect(SaveAct, &QAction::triggered, this, &TXwdMainForm::Save1Click);
    SavePuzzleAsAct = makeAction(this, "SavePuzzleAsAct", QStringLiteral("Save Puzzle &As..."));
    connect(SavePuzzleAsAct, &QAction::triggered, this, [this] { CopyGridAs1Click(SavePuzzleAsAct); });
    CopyGridAsAct = makeAction(this, "CopyGridAsAct", QStringLiteral("Copy &Grid As..."));
    connect(CopyGridAsAct, &QAction::triggered, this, [this] { CopyGridAs1Click(CopyGridAsAct); });
    RevertToSavedAct = makeAction(this, "RevertToSavedAct", QStringLiteral("&Revert to Saved"));
    connect(RevertToSavedAct, &QAction::triggered, this, &TXwdMainForm::ReverttoSaved1Click);
    ExitAct = makeAction(this, "ExitAct", QStringLiteral("E&xit"));
    ExitAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_X));
    connect(ExitAct, &QAction::triggered, this, &TXwdMainForm::Exit1Click);

    History1Act = makeAction(this, "History1Act", QStringLiteral("&1 Puzzle 1"));
    History2Act = makeAction(this, "History2Act", QStringLiteral("&2 Puzzle 2"));
    History3Act = makeAction(this, "History3Act", QStringLiteral("&3 Puzzle 3"));
    for (int k = 1; k <= HistorySize; ++k) {
        historyAct(k)->setVisible(false);
        connect(historyAct(k), &QAction::triggered, this, [this, k] { HistoryClick(k); });
    }

    ShowGuidesAct = makeAction(this, "ShowGuidesAct", ShowGuides);
    connect(ShowGuidesAct, &QAction::triggered, this, &TXwdMainForm::ShowGuidesActExecute);
    AutoArrangeAct = makeAction(this, "AutoArrangeAct", QStringLiteral("&Auto Arrange"));
    AutoArrangeAct->setShortcut(QKeySequence(Qt::Key_F9));
    connect(AutoArrangeAct, &QAction::triggered, this, &TXwdMainForm::AutoArrangeActExecute);

    ScorePuzzleAct = makeAction(this, "ScorePuzzleAct", QStringLiteral("&Score Puzzle"));
    connect(ScorePuzzleAct, &QAction::triggered, this, &TXwdMainForm::ScorePuzzle1Click);
    ClockAct = makeAction(this, "ClockAct", ClockOn);
    connect(ClockAct, &QAction::triggered, this, &TXwdMainForm::ClockActExecute);

    // The grid, clue and tool windows are separate windows: the shortcuts must reach the
    // command from whichever of them has the focus.
    for (QAction *action : findChildren<QAction *>())
        action->setShortcutContext(Qt::ApplicationShortcut);
}

void TXwdMainForm::createMenus()
{
    auto named = [](QMenu *menu, const char *name) {
        menu->setObjectName(QString::fromLatin1(name));
        return menu;
    };
    QMenuBar *bar = menuBar();
    auto topMenu = [&](const char *name, const QString &caption) { return named(bar->addMenu(caption), name); };
    QMenu *puzzle = topMenu("PuzzleMenu", QStringLiteral("&Puzzle"));
    puzzle->addAction(OpenSolveAct);
    QMenu *construct = puzzle->addMenu(QStringLiteral("&Construct"));
    construct->addAction(ConstructOpenAct);
    QMenu *newMenu = construct->addMenu(QStringLiteral("&New"));
    newMenu->addActions(NewActs);
    puzzle->addSeparator();
    puzzle->addAction(SaveAct);
    puzzle->addAction(SavePuzzleAsAct);
    puzzle->addAction(CopyGridAsAct);
    puzzle->addSeparator();
    named(puzzle->addMenu(QStringLiteral("&Export")), "ExportMenu");
    named(puzzle->addMenu(QStringLiteral("Copy to C&lipboard")), "ClipboardMenu");
    historySeparator_ = puzzle->addSeparator();
    historySeparator_->setVisible(false);
    puzzle->addActions({History1Act, History2Act, History3Act});
    puzzle->addSeparator();
    puzzle->addAction(ExitAct);

    QMenu *options = topMenu("OptionsMenu", QStringLiteral("&Options"));
    options->addAction(ScorePuzzleAct);
    options->addAction(ClockAct);
    options->addSeparator();
    options->addAction(RevertToSavedAct);
    options->addAction(ShowGuidesAct);
    options->addAction(AutoArrangeAct);
    options->addSeparator();

    // The window is only as wide as its logo: the transforms sit under Grid so that every
    // menu title fits on the one menu line.
    QMenu *grid = topMenu("GridMenu", QStringLiteral("&Grid"));
    named(grid->addMenu(QStringLiteral("&Transform")), "TransformMenu");
    topMenu("ToolsMenu", QStringLiteral("T&ools"));
    topMenu("HelpMenu", QStringLiteral("&Help"));
}

QMenu *TXwdMainForm::Menu(const QString &objectName) const
{
    return findChild<QMenu *>(objectName);
}

void TXwdMainForm::hideEmptyMenus()
{
    // Twice, so that a menu holding only an emptied submenu hides as well.
    for (int pass = 0; pass < 2; ++pass)
        for (QMenu *menu : findChildren<QMenu *>()) {
            const QList<QAction *> actions = menu->actions();
            const bool any = std::any_of(actions.begin(), actions.end(),
                                         [](QAction *a) { return a->isVisible() && !a->isSeparator(); });
            menu->menuAction()->setVisible(any);
        }
}

void TXwdMainForm::createToolPanel()
{
    ToolPanel = new QWidget(this);
    ToolPanel->setObjectName(QStringLiteral("ToolPanel"));
    ToolPanel->setFocusPolicy(Qt::StrongFocus);
    auto *row = new QHBoxLayout(ToolPanel);
    row->setContentsMargins(4, 2, 4, 2);
    row->setSpacing(2);

    MouseBtn = makeButton(ToolPanel, "MouseBtn", QStringLiteral("MOUSEACR"));
    setButtonHint(MouseBtn, QStringLiteral("Swap mouse buttons"));
    connect(MouseBtn, &QToolButton::clicked, this, &TXwdMainForm::MouseBtnClick);

    CheatBtn = makeButton(ToolPanel, "CheatBtn", QStringLiteral("CHEAT"));
    setButtonHint(CheatBtn, QStringLiteral("Show puzzle answers"));
    connect(CheatBtn, &QToolButton::pressed, this, &TXwdMainForm::CheatBtnMouseDown);
    connect(CheatBtn, &QToolButton::released, this, &TXwdMainForm::CheatBtnMouseUp);

    SquaresBtn = makeButton(ToolPanel, "SquaresBtn", QStringLiteral("SQUARES"));
    setButtonHint(SquaresBtn, QStringLiteral("Design puzzle grid"));
    LettersBtn = makeButton(ToolPanel, "LettersBtn", QStringLiteral("LETTERS"));
    setButtonHint(LettersBtn, QStringLiteral("Construct the puzzle"));
    auto *modeGroup = new QButtonGroup(this);
    for (QToolButton *button : {SquaresBtn, LettersBtn}) {
        button->setCheckable(true);
        modeGroup->addButton(button);
    }
    connect(SquaresBtn, &QToolButton::clicked, this, &TXwdMainForm::SquaresBtnClick);
    connect(LettersBtn, &QToolButton::clicked, this, &TXwdMainForm::LettersBtnClick);

    SymmetryBtn = makeButton(ToolPanel, "SymmetryBtn", QStringLiteral("OFFSYMMETRY"));
    setButtonHint(SymmetryBtn, QStringLiteral("DIAGONAL symmetry"));
    connect(SymmetryBtn, &QToolButton::clicked, this, &TXwdMainForm::SymmetryBtnClick);

    AutoclueBtn = makeButton(ToolPanel, "AutoclueBtn", QStringLiteral("AUTOCLUE"));
    setButtonHint(AutoclueBtn, QStringLiteral("Write the clues"));
    connect(AutoclueBtn, &QToolButton::clicked, this, [this] { AutoclueBtnClick(this); });

    for (QToolButton *button : {MouseBtn, SquaresBtn, LettersBtn, SymmetryBtn, CheatBtn, AutoclueBtn})
        row->addWidget(button);
    row->addStretch(1);
}

void TXwdMainForm::createBody()
{
    createToolPanel();
    auto *body = new QWidget(this);
    auto *column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(ToolPanel);

    ModeLabel = new QLabel(body);
    ModeLabel->setObjectName(QStringLiteral("ModeLabel"));
    ModeLabel->setIndent(6);
    ModeLabel->setFixedHeight(0);
    QFont modeFont = ModeLabel->font();
    modeFont.setBold(true);
    ModeLabel->setFont(modeFont);
    column->addWidget(ModeLabel);

    LogoImage = new QLabel(body);
    LogoImage->setObjectName(QStringLiteral("LogoImage"));
    LogoImage->setPixmap(Glyph(QStringLiteral("LOGO")).pixmap(QSize(270, 90)));
    LogoImage->setAlignment(Qt::AlignCenter);
    column->addWidget(LogoImage);

    DataMemo = new QPlainTextEdit(body);
    DataMemo->setObjectName(QStringLiteral("DataMemo"));
    DataMemo->setReadOnly(true);
    DataMemo->setFrameShape(QFrame::NoFrame);
    DataMemo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    DataMemo->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    DataMemo->viewport()->installEventFilter(this);
    DataMemo->setVisible(false);
    column->addWidget(DataMemo, 1);

    UpdateBtn = new QPushButton(QStringLiteral("Update"), body);
    UpdateBtn->setObjectName(QStringLiteral("UpdateBtn"));
    UpdateBtn->setToolTip(QStringLiteral("Update puzzle specifications"));
    UpdateBtn->setVisible(false);
    connect(UpdateBtn, &QPushButton::clicked, this, &TXwdMainForm::UpdateBtnClick);
    column->addWidget(UpdateBtn, 0, Qt::AlignLeft);

    Byline = new QLabel(body);
    Byline->setObjectName(QStringLiteral("Byline"));
    Byline->setFrameShape(QFrame::StyledPanel);
    Byline->setFrameShadow(QFrame::Sunken);
    Byline->setIndent(4);
    column->addWidget(Byline);
    setCentralWidget(body);
}

void TXwdMainForm::setButtonHint(QToolButton *button, const QString &hint)
{
    button->setProperty("hint", hint);
    button->setToolTip(button->isEnabled() ? hint : QString());
}

QAction *TXwdMainForm::historyAct(int k) const
{
    return k == 1 ? History1Act : k == 2 ? History2Act : History3Act;
}

void TXwdMainForm::updateActions()
{
    const bool solving = puzzleOpen_ && PuzzleMode == SolveMode;
    const bool constructing = puzzleOpen_ && PuzzleMode != SolveMode;

    SaveAct->setEnabled(puzzleOpen_);
    RevertToSavedAct->setEnabled(puzzleOpen_);
    AutoArrangeAct->setEnabled(firstOpenDone_);
    for (QAction *action : {SavePuzzleAsAct, CopyGridAsAct, ShowGuidesAct})
        action->setEnabled(constructing);
    SquaresBtn->setEnabled(constructing);
    LettersBtn->setEnabled(constructing);
    AutoclueBtn->setEnabled(constructing);
    UpdateBtn->setVisible(constructing);
    CheatBtn->setEnabled(solving);
    ScorePuzzleAct->setEnabled(solving);
    ClockAct->setEnabled(solving);
    SymmetryBtn->setEnabled(constructing && PuzzleMode == DesignMode);

    for (QToolButton *button : {MouseBtn, CheatBtn, SquaresBtn, LettersBtn, SymmetryBtn, AutoclueBtn}) {
        const QString hint = button->property("hint").toString();
        // The symmetry hint stays readable while constructing, also while the button rests.
        const bool showHint = button->isEnabled() || (button == SymmetryBtn && constructing);
        button->setToolTip(showHint ? hint : QString());
    }
    emit ActionsUpdated();
    hideEmptyMenus();
}

void TXwdMainForm::ReadOwnSettings()
{
    const TFontSetting status =
        ReadFontSetting(QStringLiteral("Status"), {QStringLiteral("Times New Roman"), 11, 1, QStringLiteral("clNavy")});
    DataMemo->setFont(status.Font);
    QPalette palette = DataMemo->palette();
    palette.setColor(QPalette::Text, status.Color);
    DataMemo->setPalette(palette);
    PlaySounds = ReadInt(QStringLiteral("PlaySounds"), 1);
}

void TXwdMainForm::FormShow(const QStringList &arguments)
{
    ReadOwnSettings();
    // Fixed until a puzzle is open: the logo's width and everything stacked above it.
    setFixedWidth(LogoImage->sizeHint().width() + 12);
    setFixedHeight(sizeHint().height());
    // Clear of the grid window, which opens at the top left.
    if (const auto bounds = boundsFromSetting(QStringLiteral("ScreenBoundsMain")))
        move(FitBoundsToScreen(QRect(bounds->topLeft(), size() + QSize(0, TitleBarAllowance)), AvailableScreenArea(bounds->topLeft())).topLeft());
    else if (const QScreen *screen = this->screen())
        move(screen->availableGeometry().right() - width() - 4, 2);

    if (arguments.isEmpty())
        RebuildHistory();
    else
        OpenFromCommandLine(arguments);
}

void TXwdMainForm::OpenFromCommandLine(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return;
    if (IsInterchangeFile(arguments.at(0))) {
        OpenInterchangeFile(this, arguments.at(0), arguments.value(1).toUpper() == u"-S");
        return;
    }
    // Absolute, so that the history still finds it from another working folder.
    CurrentPuzzlePath = QFileInfo(arguments.at(0)).absoluteFilePath();
    if (!tryOpen(CurrentPuzzlePath)) {
        ShowPuzzleError(CorruptMessage);
        CurrentPuzzlePath.clear();
        return;
    }
    PuzzleMode = arguments.value(1).toUpper() == u"-S" ? SolveMode : ConstructMode;
    PuzzleOpened();
}

bool TXwdMainForm::tryOpen(const QString &path)
{
    try {
        OpenPuzzleFile(path);
        return true;
    } catch (const TPuzzleIOError &) {
        return false;
    }
}

void TXwdMainForm::Open1Click(bool solving)
{
    if (PuzzleChanged && !SaveChangesQuery())
        return;
    TFileRequest request;
    request.Kind = TFileRequest::Open;
    request.Title = solving ? QStringLiteral("Open puzzle for solving") : QStringLiteral("Open puzzle for constructing");
    request.Directory = QDir::currentPath();
    request.Filter = OpenFilter + InterchangeOpenFilter();
    request.DefaultExtension = QStringLiteral("xwd");
    const auto choice = Dialogs().ChooseFile(this, request);
    if (!choice)
        return;
    if (IsInterchangeFile(choice->Path)) {
        OpenInterchangeFile(this, choice->Path, solving);
        return;
    }
    if (!tryOpen(choice->Path)) {
        // Read the previous puzzle again so that what is shown is what is on disk.
        if (!CurrentPuzzlePath.isEmpty())
            tryOpen(CurrentPuzzlePath);
        if (XwdGridForm)
            XwdGridForm->update();
        ShowPuzzleError(CorruptMessage);
        return;
    }
    PuzzleMode = solving ? SolveMode : ConstructMode;
    CurrentPuzzlePath = choice->Path;
    PuzzleOpened();
}

std::optional<TFileChoice> TXwdMainForm::ChoosePuzzleName(const QString &title, const QString &filter)
{
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = title;
    request.Filter = filter;
    request.FileName = QStringLiteral("untitled.xwd");
    request.DefaultExtension = QStringLiteral("xwd");
    request.Directory = QDir::currentPath();
    auto choice = Dialogs().ChooseFile(this, request);
    if (!choice)
        return std::nullopt;
    choice->Path = WithPuzzleExtension(choice->Path);
    if (HasForeignExtension(choice->Path)) {
        ShowPuzzleError(ForeignMessage);
        return std::nullopt;
    }
    return choice;
}

void TXwdMainForm::NewPuzzleClick(QAction *action)
{
    const int size = action->iconText().left(2).toInt();
    if (PuzzleChanged && !SaveChangesQuery())
        return;
    const auto choice = ChoosePuzzleName(QStringLiteral("New %1x puzzle for constructing").arg(size), OpenFilter);
    if (!choice)
        return;
    const QString path = choice->Path;
    const TPuzzle previous = Puzzle;
    ClearPuzzle(size, 'N');
    if (!WritePuzzleOrReport(path)) {
        Puzzle = previous;
        return;
    }
    PuzzleMode = ConstructMode;
    CurrentPuzzlePath = path;
    PuzzleOpened();
}

void TXwdMainForm::showSaving()
{
    if (!InfoWin)
        return;
    QPoint at(35, 35);
    if (XwdGridForm)
        at += XwdGridForm->pos();
    InfoWin->ShowProgress(TInfoWin::Saving, at);
}

void TXwdMainForm::Save1Click()
{
    if (!puzzleOpen_)
        return;
    if (WritePuzzleOrReport(CurrentPuzzlePath))
        showSaving();
}

void TXwdMainForm::CopyGridAs1Click(QAction *action)
{
    const bool copyGrid = action == CopyGridAsAct;
    const auto choice = ChoosePuzzleName(copyGrid ? QStringLiteral("Copy grid as...") : QStringLiteral("Save puzzle as..."),
                                         copyGrid ? CopyGridFilter : SaveAsFilter);
    if (!choice)
        return;
    const QString path = choice->Path;
    if (!copyGrid && choice->FilterIndex == 2) {
        // A version-5 copy is an export: the open puzzle stays as it is.
        if (WritePuzzleOrReport(path, true))
            showSaving();
        return;
    }
    const TPuzzle previous = Puzzle;
    const bool previousChanged = PuzzleChanged;
    if (copyGrid)
        ClearPuzzle(Puzzle.Size, 'C');
    if (!WritePuzzleOrReport(path)) {
        Puzzle = previous;
        PuzzleChanged = previousChanged;
        return;
    }
    CurrentPuzzlePath = path;
    PuzzleOpened();
}

void TXwdMainForm::ReverttoSaved1Click()
{
    PlayQuestionSound();
    if (Dialogs().Ask(this, QStringLiteral("Discard all recent changes and return to last saved puzzle?"), false) !=
        TAnswer::Yes)
        return;
    try {
        ReadPuzzle(CurrentPuzzlePath);
    } catch (const TPuzzleIOError &) {
        ShowPuzzleError(CorruptMessage);
        return;
    }
    if (XwdGridForm)
        XwdGridForm->DropCurrentWord();
    if (PuzzleMode == SolveMode) {
        ModeLabel->clear();
        DataMemo->clear();
        if (CluesForm) {
            CluesForm->Fill();
            CluesForm->ClearSelection();
        }
    } else {
        UpdateBtnClick();
    }
    PuzzleChanged = false;
}

bool TXwdMainForm::SaveChangesQuery()
{
    // A puzzle with no file yet is never saved unasked, even when solving.
    if (PuzzleMode != SolveMode || CurrentPuzzlePath.isEmpty()) {
        PlayQuestionSound();
        switch (Dialogs().Ask(this, ChangedQuestion, true)) {
        case TAnswer::Cancel:
            return false;
        case TAnswer::No:
            PuzzleChanged = false;
            return true;
        case TAnswer::Yes:
            break;
        }
    }
    return SaveOrGoOn();
}

bool TXwdMainForm::SaveOrGoOn()
{
    if (WritePuzzleOrReport(CurrentPuzzlePath))
        return true;
    // An imported puzzle has no file yet: cancelling its name stays, and No to the
    // change question is the way to leave without it.
    if (CurrentPuzzlePath.isEmpty())
        return false;
    // The user has been told why; the changes are dropped only when they say so, and a
    // folder that has become read-only does not trap them in the program.
    PlayQuestionSound();
    if (Dialogs().AskWarning(this, GoOnQuestion, false) != TAnswer::Yes)
        return false;
    PuzzleChanged = false;
    return true;
}

void TXwdMainForm::HistoryClick(int k)
{
    if (PuzzleChanged && !SaveChangesQuery())
        return;
    const QString entry = ReadText(QStringLiteral("HistoryPuzzle%1").arg(k));
    if (entry.size() < 3)
        return;
    const QString path = HistoryPath(entry);
    const bool solving = HistoryIsSolving(entry);
    if (path == CurrentPuzzlePath && puzzleOpen_ && solving == (PuzzleMode == SolveMode))
        return;

    const QString previousPath = CurrentPuzzlePath;
    const QString previousDir = QDir::currentPath();
    QDir::setCurrent(QFileInfo(path).absolutePath());
    if (!QFileInfo::exists(path) || !tryOpen(path)) {
        // Keep the open puzzle tied to its own file, so that a later save cannot write it
        // over the path that failed.
        CurrentPuzzlePath = previousPath;
        QDir::setCurrent(previousDir);
        ShowPuzzleError(QFileInfo::exists(path) ? CorruptMessage
                                                : QStringLiteral("Unable to locate this puzzle from path in history list."));
        return;
    }
    CurrentPuzzlePath = path;
    PuzzleMode = solving ? SolveMode : ConstructMode;
    PuzzleOpened();
}

void TXwdMainForm::RebuildHistory()
{
    QStringList stored;
    for (int k = 1; k <= HistorySize; ++k)
        stored.append(ReadText(QStringLiteral("HistoryPuzzle%1").arg(k)));
    const QStringList entries =
        HistoryEntries(ReadText(QStringLiteral("CurrentPuzzle")), puzzleOpen_, PuzzleMode == SolveMode, stored);

    historySeparator_->setVisible(false);
    for (int k = 1; k <= HistorySize; ++k)
        historyAct(k)->setVisible(false);
    for (int k = 1; k <= int(entries.size()); ++k) {
        const QString &entry = entries[k - 1];
        QAction *action = historyAct(k);
        action->setText(HistoryCaption(k, entry));
        action->setIcon(Glyph(entry.endsWith(u'c') ? QStringLiteral("CONSTRUCT") : QStringLiteral("SOLVE")));
        action->setVisible(true);
        historySeparator_->setVisible(true);
        WriteSetting(QStringLiteral("HistoryPuzzle%1").arg(k), entry);
    }
}

QSize TXwdMainForm::MinimumFittedSize() const
{
    const QFontMetrics metrics(DataMemo->font());
    const int width = std::max(270, metrics.horizontalAdvance(QStringLiteral("MBlack Squares: 99 Par: 99M")));
    const int height = menuBar()->sizeHint().height() + ToolPanel->sizeHint().height() + ModeLineHeight +
                       5 * metrics.lineSpacing() + UpdateBtn->sizeHint().height() + Byline->sizeHint().height();
    return {width, height};
}

void TXwdMainForm::PuzzleOpened()
{
    puzzleOpen_ = true;
    if (!firstOpenDone_) {
        firstOpenDone_ = true;
        LogoImage->setVisible(false);
        ModeLabel->setFixedHeight(ModeLineHeight);
        DataMemo->setVisible(true);
        setMinimumSize(MinimumFittedSize().boundedTo(AvailableScreenArea(pos()).size() - QSize(0, TitleBarAllowance)));
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        resize(minimumSize());
        move(FitBoundsToScreen(frameGeometry(), AvailableScreenArea(pos())).topLeft());
    }
    DataMemo->clear();
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->close();
    if (ClockAct->text() == ClockOff)
        ClockActExecute();

    WriteSetting(QStringLiteral("CurrentPuzzle"), CurrentPuzzlePath);
    RebuildHistory();

    if (XwdGridForm) {
        XwdGridForm->setWindowTitle(QFileInfo(CurrentPuzzlePath).fileName());
        if (XwdGridForm->isVisible())
            XwdGridForm->hide();
        XwdGridForm->show();
        XwdGridForm->raise();
    }
    if (CluesForm) {
        CluesForm->setVisible(PuzzleMode == SolveMode);
        if (PuzzleMode == SolveMode)
            CluesForm->Fill();
    }

    if (XwdGridForm)
        XwdGridForm->Editor.Symmetry = 0;
    SymmetryBtnClick();
    updateActions();

    if (PuzzleMode == SolveMode) {
        SymmetryBtn->setIcon(Glyph(QStringLiteral("OFFSYMMETRY")));
        ModeLabel->clear();
        const QByteArray byline = Puzzle.Byline.text();
        if (byline.isEmpty())
            Byline->setText(QStringLiteral("a Quillmark puzzle"));
        else if (byline == "--")
            Byline->clear();
        else
            Byline->setText((QStringLiteral("by ") + FromCp1252(byline)).left(63));
    } else {
        Byline->clear();
        LettersBtn->setChecked(true);
        LettersBtnClick();
        ModeLabel->setText(QStringLiteral("Specifications"));
        UpdateBtnClick();
    }
}

void TXwdMainForm::SquaresBtnClick()
{
    SquaresBtn->setChecked(true);
    if (XwdGridForm && XwdGridForm->Editor.WordDirection != 0)
        XwdGridForm->RestoreHighlight();
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->close();
    PuzzleMode = DesignMode;
    updateActions();
}

void TXwdMainForm::LettersBtnClick()
{
    LettersBtn->setChecked(true);
    PuzzleMode = ConstructMode;
    updateActions();
}

void TXwdMainForm::MouseBtnClick()
{
    if (!XwdGridForm)
        return;
    bool &swapped = XwdGridForm->Editor.MouseSwapped;
    swapped = !swapped;
    MouseBtn->setIcon(Glyph(swapped ? QStringLiteral("MOUSEDWN") : QStringLiteral("MOUSEACR")));
}

void TXwdMainForm::SymmetryBtnClick()
{
    if (!XwdGridForm)
        return;
    int &symmetry = XwdGridForm->Editor.Symmetry;
    symmetry = symmetry == 0 ? 1 : symmetry == 1 ? 2 : 0;
    static const char *const glyphs[] = {"NOTSYMMETRY", "DIAGSYMMETRY", "HORSYMMETRY"};
    static const char *const hints[] = {"Grid symmetry is OFF", "DIAGONAL symmetry", "HORIZONTAL symmetry"};
    SymmetryBtn->setIcon(Glyph(QString::fromLatin1(glyphs[symmetry])));
    setButtonHint(SymmetryBtn, QString::fromLatin1(hints[symmetry]));
    updateActions();
}

void TXwdMainForm::ShowGuidesActExecute()
{
    ShowGuidesAct->setText(ShowGuidesAct->text() == ShowGuides ? HideGuides : ShowGuides);
    if (XwdGridForm)
        XwdGridForm->update();
}

void TXwdMainForm::UpdateBtnClick()
{
    DataMemo->setPlainText(PuzzleSpecText(Puzzle));
    ToolPanel->setFocus();
}

void TXwdMainForm::ShowSolvingClue(int slot)
{
    if (!CluesForm)
        return;
    CluesForm->SelectSlot(slot);
    // A word without a clue slot still names its direction; the status text stays empty.
    if (slot > 0)
        DataMemo->setPlainText(CluesForm->CurrentLine());
    const bool across = XwdGridForm && XwdGridForm->Editor.WordDirection == 1;
    ModeLabel->setText(across ? QStringLiteral("Across Clue") : QStringLiteral("Down Clue"));
}

void TXwdMainForm::ClearSolvingClue()
{
    DataMemo->clear();
    if (PuzzleMode == SolveMode)
        ModeLabel->clear();
    if (CluesForm)
        CluesForm->ClearSelection();
}

void TXwdMainForm::AutoArrangeActExecute()
{
    if (const auto bounds = boundsFromSetting(QStringLiteral("ScreenBoundsMain"))) {
        move(bounds->topLeft());
        resize(bounds->size());
    } else {
        const QRect screen = this->screen() ? this->screen()->availableGeometry() : QRect(0, 0, 1024, 768);
        const QSize minimum = minimumSize();
        move(screen.width() - minimum.width() - 4, 2);
        resize(minimum);
    }
    if (XwdGridForm && XwdGridForm->isVisible())
        XwdGridForm->ArrangeFromSettings();
    for (auto [window, setting] : {std::pair<QWidget *, const char *>{CluesForm, "ScreenBoundsClues"},
                                   std::pair<QWidget *, const char *>{AutoclueForm, "ScreenBoundsAutoclue"}})
        if (window && window->isVisible())
            if (const auto bounds = boundsFromSetting(QString::fromLatin1(setting))) {
                window->move(bounds->topLeft());
                window->resize(bounds->size());
            }
}

void TXwdMainForm::WriteWindowBounds()
{
    writeBoundsOf(QStringLiteral("ScreenBoundsMain"), this);
    if (XwdGridForm)
        writeBoundsOf(QStringLiteral("ScreenBoundsGrid"), XwdGridForm);
    if (CluesForm)
        writeBoundsOf(QStringLiteral("ScreenBoundsClues"), CluesForm);
    if (AutoclueForm && AutoclueForm->isVisible())
        writeBoundsOf(QStringLiteral("ScreenBoundsAutoclue"), AutoclueForm);
    WriteSetting(QStringLiteral("ScreenSquare"), SquareSize);
}

void TXwdMainForm::ApplyPreferences(bool arrange, int code)
{
    if (arrange && puzzleOpen_) {
        if (code >= 1 && code <= ArrangementCount && XwdGridForm) {
            const QRect screen = this->screen() ? this->screen()->availableGeometry() : QRect(0, 0, 1024, 768);
            const QSize clues = CluesForm ? CluesForm->size() : QSize(300, 400);
            const TScreenLayout layout = ArrangementLayout(code, screen, size(), XwdGridForm->size(), clues);
            move(layout.Main.topLeft());
            resize(layout.Main.size().expandedTo(minimumSize()));
            XwdGridForm->move(layout.Grid.topLeft());
            if (CluesForm)
                CluesForm->setGeometry(layout.Clues);
        }
        WriteWindowBounds();
    }
    ReadOwnSettings();
    if (!LogoImage->isVisible())
        AutoArrangeActExecute();
    if (XwdGridForm && XwdGridForm->isVisible())
        XwdGridForm->ReloadSettings();
    if (CluesForm && CluesForm->isVisible())
        CluesForm->LoadFonts();
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->LoadSettings();
    updateActions();
}

void TXwdMainForm::ScorePuzzle1Click()
{
    TScoreForm card(this);
    card.FormShow();
    switch (Dialogs().Exec(&card)) {
    case TScoreForm::ShowErrorsResult:
        if (XwdGridForm)
            XwdGridForm->ShowErrors();
        break;
    case TScoreForm::DeleteResult:
        DeleteSolvedPuzzle();
        break;
    default:
        break;
    }
}

void TXwdMainForm::DeleteSolvedPuzzle()
{
    // The trash first: if it cannot take the file, nothing else changes and nothing is lost.
    if (!MoveToTrash(CurrentPuzzlePath) && QFile::exists(CurrentPuzzlePath)) {
        ShowPuzzleError(QStringLiteral("The puzzle could not be moved to the trash. It is still at %1.")
                            .arg(QDir::toNativeSeparators(CurrentPuzzlePath)));
        return;
    }
    puzzleOpen_ = false;
    updateActions();
    CheatBtn->setToolTip(QString());
    ModeLabel->clear();
    DataMemo->clear();
    Byline->setText(QStringLiteral("!!! DELETED !!!"));
    ClosingAllowed = true;
    if (XwdGridForm)
        XwdGridForm->close();
    if (CluesForm)
        CluesForm->close();
    ClosingAllowed = false;
    PuzzleChanged = false;
    CurrentPuzzlePath.clear();
    WriteSetting(QStringLiteral("CurrentPuzzle"), QString());
    WriteSetting(QStringLiteral("HistoryPuzzle1"), QString());
    RebuildHistory();
}

void TXwdMainForm::ClockActExecute()
{
    if (ClockAct->text() == ClockOn) {
        ClockAct->setText(ClockOff);
        clock_ = new TXwdClockForm(this);
        clock_->show();
    } else {
        ClockAct->setText(ClockOn);
        if (clock_)
            clock_->close();
    }
}

void TXwdMainForm::CheatBtnMouseDown()
{
    if (XwdGridForm)
        XwdGridForm->ShowAnswers();
}

void TXwdMainForm::CheatBtnMouseUp()
{
    if (XwdGridForm)
        XwdGridForm->EndAnswers();
}

void TXwdMainForm::Exit1Click()
{
    close();
}

void TXwdMainForm::closeEvent(QCloseEvent *event)
{
    if (PuzzleChanged && (PuzzleMode != SolveMode || CurrentPuzzlePath.isEmpty())) {
        PlayQuestionSound();
        const TAnswer answer = Dialogs().Ask(this, ChangedQuestion, true);
        if (answer == TAnswer::Cancel) {
            event->ignore();
            return;
        }
        if (answer == TAnswer::No)
            PuzzleChanged = false;
    }
    if (PuzzleChanged && !SaveOrGoOn()) {
        event->ignore();
        return;
    }
    ClosingAllowed = true;
    // Autoclue keeps its bounds as it closes.
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->close();
    if (XwdGridForm)
        XwdGridForm->close();
    if (CluesForm)
        CluesForm->close();
    event->accept();
}

bool TXwdMainForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == DataMemo->viewport() && event->type() == QEvent::MouseButtonPress) {
        ToolPanel->setFocus();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

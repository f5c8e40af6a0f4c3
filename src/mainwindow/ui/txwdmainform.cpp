#include "mainwindow/ui/txwdmainform.h"

#include "clues/ui/tautoclueform.h"
#include "clues/byline.h"
#include "clues/ui/tbylineform.h"
#include "fill/ui/autofillcommands.h"
#include "fill/ui/fillcommands.h"
#include "inspect/ui/inspectcommands.h"
#include "interchange/ui/interchangecommands.h"
#include "mainwindow/history.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/specifications.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/tbylinepanel.h"
#include "mainwindow/ui/editcommands.h"
#include "mainwindow/ui/puzzlecommands.h"
#include "mainwindow/ui/solvingstatus.h"
#include "mainwindow/ui/toolscommands.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/windowarrangement.h"
#include "model/cp1252.h"
#include "output/ui/exportcommands.h"
#include "output/ui/printcommands.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "settings/ui/txwdprefform.h"
#include "solving/ui/solvingcommands.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"
#include "web/ui/webcommands.h"


#include <QAction>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

TXwdMainForm *XwdMainForm = nullptr;

namespace {

const QString HideGuides = QStringLiteral("&Hide Guidelines");
const QString ShowGuides = QStringLiteral("S&how Guidelines");
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

bool open() { return Session().IsOpen(); }
bool constructing() { return Session().IsConstructing(); }
bool solving() { return Session().IsOpen() && Session().IsSolving(); }

}  // namespace

TXwdMainForm::TXwdMainForm(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("XwdMainForm"));
    setWindowTitle(QStringLiteral("Quillmark"));
    if (!XwdMainForm)
        XwdMainForm = this;
    Session().Reset();
    Session().SetPrompts(DialogPrompts());
    createActions();
    createMenus();
    InstallPrintCommands(this);
    createBody();
    createRules();
    InstallPuzzleCommands(this);
    InstallSolvingCommands(this);
    InstallInspectCommands(this);
    InstallExportCommands(this);
    InstallBylineCommands(this);
    InstallToolsCommands(this);
    InstallPreferencesCommand(this);
    InstallHelpCommands(this);
    InstallWebCommands(this);
    InstallInterchangeCommands(this);
    InstallEditCommands(this);
    InstallFillCommands(this);
    InstallAutofillCommands(this);
    status_ = std::make_unique<TSolvingStatusLine>(ModeLabel, DataMemo);
    arrangement_ = std::make_unique<TWindowArrangement>(this);
    connectSession();
    updateActions();
}

TXwdMainForm::~TXwdMainForm() = default;

void TXwdMainForm::connectSession()
{
    TPuzzleSession &session = Session();
    connect(&session, &TPuzzleSession::opened, this, &TXwdMainForm::PuzzleOpened);
    connect(&session, &TPuzzleSession::restored, this, [this] {
        if (constructing() && ModeLabel->text() == QStringLiteral("Specifications"))
            UpdateBtnClick();
    });
    connect(&session, &TPuzzleSession::modeChanged, this, &TXwdMainForm::updateActions);
    connect(&session, &TPuzzleSession::closed, this, &TXwdMainForm::updateActions);
}

void TXwdMainForm::createActions()
{
    OpenSolveAct = makeAction(this, "OpenSolveAct", QStringLiteral("&Solve..."));
    ConstructOpenAct = makeAction(this, "ConstructOpenAct", QStringLiteral("&Open..."));

    const QStringList menuCaptions = {QStringLiteral("&11×"), QStringLiteral("1&3×"), QStringLiteral("1&5×"),
                                      QStringLiteral("1&7×"), QStringLiteral("1&9×"), QStringLiteral("2&1×"),
                                      QStringLiteral("2&3×")};
    for (int i = 0; i < 7; ++i) {
        const int size = 11 + 2 * i;
        auto *action = makeAction(this, QStringLiteral("New%1Act").arg(size).toLatin1().constData(), menuCaptions[i]);
        action->setIconText(QStringLiteral("%1×").arg(size));
        NewActs.append(action);
    }

    SaveAct = makeAction(this, "SaveAct", QStringLiteral("Sa&ve"));
    SaveAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    SavePuzzleAsAct = makeAction(this, "SavePuzzleAsAct", QStringLiteral("Save Puzzle &As..."));
    CopyGridAsAct = makeAction(this, "CopyGridAsAct", QStringLiteral("Copy &Grid As..."));
    RevertToSavedAct = makeAction(this, "RevertToSavedAct", QStringLiteral("&Revert to Saved"));
    ExitAct = makeAction(this, "ExitAct", QStringLiteral("E&xit"));
    ExitAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_X));
    connect(ExitAct, &QAction::triggered, this, &TXwdMainForm::Exit1Click);

    History1Act = makeAction(this, "History1Act", QStringLiteral("&1 Puzzle 1"));
    History2Act = makeAction(this, "History2Act", QStringLiteral("&2 Puzzle 2"));
    History3Act = makeAction(this, "History3Act", QStringLiteral("&3 Puzzle 3"));
    for (int k = 1; k <= HistorySize; ++k)
        HistoryAct(k)->setVisible(false);

    ShowGuidesAct = makeAction(this, "ShowGuidesAct", ShowGuides);
    connect(ShowGuidesAct, &QAction::triggered, this, &TXwdMainForm::ShowGuidesActExecute);
    AutoArrangeAct = makeAction(this, "AutoArrangeAct", QStringLiteral("&Auto Arrange"));
    AutoArrangeAct->setShortcut(QKeySequence(Qt::Key_F9));
    connect(AutoArrangeAct, &QAction::triggered, this, &TXwdMainForm::AutoArrangeActExecute);

    ScorePuzzleAct = makeAction(this, "ScorePuzzleAct", QStringLiteral("&Score Puzzle"));
    ClockAct = makeAction(this, "ClockAct", QStringLiteral("&Clock On"));

    // The grid, clue and tool windows are separate windows: the shortcuts must reach the
    // command from whichever of them has the focus.
    for (QAction *action : findChildren<QAction *>())
        action->setShortcutContext(Qt::ApplicationShortcut);
}

void TXwdMainForm::createRules()
{
    EnableWhen(SaveAct, open);
    // An imported puzzle has no saved file to go back to.
    EnableWhen(RevertToSavedAct, [] { return open() && Session().HasFile(); });
    EnableWhen(AutoArrangeAct, [this] { return firstOpenDone_; });
    for (QAction *action : {SavePuzzleAsAct, CopyGridAsAct, ShowGuidesAct})
        EnableWhen(action, constructing);
    for (QWidget *button : {SquaresBtn, LettersBtn, AutoclueBtn})
        EnableWhen(button, constructing);
    rules_.push_back([this] { UpdateBtn->setVisible(constructing()); });
    EnableWhen(CheatBtn, solving);
    EnableWhen(ScorePuzzleAct, solving);
    EnableWhen(ClockAct, solving);
    EnableWhen(SymmetryBtn, [] { return constructing() && PuzzleMode == DesignMode; });
}

void TXwdMainForm::EnableWhen(QAction *action, std::function<bool()> rule)
{
    rules_.push_back([action, rule = std::move(rule)] { action->setEnabled(rule()); });
}

void TXwdMainForm::EnableWhen(QWidget *widget, std::function<bool()> rule)
{
    rules_.push_back([widget, rule = std::move(rule)] { widget->setEnabled(rule()); });
}

void TXwdMainForm::ShowWhen(QAction *action, std::function<bool()> rule)
{
    rules_.push_back([action, rule = std::move(rule)] { action->setVisible(rule()); });
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
    HistorySeparator = puzzle->addSeparator();
    HistorySeparator->setVisible(false);
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

bool TXwdMainForm::IsPuzzleOpen() const
{
    return Session().IsOpen();
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

    Byline = new TBylinePanel(body);
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

QAction *TXwdMainForm::HistoryAct(int k) const
{
    return k == 1 ? History1Act : k == 2 ? History2Act : History3Act;
}

void TXwdMainForm::updateActions()
{
    for (const auto &rule : rules_)
        rule();
    for (QToolButton *button : {MouseBtn, CheatBtn, SquaresBtn, LettersBtn, SymmetryBtn, AutoclueBtn}) {
        const QString hint = button->property("hint").toString();
        // The symmetry hint stays readable while constructing, also while the button rests.
        const bool showHint = button->isEnabled() || (button == SymmetryBtn && constructing());
        button->setToolTip(showHint ? hint : QString());
    }
    emit ActionsUpdated();
    hideEmptyMenus();
}

void TXwdMainForm::ReadOwnSettings()
{
    const TFontSetting status = ReadFontSetting(Setting::StatusFont);
    DataMemo->setFont(status.Font);
    QPalette palette = DataMemo->palette();
    palette.setColor(QPalette::Text, status.Color);
    DataMemo->setPalette(palette);
    PlaySounds = ReadInt(Setting::PlaySounds);
}

void TXwdMainForm::FormShow(const QStringList &arguments)
{
    ReadOwnSettings();
    // Fixed until a puzzle is open: the logo's width and everything stacked above it.
    setFixedWidth(LogoImage->sizeHint().width() + 12);
    setFixedHeight(sizeHint().height());
    arrangement_->PlaceAtStart();
    if (arguments.isEmpty())
        RebuildHistory();
    else
        Session().OpenFile(arguments.at(0), arguments.value(1).toUpper() == u"-S");
}

void TXwdMainForm::RebuildHistory()
{
    RebuildHistoryMenu(this);
}

QSize TXwdMainForm::MinimumFittedSize() const
{
    const QFontMetrics metrics(DataMemo->font());
    // Wide enough for the status text and for every menu title the open puzzle shows.
    const int width = std::max({270, metrics.horizontalAdvance(QStringLiteral("MBlack Squares: 99 Par: 99M")),
                                menuBar()->sizeHint().width()});
    const int height = menuBar()->sizeHint().height() + ToolPanel->sizeHint().height() + ModeLineHeight +
                       5 * metrics.lineSpacing() + UpdateBtn->sizeHint().height() + Byline->heightForWidth(width);
    return {width, height};
}

void TXwdMainForm::PuzzleOpened()
{
    const bool firstOpen = !firstOpenDone_;
    if (firstOpen) {
        firstOpenDone_ = true;
        LogoImage->setVisible(false);
        ModeLabel->setFixedHeight(ModeLineHeight);
        DataMemo->setVisible(true);
    }
    DataMemo->clear();
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->close();
    RebuildHistory();

    if (XwdGridForm) {
        // Showing makes a file's name the caption; an import's caption stands as it is.
        XwdGridForm->setWindowTitle(Session().HasFile() ? Session().Title() : QString());
        if (XwdGridForm->isVisible())
            XwdGridForm->hide();
        XwdGridForm->show();
        XwdGridForm->raise();
        if (!Session().HasFile())
            XwdGridForm->setWindowTitle(Session().Title());
    }
    const bool solvingNow = PuzzleMode == SolveMode;
    if (CluesForm) {
        CluesForm->setVisible(solvingNow);
        if (solvingNow)
            CluesForm->Fill();
    }

    // Every opened puzzle starts with diagonal symmetry.
    if (XwdGridForm)
        XwdGridForm->NextSymmetry(true);
    showSymmetry();
    updateActions();
    // Fitted once the commands of an open puzzle show, their menus' titles among them.
    if (firstOpen)
        arrangement_->FitMainWindow(MinimumFittedSize());

    if (solvingNow) {
        SymmetryBtn->setIcon(Glyph(QStringLiteral("OFFSYMMETRY")));
        ModeLabel->clear();
        Byline->setText(BylineCaption(Puzzle));
    } else {
        Byline->clear();
        LettersBtn->setChecked(true);
        LettersBtnClick();
        ModeLabel->setText(QStringLiteral("Specifications"));
        UpdateBtnClick();
    }
    // The byline panel takes the lines its byline needs, not the status text's room.
    setMinimumHeight(MinimumFittedSize().height());
}

void TXwdMainForm::SquaresBtnClick()
{
    SquaresBtn->setChecked(true);
    if (XwdGridForm && XwdGridForm->Editor.WordDirection != 0)
        XwdGridForm->RestoreHighlight();
    if (AutoclueForm && AutoclueForm->isVisible())
        AutoclueForm->close();
    Session().SetMode(DesignMode);
}

void TXwdMainForm::LettersBtnClick()
{
    LettersBtn->setChecked(true);
    Session().SetMode(ConstructMode);
}

void TXwdMainForm::MouseBtnClick()
{
    if (XwdGridForm)
        MouseBtn->setIcon(
            Glyph(XwdGridForm->ToggleMouseSwapped() ? QStringLiteral("MOUSEDWN") : QStringLiteral("MOUSEACR")));
}

void TXwdMainForm::SymmetryBtnClick()
{
    if (!XwdGridForm)
        return;
    XwdGridForm->NextSymmetry();
    showSymmetry();
    updateActions();
}

void TXwdMainForm::showSymmetry()
{
    if (!XwdGridForm)
        return;
    static const char *const glyphs[] = {"NOTSYMMETRY", "DIAGSYMMETRY", "HORSYMMETRY"};
    static const char *const hints[] = {"Grid symmetry is OFF", "DIAGONAL symmetry", "HORIZONTAL symmetry"};
    const int symmetry = XwdGridForm->Editor.Symmetry;
    SymmetryBtn->setIcon(Glyph(QString::fromLatin1(glyphs[symmetry])));
    setButtonHint(SymmetryBtn, QString::fromLatin1(hints[symmetry]));
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
    status_->Show(slot);
}

void TXwdMainForm::ClearSolvingClue()
{
    status_->Clear();
}

void TXwdMainForm::AutoArrangeActExecute()
{
    arrangement_->AutoArrange(minimumSize());
}

void TXwdMainForm::WriteWindowBounds()
{
    arrangement_->WriteWindowBounds();
}

void TXwdMainForm::ApplyPreferences(bool arrange, int code)
{
    if (arrange && IsPuzzleOpen()) {
        arrangement_->Arrange(code, minimumSize());
        arrangement_->WriteWindowBounds();
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

void TXwdMainForm::Exit1Click()
{
    close();
}

void TXwdMainForm::closeEvent(QCloseEvent *event)
{
    if (!Session().Close()) {
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

#include "mainwindow/ui/tprogram.h"

#include "clues/ui/tautoclueform.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/recovery.h"
#include "mainwindow/ui/recoveryoffer.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"
#include "settings/txwdprocs.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QMenuBar>
#include <QScreen>
#include <QStyle>

TProgram::TProgram()
{
    main_ = std::make_unique<TXwdMainForm>();
    MainForm = main_.get();
    XwdMainForm = MainForm;
    procs_ = std::make_unique<TXwdProcs>();
    Procs = procs_.get();
    XwdProcs = Procs;
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        const int caption = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
        Procs->SetScreenMetrics(screen->availableGeometry().height() - caption,
                                MainForm->menuBar()->sizeHint().height());
    }

    // Tool windows of the main window: they stay beside it and go with it.
    GridForm = new TXwdGridForm(MainForm);
    XwdGridForm = GridForm;
    AutoclueForm = new TAutoclueForm(MainForm);
    ::AutoclueForm = AutoclueForm;
    CluesForm = new TCluesForm(MainForm);
    ::CluesForm = CluesForm;
    sound_ = std::make_unique<TSoundFX>();
    SoundFX = sound_.get();
    ::SoundFX = SoundFX;
    InfoWin = new TInfoWin(MainForm);
    ::InfoWin = InfoWin;

    // The changed puzzle is kept in a recovery file until it is saved, declined or closed.
    recovery_ = std::make_unique<TRecoveryKeeper>();
    TRecoveryKeeper *keeper = recovery_.get();
    const auto sync = [keeper] { keeper->PuzzleStateChanged(); };
    TPuzzleSession *session = &Session();
    // Every open, change, undo and save of the puzzle ends with historyChanged.
    QObject::connect(session, &TPuzzleSession::historyChanged, keeper, sync);
    QObject::connect(session, &TPuzzleSession::closed, keeper, &TRecoveryKeeper::PuzzleClosed);

    GridForm->setGuidesAction(MainForm->ShowGuidesAct);
    QObject::connect(GridForm, &TXwdGridForm::clueSelected, MainForm, &TXwdMainForm::ShowSolvingClue);
    QObject::connect(GridForm, &TXwdGridForm::clueDisplayCleared, MainForm, &TXwdMainForm::ClearSolvingClue);
}

TProgram::~TProgram()
{
    // The tool windows refuse to close otherwise.
    ClosingAllowed = true;
    recovery_.reset();
    XwdGridForm = nullptr;
    ::AutoclueForm = nullptr;
    ::CluesForm = nullptr;
    ::InfoWin = nullptr;
    main_.reset();
    XwdMainForm = nullptr;
    ::SoundFX = nullptr;
    sound_.reset();
    XwdProcs = nullptr;
    procs_.reset();
    ClosingAllowed = false;
}

void TProgram::Start(const QStringList &arguments)
{
    MainForm->show();
    MainForm->FormShow(arguments);
}

void TProgram::OfferRecovery()
{
    ::OfferRecovery(MainForm, *recovery_);
}

bool TQuillmarkApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &e) {
        ShowPuzzleError(QString::fromLocal8Bit(e.what()));
        return false;
    }
}

#include "solving/ui/solvingcommands.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/txwdmainform.h"
#include "solving/ui/tscoreform.h"
#include "solving/ui/txwdclockform.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QToolButton>

namespace {

const QString ClockOn = QStringLiteral("&Clock On");
const QString ClockOff = QStringLiteral("&Clock Off");

// The score card's delete choice: the solved puzzle goes to the trash, and the windows
// show that nothing is open.
void deleteSolvedPuzzle(TXwdMainForm *form)
{
    if (!Session().DeleteSolved())
        return;
    form->CheatBtn->setToolTip(QString());
    form->ModeLabel->clear();
    form->DataMemo->clear();
    form->Byline->setText(QStringLiteral("!!! DELETED !!!"));
    ClosingAllowed = true;
    if (XwdGridForm)
        XwdGridForm->close();
    if (CluesForm)
        CluesForm->close();
    ClosingAllowed = false;
    form->RebuildHistory();
}

void scorePuzzle(TXwdMainForm *form)
{
    TScoreForm card(form);
    card.FormShow();
    switch (Dialogs().Exec(&card)) {
    case TScoreForm::ShowErrorsResult:
        if (XwdGridForm)
            XwdGridForm->ShowErrors();
        break;
    case TScoreForm::DeleteResult:
        deleteSolvedPuzzle(form);
        break;
    default:
        break;
    }
}

}  // namespace

void InstallSolvingCommands(TXwdMainForm *form)
{
    QObject::connect(form->ScorePuzzleAct, &QAction::triggered, form, [form] { scorePuzzle(form); });

    // The clock runs while the caption offers to stop it; a new puzzle stops it.
    auto clock = std::make_shared<QPointer<TXwdClockForm>>();
    QAction *clockAct = form->ClockAct;
    const auto toggleClock = [form, clockAct, clock] {
        if (clockAct->text() == ClockOn) {
            clockAct->setText(ClockOff);
            *clock = new TXwdClockForm(form);
            (*clock)->show();
        } else {
            clockAct->setText(ClockOn);
            if (*clock)
                (*clock)->close();
        }
    };
    QObject::connect(clockAct, &QAction::triggered, form, toggleClock);
    QObject::connect(&Session(), &TPuzzleSession::opened, clockAct, [clockAct, toggleClock] {
        if (clockAct->text() == ClockOff)
            toggleClock();
    });

    // While the answer button is held, the grid shows the answers.
    QObject::connect(form->CheatBtn, &QToolButton::pressed, form, [] {
        if (XwdGridForm)
            XwdGridForm->ShowAnswers();
    });
    QObject::connect(form->CheatBtn, &QToolButton::released, form, [] {
        if (XwdGridForm)
            XwdGridForm->EndAnswers();
    });
}

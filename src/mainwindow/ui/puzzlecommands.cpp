#include "mainwindow/ui/puzzlecommands.h"

#include "mainwindow/history.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/txwdmainform.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>

namespace {

void showSaving()
{
    if (!InfoWin)
        return;
    QPoint at(35, 35);
    if (XwdGridForm)
        at += XwdGridForm->pos();
    InfoWin->ShowProgress(TInfoWin::Saving, at);
}

void saveAs()
{
    // The version-5 copy is an export, and shows its progress like Save.
    bool copy = false;
    const auto watch = QObject::connect(&Session(), &TPuzzleSession::saved,
                                        [&copy](const QString &, bool version5) { copy = version5; });
    Session().SaveAs();
    QObject::disconnect(watch);
    if (copy)
        showSaving();
}

void revert(TXwdMainForm *form)
{
    if (!Session().Revert())
        return;
    if (XwdGridForm)
        XwdGridForm->DropCurrentWord();
    if (PuzzleMode != SolveMode) {
        form->UpdateBtnClick();
        return;
    }
    form->ModeLabel->clear();
    form->DataMemo->clear();
    if (CluesForm) {
        CluesForm->Fill();
        CluesForm->ClearSelection();
    }
}

}  // namespace

void InstallPuzzleCommands(TXwdMainForm *form)
{
    const auto on = [form](QAction *action, auto command) { QObject::connect(action, &QAction::triggered, form, command); };
    on(form->OpenSolveAct, [] { Session().Open(true); });
    on(form->ConstructOpenAct, [] { Session().Open(false); });
    for (QAction *action : form->NewActs)
        on(action, [action] { Session().New(action->iconText().left(2).toInt()); });
    on(form->SaveAct, [] {
        if (Session().Save())
            showSaving();
    });
    on(form->SavePuzzleAsAct, saveAs);
    on(form->CopyGridAsAct, [] { Session().CopyGridAs(); });
    on(form->RevertToSavedAct, [form] { revert(form); });
    for (int k = 1; k <= HistorySize; ++k)
        on(form->HistoryAct(k), [k] { Session().OpenHistory(k); });
}

void RebuildHistoryMenu(TXwdMainForm *form)
{
    const QStringList entries = Session().RebuildHistory();
    form->HistorySeparator->setVisible(false);
    for (int k = 1; k <= HistorySize; ++k)
        form->HistoryAct(k)->setVisible(false);
    for (int k = 1; k <= int(entries.size()); ++k) {
        const QString &entry = entries[k - 1];
        QAction *action = form->HistoryAct(k);
        action->setText(HistoryCaption(k, entry));
        action->setIcon(Glyph(entry.endsWith(u'c') ? QStringLiteral("CONSTRUCT") : QStringLiteral("SOLVE")));
        action->setVisible(true);
        form->HistorySeparator->setVisible(true);
    }
}

#include "output/ui/printcommands.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/specifications.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzle.h"
#include "output/ui/tpreviewform.h"
#include "output/ui/txwdprintform.h"
#include "output/printsettings.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QMenu>
#include <QPrinter>

namespace {

void PrinterSetup1Click(TXwdMainForm *form)
{
    Dialogs().ChoosePrinter(form, CurrentPrinter());
}

}  // namespace

void Print1Click(TXwdMainForm *form)
{
    if (!form->IsPuzzleOpen())
        return;
    if (PuzzleMode == SolveMode) {
        TPrintJob job;
        job.Title = TitleForPuzzlePath(CurrentPuzzlePath);
        job.BlockColor = BlockColorFor(ReadGraySquares());
        ReadPrintSettings(job);
        job.set(TPageFormat::PuzzlePage, true);
        if (InfoWin)
            InfoWin->ShowProgress(TInfoWin::Printing, QPoint(35, 35) + (XwdGridForm ? XwdGridForm->pos() : QPoint()));
        QPrinter &printer = CurrentPrinter();
        printer.setDocName(job.Title);
        if (!PrintPages(printer, ComposePages(Puzzle, JobForPrinter(job, printer)), 1))
            ShowPuzzleError(QStringLiteral("The printer could not be started."));
        if (InfoWin)
            InfoWin->hide();
        return;
    }
    TPreviewForm preview(form);
    TXwdPrintForm dialog(&preview, form);
    dialog.PuzzleSpecText = PuzzleSpecText(Puzzle).trimmed();
    Dialogs().Exec(&dialog);
}

void InstallPrintCommands(TXwdMainForm *form)
{
    auto *print = new QAction(QStringLiteral("&Print..."), form);
    print->setObjectName(QStringLiteral("PrintAct"));
    print->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    print->setShortcutContext(Qt::ApplicationShortcut);
    auto *setup = new QAction(QStringLiteral("Printer Set&up..."), form);
    setup->setObjectName(QStringLiteral("PrinterSetupAct"));
    QObject::connect(print, &QAction::triggered, form, [form] { Print1Click(form); });
    QObject::connect(setup, &QAction::triggered, form, [form] { PrinterSetup1Click(form); });

    QMenu *menu = form->Menu(QStringLiteral("PuzzleMenu"));
    QMenu *exportMenu = form->Menu(QStringLiteral("ExportMenu"));
    QAction *before = exportMenu ? exportMenu->menuAction() : nullptr;
    menu->insertActions(before, {print, setup});
    form->EnableWhen(print, [form] { return form->IsPuzzleOpen(); });
}

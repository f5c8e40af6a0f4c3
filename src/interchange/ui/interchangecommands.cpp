#include "interchange/ui/interchangecommands.h"

#include "interchange/interchange.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"

#include <QAction>
#include <QDir>
#include <QMenu>

namespace {

void exportAs(TXwdMainForm *form, TFileKind kind)
{
    const bool puz = kind == TFileKind::Puz;
    const QString extension = puz ? QStringLiteral("puz") : QStringLiteral("ipuz");
    const QString title = CurrentPuzzlePath.isEmpty() ? QStringLiteral("untitled") : TitleFromPath(CurrentPuzzlePath);
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = puz ? QStringLiteral("Export as Across Lite puzzle") : QStringLiteral("Export as ipuz puzzle");
    request.Filter = puz ? QStringLiteral("Across Lite Puzzle|*.puz") : QStringLiteral("ipuz Puzzle|*.ipuz");
    request.DefaultExtension = extension;
    request.Directory = QDir::currentPath();
    request.FileName = title + u'.' + extension;
    const auto choice = Dialogs().ChooseFile(form, request);
    if (!choice)
        return;
    QString path = choice->Path;
    if (FileKindOf(path) != kind)
        path += u'.' + extension;
    QStringList warnings;
    try {
        WriteFileAtomically(path, ExportPuzzle(Puzzle, kind, title, &warnings));
    } catch (const TInterchangeError &e) {
        ShowPuzzleError(e.message());
        return;
    } catch (const TPuzzleIOError &e) {
        ShowPuzzleError(QStringLiteral("The puzzle could not be exported.\n%1").arg(QString::fromStdString(e.what())));
        return;
    }
    if (InfoWin)
        InfoWin->ShowProgress(TInfoWin::Exporting, form->pos() + QPoint(35, 35));
    if (!warnings.isEmpty())
        Dialogs().Inform(form, QStringLiteral("%1 was written, but:\n\n%2")
                                   .arg(QFileInfo(path).fileName(), warnings.join(QStringLiteral("\n\n"))));
}

}  // namespace

void InstallInterchangeCommands(TXwdMainForm *form)
{
    QMenu *menu = form->Menu(QStringLiteral("ExportMenu"));
    auto *puz = new QAction(QStringLiteral("Across Lite (.&puz)..."), form);
    puz->setObjectName(QStringLiteral("ExportPuzAct"));
    auto *ipuz = new QAction(QStringLiteral("&ipuz (.ipuz)..."), form);
    ipuz->setObjectName(QStringLiteral("ExportIpuzAct"));
    QObject::connect(puz, &QAction::triggered, form, [form] { exportAs(form, TFileKind::Puz); });
    QObject::connect(ipuz, &QAction::triggered, form, [form] { exportAs(form, TFileKind::Ipuz); });
    menu->addSeparator();
    menu->addActions({puz, ipuz});
    for (QAction *action : {puz, ipuz})
        form->EnableWhen(action, [form] { return form->IsPuzzleOpen(); });
}

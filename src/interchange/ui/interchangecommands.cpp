#include "interchange/ui/interchangecommands.h"

#include "interchange/interchange.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QRegularExpression>

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
    QObject::connect(form, &TXwdMainForm::ActionsUpdated, form, [form, puz, ipuz] {
        puz->setEnabled(form->IsPuzzleOpen());
        ipuz->setEnabled(form->IsPuzzleOpen());
        // An imported puzzle has no saved file to go back to.
        if (CurrentPuzzlePath.isEmpty())
            form->RevertToSavedAct->setEnabled(false);
    });
}

QString InterchangeOpenFilter()
{
    return QStringLiteral("|Across Lite Puzzle|*.puz|ipuz Puzzle|*.ipuz");
}

bool IsInterchangeFile(const QString &path)
{
    const TFileKind kind = FileKindOf(path);
    return kind == TFileKind::Puz || kind == TFileKind::Ipuz;
}

bool OpenInterchangeFile(TXwdMainForm *form, const QString &path, bool solving)
{
    TImportedPuzzle imported;
    try {
        try {
            imported = ImportPuzzleFile(path);
        } catch (const TLongTextError &e) {
            PlayQuestionSound();
            if (Dialogs().Ask(form, e.message() + QStringLiteral("\n\nCut them to fit and open the puzzle?"), false) !=
                TAnswer::Yes)
                return false;
            imported = ImportPuzzleFile(path, {true});
        }
    } catch (const TInterchangeError &e) {
        ShowPuzzleError(e.message());
        return false;
    }
    Puzzle = imported.Puzzle;
    PuzzleMode = solving ? SolveMode : ConstructMode;
    // No .xwd file yet: Save asks for one, and closing asks before anything is lost.
    CurrentPuzzlePath.clear();
    form->PuzzleOpened();
    // The file's title is the name the first Save offers, less what file names cannot hold.
    static const QRegularExpression unsafe(QStringLiteral(R"([/\\:*?"<>|\x00-\x1f]+)"));
    form->SuggestedPuzzleName = imported.Title.replace(unsafe, QStringLiteral(" ")).simplified();
    PuzzleChanged = true;
    if (XwdGridForm)
        XwdGridForm->setWindowTitle(QStringLiteral("%1 (not saved)").arg(QFileInfo(path).completeBaseName().toUpper()));
    if (!imported.Warnings.isEmpty())
        Dialogs().Inform(form, QStringLiteral("%1 was opened, but:\n\n%2")
                                   .arg(QFileInfo(path).fileName(), imported.Warnings.join(QStringLiteral("\n\n"))));
    return true;
}

bool SaveUntitledPuzzle(TXwdMainForm *form)
{
    form->CopyGridAs1Click(form->SavePuzzleAsAct);
    return !CurrentPuzzlePath.isEmpty();
}

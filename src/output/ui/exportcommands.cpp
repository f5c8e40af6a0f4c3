#include "output/ui/exportcommands.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/specifications.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzle.h"
#include "model/puzzlefile.h"
#include "output/ui/texportform.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>

namespace {

void showExporting()
{
    if (!InfoWin)
        return;
    QPoint at(35, 35);
    if (XwdGridForm)
        at += XwdGridForm->pos();
    InfoWin->ShowProgress(TInfoWin::Exporting, at);
}

// The save dialog for an export, offering the current puzzle's name with `extension`.
std::optional<TFileChoice> chooseExportFile(QWidget *parent, const QString &title, const QString &filter,
                                            const QString &extension)
{
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = title;
    request.Filter = filter;
    request.DefaultExtension = extension;
    const QFileInfo current(CurrentPuzzlePath);
    request.Directory = current.absolutePath();
    request.FileName = current.completeBaseName() + u'.' + extension;
    return Dialogs().ChooseFile(parent, request);
}

// Runs one export; a file that cannot be written is reported with its reason.
template <typename Work>
bool runExport(Work work)
{
    showExporting();
    try {
        work();
        return true;
    } catch (const TPuzzleIOError &e) {
        ShowPuzzleError(QString::fromStdString(e.what()));
        return false;
    }
}

void ExportEPS1Click(TXwdMainForm *form)
{
    const auto choice = chooseExportFile(
        form, QStringLiteral("Export EPS"),
        QStringLiteral("Encapsulated PostScript|*.eps|Light Encapsulated PostScript|*.eps"), QStringLiteral("eps"));
    if (!choice)
        return;
    const EpsStyle style = choice->FilterIndex == 2 ? EpsStyle::Light : EpsStyle::Regular;
    runExport([&] { ExportForm->ExportEpsFiles(choice->Path, style); });
}

void ExportMetafile1Click(TXwdMainForm *form)
{
    const auto choice = chooseExportFile(form, QStringLiteral("Export Metafile"),
                                         QStringLiteral("Windows Metafile|*.wmf"), QStringLiteral("wmf"));
    if (!choice)
        return;
    runExport([&] { ExportForm->ExportGridPicture(choice->Path, 0); });
}

void ExportRTFFile1Click(TXwdMainForm *form)
{
    Dialogs().Inform(form, QStringLiteral(
        "Selecting Export RTF Manuscript places an image of the crossword puzzle solution grid on the clipboard "
        "and opens the generated document for editing. Page down to the end of the document and paste the "
        "solution grid where indicated. Edit as needed. Then save and close the document."));
    const auto choice = chooseExportFile(form, QStringLiteral("Export RTF File"),
                                         QStringLiteral("Rich Text Format|*.rtf"), QStringLiteral("rtf"));
    if (!choice)
        return;
    const bool written = runExport([&] {
        ExportForm->PuzzleSpecText = PuzzleSpecText(Puzzle).trimmed();
        ExportForm->ExportRtfManuscript(choice->Path);
    });
    if (written)
        TExportForm::OpenDocument(ExportForm->ExportFileName);
}

// The four clipboard commands: 1..3 the grid pictures, 0 the clue text.
void ToClipboardClick(int target)
{
    showExporting();
    if (target == 0)
        ExportForm->CopyCluesToClipboard();
    else
        ExportForm->ExportGridPicture(QString(), target);
}

}  // namespace

void InstallExportCommands(TXwdMainForm *form)
{
    new TExportForm(form);
    QList<QAction *> actions;
    auto add = [&](QMenu *menu, const char *name, const QString &caption, auto handler) {
        auto *action = new QAction(caption, form);
        action->setObjectName(QString::fromLatin1(name));
        QObject::connect(action, &QAction::triggered, form, handler);
        menu->addAction(action);
        actions.append(action);
    };
    QMenu *exports = form->Menu(QStringLiteral("ExportMenu"));
    QMenu *clipboard = form->Menu(QStringLiteral("ClipboardMenu"));
    add(exports, "ExportEPSAct", QStringLiteral("Export &EPS"), [form] { ExportEPS1Click(form); });
    add(exports, "ExportWMFAct", QStringLiteral("Export Metafile"), [form] { ExportMetafile1Click(form); });
    add(exports, "ExportRTFAct", QStringLiteral("Export RTF File"), [form] { ExportRTFFile1Click(form); });
    add(clipboard, "GridtoClipAct", QStringLiteral("&Grid to Clipboard"), [] { ToClipboardClick(1); });
    add(clipboard, "SolutiontoClipAct", QStringLiteral("&Solution to Clipboard"), [] { ToClipboardClick(2); });
    add(clipboard, "RTFGridtoClipAct", QStringLiteral("RT&F Grid to Clipboard"), [] { ToClipboardClick(3); });
    add(clipboard, "CluestoClipAct", QStringLiteral("&Clues to Clipboard"), [] { ToClipboardClick(0); });
    for (QAction *action : actions)
        form->EnableWhen(action, [form] { return form->IsPuzzleOpen(); });
}

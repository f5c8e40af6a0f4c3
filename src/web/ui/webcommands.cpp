#include "web/ui/webcommands.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"
#include "web/webpage.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace {

const QString WebFilter = QStringLiteral("Web Page|*.html");

// The file to write, with ".html" added when the name has no extension.
std::optional<QString> chooseWebFile(TXwdMainForm *form, const QString &title, const QString &fileName)
{
    TFileRequest request;
    request.Kind = TFileRequest::Save;
    request.Title = title;
    request.Filter = WebFilter;
    request.DefaultExtension = QStringLiteral("html");
    request.FileName = fileName;
    request.Directory = CurrentPuzzlePath.isEmpty() ? QDir::currentPath() : QFileInfo(CurrentPuzzlePath).absolutePath();
    const auto choice = Dialogs().ChooseFile(form, request);
    if (!choice || choice->Path.isEmpty())
        return std::nullopt;
    QString path = choice->Path;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".html");
    return path;
}

void writePage(const QString &path, const QByteArray &page)
{
    try {
        WriteFileAtomically(path, page);
    } catch (const TPuzzleIOError &e) {
        ShowPuzzleError(QStringLiteral("The web page could not be written.\n%1").arg(QString::fromStdString(e.what())));
    }
}

}  // namespace

void ExporttoWebActExecute(TXwdMainForm *form)
{
    if (!form->IsPuzzleOpen())
        return;
    if (const QString unfinished = UnfinishedPuzzleMessage(Puzzle); !unfinished.isEmpty()) {
        ShowPuzzleError(unfinished);
        return;
    }
    const QString title = WebTitleFor(CurrentPuzzlePath);
    const auto path = chooseWebFile(form, QStringLiteral("Export to Web"), title + QStringLiteral(".html"));
    if (path)
        writePage(*path, WebPage(Puzzle, title));
}

void GeneratePlayerActExecute(TXwdMainForm *form)
{
    const auto path = chooseWebFile(form, QStringLiteral("Generate Player"), QStringLiteral("player.html"));
    if (path)
        writePage(*path, PlayerPage());
}

void InstallWebCommands(TXwdMainForm *form)
{
    QMenu *menu = form->Menu(QStringLiteral("ExportMenu"));
    auto *exportAct = new QAction(QStringLiteral("Export to &Web..."), form);
    exportAct->setObjectName(QStringLiteral("ExporttoWebAct"));
    auto *playerAct = new QAction(QStringLiteral("&Generate Player..."), form);
    playerAct->setObjectName(QStringLiteral("GeneratePlayerAct"));
    menu->addAction(exportAct);
    menu->addAction(playerAct);
    QObject::connect(exportAct, &QAction::triggered, form, [form] { ExporttoWebActExecute(form); });
    QObject::connect(playerAct, &QAction::triggered, form, [form] { GeneratePlayerActExecute(form); });
    form->EnableWhen(exportAct, [form] { return form->IsPuzzleOpen(); });
}

#include "mainwindow/companiontools.h"

#include "settings/txwdprocs.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

const std::array<TCompanionTool, CompanionToolCount> &CompanionTools()
{
    static const std::array<TCompanionTool, CompanionToolCount> tools = {{
        {"DictionaryAct", "&Dictionary...", &Setting::DictPath, "", ""},
        {"ThesaurusAct", "&Thesaurus...", &Setting::ThesPath, "", ""},
        {"CluevaultAct", "&Cluevault...", &Setting::CluePath, "XwdCluevault.exe", "Quillmark Cluevault"},
        {"ScratchpadAct", "&Scratchpad...", &Setting::ScraPath, "Jotpad.exe", "Quillmark Scratchpad"},
        {"PostrunnerAct", "&Postrunner...", &Setting::MailPath, "XwdPostrunner.exe", "Quillmark Postrunner"},
    }};
    return tools;
}

QString CompanionToolPath(int tool)
{
    return ReadText(*CompanionTools().at(tool).PathSetting);
}

QString ToolFailureMessage(const QString &caption)
{
    const qsizetype amp = caption.indexOf(u'&');
    QString name = amp >= 0 ? caption.mid(amp + 1) : caption;
    const qsizetype dots = name.indexOf(QStringLiteral("..."));
    if (dots >= 0)
        name.truncate(dots);
    return name + QStringLiteral(" has not been properly configured.");
}

namespace {

std::optional<QString> executable(const QString &program)
{
    if (program.isEmpty())
        return std::nullopt;
    // A bare name is looked up on PATH as a shell would; a name with a folder is taken as it is.
    if (!program.contains(u'/')) {
        const QString found = QStandardPaths::findExecutable(program);
        if (found.isEmpty())
            return std::nullopt;
        return QFileInfo(found).absoluteFilePath();
    }
    const QFileInfo file(program);
    if (!file.isFile() || !file.isExecutable())
        return std::nullopt;
    return file.absoluteFilePath();
}

}  // namespace

std::optional<TToolCommand> ToolCommand(const QString &commandLine)
{
    const QString whole = commandLine.trimmed();
    if (whole.isEmpty())
        return std::nullopt;
    if (whole.contains(u'/'))
        if (const auto program = executable(whole))
            return TToolCommand{*program, {}};
    QStringList words = QProcess::splitCommand(whole);
    if (words.isEmpty())
        return std::nullopt;
    const auto program = executable(words.takeFirst());
    if (!program)
        return std::nullopt;
    return TToolCommand{*program, words};
}

QString CompanionWindowTitle(const QString &commandLine)
{
    const auto command = ToolCommand(commandLine);
    const QString fileName = QFileInfo(command ? command->Program : commandLine).fileName();
    for (const TCompanionTool &tool : CompanionTools())
        if (*tool.CompanionFile && fileName.compare(QString::fromLatin1(tool.CompanionFile), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(tool.WindowTitle);
    return {};
}

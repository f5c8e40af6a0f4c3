#include "mainwindow/companiontools.h"

#include "settings/txwdprocs.h"

#include <QFileInfo>

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

QString CompanionWindowTitle(const QString &commandLine)
{
    const QString fileName = QFileInfo(commandLine).fileName();
    for (const TCompanionTool &tool : CompanionTools())
        if (*tool.CompanionFile && fileName.compare(QString::fromLatin1(tool.CompanionFile), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(tool.WindowTitle);
    return {};
}

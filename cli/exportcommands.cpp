// The exports in batch: EPS, metafile and RTF files, the clue text and the grid picture.

#include "cli.h"
#include "mainwindow/specifications.h"
#include "output/clipboardtext.h"
#include "output/eps.h"
#include "output/gridpicture.h"
#include "output/rtf.h"

#include <QFile>
#include <QFileInfo>

namespace {

void writeSetOrFail(const QList<TExportFile> &files)
{
    try {
        WriteExportSet(files);
    } catch (const TPuzzleIOError &e) {
        throw TCliError{ExitUnwritable, QString::fromStdString(e.what())};
    }
}

int exportEps(Arguments args, QTextStream &)
{
    const bool light = args.flag(QStringLiteral("--light"));
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT.eps"));
    const TPuzzle p = LoadOrFail(paths[0]).Puzzle;
    writeSetOrFail(EpsExportSet(p, paths[1], light ? EpsStyle::Light : EpsStyle::Regular, ShortDateToday()));
    return 0;
}

int exportWmf(Arguments args, QTextStream &)
{
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT.wmf"));
    const TPuzzle p = LoadOrFail(paths[0]).Puzzle;
    writeSetOrFail(WmfExportSet(p, paths[1]));
    return 0;
}

int exportRtf(Arguments args, QTextStream &)
{
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT.rtf"));
    const TPuzzle p = LoadOrFail(paths[0]).Puzzle;
    const QByteArray bytes =
        RtfManuscript(p, RtfAddressFromSettings(), RtfBaseName(paths[1]), PuzzleSpecText(p).trimmed());
    SaveOrFail(RtfFilePath(paths[1]), bytes);
    return 0;
}

int exportClues(Arguments args, QTextStream &out)
{
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT (- for standard output)"));
    const QByteArray text = ClueListText(LoadOrFail(paths[0]).Puzzle);
    if (paths[1] == u"-") {
        out.flush();
        QFile stdoutFile;
        stdoutFile.open(stdout, QIODevice::WriteOnly);
        stdoutFile.write(text);
        return 0;
    }
    SaveOrFail(paths[1], text);
    return 0;
}

int exportPicture(Arguments args, QTextStream &)
{
    const QString kindName = args.option(QStringLiteral("--kind"));
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT.svg or OUT.png"));
    GridKind kind;
    if (kindName == u"numbered")
        kind = GridKind::NumberedGrid;
    else if (kindName == u"answers")
        kind = GridKind::AnswerGrid;
    else if (kindName == u"numbered-answers")
        kind = GridKind::NumberedAnswerGrid;
    else
        throw TCliError{ExitUsage, QStringLiteral("--kind must be numbered, answers or numbered-answers")};
    const QString suffix = QFileInfo(paths[1]).suffix().toLower();
    if (suffix != u"svg" && suffix != u"png")
        throw TCliError{ExitUsage, QStringLiteral("OUT must end in .svg or .png")};
    const TGridPicture picture = DrawGridPicture(LoadOrFail(paths[0]).Puzzle, kind);
    SaveOrFail(paths[1], suffix == u"svg" ? GridPictureSvg(picture, QFileInfo(paths[1]).fileName())
                                          : GridPicturePng(picture));
    return 0;
}

}  // namespace

QList<TCliCommand> ExportCommands()
{
    return {
        {QStringLiteral("export-eps"),
         QStringLiteral("  export-eps [--light] IN OUT.eps\n"
                        "      Writes OUT.TXT (clue list), OUT.EPS (numbered grid) and OUT-A.EPS (answers).\n"),
         exportEps},
        {QStringLiteral("export-wmf"),
         QStringLiteral("  export-wmf IN OUT.wmf\n"
                        "      Writes OUT.TXT, OUT.WMF (numbered grid) and OUT-A.WMF (answers) as metafiles.\n"),
         exportWmf},
        {QStringLiteral("export-rtf"),
         QStringLiteral("  export-rtf IN OUT.rtf\n"
                        "      Writes the RTF manuscript OUT.RTF with the address from the settings.\n"),
         exportRtf},
        {QStringLiteral("export-clues"),
         QStringLiteral("  export-clues IN OUT\n      Writes the clue lists as text; OUT - is standard output.\n"),
         exportClues},
        {QStringLiteral("export-picture"),
         QStringLiteral("  export-picture --kind numbered|answers|numbered-answers IN OUT.svg|OUT.png\n"
                        "      Writes the grid picture the clipboard carries.\n"),
         exportPicture},
    };
}

// The printed page formats written as one PDF file, without windows.

#include "cli.h"
#include "mainwindow/specifications.h"
#include "model/puzzlefile.h"
#include "output/pagelayout.h"
#include "output/pdfoutput.h"
#include "output/printsettings.h"

namespace {

const char *const FormatNames[PageFormatCount] = {"ms", "msg", "ng", "sg", "pp"};

int exportPdf(Arguments args, QTextStream &)
{
    const QString formats = args.option(QStringLiteral("--formats"));
    const bool hasTitle = args.hasOption(QStringLiteral("--title"));
    const QString title = args.option(QStringLiteral("--title"));
    const bool gray = args.flag(QStringLiteral("--gray"));
    const bool byline = args.flag(QStringLiteral("--byline"));
    const bool noByline = args.flag(QStringLiteral("--no-byline"));
    if (byline && noByline)
        throw TCliError{ExitUsage, QStringLiteral("--byline and --no-byline exclude each other")};
    const QStringList paths = args.positional(2, QStringLiteral("a puzzle file and a PDF file"));

    TPrintJob job;
    if (formats.isNull()) {
        ReadPrintFormats(job);
    } else {
        for (const QString &name : formats.split(u',', Qt::SkipEmptyParts)) {
            int f = 0;
            while (f < PageFormatCount && name.trimmed() != QLatin1String(FormatNames[f]))
                ++f;
            if (f == PageFormatCount)
                throw TCliError{ExitUsage, QStringLiteral("unknown format %1; use ms, msg, ng, sg, pp").arg(name)};
            job.Formats[f] = true;
        }
    }
    if (!job.any())
        throw TCliError{ExitUsage, QStringLiteral("Nothing to print! Please select one or more formats.")};

    const TLoadedPuzzle loaded = LoadOrFail(paths[0]);
    job.Title = hasTitle ? title : TitleForPuzzlePath(paths[0]);
    job.BlockColor = BlockColorFor(gray);
    job.SpecText = PuzzleSpecText(loaded.Puzzle).trimmed();
    job.PrintByline = !noByline;
    ReadPrintSettings(job);
    try {
        PrintToPdf(loaded.Puzzle, job, paths[1]);
    } catch (const TPuzzleIOError &e) {
        throw TCliError{ExitUnwritable, QString::fromStdString(e.what())};
    }
    return 0;
}

}  // namespace

QList<TCliCommand> PrintCommands()
{
    return {
        {QStringLiteral("export-pdf"),
         QStringLiteral("  export-pdf [--formats LIST] [--title T] [--gray] [--byline|--no-byline] IN OUT.pdf\n"
                        "      Writes the printed pages as one PDF file. LIST is a comma list of ms\n"
                        "      (manuscript), msg (manuscript grid), ng (numbered grid), sg (solution\n"
                        "      grid) and pp (puzzle page); by default the formats chosen for printing.\n"
                        "      The title defaults to the file's name without its extension.\n\n"),
         exportPdf},
    };
}

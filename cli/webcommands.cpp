// The web commands: a puzzle published as a page, and the player page for any puzzle file.

#include "cli.h"
#include "web/webpage.h"

namespace {

int exportWeb(Arguments args, QTextStream &)
{
    const QString title = args.option(QStringLiteral("--title"));
    const QStringList files = args.positional(2, QStringLiteral("a puzzle file and an output file"));
    const TLoadedPuzzle loaded = LoadOrFail(files[0]);
    if (const QString unfinished = UnfinishedPuzzleMessage(loaded.Puzzle); !unfinished.isEmpty())
        throw TCliError{ExitUsage, QStringLiteral("%1: %2").arg(files[0], unfinished)};
    SaveOrFail(files[1], WebPage(loaded.Puzzle, title.isEmpty() ? WebTitleFor(files[0]) : title));
    return 0;
}

int generatePlayer(Arguments args, QTextStream &)
{
    const QString out = args.positional(1, QStringLiteral("the output file")).first();
    SaveOrFail(out, PlayerPage());
    return 0;
}

}  // namespace

QList<TCliCommand> WebCommands()
{
    return {
        {QStringLiteral("export-web"), QStringLiteral(R"(  export-web [--title TEXT] IN OUT
      Writes one self-contained web page (HTML) for solving the puzzle IN in a browser.
      The title defaults to IN's file name. A puzzle with squares still
      without a letter is refused (exit 1).
)"), exportWeb},
        {QStringLiteral("generate-player"), QStringLiteral(R"(  generate-player OUT
      Writes the web player page, which opens any puzzle file (current or version 5)
      in a browser. Also called player.
)"), generatePlayer},
        {QStringLiteral("player"), QString(), generatePlayer},
    };
}

// The clue-writing commands: the definition list of a puzzle and its byline.

#include "cli.h"
#include "clues/deflist.h"
#include "model/cp1252.h"
#include "model/puzzlefile.h"

namespace {

int deflist(Arguments args, QTextStream &out)
{
    const QString path = args.positional(1, QStringLiteral("one puzzle file")).first();
    const TDefLists lists = FillDefLists(LoadOrFail(path).Puzzle);
    auto print = [&out](const char *heading, const QList<QByteArray> &lines) {
        out << heading << '\n';
        for (QByteArray line : lines)
            out << FromCp1252(line.replace('\0', '.')) << '\n';
    };
    print("ACROSS", lists.Across);
    print("DOWN", lists.Down);
    return 0;
}

int byline(Arguments args, QTextStream &)
{
    const bool none = args.flag(QStringLiteral("--none"));
    const bool hasText = args.hasOption(QStringLiteral("--text"));
    const QString text = args.option(QStringLiteral("--text"));
    const QStringList files = args.positional(2, QStringLiteral("IN and OUT"));
    if (none == hasText)
        throw TCliError{ExitUsage, QStringLiteral("give either --text TEXT or --none")};
    // The puzzle keeps Windows-1252; a byline it cannot hold is refused, not mangled.
    if (KeepCp1252(text, '\0') != text)
        throw TCliError{ExitUsage, QStringLiteral("the byline has characters a puzzle cannot keep")};
    if (text.size() > MaxBylineLength)
        throw TCliError{ExitUsage, QStringLiteral("--text holds at most 60 characters")};
    TLoadedPuzzle loaded = LoadOrFail(files[0]);
    loaded.Puzzle.Byline.setText(none ? QByteArray("--") : ToCp1252(text));
    SaveOrFail(files[1], EncodePuzzle(loaded.Puzzle));
    return 0;
}

}  // namespace

QList<TCliCommand> ClueCommands()
{
    return {
        {QStringLiteral("deflist"), QStringLiteral(R"(  deflist FILE
      Prints the definition list: every clue with its number and answer, across then down.
)"), deflist},
        {QStringLiteral("byline"), QStringLiteral(R"(  byline (--text TEXT | --none) IN OUT
      Writes IN with a new byline (at most 60 characters) or with none ("--") to OUT.
)"), byline},
    };
}

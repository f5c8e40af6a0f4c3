// Autofill without windows: fill.

#include "cli.h"
#include "fill/fillengine.h"


namespace {

constexpr int ExitNoFill = 4;
constexpr int ExitTimeLimit = 5;

int intOption(Arguments &args, const QString &name, int fallback, int low, int high)
{
    if (!args.hasOption(name))
        return fallback;
    bool ok = false;
    const int value = args.option(name).toInt(&ok);
    if (!ok || value < low || value > high)
        throw TCliError{ExitUsage, QStringLiteral("%1 takes a whole number from %2 to %3").arg(name).arg(low).arg(high)};
    return value;
}

int fill(Arguments args, QTextStream &out)
{
    TFillRequest request;
    request.Seed = quint64(intOption(args, QStringLiteral("--seed"), 1, 0, 2147483647));
    if (args.hasOption(QStringLiteral("--time-limit"))) {
        bool ok = false;
        request.TimeLimit = args.option(QStringLiteral("--time-limit")).toDouble(&ok);
        if (!ok || request.TimeLimit <= 0)
            throw TCliError{ExitUsage, QStringLiteral("--time-limit takes a number of seconds above 0")};
    }
    TWordListOptions lists = TakeWordListOptions(args);
    const QStringList paths = args.positional(2, QStringLiteral("IN and OUT puzzle files"));
    request.Grid = LoadOrFail(paths[0]).Puzzle;
    // Without --language the grid's own language chooses the letters and the default list.
    if (!lists.LanguageGiven)
        lists.Config.Language = request.Grid.Language;
    request.MinScore = lists.Config.MinScore;
    request.Words = std::make_shared<const TWordList>(LoadWordListsOrFail(lists.Config));

    const TFillResult result = FillGrid(request);
    switch (result.Status) {
    case TFillStatus::Filled:
        SaveOrFail(paths[1], EncodePuzzle(result.Grid));
        return 0;
    case TFillStatus::Impossible: {
        QStringList names;
        for (const TWordRef &word : result.Faulty)
            names.append(SlotName(word));
        throw TCliError{ExitNoFill, QStringLiteral("no fill exists; the words at fault: %1").arg(names.join(u", "))};
    }
    case TFillStatus::TimedOut:
    case TFillStatus::Cancelled:
        break;
    }
    Q_UNUSED(out);
    throw TCliError{ExitTimeLimit, QStringLiteral("the time limit ran out before a fill was found")};
}

}  // namespace

QList<TCliCommand> FillCommands()
{
    return {
        {QStringLiteral("fill"),
         QStringLiteral("  fill [--seed N] [--time-limit S] [--min-score N] [--language L] [--wordlist FILE]...\n"
                        "       [--no-default-list] IN OUT\n"
                        "      Fills the empty and open squares of IN from the word lists and writes OUT.\n"
                        "      Exit 4 when no fill exists, 5 when the time limit ran out.\n\n"),
         fill, false},
    };
}

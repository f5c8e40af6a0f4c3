// The word-list options every command that offers or checks words shares.

#include "clues/gridlanguage.h"
#include "cli.h"

TWordListOptions TakeWordListOptions(Arguments &args)
{
    TWordListOptions o;
    if (args.hasOption(QStringLiteral("--language"))) {
        const QString name = args.option(QStringLiteral("--language"));
        o.Config.Language = ParseGridLanguage(name);
        if (o.Config.Language < 0)
            throw TCliError{ExitUsage, QStringLiteral("unknown language %1").arg(name)};
        o.LanguageGiven = true;
    }
    while (args.hasOption(QStringLiteral("--wordlist")))
        o.Config.Sources.append({args.option(QStringLiteral("--wordlist")), true});
    if (!args.flag(QStringLiteral("--no-default-list")))
        o.Config.Sources.append(TWordListSource{});
    if (args.hasOption(QStringLiteral("--min-score"))) {
        bool ok = false;
        const QString value = args.option(QStringLiteral("--min-score"));
        o.Config.MinScore = value.toInt(&ok);
        if (!ok || o.Config.MinScore < 0 || o.Config.MinScore > MaxWordScore)
            throw TCliError{ExitUsage, QStringLiteral("--min-score takes a whole number from 0 to 100")};
    }
    return o;
}

TWordList LoadWordListsOrFail(const TWordListConfig &config)
{
    TLoadedWords loaded = LoadWordLists(config);
    if (!loaded.Unreadable.isEmpty())
        throw TCliError{ExitUnreadable, QStringLiteral("cannot read the word list %1").arg(loaded.Unreadable.first())};
    QTextStream err(stderr);
    for (const QString &problem : std::as_const(loaded.Problems))
        err << "quillmark-cli: " << problem << '\n';
    return std::move(loaded.Words);
}

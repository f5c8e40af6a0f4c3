// The word lists without windows: match (the words that fit a pattern) and fill-report
// (how good a grid's fill is).

#include "cli.h"
#include "clues/gridlanguage.h"
#include "fill/fillengine.h"
#include "fill/fillreport.h"
#include "fill/patternindex.h"
#include "model/cp1252.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// The pattern in the grid's bytes: capitals of the language and "?".
QByteArray patternBytes(const QString &typed, int language)
{
    const TCharSet letters = GridCharSetFor(language);
    const QString upper = typed.toUpper();
    if (upper.size() < MinWordLength || upper.size() > MaxWordLength)
        throw TCliError{ExitUsage, QStringLiteral("a pattern has 2 to 23 letters or ?")};
    QByteArray bytes;
    for (QChar ch : upper) {
        const int code = UnicodeToCp1252(ch);
        const bool letter = code > 0 && letters.test(size_t(code)) && code != 8 && code != 13 && code != 32 && code != 43;
        if (ch != QLatin1Char(AnyLetter) && !letter)
            throw TCliError{ExitUsage, QStringLiteral("the pattern has %1, which the grid language %2 does not admit")
                                           .arg(ch)
                                           .arg(GridLanguageName(language))};
        bytes.append(ch == QLatin1Char(AnyLetter) ? AnyLetter : char(code));
    }
    return bytes;
}

QString text(std::string_view word)
{
    return FromCp1252(QByteArray(word.data(), qsizetype(word.size())));
}

int match(Arguments args, QTextStream &out)
{
    const bool countOnly = args.flag(QStringLiteral("--count"));
    const bool json = args.flag(QStringLiteral("--json"));
    const TWordListOptions options = TakeWordListOptions(args);
    const QString typed = args.positional(1, QStringLiteral("one pattern")).first();
    const QByteArray pattern = patternBytes(typed, options.Config.Language);
    const TPatternIndex index(LoadWordListsOrFail(options.Config));
    if (countOnly) {
        const int n = index.count(pattern);
        if (json)
            out << QJsonDocument(QJsonObject{{"count", n}}).toJson(QJsonDocument::Indented);
        else
            out << n << '\n';
        return 0;
    }
    const int length = int(pattern.size());
    const std::vector<int> ids = index.match(pattern);
    if (json) {
        QJsonArray words;
        for (int id : ids)
            words.append(QJsonObject{{"word", text(index.word(length, id))}, {"score", index.score(length, id)}});
        out << QJsonDocument(QJsonObject{{"count", int(ids.size())}, {"words", words}}).toJson(QJsonDocument::Indented);
        return 0;
    }
    for (int id : ids)
        out << text(index.word(length, id)) << '\t' << index.score(length, id) << '\n';
    return 0;
}

QString entryName(const TReportEntry &e)
{
    return SlotName(TWordRef{e.Number, e.Slot.Dir});
}

QJsonObject entryJson(const TReportEntry &e)
{
    return {{"number", e.Number},
            {"direction", e.Slot.Dir == Direction::Across ? "across" : "down"},
            {"column", e.Slot.Column},
            {"row", e.Slot.Row},
            {"word", FromCp1252(e.Word)},
            {"score", e.Score < 0 ? QJsonValue() : QJsonValue(e.Score)}};
}

int fillReport(Arguments args, QTextStream &out)
{
    const bool json = args.flag(QStringLiteral("--json"));
    TWordListOptions options = TakeWordListOptions(args);
    const QString path = args.positional(1, QStringLiteral("one puzzle file")).first();
    const TPuzzle p = LoadOrFail(path).Puzzle;
    if (!options.LanguageGiven)
        options.Config.Language = p.Language < GridLanguageCount ? p.Language : 0;
    const TFillReport report = MakeFillReport(p, LoadWordListsOrFail(options.Config));
    if (json) {
        QJsonArray entries, missing, lowest, repeated;
        for (const TReportEntry &e : report.Entries)
            entries.append(entryJson(e));
        for (const TReportEntry &e : report.NotInList)
            missing.append(entryJson(e));
        for (const TReportEntry &e : report.Lowest)
            lowest.append(entryJson(e));
        for (const QByteArray &w : report.Repeated)
            repeated.append(FromCp1252(w));
        out << QJsonDocument(QJsonObject{{"entries", entries},
                                         {"notInList", missing},
                                         {"lowest", lowest},
                                         {"repeated", repeated},
                                         {"averageScore", report.AverageScore}})
                   .toJson(QJsonDocument::Indented);
        return 0;
    }
    out << "Entries: " << report.Entries.size() << '\n';
    for (const TReportEntry &e : report.Entries)
        out << "  " << entryName(e) << '\t' << FromCp1252(e.Word) << '\t'
            << (e.Score < 0 ? QStringLiteral("-") : QString::number(e.Score)) << '\n';
    out << "Not in any list: " << report.NotInList.size() << '\n';
    for (const TReportEntry &e : report.NotInList)
        out << "  " << entryName(e) << '\t' << FromCp1252(e.Word) << '\n';
    out << "Lowest scores:\n";
    for (const TReportEntry &e : report.Lowest)
        out << "  " << entryName(e) << '\t' << FromCp1252(e.Word) << '\t' << e.Score << '\n';
    out << "Repeated: " << report.Repeated.size() << '\n';
    for (const QByteArray &w : report.Repeated)
        out << "  " << FromCp1252(w) << '\n';
    out << "Average score: " << QString::number(report.AverageScore, 'f', 1) << '\n';
    return 0;
}

}  // namespace

QList<TCliCommand> WordListCommands()
{
    return {
        {QStringLiteral("match"), QStringLiteral(R"(  match [--language L] [--wordlist FILE]... [--no-default-list] [--min-score N]
        [--count] [--json] PATTERN
      Lists the words that fit PATTERN (letters, ? for any letter), one WORD<TAB>SCORE a
      line, best score first, then alphabetical; --count prints only how many.
)") + WordListOptionsUsage(), match, false},
        {QStringLiteral("fill-report"), QStringLiteral(R"(  fill-report [--json] [word-list options] FILE
      Every complete entry of the grid with its score, the entries in no list, the
      lowest-scoring entries, repeated entries and the average score.
)"), fillReport, false},
    };
}

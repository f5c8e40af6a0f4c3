// The grid's inspection and transforms without windows: analyze, scan, transform.

#include "cli.h"
#include "inspect/analysis.h"
#include "inspect/scangrid.h"
#include "inspect/transforms.h"
#include "model/cp1252.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonObject analysisJson(const TAnalysis &a)
{
    QJsonObject letters;
    for (int i = 0; i < 26; ++i)
        letters.insert(QString(QChar(u'A' + i)), a.Letters[i]);
    letters.insert(QStringLiteral("?"), a.OpenSquares);
    return {
        {"caption", a.Caption},
        {"blackSquares", a.BlackSquares},
        {"acrossWords", a.AcrossWords},
        {"downWords", a.DownWords},
        {"words", a.Words},
        {"threeLetterWords", a.ThreeLetterWords},
        {"twoLetterWords", a.TwoLetterWords},
        {"wordsEndingInS", a.WordsEndingInS},
        {"averageLength", a.AverageLength},
        {"unkeyedSquares", a.UnkeyedSquares},
        {"symmetry", a.Symmetric ? "OK" : "NO"},
        {"identifier", FromCp1252(a.Identifier)},
        {"letters", letters},
    };
}

int analyze(Arguments args, QTextStream &out)
{
    const bool json = args.flag(QStringLiteral("--json"));
    const QString path = args.positional(1, QStringLiteral("one puzzle file")).first();
    const TAnalysis a = AnalysePuzzle(LoadOrFail(path).Puzzle);
    if (json) {
        out << QJsonDocument(analysisJson(a)).toJson(QJsonDocument::Indented);
        return 0;
    }
    out << a.Caption << '\n'
        << "Total black squares: " << a.BlackSquares << '\n'
        << "Total across words: " << a.AcrossWords << '\n'
        << "Total down words: " << a.DownWords << '\n'
        << "= Total words: " << a.Words << '\n'
        << "Total 3-letter words: " << a.ThreeLetterWords << '\n'
        << "Total 2-letter words: " << a.TwoLetterWords << '\n'
        << "Words ending in S: " << a.WordsEndingInS << '\n'
        << "Average word length: " << a.AverageLength << '\n'
        << "Unkeyed squares: " << a.UnkeyedSquares << '\n'
        << "Symmetry " << (a.Symmetric ? "OK" : "NO") << '\n'
        << FromCp1252(a.Identifier) << '\n';
    for (int i = 0; i < 26; ++i)
        out << QChar(u'A' + i) << " - " << a.Letters[i] << ((i % 4 == 3) ? '\n' : ' ');
    out << "? - " << a.OpenSquares << '\n';
    return 0;
}

// The scan text as the window's edit takes it: capitals, at most 23 characters.
QByteArray scanText(const QString &typed)
{
    const QByteArray text = ToCp1252(UpperInCp1252(typed).left(MaxGrid), '\0');
    if (text.contains('\0'))
        throw TCliError{ExitUsage, QStringLiteral("--for has characters a grid cannot hold")};
    return text;
}

int scan(Arguments args, QTextStream &out)
{
    const bool json = args.flag(QStringLiteral("--json"));
    const bool all = args.flag(QStringLiteral("--all"));
    const bool hasFor = args.hasOption(QStringLiteral("--for"));
    const QString text = args.option(QStringLiteral("--for"));
    if (all == hasFor)
        throw TCliError{ExitUsage, QStringLiteral("give either --for TEXT or --all")};
    const QString path = args.positional(1, QStringLiteral("one puzzle file")).first();
    const TPuzzle p = LoadOrFail(path).Puzzle;
    TScanResult result;
    if (all)
        result = ScanAll(p);
    else
        result.Items = ScanFor(p, scanText(text));

    if (json) {
        QJsonArray items;
        for (const TScanItem &i : result.Items)
            items.append(QJsonObject{{"text", FromCp1252(i.Text)},
                                     {"column", i.Column},
                                     {"row", i.Row},
                                     {"direction", i.Direction == 1 ? "across" : "down"}});
        QJsonObject o{{"items", items}};
        if (all)
            o.insert(QStringLiteral("repeats"), result.Repeats);
        out << QJsonDocument(o).toJson(QJsonDocument::Indented);
        return 0;
    }
    for (const TScanItem &i : result.Items)
        out << FromCp1252(i.Text) << '\t' << i.Column << ',' << i.Row << ' '
            << (i.Direction == 1 ? "across" : "down") << '\n';
    if (all && result.Repeats)
        out << "Some words occur more than once.\n";
    return 0;
}

int transform(Arguments args, QTextStream &)
{
    const QStringList a = args.positional(3, QStringLiteral("invert, rotate or flip, an input and an output file"));
    static const QHash<QString, TTransformKind> kinds = {{QStringLiteral("invert"), TTransformKind::Invert},
                                                         {QStringLiteral("rotate"), TTransformKind::Rotate},
                                                         {QStringLiteral("flip"), TTransformKind::Flip}};
    if (!kinds.contains(a[0]))
        throw TCliError{ExitUsage, QStringLiteral("the transform is invert, rotate or flip")};
    TPuzzle p = LoadOrFail(a[1]).Puzzle;
    TransformPuzzle(p, kinds.value(a[0]));
    SaveOrFail(a[2], EncodePuzzle(p));
    return 0;
}

}  // namespace

QList<TCliCommand> InspectCommands()
{
    return {
        {QStringLiteral("analyze"), QStringLiteral(R"(  analyze [--json] FILE
      Shows the grid's statistics as the Analysis window does: words, short words,
      unkeyed squares, symmetry, the identifying line and the letter counts.
)"), analyze},
        {QStringLiteral("scan"), QStringLiteral(R"(  scan (--for TEXT | --all) [--json] FILE
      Lists the words holding TEXT, or the words alike in their first or last three
      letters (indented under the first, a repeated word ending in a space).
)"), scan},
        {QStringLiteral("transform"), QStringLiteral(R"(  transform invert|rotate|flip IN OUT
      Turns the grid over and writes OUT; clues whose words no longer read the same are lost.
)"), transform},
    };
}

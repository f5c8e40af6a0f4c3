// The commands on puzzle files themselves: reading, creating, converting, text forms.

#include "cli.h"
#include "clues/gridlanguage.h"
#include "interchange/interchange.h"
#include "mainwindow/specifications.h"
#include "model/clearpuzzle.h"
#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

TLoadedPuzzle LoadOrFail(const QString &path)
{
    try {
        return LoadPuzzleFile(path);
    } catch (const TPuzzleIOError &) {
        throw TCliError{ExitUnreadable, QStringLiteral("Puzzle not in Quillmark format or is corrupt.")};
    }
}

void SaveOrFail(const QString &path, const QByteArray &bytes)
{
    try {
        WriteFileAtomically(path, bytes);
    } catch (const TPuzzleIOError &e) {
        throw TCliError{ExitUnwritable, QString::fromStdString(e.what())};
    }
}

namespace {

// A puzzle of any format the extension names; what an import does not keep is told on
// standard error.
TLoadedPuzzle LoadAnyOrFail(const QString &path, bool cutLongText)
{
    const TFileKind kind = FileKindOf(path);
    if (kind == TFileKind::Puz || kind == TFileKind::Ipuz) {
        try {
            const TImportedPuzzle imported = ImportPuzzleFile(path, {cutLongText});
            QTextStream err(stderr);
            for (const QString &warning : imported.Warnings)
                err << "quillmark-cli: " << path << ": " << warning << '\n';
            return {imported.Puzzle, PuzzleFormat::Current};
        } catch (const TLongTextError &e) {
            throw TCliError{ExitUnreadable, QStringLiteral("%1: %2 Add --cut-long-text to cut to fit.").arg(path, e.message())};
        } catch (const TInterchangeError &e) {
            throw TCliError{ExitUnreadable, QStringLiteral("%1: %2").arg(path, e.message())};
        }
    }
    return LoadOrFail(path);
}

QJsonObject infoJson(const TLoadedPuzzle &loaded)
{
    const TPuzzle &p = loaded.Puzzle;
    QJsonArray entries;
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const int slot = p.slotAt(w.Column, w.Row, w.Dir);
        QByteArray answer = p.GetWord(w.Column, w.Row, char(w.Dir));
        answer.replace('\0', '.');
        const bool slotInRange = slot >= 1 && slot <= ClueSlots;
        entries.append(QJsonObject{
            {"number", w.Number},
            {"direction", w.Dir == Direction::Across ? "across" : "down"},
            {"column", w.Column},
            {"row", w.Row},
            {"slot", slot},
            {"answer", FromCp1252(answer)},
            {"clue", slotInRange ? FromCp1252(p.clue(slot)) : QString()},
        });
    }
    return {
        {"size", p.Size},
        {"blackSquares", BlackSquareCount(p)},
        {"blackPar", BlackPar(p.Size)},
        {"words", WordCount(p)},
        {"wordPar", WordPar(p.Size)},
        {"full", p.IsGridFull()},
        {"byline", FromCp1252(p.Byline.text())},
        {"language", p.Language},
        {"format", int(loaded.Format)},
        {"entries", entries},
    };
}

int info(Arguments args, QTextStream &out)
{
    const bool json = args.flag(QStringLiteral("--json"));
    const QString path = args.positional(1, QStringLiteral("one puzzle file")).first();
    const TLoadedPuzzle loaded = LoadAnyOrFail(path, true);
    if (json) {
        out << QJsonDocument(infoJson(loaded)).toJson(QJsonDocument::Indented);
        return 0;
    }
    const TPuzzle &p = loaded.Puzzle;
    for (const QString &line : PuzzleSpecLines(p))
        out << line << '\n';
    const QString language = GridLanguageName(p.Language);
    out << "Byline: " << FromCp1252(p.Byline.text()) << '\n'
        << "Language: " << p.Language << (language.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(language))
        << '\n'
        << "Grid full: " << (p.IsGridFull() ? "yes" : "no") << '\n';
    return 0;
}

int create(Arguments args, QTextStream &)
{
    const QString sizeText = args.option(QStringLiteral("--size"));
    const bool hasLanguage = args.hasOption(QStringLiteral("--language"));
    const QString languageText = args.option(QStringLiteral("--language"));
    const bool hasByline = args.hasOption(QStringLiteral("--byline"));
    const QString byline = args.option(QStringLiteral("--byline"));
    const QString out = args.positional(1, QStringLiteral("the output file")).first();

    bool ok = false;
    const int size = sizeText.toInt(&ok);
    if (!ok || size < 11 || size > MaxGrid || size % 2 == 0)
        throw TCliError{ExitUsage, QStringLiteral("--size must be one of 11, 13, 15, 17, 19, 21, 23")};
    const int language = hasLanguage ? ParseGridLanguage(languageText) : 0;
    if (language < 0)
        throw TCliError{ExitUsage, QStringLiteral("--language must be 0 to 8 or a language name")};
    if (hasByline && byline.size() > MaxBylineLength)
        throw TCliError{ExitUsage, QStringLiteral("--byline holds at most 60 characters")};
    if (hasByline && ToCp1252(byline, '\0').contains('\0'))
        throw TCliError{ExitUsage, QStringLiteral("--byline has characters a puzzle cannot hold")};

    ClearPuzzle(size, 'N');
    if (hasLanguage)
        Puzzle.Language = uint8_t(language);
    if (hasByline)
        Puzzle.Byline.setText(ToCp1252(byline));
    SaveOrFail(out, EncodePuzzle(Puzzle));
    return 0;
}

int convert(Arguments args, QTextStream &)
{
    const bool version5 = args.flag(QStringLiteral("--version5"));
    const bool cut = args.flag(QStringLiteral("--cut-long-text"));
    const QStringList files = args.positional(2, QStringLiteral("an input and an output file"));
    const TFileKind outKind = FileKindOf(files[1]);
    const bool foreignOut = outKind == TFileKind::Puz || outKind == TFileKind::Ipuz;
    if (version5 && foreignOut)
        throw TCliError{ExitUsage, QStringLiteral("--version5 writes .xwd files only")};
    const TLoadedPuzzle loaded = LoadAnyOrFail(files[0], cut);
    QByteArray bytes;
    if (foreignOut) {
        try {
            QStringList warnings;
            bytes = ExportPuzzle(loaded.Puzzle, outKind, TitleFromPath(files[0]), &warnings);
            QTextStream err(stderr);
            for (const QString &warning : std::as_const(warnings))
                err << "quillmark-cli: " << files[1] << ": " << warning << '\n';
        } catch (const TInterchangeError &e) {
            throw TCliError{ExitUnwritable, QStringLiteral("%1: %2").arg(files[1], e.message())};
        }
    } else {
        bytes = version5 ? EncodePuzzle5(loaded.Puzzle) : EncodePuzzle(loaded.Puzzle);
    }
    SaveOrFail(files[1], bytes);
    return 0;
}

QString readText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw TCliError{ExitUnreadable, QStringLiteral("cannot read %1: %2").arg(path, file.errorString())};
    return QString::fromUtf8(file.readAll());
}

int import(Arguments args, QTextStream &)
{
    const QStringList files = args.positional(2, QStringLiteral("a text file and an output file"));
    TPuzzle p;
    try {
        p = PuzzleFromText(readText(files[0]));
    } catch (const TPuzzleTextError &e) {
        throw TCliError{ExitUnreadable, QStringLiteral("%1: %2").arg(files[0], QString::fromStdString(e.what()))};
    }
    // The text form allows small grids for tests; a puzzle file holds only what the program opens.
    if (!IsPuzzleSize(p.Size))
        throw TCliError{ExitUnreadable, QStringLiteral("%1: the size must be one of 11, 13, 15, 17, 19, 21, 23").arg(files[0])};
    SaveOrFail(files[1], EncodePuzzle(p));
    return 0;
}

int exportText(Arguments args, QTextStream &out)
{
    const QStringList files = args.positional(2, QStringLiteral("a puzzle file and an output file"));
    const QString text = PuzzleToText(LoadOrFail(files[0]).Puzzle);
    if (files[1] == u"-")
        out << text;
    else
        SaveOrFail(files[1], text.toUtf8());
    return 0;
}

}  // namespace

QList<TCliCommand> PuzzleCommands()
{
    return {
        {QStringLiteral("info"), QStringLiteral(R"(  info [--json] FILE
      Shows a puzzle's specifications, byline, language and whether its grid is full.
      FILE (.xwd, .puz or .ipuz) is read as the program opens it, but never rewritten.
)"), info},
        {QStringLiteral("new"), QStringLiteral(R"(  new --size N [--language L] [--byline TEXT] OUT
      Writes a fresh empty puzzle of N x N squares (11, 13, ..., 23). The language
      (0 to 8 or a name such as French) and byline default to the user's settings.
)"), create},
        {QStringLiteral("convert"), QStringLiteral(R"(  convert [--version5] [--cut-long-text] IN OUT
      Reads IN and writes OUT, each in the format its extension names: .xwd (the
      current format, or the older version 5), .puz (Across Lite) or .ipuz. Clues
      longer than 80 characters in IN are refused unless --cut-long-text.
)"), convert},
        {QStringLiteral("import"), QStringLiteral(R"(  import TEXT OUT
      Builds a puzzle from its text form (size, byline, language, grid, clues).
)"), import},
        {QStringLiteral("export-text"), QStringLiteral(R"(  export-text IN OUT
      Writes the text form of a puzzle; OUT may be - for standard output.
)"), exportText},
    };
}

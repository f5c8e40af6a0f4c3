#pragma once
// What every quillmark-cli command shares: its failures with their exit codes, the reading
// of its arguments, and loading and saving puzzles so that a failure writes nothing.

#include "fill/wordlist.h"
#include "model/puzzlefile.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <functional>

constexpr int ExitUsage = 1;
constexpr int ExitUnreadable = 2;
constexpr int ExitUnwritable = 3;

// A failure the user is told about in one line, with the exit code it ends in.
struct TCliError {
    int Code;
    QString Message;
};

// The arguments after the command's name: flags and options are taken out first, then
// what remains must be the expected number of positional arguments.
class Arguments {
public:
    explicit Arguments(QStringList args) : args_(std::move(args)) {}

    bool flag(const QString &name) { return args_.removeAll(name) > 0; }
    QString option(const QString &name)
    {
        const qsizetype at = args_.indexOf(name);
        if (at < 0)
            return {};
        if (at + 1 >= args_.size())
            throw TCliError{ExitUsage, name + QStringLiteral(" needs a value")};
        const QString value = args_.at(at + 1);
        args_.remove(at, 2);
        return value;
    }
    bool hasOption(const QString &name) const { return args_.contains(name); }
    QStringList positional(int count, const QString &names)
    {
        // "-" alone names standard input or output; anything else with a dash is an option
        // no command takes (Qt's own, such as -platform, included).
        for (const QString &a : std::as_const(args_))
            if (a.startsWith(u'-') && a != u"-")
                throw TCliError{ExitUsage, QStringLiteral("unknown option %1").arg(a)};
        if (args_.size() != count)
            throw TCliError{ExitUsage, QStringLiteral("expected %1").arg(names)};
        return args_;
    }

private:
    QStringList args_;
};

// Reads a puzzle as the program opens it; an unreadable one ends the command with exit 2.
TLoadedPuzzle LoadOrFail(const QString &path);
// Writes `bytes` atomically; a failure ends the command with exit 3 and leaves no file.
void SaveOrFail(const QString &path, const QByteArray &bytes);

// One command: its name, its lines in the help text, and what it does.
struct TCliCommand {
    QString Name;
    QString Usage;
    std::function<int(Arguments, QTextStream &)> Run;
    // Whether the command measures or draws text, which needs the GUI library; those that
    // do not load it, and start in about a third of the time.
    bool Draws = true;
};

// The commands on puzzle files themselves (info, new, convert, import, export-text).
QList<TCliCommand> PuzzleCommands();
// Analysis, scans and transforms of the grid (analyze, scan, transform).
QList<TCliCommand> InspectCommands();
// The exports: EPS, metafile, RTF, clue text and grid picture.
QList<TCliCommand> ExportCommands();
// The printed pages written as PDF (export-pdf).
QList<TCliCommand> PrintCommands();
// The clue-writing commands (deflist, byline).
QList<TCliCommand> ClueCommands();
// The web page of a puzzle and the web player (export-web, generate-player).
QList<TCliCommand> WebCommands();
// The word lists: the words that fit a pattern, and the report on a grid's fill (match, fill-report).
QList<TCliCommand> WordListCommands();
// Autofill (fill).
QList<TCliCommand> FillCommands();

// The word-list options of the commands that use the lists: --language L, --wordlist FILE
// (repeatable, in order of priority), --no-default-list, --min-score N.
struct TWordListOptions {
    TWordListConfig Config;  // the default list comes after the given lists unless turned off
    bool LanguageGiven = false;
};
TWordListOptions TakeWordListOptions(Arguments &args);
// Their lines in the help text.
QString WordListOptionsUsage();
// The merged words; a list that cannot be read ends the command with exit 2, malformed
// lines are reported on standard error and skipped.
TWordList LoadWordListsOrFail(const TWordListConfig &config);

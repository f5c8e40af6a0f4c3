// quillmark-cli: the puzzle core without windows, for scripts and batch work.

#include "cli.h"

#include <QGuiApplication>

#include <algorithm>
#include <memory>

namespace {

// Every command, in the order the help text lists them.
QList<TCliCommand> AllCommands()
{
    QList<TCliCommand> commands = PuzzleCommands();
    commands += InspectCommands();
    commands += ExportCommands();
    commands += PrintCommands();
    commands += ClueCommands();
    commands += WebCommands();
    commands += WordListCommands();
    commands += FillCommands();
    return commands;
}

QString UsageText(const QList<TCliCommand> &commands)
{
    QString text = QStringLiteral("Usage: quillmark-cli COMMAND [OPTIONS] ARGUMENTS\n\nCommands:\n");
    for (const TCliCommand &command : commands)
        text += command.Usage;
    text += QStringLiteral("  help\n      Shows this text.\n\n"
                           "Exit codes: 0 success, 1 bad arguments, 2 unreadable input, 3 output not written.\n");
    return text;
}

int run(QStringList args, const QList<TCliCommand> &commands, QTextStream &out)
{
    if (args.isEmpty())
        throw TCliError{ExitUsage, QStringLiteral("no command; see quillmark-cli --help")};
    const QString command = args.takeFirst();
    if (command == u"help" || command == u"--help" || command == u"-h") {
        out << UsageText(commands);
        return 0;
    }
    for (const TCliCommand &c : commands)
        if (c.Name == command)
            return c.Run(Arguments(args), out);
    throw TCliError{ExitUsage, QStringLiteral("unknown command %1; see quillmark-cli --help").arg(command)};
}

}  // namespace
int main(int argc, char *argv[])
{
    // The picture exports and page layouts measure text, which needs the GUI library but never
    // a screen: the tool picks the offscreen platform itself, so neither the environment of a
    // desktop (over ssh, from cron) nor an argument can make it reach for a display. Qt sees
    // only the program's name; every argument is ours, and one we do not know is refused.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QList<TCliCommand> commands = AllCommands();
    const bool draws = arguments.isEmpty() || std::ranges::any_of(commands, [&](const TCliCommand &c) {
        return c.Name == arguments.first() && c.Draws;
    });
    int qtArgc = 1;
    const std::unique_ptr<QCoreApplication> app =
        draws ? std::make_unique<QGuiApplication>(qtArgc, argv) : std::make_unique<QCoreApplication>(qtArgc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    try {
        const int code = run(arguments, commands, out);
        out.flush();
        return code;
    } catch (const TCliError &e) {
        err << "quillmark-cli: " << e.Message << '\n';
        return e.Code;
    }
}

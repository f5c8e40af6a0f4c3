// quillmark-cli: the puzzle core without windows, for scripts and batch work.

#include "cli.h"

#include <QGuiApplication>

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

int run(QStringList args, QTextStream &out)
{
    if (args.isEmpty())
        throw TCliError{ExitUsage, QStringLiteral("no command; see quillmark-cli --help")};
    const QString command = args.takeFirst();
    const QList<TCliCommand> commands = AllCommands();
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
    // The picture exports and page layouts measure text, which needs the GUI library but never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    try {
        const int code = run(app.arguments().mid(1), out);
        out.flush();
        return code;
    } catch (const TCliError &e) {
        err << "quillmark-cli: " << e.Message << '\n';
        return e.Code;
    }
}

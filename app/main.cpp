// quillmark: the desktop program.

#include "mainwindow/ui/taboutbox.h"
#include "mainwindow/ui/thelpform.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "scriptedrun.h"

#include <QIcon>

#include <cstdio>
#include <cstring>

namespace {

const char UsageText[] =
    "Usage: quillmark [PUZZLE [-S]]\n"
    "\n"
    "Opens PUZZLE (a .xwd puzzle, or a .puz or .ipuz file to import) for constructing,\n"
    "or for solving when -S follows it. Without PUZZLE it opens nothing and offers the\n"
    "previous puzzles in the Puzzle menu.\n"
    "\n"
    "Options:\n"
    "  -S         Opens PUZZLE for solving.\n"
    "  --help     Shows this text.\n"
    "  --version  Shows the program's version.\n";

}  // namespace

int main(int argc, char *argv[])
{
    // Answered before any window exists, so they work without a display too.
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
        std::fputs(UsageText, stdout);
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("%s\n", qPrintable(TAboutBox::VersionText()));
        return 0;
    }
    TQuillmarkApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillmark"));
    // Lets the desktop match the windows to the menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.quillmark.Quillmark"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillmark.svg")));
    // A tree installed without its data still runs; the message tells whoever installed it.
    if (THelpForm::CollectionFile().isEmpty())
        qWarning("quillmark: the help collection help/quillmark.qhc is missing; the Help menu will be empty");
    const bool scripted = InstallScriptedRun();
    // The splash stands for the time the windows take to build, and not a moment longer.
    TSplashForm splash;
    splash.show();
    QApplication::processEvents();
    TProgram program;
    program.Start(app.arguments().mid(1));
    splash.finish(program.MainForm);
    program.OfferRecovery();
    if (scripted)
        FinishScriptedRun(program);
    return app.exec();
}

// quillmark: the desktop program.

#include "mainwindow/ui/taboutbox.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "scriptedrun.h"

int main(int argc, char *argv[])
{
    TQuillmarkApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillmark"));
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

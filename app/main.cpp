// quillmark: the desktop program.

#include "mainwindow/ui/txwdmainform.h"
#include "settings/txwdprocs.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillmark"));
    TXwdMainForm mainForm;
    TXwdProcs procs;
    mainForm.show();
    mainForm.OpenFromCommandLine(app.arguments().mid(1));
    return app.exec();
}

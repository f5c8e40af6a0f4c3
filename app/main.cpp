// quillmark: the desktop program.

#include "mainwindow/ui/tprogram.h"

int main(int argc, char *argv[])
{
    TQuillmarkApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillmark"));
    TProgram program;
    program.Start(app.arguments().mid(1));
    return app.exec();
}

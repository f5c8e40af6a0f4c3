#include "mainwindow/datafiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

QStringList DataFolders()
{
    // Relative to the program rather than a path fixed at build time, so an installed tree
    // works wherever its prefix is, and so does the build folder.
    const QDir program(QCoreApplication::applicationDirPath());
    QStringList folders = {
        program.absolutePath(),                                // the build folder
        program.absoluteFilePath(QStringLiteral("../share/quillmark")),  // installed
        program.absoluteFilePath(QStringLiteral("..")),        // test programs, one below the build folder
    };
    // A program linked into bin/ from elsewhere still finds a tree installed the usual way.
    for (const QString &share : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        folders.append(share + QStringLiteral("/quillmark"));
    for (QString &folder : folders)
        folder = QDir::cleanPath(folder);
    folders.removeDuplicates();
    return folders;
}

QString DataFile(const QString &relative)
{
    for (const QString &folder : DataFolders()) {
        const QString path = folder + u'/' + relative;
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

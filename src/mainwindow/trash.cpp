#include "mainwindow/trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

bool MoveToTrash(const QString &path)
{
    // Without the user's data folder Qt puts the trash beside the working folder, where
    // nobody would look for it.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    QString placedAt;
    return QFile::moveToTrash(path, &placedAt) && QFileInfo(placedAt).isAbsolute();
}

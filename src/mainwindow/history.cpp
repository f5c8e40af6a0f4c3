#include "mainwindow/history.h"

#include <QFileInfo>

QStringList HistoryEntries(const QString &currentPuzzle, bool puzzleOpen, bool solving,
                           const QStringList &stored)
{
    QStringList list;
    if (!currentPuzzle.isEmpty() && puzzleOpen)
        list.append(currentPuzzle + (solving ? QStringLiteral(" /s") : QStringLiteral(" /c")));
    for (const QString &entry : stored)
        if (!list.contains(entry))
            list.append(entry);
    list.removeAll(QString());
    return list.mid(0, HistorySize);
}

QString HistoryCaption(int k, const QString &entry)
{
    // The mode suffix holds a slash of its own: find the file name in the path alone.
    const QString path = HistoryPath(entry);
    const QString name = path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
    return QStringLiteral("&%1 %2").arg(k).arg(name.left(name.size() - 4).toUpper());
}

QString HistoryPath(const QString &entry)
{
    return entry.left(entry.size() - 3);
}

bool HistoryIsSolving(const QString &entry)
{
    return entry.right(2) == u"/s";
}

QString WithPuzzleExtension(const QString &path)
{
    return QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".xwd") : path;
}

bool HasForeignExtension(const QString &path)
{
    return QFileInfo(path).suffix().compare(QStringLiteral("xwd"), Qt::CaseInsensitive) != 0;
}

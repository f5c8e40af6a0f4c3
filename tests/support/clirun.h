#pragma once
// quillmark-cli run as a script would run it: its exit code and what it wrote.

#include <QProcess>
#include <QString>
#include <QStringList>

struct TCliRun {
    int code = -1;
    QByteArray out;
    QString err;

    QString text() const { return QString::fromUtf8(out); }
};

inline TCliRun RunCli(const QStringList &args)
{
    QProcess p;
    p.start(QStringLiteral(QUILLMARK_CLI), args);
    if (!p.waitForFinished(60000))
        return {};
    return {p.exitCode(), p.readAllStandardOutput(), QString::fromUtf8(p.readAllStandardError())};
}

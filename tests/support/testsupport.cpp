#include "testsupport.h"

#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "settings/txwdprocs.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <cstdlib>
#include <cstring>

namespace {

QString &isolatedHome()
{
    static QString home;
    return home;
}

}  // namespace

void IsolateUserFolders()
{
    static QTemporaryDir home;  // lives as long as the program
    isolatedHome() = home.path();
    const QByteArray root = QFile::encodeName(home.path());
    qputenv("HOME", root);
    qputenv("XDG_CONFIG_HOME", root + "/.config");
    qputenv("XDG_DATA_HOME", root + "/.local/share");
    qputenv("XDG_CACHE_HOME", root + "/.cache");
    qputenv("XDG_RUNTIME_DIR", root + "/runtime");
    QDir(home.path()).mkpath(QStringLiteral("runtime"));
    QFile::setPermissions(home.path() + QStringLiteral("/runtime"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString config = home.path() + QStringLiteral("/.config");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, config);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, config);
}

void ResetSettings()
{
    SetSettingsPath(QString::fromLatin1(DefaultSettingsPath));
    for (const char *path : {DefaultSettingsPath, ToolsSettingsPath, "Software\\Quillmark32\\Quillmark6"}) {
        SetSettingsPath(QString::fromLatin1(path));
        const QStringList parts = SettingsPath().split(u'\\');
        QSettings(parts.at(1), parts.at(2)).clear();
    }
    SetSettingsPath(QString::fromLatin1(DefaultSettingsPath));
}

QByteArray ReadFileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteFileBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool SameRecord(const TPuzzle &a, const TPuzzle &b)
{
    return std::memcmp(&a, &b, sizeof(TPuzzle)) == 0;
}

TPuzzle PuzzleFrom(const QString &text)
{
    return PuzzleFromText(text);
}

QString GridRows(QStringList top, int size, QChar fill)
{
    while (top.size() < size)
        top.append(QString(size, fill));
    return top.join(u'\n') + u'\n';
}

QString WritePuzzleText(const QString &path, const QString &text)
{
    WriteFileAtomically(path, EncodePuzzle(PuzzleFromText(text)));
    return path;
}

QString ContentDifference(const TPuzzle &a, const TPuzzle &b)
{
    if (a.Size != b.Size)
        return QStringLiteral("size");
    for (int c = 1; c <= a.Size; ++c)
        for (int r = 1; r <= a.Size; ++r)
            if (a.Cells(c, r) != b.Cells(c, r) || a.Entries(c, r) != b.Entries(c, r))
                return QStringLiteral("square %1,%2").arg(c).arg(r);
    for (const TWordRef &w : WordsInSlotOrder(a))
        if (a.wordClue(w.Column, w.Row, w.Dir) != b.wordClue(w.Column, w.Row, w.Dir))
            return QStringLiteral("the clue of %1%2").arg(w.Number).arg(QChar::fromLatin1(char(w.Dir)));
    const auto byline = [](const TPuzzle &p) { return p.Byline.text() == "--" ? QByteArray() : p.Byline.text(); };
    return byline(a) == byline(b) ? QString() : QStringLiteral("the byline");
}

TPuzzle SamplePuzzle()
{
    return LoadPuzzleFile(QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd")).Puzzle;
}

TPuzzle Fifteen()
{
    return PuzzleFromText(QString::fromUtf8(ReadFileBytes(QStringLiteral(QUILLMARK_TEST_DATA "/fifteen.txt"))));
}

TScratchDir::TScratchDir()
{
    dir_.setAutoRemove(true);
}

#include "interchange/interchange.h"

#include "interchange/ipuzformat.h"
#include "interchange/puzformat.h"

#include <QFile>
#include <QFileInfo>

TFileKind FileKindOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"xwd")
        return TFileKind::Xwd;
    if (suffix == u"puz")
        return TFileKind::Puz;
    if (suffix == u"ipuz")
        return TFileKind::Ipuz;
    return TFileKind::Unknown;
}

QString FileKindName(TFileKind kind)
{
    switch (kind) {
    case TFileKind::Xwd:
        return QStringLiteral("Quillmark (.xwd)");
    case TFileKind::Puz:
        return QStringLiteral("Across Lite (.puz)");
    case TFileKind::Ipuz:
        return QStringLiteral("ipuz (.ipuz)");
    case TFileKind::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

TImportedPuzzle ImportPuzzle(const QByteArray &bytes, TFileKind kind, const TImportOptions &options)
{
    switch (kind) {
    case TFileKind::Puz:
        return ToQuillmark(ReadPuz(bytes), options);
    case TFileKind::Ipuz:
        return ToQuillmark(ReadIpuz(bytes), options);
    default:
        throw TInterchangeError(QStringLiteral("Only Across Lite (.puz) and ipuz (.ipuz) puzzles can be imported."));
    }
}

TImportedPuzzle ImportPuzzleFile(const QString &path, const TImportOptions &options)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TInterchangeError(QStringLiteral("Cannot open %1: %2").arg(path, file.errorString()));
    TImportedPuzzle imported = ImportPuzzle(file.readAll(), FileKindOf(path), options);
    if (imported.Title.isEmpty())
        imported.Title = TitleFromPath(path);
    return imported;
}

QByteArray ExportPuzzle(const TPuzzle &p, TFileKind kind, const QString &title, QStringList *warnings)
{
    switch (kind) {
    case TFileKind::Puz:
        return WritePuz(FromQuillmark(p, title), warnings);
    case TFileKind::Ipuz:
        return WriteIpuz(FromQuillmark(p, title));
    default:
        throw TInterchangeError(QStringLiteral("Puzzles can be exported as Across Lite (.puz) and ipuz (.ipuz) only."));
    }
}

QString TitleFromPath(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

#include "clues/byline.h"

#include "model/cp1252.h"

QString BylineText(const TPuzzle &p)
{
    const QByteArray byline = p.Byline.text();
    if (byline.isEmpty())
        return QStringLiteral("a Quillmark puzzle");
    if (byline == "--")
        return {};
    return FromCp1252(byline);
}

QString BylineCaption(const TPuzzle &p)
{
    const QByteArray byline = p.Byline.text();
    if (byline.isEmpty() || byline == "--")
        return BylineText(p);
    return (QStringLiteral("by ") + FromCp1252(byline)).left(63);
}

#include "model/clearpuzzle.h"

#include "model/cp1252.h"
#include "model/puzzle.h"
#include "settings/txwdprocs.h"

void ClearPuzzle(int size, char variant)
{
    ClearPuzzle(Puzzle, size, variant);
}

void ClearPuzzle(TPuzzle &p, int size, char variant)
{
    const QByteArray byline = ToCp1252(ReadText(QStringLiteral("Name")));
    const int language = ReadInt(QStringLiteral("GridLanguage"), 0);
    p.ClearPuzzle(size, variant, byline, uint8_t(language));
}

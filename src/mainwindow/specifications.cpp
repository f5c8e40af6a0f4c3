#include "mainwindow/specifications.h"

int WordPar(int size)
{
    switch (size) {
    case 11: return 40;
    case 13: return 56;
    case 15: return 78;
    case 17: return 96;
    case 19: return 120;
    case 21: return 146;
    case 23: return 170;
    default: return 0;
    }
}

int BlackPar(int size)
{
    return size * size / 6;
}

QStringList PuzzleSpecLines(const TPuzzle &p)
{
    return {
        QStringLiteral(" Size of Grid: %1×").arg(p.Size),
        QStringLiteral(" Black Squares: %1  Par: %2").arg(BlackSquareCount(p)).arg(BlackPar(p.Size)),
        QStringLiteral(" Word Count: %1  Par: %2").arg(WordCount(p)).arg(WordPar(p.Size)),
    };
}

QString PuzzleSpecText(const TPuzzle &p)
{
    return PuzzleSpecLines(p).join(QStringLiteral("\r\n"));
}

// quillmark-bench: how long the core's everyday operations take on the largest grid.
// Prints figures only; nothing here passes or fails.

#include "bench.h"
#include "mainwindow/specifications.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "output/pagelayout.h"
#include "output/pdfoutput.h"
#include "solving/scoring.h"

#include <QGuiApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

namespace {

// A 23 x 23 grid with a black square every fourth square of every other row.
TPuzzle largestGrid()
{
    TPuzzle p;
    p.ClearPuzzle(23, 'N', "Bench", 0);
    for (int r = 1; r <= 23; ++r)
        for (int c = 1; c <= 23; ++c)
            p.Cells(c, r) = (r % 2 == 0 && c % 4 == 0) ? BlockChar : uint8_t('A' + (c + r) % 26);
    return p;
}

void measure(const char *name, int repeats, const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < repeats; ++i)
        work();
    const double micros = double(clock.nsecsElapsed()) / 1000.0 / repeats;
    std::printf("%-34s %10.2f us\n", name, micros);
}

// The most words a 23 grid takes in this pattern (166), every one with an 80-character
// clue, for the printed pages.
TPuzzle longCluedGrid()
{
    TPuzzle p;
    p.ClearPuzzle(23, 'N', "Bench Setter", 0);
    for (int r = 1; r <= 23; ++r)
        for (int c = 1; c <= 23; ++c)
            p.Cells(c, r) = (r % 2 == 1 && (c + (r / 2) * 2) % 4 == 1) ? BlockChar : uint8_t('A' + (c * 7 + r) % 26);
    for (const TWordRef &w : WordsInSlotOrder(p))
        p.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
    for (int slot = 1; slot <= ClueSlots; ++slot)
        p.setClue(slot, QByteArray("A rather long clue that \"wraps\" over lines, for the bench's pages: word " +
                                   QByteArray::number(slot)).left(80));
    return p;
}

}  // namespace

int main(int argc, char *argv[])
{
    // The printed pages measure text with real fonts: a GUI application, without a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (app.arguments().value(1) == u"fill")
        return FillBench(app.arguments().mid(2));
    TPuzzle p = largestGrid();
    volatile int sink = 0;
    std::printf("23 x 23 grid, %d words\n", WordCount(p));

    measure("WordsInSlotOrder", 2000, [&] { sink = sink + int(WordsInSlotOrder(p).size()); });
    measure("SquareNumbers", 2000, [&] { sink = sink + SquareNumbers(p)(1, 1); });
    measure("PuzzleSpecText", 2000, [&] { sink = sink + int(PuzzleSpecText(p).size()); });
    measure("GetWord (every word)", 2000, [&] {
        for (const TWordRef &w : WordsInSlotOrder(p))
            sink = sink + int(p.GetWord(w.Column, w.Row, char(w.Dir)).size());
    });
    measure("ErrorSquares", 2000, [&] { sink = sink + int(ErrorSquares(p).size()); });
    measure("EncodePuzzle", 2000, [&] { sink = sink + int(EncodePuzzle(p).size()); });
    const QByteArray bytes = EncodePuzzle(p);
    measure("DecodePuzzle", 2000, [&] { sink = sink + DecodePuzzle(bytes).Size; });
    measure("PuzzleToText + PuzzleFromText", 500, [&] { sink = sink + PuzzleFromText(PuzzleToText(p)).Size; });

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bench.xwd"));
    Puzzle = p;
    measure("WritePuzzle (atomic save)", 200, [&] { WritePuzzle(path); });
    measure("OpenPuzzleFile", 200, [&] { OpenPuzzleFile(path); });

    const TPuzzle clued = longCluedGrid();
    TPrintJob job;
    job.Title = QStringLiteral("Bench");
    for (bool &f : job.Formats)
        f = true;
    std::printf("23 x 23 grid, %d words with 80-character clues, all five page formats\n", WordCount(clued));
    measure("ComposePages", 20, [&] { sink = sink + int(ComposePages(clued, job).size()); });
    const QString pdf = dir.filePath(QStringLiteral("bench.pdf"));
    measure("PrintToPdf (compose and write)", 20, [&] { PrintToPdf(clued, job, pdf); });

    BenchWordLists();
    return sink == -1;
}

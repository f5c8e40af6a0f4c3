// quillmark-bench fill LIST GRID...: the autofill engine in-process, over ten seeds per
// grid, timed without process start or list reading (the CLI harness times those). LIST
// "default" is the default English list; the average score of its fills is printed too.

#include "bench.h"
#include "fill/fillengine.h"
#include "model/puzzletext.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

double cpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) * 1e-9;
}

}  // namespace

int FillBench(const QStringList &args)
{
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: quillmark-bench fill LIST GRID...\n");
        return 1;
    }
    std::shared_ptr<const TWordList> words;
    if (args[0] == u"default") {
        words = std::shared_ptr<const TWordList>(&DefaultWordList(0), [](const TWordList *) {});
    } else {
        TReadList list = ReadWordListFile(args[0], 0);
        if (list.Unreadable)
            return 2;
        words = std::make_shared<const TWordList>(std::move(list.Words));
    }
    std::printf("%d words; CPU seconds per fill, seeds 1 to 10, 30 s limit\n", words->size());
    for (const QString &path : args.mid(1)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return 2;
        const QStringList rows = QString::fromLatin1(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        TFillRequest request;
        request.Grid = PuzzleFromText(QStringLiteral("size %1\ngrid\n%2\nclues\n").arg(rows.size()).arg(rows.join(u'\n')));
        request.Words = words;
        request.TimeLimit = 30;
        std::vector<double> times;
        int solved = 0;
        qint64 failures = 0;
        double score = 0;
        for (int seed = 1; seed <= 10; ++seed) {
            request.Seed = quint64(seed);
            const double t0 = cpuSeconds();
            const TFillResult r = FillGrid(request);
            times.push_back(cpuSeconds() - t0);
            solved += r.Status == TFillStatus::Filled;
            failures += r.Failures;
            score += r.AverageScore;
        }
        std::sort(times.begin(), times.end());
        std::printf("%-12s %2d/10  median %7.3f  slowest %7.3f  failures %6lld  average score %5.1f\n",
                    qPrintable(QFileInfo(path).baseName()), solved, times[5], times.back(), failures,
                    solved ? score / solved : 0.0);
    }
    return 0;
}

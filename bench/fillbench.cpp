// The word lists and the pattern index: load times, queries, the word finder's list.

#include "bench.h"
#include "clues/gridlanguage.h"
#include "fill/wordlist.h"

#include <QElapsedTimer>

#include <cstdio>
#include <ctime>

namespace {

// The machine is shared, so the processor time of this thread is printed beside the wall clock.
double cpuMillis()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

}  // namespace

void BenchWordLists()
{
    std::printf("Default word lists, first load (wall ms, cpu ms)\n");
    for (int language = 0; language < GridLanguageCount; ++language) {
        QElapsedTimer clock;
        clock.start();
        const double cpu = cpuMillis();
        const TWordList &words = DefaultWordList(language);
        std::printf("  %-14s %8d words %8.1f %8.1f\n", qPrintable(GridLanguageName(language)), words.size(),
                    double(clock.nsecsElapsed()) / 1e6, cpuMillis() - cpu);
    }
}

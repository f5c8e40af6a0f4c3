// The word lists and the pattern index: load times, queries, the word finder's list.

#include "bench.h"
#include "clues/gridlanguage.h"
#include "fill/patternindex.h"
#include "fill/wordfinder.h"
#include "fill/wordlist.h"

#include <QElapsedTimer>

#include <cstdio>
#include <ctime>
#include <random>

namespace {

// The machine is shared, so the processor time of this thread is printed beside the wall clock.
double cpuMillis()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

struct Stopwatch {
    QElapsedTimer wall;
    double cpu = cpuMillis();
    Stopwatch() { wall.start(); }
    double wallMs() const { return double(wall.nsecsElapsed()) / 1e6; }
    double cpuMs() const { return cpuMillis() - cpu; }
};

// Patterns as a constructor meets them: a word of the list with most of its letters open.
std::vector<QByteArray> randomPatterns(const TPatternIndex &index, int n)
{
    std::mt19937 random(21);
    std::vector<QByteArray> patterns;
    while (int(patterns.size()) < n) {
        const int length = 3 + int(random() % 11);
        if (index.wordsOfLength(length) == 0)
            continue;
        const std::string_view w = index.word(length, int(random() % uint32_t(index.wordsOfLength(length))));
        QByteArray p(w.data(), qsizetype(w.size()));
        for (char &c : p)
            if (random() % 10 < 6)
                c = AnyLetter;
        patterns.push_back(p);
    }
    return patterns;
}

// A 23 x 23 grid: black squares on rows 8 and 16 of every column, so rows 9 to 15 are
// 23-letter words, each square crossed by a 7-letter down word.
TPuzzle longSlotGrid()
{
    TPuzzle p;
    p.ClearPuzzle(23, 'N', "Bench", 0);
    for (int c = 1; c <= 23; ++c) {
        p.Cells(c, 8) = BlockChar;
        p.Cells(c, 16) = BlockChar;
    }
    return p;
}

void finderTime(const char *name, const TPatternIndex &index, const TPuzzle &p, const TFillSlot &slot)
{
    const int repeats = 20;
    Stopwatch s;
    int candidates = 0;
    for (int i = 0; i < repeats; ++i)
        candidates = int(FindCandidates(index, p, slot, SlotPattern(p, slot)).Candidates.size());
    std::printf("  %-40s %6d candidates %8.2f ms wall %8.2f ms cpu\n", name, candidates, s.wallMs() / repeats,
                s.cpuMs() / repeats);
}

}  // namespace

void BenchWordLists()
{
    std::printf("Default word lists, first load\n");
    for (int language = 0; language < GridLanguageCount; ++language) {
        Stopwatch s;
        const TWordList &words = DefaultWordList(language);
        std::printf("  %-14s %8d words %8.1f ms wall %8.1f ms cpu\n", qPrintable(GridLanguageName(language)),
                    words.size(), s.wallMs(), s.cpuMs());
    }

    Stopwatch build;
    const TPatternIndex index(DefaultWordList(0));
    std::printf("Pattern index over the English list: built in %.1f ms wall %.1f ms cpu\n", build.wallMs(), build.cpuMs());

    const std::vector<QByteArray> patterns = randomPatterns(index, 100000);
    const int queries = 2000000;
    volatile long sink = 0;
    Stopwatch counting;
    for (int i = 0; i < queries; ++i)
        sink = sink + index.count(patterns[size_t(i) % patterns.size()]);
    std::printf("  count-only queries: %.2f million a second (wall), %.2f million (cpu)\n",
                queries / counting.wallMs() / 1000.0, queries / counting.cpuMs() / 1000.0);

    std::printf("Word finder on a 23 x 23 grid, crossing checks included (20 runs each)\n");
    TPuzzle p = longSlotGrid();
    finderTime("longest slot, 23 letters, empty", index, p, SlotThrough(p, 1, 12, Direction::Across));
    for (int c = 1; c <= 23; c += 2)
        p.Cells(c, 12) = uint8_t("CONSTRUCTIONISTSANDMORE"[c - 1]);
    finderTime("longest slot, every other letter given", index, p, SlotThrough(p, 1, 12, Direction::Across));
    finderTime("7-letter down slot crossing seven 23s", index, p, SlotThrough(p, 2, 9, Direction::Down));
    TPuzzle open;
    open.ClearPuzzle(23, 'N', "Bench", 0);
    for (int r = 1; r <= 23; ++r)
        for (int c = 1; c <= 23; ++c)
            if (c % 6 == 0 || r % 6 == 0)
                open.Cells(c, r) = BlockChar;
    finderTime("5-letter slot in a 5 x 5 block grid", index, open, SlotThrough(open, 1, 1, Direction::Across));
}

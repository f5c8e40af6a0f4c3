#include "fill/fillreport.h"

#include <QSet>

#include <algorithm>

TFillReport MakeFillReport(const TPuzzle &p, const TWordList &words, int lowest)
{
    TFillReport report;
    const TGridArray<int> numbers = SquareNumbers(p);
    QSet<QByteArray> seen, repeated;
    int listed = 0;
    long total = 0;
    for (const TFillSlot &slot : FillSlots(p)) {
        const QByteArray word = SlotPattern(p, slot);
        if (word.contains(AnyLetter))
            continue;
        const int at = words.find(std::string_view(word.constData(), size_t(word.size())));
        TReportEntry e{numbers(slot.Column, slot.Row), slot, word, at < 0 ? -1 : words.score(at)};
        report.Entries.append(e);
        if (e.Score < 0) {
            report.NotInList.append(e);
        } else {
            ++listed;
            total += e.Score;
        }
        if (seen.contains(word) && !repeated.contains(word)) {
            repeated.insert(word);
            report.Repeated.append(word);
        }
        seen.insert(word);
    }
    QList<TReportEntry> byScore;
    for (const TReportEntry &e : std::as_const(report.Entries))
        if (e.Score >= 0)
            byScore.append(e);
    std::stable_sort(byScore.begin(), byScore.end(), [](const TReportEntry &a, const TReportEntry &b) { return a.Score < b.Score; });
    report.Lowest = byScore.mid(0, lowest);
    report.AverageScore = listed ? double(total) / listed : 0.0;
    return report;
}

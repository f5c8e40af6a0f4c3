#include "fill/wordlistservice.h"

#include "clues/gridlanguage.h"
#include "settings/settingkeys.h"
#include "settings/txwdprocs.h"

#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>

namespace {

const QString ListsKey = QStringLiteral("WordLists");
const QString MinScoreKey = QStringLiteral("MinWordScore");

}  // namespace

QString FormatWordListSources(const QList<TWordListSource> &sources)
{
    QStringList lines;
    for (const TWordListSource &s : sources)
        lines << (s.Enabled ? QStringLiteral("1\t") : QStringLiteral("0\t")) + s.Path;
    return lines.join(u'\n');
}

QList<TWordListSource> ParseWordListSources(const QString &text)
{
    QList<TWordListSource> sources;
    bool hasDefault = false;
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
        const qsizetype tab = line.indexOf(u'\t');
        if (tab < 0)
            continue;
        const TWordListSource s{line.mid(tab + 1), line.left(tab) != u"0"};
        if (s.isDefault() && hasDefault)
            continue;
        hasDefault = hasDefault || s.isDefault();
        sources.append(s);
    }
    // The default list always has a place, switched off if the user wants it off.
    if (!hasDefault)
        sources.append(TWordListSource{});
    return sources;
}

int ConstructionLanguage()
{
    return std::clamp(ReadInt(Setting::GridLanguage), 0, GridLanguageCount - 1);
}

TWordListConfig WordListConfigFromSettings(int language)
{
    TWordListConfig config;
    config.Language = language;
    config.Sources = ParseWordListSources(ReadText(ListsKey, QStringLiteral("1\t")));
    config.PersonalPath = PersonalListPath();
    config.MinScore = std::clamp(ReadInt(MinScoreKey, 0), 0, MaxWordScore);
    return config;
}

void WriteWordListSettings(const QList<TWordListSource> &sources, int minScore)
{
    WriteSetting(ListsKey, FormatWordListSources(sources));
    WriteSetting(MinScoreKey, minScore);
}

std::shared_ptr<const TLexicon> LoadLexicon(const TWordListConfig &config)
{
    auto lexicon = std::make_shared<TLexicon>();
    lexicon->Config = config;
    TLoadedWords loaded = LoadWordLists(config);
    lexicon->Words = std::move(loaded.Words);
    lexicon->Problems = loaded.Problems;
    lexicon->Index = TPatternIndex(lexicon->Words);
    return lexicon;
}

TWordListService::TWordListService(QObject *parent) : QObject(parent)
{
    connect(&watcher_, &QFutureWatcher<std::shared_ptr<const TLexicon>>::finished, this, &TWordListService::finished);
}

TWordListService::~TWordListService()
{
    watcher_.waitForFinished();
}

std::shared_ptr<const TLexicon> TWordListService::Lexicon(const TWordListConfig &config)
{
    if (current_ && current_->Config == config)
        return current_;
    if (!hasWanted_ || !(wanted_ == config) || !IsLoading())
        start(config);
    return nullptr;
}

std::shared_ptr<const TLexicon> TWordListService::FromSettings()
{
    return Lexicon(WordListConfigFromSettings(ConstructionLanguage()));
}

void TWordListService::Invalidate()
{
    current_.reset();
}

void TWordListService::WaitForLoad()
{
    if (IsLoading()) {
        watcher_.waitForFinished();
        finished();
    }
}

void TWordListService::start(const TWordListConfig &config)
{
    wanted_ = config;
    hasWanted_ = true;
    // One load at a time; when it ends, a newer wish starts the next.
    if (IsLoading())
        return;
    watcher_.setFuture(QtConcurrent::run([config] { return LoadLexicon(config); }));
}

void TWordListService::finished()
{
    if (!watcher_.future().isValid() || watcher_.future().resultCount() == 0)
        return;
    std::shared_ptr<const TLexicon> result = watcher_.future().result();
    watcher_.setFuture(QFuture<std::shared_ptr<const TLexicon>>());
    if (!(result->Config == wanted_)) {
        start(wanted_);
        return;
    }
    current_ = std::move(result);
    emit ready();
}

TWordListService &WordLists()
{
    // Never destroyed: a load may still run while the program ends.
    static auto *service = new TWordListService;
    return *service;
}

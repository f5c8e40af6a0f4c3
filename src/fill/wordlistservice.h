#pragma once
// The program's word lists: the lists the preferences name, loaded beside the window thread
// on first use and handed back to it, shared by every window that offers or checks words.

#include "fill/patternindex.h"
#include "fill/wordlist.h"

#include <QFutureWatcher>
#include <QObject>

#include <memory>

// The merged words of one configuration and their index.
struct TLexicon {
    TWordListConfig Config;
    TWordList Words;
    TPatternIndex Index;
    QStringList Problems;  // lists reported by name and skipped, malformed lines
};

// The preferences' choice: the lists in order with their switches (an empty path is the
// default list), and the lowest score offered; the personal list in the user's data folder.
TWordListConfig WordListConfigFromSettings(int language);
// The grid language of construction, as the preferences store it.
int ConstructionLanguage();
void WriteWordListSettings(const QList<TWordListSource> &sources, int minScore);
// The settings' text for the lists: one "1<TAB>path" (on) or "0<TAB>path" (off) a line.
QString FormatWordListSources(const QList<TWordListSource> &sources);
QList<TWordListSource> ParseWordListSources(const QString &text);

class TWordListService : public QObject {
    Q_OBJECT
public:
    explicit TWordListService(QObject *parent = nullptr);
    ~TWordListService() override;

    // The lists for `config` when they are loaded; otherwise null, and a load is started
    // (`ready` follows on the window thread).
    std::shared_ptr<const TLexicon> Lexicon(const TWordListConfig &config);
    // The lists the settings name for the grid language of construction.
    std::shared_ptr<const TLexicon> FromSettings();
    bool IsLoading() const { return watcher_.isRunning(); }
    // Forgets what is loaded: the lists or the settings changed.
    void Invalidate();
    // Waits for a load under way (the command line and the tests).
    void WaitForLoad();

signals:
    void ready();

private:
    void start(const TWordListConfig &config);
    void finished();

    std::shared_ptr<const TLexicon> current_;
    TWordListConfig wanted_;
    bool hasWanted_ = false;
    QFutureWatcher<std::shared_ptr<const TLexicon>> watcher_;
};

// The program's one service.
TWordListService &WordLists();
// Loads the lists of `config` and indexes them, on the calling thread.
std::shared_ptr<const TLexicon> LoadLexicon(const TWordListConfig &config);

#pragma once
// Word lists: words brought into a grid language's letters, each with a score from 0 to 100,
// read from the user's own lists, the installed default lists and the personal list, and
// merged by priority into one flat list per language.

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <string_view>
#include <vector>

constexpr int MinWordLength = 2;
constexpr int MaxWordLength = 23;
constexpr int MaxWordScore = 100;
// The score of a line that gives a word alone.
constexpr int PlainWordScore = 50;

// The word as the grid of `language` holds it, in Windows-1252 capitals: small letters
// become capitals (ß stays ß), apostrophes, hyphens and spaces go, an accented letter the
// language does not admit becomes its base letter (Æ, Œ and ß become two letters where
// they are not admitted). Empty when anything else is in the word or its length falls
// outside 2 to 23.
QByteArray NormaliseWord(QStringView word, int language);
// The same for UTF-8 bytes, writing into `out` (at least MaxWordLength bytes); returns
// the length, or 0 when the word is left out. The loaders' fast path.
int NormaliseUtf8(std::string_view utf8, int language, char *out);
// The same for Windows-1252 bytes.
int NormaliseCp1252(std::string_view bytes, int language, char *out);

// Words with their scores, stored flat (one byte buffer and one small entry per word) so
// that a list of a few hundred thousand words costs a handful of allocations. A word is
// held once; the words keep the order they were first added in.
class TWordList {
public:
    int size() const { return int(entries_.size()); }
    bool isEmpty() const { return entries_.empty(); }
    // The word's Windows-1252 bytes; valid until the list changes.
    std::string_view word(int i) const
    {
        const Entry &e = entries_[size_t(i)];
        return {chars_.data() + e.Offset, e.Length};
    }
    QByteArray wordBytes(int i) const { return QByteArray(word(i).data(), qsizetype(word(i).size())); }
    int score(int i) const { return entries_[size_t(i)].Score; }
    // The word's position, or -1.
    int find(std::string_view word) const;
    bool contains(std::string_view word) const { return find(word) >= 0; }

    // Adds the word, or, when it is already there, keeps the higher of the two scores.
    void add(std::string_view word, int score);
    // Adds the word only when it is not there yet: the first list that has a word gives its score.
    void addIfAbsent(std::string_view word, int score);
    void reserve(qsizetype words, qsizetype bytes);

private:
    struct Entry {
        uint32_t Offset;
        uint8_t Length;
        uint8_t Score;
    };
    // Open addressing; the hash is kept beside the position so that a probe seldom has
    // to read the word itself.
    struct Cell {
        int32_t At = -1;  // -1: free
        uint32_t Hash = 0;
    };
    int slotFor(std::string_view word, uint32_t hash) const;
    void rehash(size_t cells);

    std::string chars_;
    std::vector<Entry> entries_;
    std::vector<Cell> table_;
};

// A problem found while reading a list, named so the user can find it.
struct TListProblem {
    int Line = 0;  // 0 when it concerns the whole list
    QString Message;
};

// One list read from a file or from bytes.
struct TReadList {
    TWordList Words;
    QList<TListProblem> Problems;  // malformed lines
    int LeftOut = 0;               // well-formed lines whose word the language cannot hold
    bool Unreadable = false;       // the file could not be read or is not a word list
};

// A list in the format constructors exchange: one entry a line, `WORD;SCORE` (0 to 100)
// or `WORD` alone (score `plainScore`), UTF-8 or Windows-1252. Empty lines are skipped.
TReadList ParseWordList(QByteArrayView bytes, int language, int plainScore = PlainWordScore);
TReadList ReadWordListFile(const QString &path, int language, int plainScore = PlainWordScore);

// One file of a language's default list and the score its words get.
struct TDefaultListFile {
    QString Path;
    int Score = PlainWordScore;
};
// The installed files of the language's default list (English by commonness: the
// commonest words score highest, names and abbreviations lower; Multilingual is every
// language's list). Only files that exist are named.
QList<TDefaultListFile> DefaultListFiles(int language);
// The language's default list, read once per process and kept; safe from any thread.
const TWordList &DefaultWordList(int language);

// The personal list in the user's data folder: words added (with a score) and words
// excluded from every list, kept as the user typed them.
struct TPersonalWord {
    QString Word;
    int Score = PlainWordScore;
};
struct TPersonalList {
    QList<TPersonalWord> Added;
    QStringList Excluded;
};
QString PersonalListPath();
// One entry a line: `WORD;SCORE` (or `WORD`) added, `-WORD` excluded. A missing file is empty.
TPersonalList ReadPersonalList(const QString &path);
// Atomic; false when the file could not be written.
bool WritePersonalList(const QString &path, const TPersonalList &list);

// One list in the order of priority: a file, or (with an empty path) the language's
// default list.
struct TWordListSource {
    QString Path;
    bool Enabled = true;
    bool isDefault() const { return Path.isEmpty(); }
};

// What to offer: the lists by priority, the personal list, the lowest score offered.
struct TWordListConfig {
    int Language = 0;
    QList<TWordListSource> Sources;
    QString PersonalPath;  // empty: no personal list
    int MinScore = 0;
};

// The merged words and what went wrong on the way.
struct TLoadedWords {
    TWordList Words;
    // "name: line 3: ..." for malformed lines, "name: ..." for a list that was skipped.
    QStringList Problems;
    // Lists that could not be read at all (skipped).
    QStringList Unreadable;
};
// The personal list's added words come first, then the enabled lists in order: the first
// that has a word gives its score. Excluded words and words under the minimum are dropped.
TLoadedWords LoadWordLists(const TWordListConfig &config);
